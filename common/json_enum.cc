#include "common/json_enum.h"

#include <locale>

#include <boost/algorithm/string/case_conv.hpp>

namespace Zelk::Provider::Metadata {

std::string ToUpper(std::string text) {
  boost::algorithm::to_upper(text, std::locale());
  return text;
}

}  // namespace Zelk::Provider::Metadata
