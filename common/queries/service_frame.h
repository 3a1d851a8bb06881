#pragma once

#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <zelk/async_result.h>

#include "common/messages/errors.h"

// How a service delivers the answer of its container. Every operation of every service is one of
// these calls. Nothing is caught: what the container or the host's callback throws leaves it.

namespace Zelk::Provider::Metadata {

/// Whether the success of a change is delivered.
enum class OnSuccess {
  kDeliver,
  /// Intended(silent-success): hosts of the domains that use this take the return of the operation
  /// for success.
  kStaySilent,
};

template <typename Record>
bool IsKnown(const std::shared_ptr<const Record>& answer) {
  return answer != nullptr;
}

template <typename Names>
bool IsKnown(const boost::optional<Names>& answer) {
  return answer.has_value();
}

inline bool IsKnown(const std::string& fingerprint) {
  return !fingerprint.empty();
}

template <typename Answer>
const Answer& Known(const Answer& answer) {
  return answer;
}

template <typename Names>
const Names& Known(const boost::optional<Names>& answer) {
  return *answer;
}

/// Delivers `answer`, or for an empty one NotFound with the message `message_id` about `keys`.
template <typename Result, typename Answer, typename... Keys>
void DeliverOrNotFound(const ::Zelk::AsyncResult<Result>& result, const Answer& answer,
                       const char* message_id, const Keys&... keys) {
  if (IsKnown(answer)) {
    result(Known(answer));
  } else {
    result.error(MakeError<StdErrors::NotFound>(message_id, keys...));
  }
}

/// Delivers the error of a change, or its success if the domain does so.
inline void DeliverChange(const ::Zelk::AsyncResult<::Zelk::Void>& result, const ErrorPtr& error,
                          OnSuccess on_success) {
  if (error) {
    result.error(error);
  } else if (on_success == OnSuccess::kDeliver) {
    result();
  }
}

}  // namespace Zelk::Provider::Metadata
