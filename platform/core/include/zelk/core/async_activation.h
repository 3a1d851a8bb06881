#pragma once

#include <memory>

namespace Zelk::Core {

/// The invocation that an operation is called for. It belongs to the framework; a service
/// implementation only passes it on. It may be null.
class AsyncActivation {};

using AsyncActivationPtr = std::shared_ptr<AsyncActivation>;

}  // namespace Zelk::Core
