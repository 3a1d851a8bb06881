#include <utility>

#include <com/orvane/zelk/std/errors.h>
#include <zelk/data/native_to_value_adapter.h>
#include <zelk/data/values.h>

namespace Com::Orvane::Zelk::Std::Errors {

Error::Error() = default;

Error::~Error() = default;

const std::list<::Zelk::BaseMessage>& Error::Messages() const {
  return messages_;
}

void Error::SetMessages(std::list<::Zelk::BaseMessage> messages) {
  messages_ = std::move(messages);
}

const std::shared_ptr<const ::Zelk::Data::DataValue>& Error::Data() const {
  return data_;
}

void Error::SetData(std::shared_ptr<const ::Zelk::Data::DataValue> data) {
  data_ = std::move(data);
}

std::string Error::TypeName() const {
  return "com.orvane.zelk.std.errors.error";
}

void Error::SetFields(::Zelk::Data::CompoundValue& value) const {
  value.SetField("messages", ::Zelk::Data::NativeToValueAdapter::Adapt(messages_));
  value.SetField("data", std::make_shared<::Zelk::Data::OptionalValue>(data_));
}

NotFound::~NotFound() = default;

std::string NotFound::TypeName() const {
  return "com.orvane.zelk.std.errors.not_found";
}

AlreadyExists::~AlreadyExists() = default;

std::string AlreadyExists::TypeName() const {
  return "com.orvane.zelk.std.errors.already_exists";
}

InvalidArgument::~InvalidArgument() = default;

std::string InvalidArgument::TypeName() const {
  return "com.orvane.zelk.std.errors.invalid_argument";
}

Unsupported::~Unsupported() = default;

std::string Unsupported::TypeName() const {
  return "com.orvane.zelk.std.errors.unsupported";
}

}  // namespace Com::Orvane::Zelk::Std::Errors
