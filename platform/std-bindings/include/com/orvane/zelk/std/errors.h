#pragma once

#include <list>
#include <memory>
#include <string>

#include <com/orvane/zelk/export.h>
#include <zelk/message.h>
#include <zelk/specializable.h>

namespace Zelk::Data {
class DataValue;
}  // namespace Zelk::Data

namespace Com::Orvane::Zelk::Std::Errors {

/// The base of the standard errors. It has messages, in the order found, and optionally a value
/// with details for programs. <zelk/data/error_factory.h> makes the error value that an operation
/// delivers; <zelk/data/values.h> shows how to read one.
class ZELK_STD_BINDINGS_EXPORT Error : public ::Zelk::Specializable {
 public:
  /// Makes an error without messages and data.
  Error();
  ~Error() override;

  const std::list<::Zelk::BaseMessage>& Messages() const;
  void SetMessages(std::list<::Zelk::BaseMessage> messages);

  /// Returns the data, or null if there is none.
  const std::shared_ptr<const ::Zelk::Data::DataValue>& Data() const;
  void SetData(std::shared_ptr<const ::Zelk::Data::DataValue> data);

  /// Returns "com.orvane.zelk.std.errors.error"; each class below returns a name of its own.
  std::string TypeName() const override;

  /// Sets the fields "messages" (ListValue) and "data" (OptionalValue).
  void SetFields(::Zelk::Data::CompoundValue& value) const override;

 private:
  std::list<::Zelk::BaseMessage> messages_;
  std::shared_ptr<const ::Zelk::Data::DataValue> data_;
};

/// The requested object does not exist.
class ZELK_STD_BINDINGS_EXPORT NotFound : public Error {
 public:
  ~NotFound() override;

  /// Returns "com.orvane.zelk.std.errors.not_found".
  std::string TypeName() const override;
};

/// The object to be created exists already.
class ZELK_STD_BINDINGS_EXPORT AlreadyExists : public Error {
 public:
  ~AlreadyExists() override;

  /// Returns "com.orvane.zelk.std.errors.already_exists".
  std::string TypeName() const override;
};

/// An argument is not valid, or the file that it names is not.
class ZELK_STD_BINDINGS_EXPORT InvalidArgument : public Error {
 public:
  ~InvalidArgument() override;

  /// Returns "com.orvane.zelk.std.errors.invalid_argument".
  std::string TypeName() const override;
};

/// The request is valid, but the service does not support it.
class ZELK_STD_BINDINGS_EXPORT Unsupported : public Error {
 public:
  ~Unsupported() override;

  /// Returns "com.orvane.zelk.std.errors.unsupported".
  std::string TypeName() const override;
};

}  // namespace Com::Orvane::Zelk::Std::Errors
