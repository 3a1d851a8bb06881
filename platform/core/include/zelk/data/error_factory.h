#pragma once

#include <list>
#include <memory>

#include <zelk/data/native_to_value_adapter.h>
#include <zelk/data/values.h>
#include <zelk/message.h>
#include <zelk/specializable.h>

namespace Zelk::Data {

/// Makes error values. E is a standard error class (<com/orvane/zelk/std/errors.h>), which decides
/// the kind of the error.
class ErrorFactory {
 public:
  /// Returns an error without messages.
  template <typename E>
  static std::shared_ptr<const ErrorValue> GetError() {
    return GetError<E>(E());
  }

  /// Returns an error with the messages and the data of the given object.
  template <typename E>
  static std::shared_ptr<const ErrorValue> GetError(const E& error) {
    return NativeToValueAdapter::Adapt(error);
  }

  /// Returns an error with the messages, in their order.
  template <typename E>
  static std::shared_ptr<const ErrorValue> GetError(const std::list<BaseMessage>& messages) {
    const std::shared_ptr<ErrorValue> error = NativeToValueAdapter::Adapt(E());
    error->SetField("messages", NativeToValueAdapter::Adapt(messages));
    return error;
  }
};

}  // namespace Zelk::Data
