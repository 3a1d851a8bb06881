#include "analysis/element.h"

#include <array>
#include <cstddef>

namespace Zelk::Analysis {
namespace {

struct KindFacts {
  const char* word;
  const char* name_key;
};

// In the order of ElementKind.
constexpr std::array<KindFacts, 24> kKinds{{
    {"", nullptr},
    {"component", "name"},
    {"package", "name"},
    {"service", "name"},
    {"operation", "name"},
    {"parameter", "name"},
    {"result", nullptr},
    {"error", "user_defined_type_name"},
    {"structure", "name"},
    {"field", "name"},
    {"enumeration", "name"},
    {"value", "name"},
    {"constant", "name"},
    {"annotation", nullptr},
    {"scheme", nullptr},
    {"package", nullptr},
    {"service", nullptr},
    {"operation", nullptr},
    {"entry", nullptr},
    {"namespace", "name"},
    {"command", "name"},
    {"option", "long_option"},
    {"output", "structure_id"},
    {"output-field", "field_name"},
}};

const KindFacts& FactsOf(ElementKind kind) {
  return kKinds.at(static_cast<std::size_t>(kind));
}

}  // namespace

const char* Word(ElementKind kind) {
  return FactsOf(kind).word;
}

const char* NameKey(ElementKind kind) {
  return FactsOf(kind).name_key;
}

}  // namespace Zelk::Analysis
