#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Zelk::Analysis {

/// What is wrong at the byte at which the JSON parser of the library stopped, in a sentence. `code`
/// is the parser's; `offset` is not greater than the size of the text.
std::string SyntaxErrorText(std::string_view text, std::size_t code, std::size_t offset);

}  // namespace Zelk::Analysis
