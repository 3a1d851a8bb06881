#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <zelk/export.h>

namespace Zelk::Data {

/// A value in the framework's own form, in which it travels between processes. Values are built
/// once and from then on shared as pointers to const, so they are not copied.
class ZELK_CORE_EXPORT DataValue {
 public:
  DataValue(const DataValue&) = delete;
  DataValue& operator=(const DataValue&) = delete;
  virtual ~DataValue() = 0;

 protected:
  DataValue();
};

class ZELK_CORE_EXPORT StringValue : public DataValue {
 public:
  explicit StringValue(std::string value);
  ~StringValue() override;

  const std::string& Value() const;

 private:
  std::string value_;
};

class ZELK_CORE_EXPORT OptionalValue : public DataValue {
 public:
  /// Absent.
  OptionalValue();

  /// Absent when the pointer is null.
  explicit OptionalValue(std::shared_ptr<const DataValue> value);
  ~OptionalValue() override;

  /// Null when absent.
  const std::shared_ptr<const DataValue>& Value() const;

 private:
  std::shared_ptr<const DataValue> value_;
};

class ZELK_CORE_EXPORT ListValue : public DataValue {
 public:
  ListValue();
  ~ListValue() override;

  void Add(std::shared_ptr<const DataValue> element);

  /// In the order added.
  const std::vector<std::shared_ptr<const DataValue>>& Elements() const;

 private:
  std::vector<std::shared_ptr<const DataValue>> elements_;
};

/// A value made of named fields. The name is that of its type, dotted and in lower case.
class ZELK_CORE_EXPORT CompoundValue : public DataValue {
 public:
  ~CompoundValue() override;

  const std::string& Name() const;

  /// Replaces the field if it is already there.
  void SetField(const std::string& name, std::shared_ptr<const DataValue> value);

  /// Null when there is no such field.
  std::shared_ptr<const DataValue> Field(const std::string& name) const;

 protected:
  explicit CompoundValue(std::string name);

 private:
  std::string name_;
  std::map<std::string, std::shared_ptr<const DataValue>> fields_;
};

class ZELK_CORE_EXPORT StructValue : public CompoundValue {
 public:
  explicit StructValue(std::string name);
  ~StructValue() override;
};

/// An error. From the start it has the fields "messages", an empty ListValue, and "data", an absent
/// OptionalValue, so that who receives an error finds both whatever its kind.
class ZELK_CORE_EXPORT ErrorValue : public CompoundValue {
 public:
  explicit ErrorValue(std::string name);
  ~ErrorValue() override;
};

}  // namespace Zelk::Data
