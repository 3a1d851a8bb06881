#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <zelk/export.h>

// How to read an error. An operation delivers it as a std::shared_ptr<const ErrorValue>:
//
// - Name() is the kind of the error: "com.orvane.zelk.std.errors." and one of not_found,
//   already_exists, invalid_argument and unsupported.
// - Field("messages") is a ListValue with one StructValue for each message. It may be empty.
// - Field("data") is an OptionalValue; the metadata services leave it absent.
//
// Each message has three fields:
//
// - "id", a StringValue: the message in the catalog. Programs compare this one.
// - "default_text", a StringValue: the English text with the placeholders "%1%", "%2%" and so on.
// - "arguments", a ListValue of StringValue: the first one replaces "%1%", the second one "%2%".
//
// A text for people is the default text with the arguments filled in. An id that the catalog lacks
// has the text "Unknown message.", without placeholders; show its id and arguments as well.
//
// Field returns a DataValue; std::dynamic_pointer_cast converts it to the type named here. The
// program examples/errors.cc reads all of an error.

namespace Zelk::Data {

/// A value in the form in which the framework passes it between processes. Values are built once
/// and then shared as pointers to const, so they cannot be copied.
class ZELK_CORE_EXPORT DataValue {
 public:
  DataValue(const DataValue&) = delete;
  DataValue& operator=(const DataValue&) = delete;
  virtual ~DataValue() = 0;

 protected:
  DataValue();
};

/// A text.
class ZELK_CORE_EXPORT StringValue : public DataValue {
 public:
  explicit StringValue(std::string value);
  ~StringValue() override;

  const std::string& Value() const;

 private:
  std::string value_;
};

/// A value that may be absent.
class ZELK_CORE_EXPORT OptionalValue : public DataValue {
 public:
  /// Makes an absent value.
  OptionalValue();

  /// Makes an absent value if the pointer is null.
  explicit OptionalValue(std::shared_ptr<const DataValue> value);
  ~OptionalValue() override;

  /// Returns null if the value is absent.
  const std::shared_ptr<const DataValue>& Value() const;

 private:
  std::shared_ptr<const DataValue> value_;
};

/// A list of values, which may be of different types.
class ZELK_CORE_EXPORT ListValue : public DataValue {
 public:
  ListValue();
  ~ListValue() override;

  /// Appends the element.
  void Add(std::shared_ptr<const DataValue> element);

  /// Returns the elements in the order in which they were added.
  const std::vector<std::shared_ptr<const DataValue>>& Elements() const;

 private:
  std::vector<std::shared_ptr<const DataValue>> elements_;
};

/// A value made of named fields.
class ZELK_CORE_EXPORT CompoundValue : public DataValue {
 public:
  ~CompoundValue() override;

  /// Returns the name of the value's type, in lower case with full stops.
  const std::string& Name() const;

  /// Adds the field, or replaces the one of that name.
  void SetField(const std::string& name, std::shared_ptr<const DataValue> value);

  /// Returns the value of the field, or null if there is no such field.
  std::shared_ptr<const DataValue> Field(const std::string& name) const;

 protected:
  explicit CompoundValue(std::string name);

 private:
  std::string name_;
  std::map<std::string, std::shared_ptr<const DataValue>> fields_;
};

/// A structure, such as a message.
class ZELK_CORE_EXPORT StructValue : public CompoundValue {
 public:
  explicit StructValue(std::string name);
  ~StructValue() override;
};

/// An error. The constructor sets the fields "messages" (an empty ListValue) and "data" (an absent
/// OptionalValue), so an error of any kind has both.
class ZELK_CORE_EXPORT ErrorValue : public CompoundValue {
 public:
  explicit ErrorValue(std::string name);
  ~ErrorValue() override;
};

}  // namespace Zelk::Data
