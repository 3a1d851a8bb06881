#pragma once

namespace Zelk::Core {

/// What the framework passes to a callback along with the result.
struct AsyncContext {};

}  // namespace Zelk::Core
