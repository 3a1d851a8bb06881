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

/// The result of an operation that answers nothing but "done".
struct Void {};

/// Where an operation delivers its answer: either a value or an error. The callback runs before the
/// delivering call returns, on the same thread, and what it throws leaves that call. Delivering
/// through an empty callback throws std::bad_function_call. How often an operation delivers is not
/// checked.
template <typename T>
class AsyncResult {
 public:
  /// Gets the value and a null error, or an empty optional and the error. The arguments are valid
  /// during the call only.
  using Callback =
      std::function<void(const boost::optional<T>&, const std::shared_ptr<const Data::ErrorValue>&,
                         const Core::AsyncContext&)>;

  AsyncResult() = default;

  /// Implicit, because a result is little more than its callback.
  AsyncResult(Callback callback)  // NOLINT(google-explicit-constructor)
      : callback_(std::move(callback)) {}

  /// Delivers a copy of the value.
  void operator()(const T& value) const {
    callback_(boost::optional<T>(value), nullptr, Core::AsyncContext());
  }

  /// Delivers success; there is nothing to say in the case of Void, and only then.
  template <typename Value = T, typename = std::enable_if_t<std::is_same<Value, Void>::value>>
  void operator()() const {
    (*this)(Void());
  }

  void error(const std::shared_ptr<const Data::ErrorValue>& error) const {
    callback_(boost::none, error, Core::AsyncContext());
  }

 private:
  Callback callback_;
};

}  // namespace Zelk
