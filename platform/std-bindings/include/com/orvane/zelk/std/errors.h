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

/// The standard error that all others derive from: the messages that explain it, in the order
/// found, and an optional value with details that a program can read.
class ZELK_STD_BINDINGS_EXPORT Error : public ::Zelk::Specializable {
 public:
  /// No messages and no data.
  Error();
  ~Error() override;

  const std::list<::Zelk::BaseMessage>& Messages() const;
  void SetMessages(std::list<::Zelk::BaseMessage> messages);

  /// Null when there is none.
  const std::shared_ptr<const ::Zelk::Data::DataValue>& Data() const;
  void SetData(std::shared_ptr<const ::Zelk::Data::DataValue> data);

  /// "com.orvane.zelk.std.errors.error"; each class below answers its own name.
  std::string TypeName() const override;

  /// Sets "messages" and "data".
  void SetFields(::Zelk::Data::CompoundValue& value) const override;

 private:
  std::list<::Zelk::BaseMessage> messages_;
  std::shared_ptr<const ::Zelk::Data::DataValue> data_;
};

/// What was asked for is not there.
class ZELK_STD_BINDINGS_EXPORT NotFound : public Error {
 public:
  ~NotFound() override;

  /// "com.orvane.zelk.std.errors.not_found"
  std::string TypeName() const override;
};

/// What was to be made is already there.
class ZELK_STD_BINDINGS_EXPORT AlreadyExists : public Error {
 public:
  ~AlreadyExists() override;

  /// "com.orvane.zelk.std.errors.already_exists"
  std::string TypeName() const override;
};

/// An argument, or what it refers to, makes no sense.
class ZELK_STD_BINDINGS_EXPORT InvalidArgument : public Error {
 public:
  ~InvalidArgument() override;

  /// "com.orvane.zelk.std.errors.invalid_argument"
  std::string TypeName() const override;
};

/// The request makes sense, but the service cannot do it.
class ZELK_STD_BINDINGS_EXPORT Unsupported : public Error {
 public:
  ~Unsupported() override;

  /// "com.orvane.zelk.std.errors.unsupported"
  std::string TypeName() const override;
};

}  // namespace Com::Orvane::Zelk::Std::Errors
