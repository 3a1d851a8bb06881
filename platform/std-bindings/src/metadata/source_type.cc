#include <iterator>
#include <utility>

#include <com/orvane/zelk/metadata/source_type.h>

namespace Com::Orvane::Zelk::Metadata {

const char* const SourceType::Strings::values[] = {"LOCAL_FILE", "REMOTE", nullptr};
static_assert(std::size(SourceType::Strings::values) == SourceType::UNKNOWN + 1,
              "one text an enumerator");

SourceDescription::SourceDescription(std::string description_arg, SourceType type_arg,
                                     boost::optional<std::string> file_path_arg,
                                     boost::optional<std::string> address_arg)
    : description(std::move(description_arg)),
      type(std::move(type_arg)),
      file_path(std::move(file_path_arg)),
      address(std::move(address_arg)) {}

}  // namespace Com::Orvane::Zelk::Metadata
