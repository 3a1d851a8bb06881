#pragma once

#include <string_view>

// What is the same on every page. The build makes them from the files in page/.

namespace Zelk::Tool::Docs {

/// HTML with {{NAME}} where something is put in.
extern const std::string_view kFrame;
extern const std::string_view kStyle;
extern const std::string_view kScript;

}  // namespace Zelk::Tool::Docs
