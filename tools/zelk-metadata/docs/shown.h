#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Zelk::Tool::Docs {

/// The text as the script of the page shows names: characters that cannot be seen or that change
/// the direction of text are codes, what is blank is called so, and no more than `longest`
/// characters are shown. What is not well-formed UTF-8 is replaced.
std::string ShownName(std::string_view text, std::size_t longest = 200);

}  // namespace Zelk::Tool::Docs
