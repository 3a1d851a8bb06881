#include "common/json/json_enum.h"

#include <locale>

namespace Zelk::Provider::Metadata {

std::string ToUpper(std::string text) {
  const std::locale locale;
  // Get the facet once per text; std::toupper() would get it for every character.
  std::use_facet<std::ctype<char>>(locale).toupper(text.data(), text.data() + text.size());
  return text;
}

}  // namespace Zelk::Provider::Metadata
