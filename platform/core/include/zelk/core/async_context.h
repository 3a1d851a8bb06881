#pragma once

namespace Zelk {
namespace Core {

// What the framework tells the receiver of a result beside the result itself.
struct AsyncContext {};

}  // namespace Core
}  // namespace Zelk
