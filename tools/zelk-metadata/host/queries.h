#pragma once

#include <utility>

#include "host/domain.h"

// Queries made from service operations. How many ids a query takes follows from the operation. The
// service must outlive the query.

namespace Zelk::Tool {

template <typename Service, typename... Parameters, std::size_t... kIndices>
auto CallWithIds(Service& service, void (Service::*operation)(Parameters...), const Ids& ids,
                 std::index_sequence<kIndices...> /*indices*/) {
  return Call(service, operation, ids[kIndices]...);
}

/// A query that asks `operation` and returns `convert(answer)`.
template <typename T, typename Service, typename... Parameters, typename Convert>
Query<T> MakeQuery(Service& service, void (Service::*operation)(Parameters...),
                   const Convert& convert) {
  constexpr std::size_t kKeys = OperationTraits<Parameters...>::kKeys;
  return {{kKeys, kKeys}, [&service, operation, convert](const Ids& ids) -> Outcome<T> {
            auto outcome = CallWithIds(service, operation, ids, std::make_index_sequence<kKeys>());
            if (outcome.error) return {std::nullopt, std::move(outcome.error)};
            if (!outcome.answer) return {std::nullopt, ServiceError::NoAnswer()};
            return {convert(ids, *outcome.answer), std::nullopt};
          }};
}

/// Of an operation that returns a list or set of names.
template <typename Service, typename... Parameters>
Query<Names> ListQuery(Service& service, void (Service::*operation)(Parameters...)) {
  return MakeQuery<Names>(service, operation, [](const Ids& /*ids*/, const auto& names) {
    return Names(names.begin(), names.end());
  });
}

template <typename Service, typename... Parameters>
Query<std::string> FingerprintQuery(Service& service, void (Service::*operation)(Parameters...)) {
  return MakeQuery<std::string>(
      service, operation,
      [](const Ids& /*ids*/, const std::string& fingerprint) { return fingerprint; });
}

/// Of an operation that takes one optional id.
template <typename Service>
Query<std::string> OptionalFingerprintQuery(Service& service) {
  return {{0, 1}, [&service](const Ids& ids) -> Outcome<std::string> {
            boost::optional<std::string> id;
            if (!ids.empty()) id = ids.front();
            return Call(service, &Service::Fingerprint, id);
          }};
}

}  // namespace Zelk::Tool
