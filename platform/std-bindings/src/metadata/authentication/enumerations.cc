#include <iterator>

#include <com/orvane/zelk/metadata/authentication/enumerations.h>

namespace Com::Orvane::Zelk::Metadata::Authentication {

namespace AuthenticationInfoEnumerations {

const char* const SchemeType::Strings::values[] = {"SESSIONLESS", "SESSION_AWARE", nullptr};
static_assert(std::size(SchemeType::Strings::values) == SchemeType::UNKNOWN + 1,
              "one text an enumerator");

}  // namespace AuthenticationInfoEnumerations

}  // namespace Com::Orvane::Zelk::Metadata::Authentication
