#include "common/json/json_enum.h"

#include <locale>

namespace Zelk::Provider::Metadata {

std::string ToUpper(std::string text) {
  const std::locale locale;
  // Asked for once a text; the standard's toupper() asks the locale for it at every character.
  std::use_facet<std::ctype<char>>(locale).toupper(text.data(), text.data() + text.size());
  return text;
}

}  // namespace Zelk::Provider::Metadata
