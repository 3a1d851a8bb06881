#pragma once

#include <memory>

namespace Zelk::Core {

/// The invocation that an operation is called for. The framework makes it and keeps what it needs
/// with it; a service implementation hands it on and never looks inside.
class AsyncActivation {};

using AsyncActivationPtr = std::shared_ptr<AsyncActivation>;

}  // namespace Zelk::Core
