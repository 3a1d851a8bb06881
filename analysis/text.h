#pragma once

#include <string>

namespace Zelk::Analysis {

// Only ASCII letters have a case, in every locale.
inline std::string LowerCase(std::string text) {
  for (char& character : text) {
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character + 'a' - 'A');
  }
  return text;
}

}  // namespace Zelk::Analysis
