#pragma once

#include <memory>
#include <optional>
#include <tuple>

#include <boost/optional.hpp>

#include <zelk/async_result.h>
#include <zelk/core/async_activation.h>
#include <zelk/data/values.h>

#include "host/service_error.h"

// Calls of service operations, the way every host makes them: with an activation, and with a result
// that takes what the operation delivers.

namespace Zelk::Tool {

/// What an operation delivered: an answer, an error, or, where success goes without saying,
/// neither.
template <typename T>
struct Outcome {
  std::optional<T> answer;
  std::optional<ServiceError> error;
};

template <typename Parameter>
struct ResultType;

template <typename T>
struct ResultType<const AsyncResult<T>&> {
  using Type = T;
};

/// A service operation seen from outside: its last two parameters are the activation and the
/// result, the ones before are its own.
template <typename... Parameters>
struct OperationTraits {
  static constexpr std::size_t kKeys = sizeof...(Parameters) - 2;
  using Result = typename ResultType<
      std::tuple_element_t<sizeof...(Parameters) - 1, std::tuple<Parameters...>>>::Type;
};

/// Calls `operation` of `service` with `keys`. The services deliver before they return, so what is
/// there by then is all there is.
template <typename Service, typename... Parameters, typename... Keys>
auto Call(Service& service, void (Service::*operation)(Parameters...), const Keys&... keys) {
  using T = typename OperationTraits<Parameters...>::Result;
  Outcome<T> outcome;
  const AsyncResult<T> result([&outcome](const boost::optional<T>& answer,
                                         const std::shared_ptr<const Data::ErrorValue>& error,
                                         const Core::AsyncContext& /*context*/) {
    if (answer) outcome.answer = *answer;
    if (error) outcome.error = ServiceError::From(*error);
  });
  (service.*operation)(keys..., std::make_shared<Core::AsyncActivation>(), result);
  return outcome;
}

}  // namespace Zelk::Tool
