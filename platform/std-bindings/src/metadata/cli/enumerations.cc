#include <iterator>

#include <com/orvane/zelk/metadata/cli/enumerations.h>

namespace Com::Orvane::Zelk::Metadata::Cli {

namespace CommandSvc {

const char* const FormatterType::Strings::values[] = {"SIMPLE", "TABLE", "JSON", "XML",
                                                      "CSV",    "HTML",  nullptr};
static_assert(std::size(FormatterType::Strings::values) == FormatterType::UNKNOWN + 1,
              "one text an enumerator");

const char* const GenericType::Strings::values[] = {"NONE",          "OPTIONAL",      "LIST",
                                                    "OPTIONAL_LIST", "LIST_OPTIONAL", nullptr};
static_assert(std::size(GenericType::Strings::values) == GenericType::UNKNOWN + 1,
              "one text an enumerator");

}  // namespace CommandSvc

}  // namespace Com::Orvane::Zelk::Metadata::Cli
