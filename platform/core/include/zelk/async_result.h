#pragma once

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

#include <boost/optional.hpp>

#include <zelk/core/async_context.h>

namespace Zelk {

namespace Core {
class AsyncActivation;
}  // namespace Core

namespace Data {
class ErrorValue;
}  // namespace Data

/// The result of an operation that only reports that it is done.
struct Void {};

/// Receives the answer of an operation: either a value or an error. The operation calls it, and it
/// calls the callback, on the same thread and before the call returns. Whatever the callback throws
/// leaves that call; an empty callback throws std::bad_function_call. The number of calls is not
/// checked.
template <typename T>
class AsyncResult {
 public:
  /// Called with the value and a null error, or with an empty optional and the error. The
  /// references are valid during the call only.
  using Callback =
      std::function<void(const boost::optional<T>&, const std::shared_ptr<const Data::ErrorValue>&,
                         const Core::AsyncContext&)>;

  AsyncResult() = default;

  /// Implicit, so that a lambda can be passed where a result is expected.
  AsyncResult(Callback callback)  // NOLINT(google-explicit-constructor)
      : callback_(std::move(callback)) {}

  /// Calls the callback with a copy of the value.
  void operator()(const T& value) const {
    callback_(boost::optional<T>(value), nullptr, Core::AsyncContext());
  }

  /// Reports success. Only for Void.
  template <typename Value = T, typename = std::enable_if_t<std::is_same<Value, Void>::value>>
  void operator()() const {
    (*this)(Void());
  }

  /// Calls the callback with the error.
  void error(const std::shared_ptr<const Data::ErrorValue>& error) const {
    callback_(boost::none, error, Core::AsyncContext());
  }

 private:
  Callback callback_;
};

}  // namespace Zelk
