#pragma once

#include <memory>

#include <com/orvane/zelk/std/errors.h>
#include <zelk/data/error_factory.h>

#include "common/messages/message_catalog.h"

namespace Zelk::Provider::Metadata {

namespace StdErrors = ::Com::Orvane::Zelk::Std::Errors;

/// An error, or null for success.
using ErrorPtr = std::shared_ptr<const ::Zelk::Data::ErrorValue>;

/// Returns an error of class `E` with one message: `id` and its arguments in order.
template <typename E, typename... Arguments>
ErrorPtr MakeError(const char* id, const Arguments&... arguments) {
  CatalogMessage message(id);
  static_cast<void>((message % ... % arguments));
  return ::Zelk::Data::ErrorFactory::GetError<E>(Errors{message});
}

}  // namespace Zelk::Provider::Metadata
