#include "tool/check_claims.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <sstream>
#include <vector>

using rapidjson::Document;
using rapidjson::Pointer;
using rapidjson::Value;

namespace Zelk::Testing {
namespace {

enum class Type { kText, kObject, kList, kTextOrList, kAnything };

/// What a file has at a place. A place is the last steps of a pointer, where * is any one of them
/// and # an index.
struct Place {
  const char* steps;
  Type type;
  /// What messages about its type call it; if null, its last key.
  const char* called;
  /// The keys of an object, or the words that a text may be, in upper case.
  const char* words;
};

constexpr char kAnnotation[] = "ElementValue";
constexpr char kList[] = "packages";
constexpr char kTypeKeys[] =
    "category primitive_type user_defined_type user_defined_type_name generic_type element_type "
    "map_key_type map_value_type";
constexpr char kBuiltins[] =
    "VOID BOOLEAN LONG DOUBLE STRING BINARY SECRET DATE_TIME ID URI ANY_ERROR DYNAMIC_STRUCTURE "
    "OPAQUE";

// The first place that a pointer ends with is its own. What is in no row is a text.
const Place kMetamodel[] = {
    {"metadata/*/*/#", Type::kText, kAnnotation, ""},
    {"metadata/*/*", Type::kTextOrList, kAnnotation, ""},
    {"metadata/*", Type::kObject, kAnnotation, ""},
    {"metadata", Type::kObject, nullptr, ""},
    {"packages/#", Type::kAnything, nullptr,
     "name documentation metadata enumerations structures services"},
    {"services/#", Type::kAnything, nullptr,
     "name documentation metadata enumerations structures constants operations"},
    {"structures/#", Type::kAnything, nullptr,
     "name type documentation metadata enumerations constants fields"},
    {"enumerations/#", Type::kAnything, nullptr, "name documentation metadata values"},
    {"values/#", Type::kAnything, nullptr, "name documentation metadata"},
    {"constants/#", Type::kAnything, nullptr, "name documentation type value"},
    {"operations/#", Type::kAnything, nullptr, "name documentation metadata params result errors"},
    {"params/#", Type::kAnything, nullptr, "name documentation metadata type"},
    {"fields/#", Type::kAnything, nullptr, "name documentation metadata type"},
    {"errors/#", Type::kAnything, nullptr, "user_defined_type_name documentation"},
    {"constants/#/type/category", Type::kText, nullptr, "PRIMITIVE LIST"},
    {"constants/#/type/type", Type::kText, nullptr, kBuiltins},
    {"constants/#/type", Type::kObject, nullptr, "category type"},
    {"structures/#/type", Type::kText, nullptr, "STRUCTURE ERROR"},
    {"result", Type::kObject, nullptr, "documentation metadata type"},
    {"category", Type::kText, nullptr, "BUILTIN PRIMITIVE USER_DEFINED GENERIC"},
    {"primitive_type", Type::kText, nullptr,
     "VOID BOOLEAN LONG DOUBLE STRING BINARY SECRET DATE_TIME ID URI ANY_ERROR DYNAMIC_STRUCTURE "
     "OPAQUE EXCEPTION"},
    {"generic_type", Type::kText, nullptr, "LIST MAP OPTIONAL SET"},
    {"type", Type::kObject, nullptr, kTypeKeys},
    {"element_type", Type::kObject, nullptr, kTypeKeys},
    {"map_key_type", Type::kObject, nullptr, kTypeKeys},
    {"map_value_type", Type::kObject, nullptr, kTypeKeys},
    {"packages", Type::kList, nullptr, ""},
    {"services", Type::kList, nullptr, ""},
    {"structures", Type::kList, nullptr, ""},
    {"enumerations", Type::kList, nullptr, ""},
    {"values", Type::kList, nullptr, ""},
    {"constants", Type::kList, nullptr, ""},
    {"operations", Type::kList, nullptr, ""},
    {"params", Type::kList, nullptr, ""},
    {"fields", Type::kList, nullptr, ""},
    {"errors", Type::kList, nullptr, ""},
    {"component", Type::kObject, nullptr, "name documentation metadata packages"},
    {"metamodel", Type::kObject, nullptr, "component"},
};

const Place kAuthentication[] = {
    {"schemes/*/type", Type::kText, nullptr, "SESSIONLESS SESSION_AWARE SESSIONAWARE"},
    {"schemes/*/*", Type::kText, nullptr, ""},
    {"schemes/*", Type::kAnything, nullptr, "authenticationScheme type sessionManager"},
    {"operations/*/#", Type::kText, kList, ""},
    {"operations/*", Type::kList, kList, ""},
    {"services/*/#", Type::kText, kList, ""},
    {"services/*", Type::kList, kList, ""},
    {"packages/*/#", Type::kText, kList, ""},
    {"packages/*", Type::kList, kList, ""},
    {"schemes", Type::kObject, nullptr, ""},
    {"operations", Type::kObject, nullptr, ""},
    {"services", Type::kObject, nullptr, ""},
    {"packages", Type::kObject, nullptr, ""},
    {"product", Type::kObject, nullptr, "name schemes operations services packages"},
    {"component", Type::kObject, nullptr, "name schemes operations services packages"},
    {"authentication", Type::kObject, nullptr, "product component"},
};

const Place kCli[] = {
    {"output_fields/#", Type::kObject, "output_fields", "field_name display_name"},
    {"output_field_list/#", Type::kObject, "options_entry", "structure_id output_fields"},
    {"options/#", Type::kObject, "options_entry",
     "long_option short_option field_name description type generic"},
    {"cli/#", Type::kAnything, nullptr, "type path name description node_metadata"},
    {"node_metadata", Type::kObject, "path",
     "service_id operation_id formatter options output_field_list"},
    {"output_fields", Type::kList, nullptr, ""},
    {"output_field_list", Type::kList, nullptr, ""},
    {"options", Type::kList, nullptr, ""},
    {"cli", Type::kList, nullptr, ""},
};

constexpr Place kText{"", Type::kText, nullptr, ""};

std::vector<std::string> StepsOf(const Pointer& pointer) {
  std::vector<std::string> steps;
  for (std::size_t i = 0; i < pointer.GetTokenCount(); ++i) {
    const auto& token = pointer.GetTokens()[i];
    const bool is_index = token.index != rapidjson::kPointerInvalidIndex;
    steps.push_back(is_index ? "#" : std::string(token.name, token.length));
  }
  return steps;
}

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream in(text);
  for (std::string part; std::getline(in, part, separator);) parts.push_back(part);
  return parts;
}

bool EndsWith(const std::vector<std::string>& steps, const Place& place) {
  const std::vector<std::string> wanted = Split(place.steps, '/');
  return wanted.size() <= steps.size() &&
         std::equal(wanted.rbegin(), wanted.rend(), steps.rbegin(),
                    [](const std::string& want, const std::string& step) {
                      return want == step || (want == "*" && step != "#");
                    });
}

template <std::size_t kSize>
const Place& PlaceIn(const Place (&places)[kSize], const std::vector<std::string>& steps) {
  const Place* const place = std::find_if(std::begin(places), std::end(places),
                                          [&](const Place& row) { return EndsWith(steps, row); });
  return place == std::end(places) ? kText : *place;
}

const Place& PlaceOf(const std::vector<std::string>& steps) {
  if (steps.front() == "metamodel") return PlaceIn(kMetamodel, steps);
  if (steps.front() == "authentication") return PlaceIn(kAuthentication, steps);
  return PlaceIn(kCli, steps);
}

bool Has(const std::string& words, const std::string& word) {
  const std::vector<std::string> all = Split(words, ' ');
  return std::find(all.begin(), all.end(), word) != all.end();
}

bool IsOf(const Value& value, Type type) {
  switch (type) {
    case Type::kText:
      return value.IsString();
    case Type::kObject:
      return value.IsObject();
    case Type::kList:
      return value.IsArray();
    case Type::kTextOrList:
      return value.IsString() || value.IsArray();
    case Type::kAnything:
      break;
  }
  return true;
}

/// The text of the member in upper case; empty if there is none.
std::string Word(const Value& object, const char* key) {
  if (!object.IsObject() || !object.HasMember(key) || !object[key].IsString()) return "";
  std::string word = object[key].GetString();
  for (char& byte : word) byte = static_cast<char>(std::toupper(static_cast<unsigned char>(byte)));
  return word;
}

/// Keys that are wanted only beside certain others.
bool IsWanted(const std::string& key, const Value& object) {
  const std::string category = Word(object, "category");
  const std::string generic = Word(object, "generic_type");
  if (key == "primitive_type") return category == "BUILTIN" || category == "PRIMITIVE";
  if (key == "generic_type") return category == "GENERIC";
  if (key == "element_type") return category == "GENERIC" && generic != "MAP" && !generic.empty();
  if (key == "map_key_type" || key == "map_value_type") return generic == "MAP";
  if (key == "sessionManager") return Word(object, "type") != "SESSIONLESS";
  if (key == "node_metadata") return Word(object, "type") == "COMMAND";
  return true;
}

bool IsMissing(const std::string& key, const std::vector<std::string>& steps, const Value& object) {
  if (object.IsObject() && object.HasMember(key.c_str())) return false;
  if (steps.empty()) return Has("metamodel authentication cli", key);
  return Has(PlaceOf(steps).words, key) && IsWanted(key, object);
}

/// The last step that is a key.
std::string LastKey(const std::vector<std::string>& steps) {
  return *std::find_if(steps.rbegin(), steps.rend(),
                       [](const std::string& step) { return step != "#"; });
}

/// Command lines have a message of their own for some places.
bool HasOtherType(const std::string& id, const std::string& called,
                  const std::vector<std::string>& steps, const Value& value) {
  const Place& place = PlaceOf(steps);
  const bool is_own = steps.front() == "cli" && (place.called != nullptr || steps.size() == 1);
  if (is_own != (id == "zelk.metadata.cli.json.invalid.field")) return false;
  return !IsOf(value, place.type) &&
         called == (place.called == nullptr ? LastKey(steps) : std::string(place.called));
}

bool IsNoWord(const std::string& key, const Pointer& pointer, const std::vector<std::string>& steps,
              const Document& document) {
  const std::string words = PlaceOf(steps).words;
  const Pointer object(pointer.GetTokens(), pointer.GetTokenCount() - 1);
  return steps.back() == key && pointer.Get(document)->IsString() && !words.empty() &&
         !Has(words, Word(*object.Get(document), key.c_str()));
}

bool IsUnknownScheme(const std::string& argument, const std::vector<std::string>& steps,
                     const Value& value, const Document& document) {
  if (argument != "id" || steps.size() != 5 || !value.IsString()) return false;
  if (!Has("operations services packages", steps[2]) || steps[4] != "#") return false;
  const auto& component = document[steps[0].c_str()][steps[1].c_str()];
  return !component.HasMember("schemes") || !component["schemes"].HasMember(value.GetString());
}

bool HasTwoParts(const std::string& id) {
  const std::size_t dot = id.rfind('.');
  return dot != std::string::npos && dot > 0 && dot + 1 < id.size();
}

/// The place of a service that only operations name is the first one of them.
bool IsBadServiceId(const std::string& id, const std::vector<std::string>& steps) {
  if (steps.size() != 4 || HasTwoParts(id)) return false;
  if (steps[2] == "services") return steps[3] == id;
  return steps[2] == "operations" && steps[3].substr(0, steps[3].rfind('.')) == id;
}

}  // namespace

bool IsTrueClaim(const std::string& id, const std::string& argument, const Pointer& pointer,
                 const Document& document) {
  const Value* const value = pointer.Get(document);
  const std::vector<std::string> steps = StepsOf(pointer);
  if (value == nullptr) return false;
  if (id == "zelk.metadata.json.missing.field") return IsMissing(argument, steps, *value);
  if (steps.empty()) return false;
  if (id == "zelk.metadata.json.invalid.field" || id == "zelk.metadata.cli.json.invalid.field") {
    return HasOtherType(id, argument, steps, *value);
  }
  if (id == "zelk.metadata.json.invalid.enum.value") {
    return IsNoWord(argument, pointer, steps, document);
  }
  if (id == "zelk.metadata.authentication.json.unknown.schema.name") {
    return IsUnknownScheme(argument, steps, *value, document);
  }
  if (id == "zelk.metadata.authentication.json.invalid.operation.id") {
    return steps.size() == 4 && steps[2] == "operations" && steps[3] == argument &&
           !HasTwoParts(argument);
  }
  if (id == "zelk.metadata.authentication.json.invalid.service.id") {
    return IsBadServiceId(argument, steps);
  }
  if (id == "zelk.metadata.cli.json.invalid.node.type") {
    return argument == "type" && steps.size() == 3 && steps[2] == "type" && value->IsString() &&
           !Has("command namespace", value->GetString());
  }
  return false;
}

}  // namespace Zelk::Testing
