#pragma once

namespace Zelk::Core {

/// What the framework tells the receiver of a result beside the result itself.
struct AsyncContext {};

}  // namespace Zelk::Core
