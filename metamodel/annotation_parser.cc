#include <com/orvane/zelk/metadata/metamodel/metadata_identifier_svc.h>

#include "common/json/json_lookup.h"
#include "metamodel/json_metadata_parser.h"

namespace Zelk::Provider::Metadata::Metamodel {
namespace {

using Bindings::Metamodel::MetadataIdentifierSvc::Constants;
using ElementType = Bindings::Metamodel::ElementValueEnumerations::Type;
using Names = std::list<std::string>;

/// The argument of messages about an element whose value cannot be read, and about an annotation
/// that is not an object.
constexpr char kElementValue[] = "ElementValue";

/// Returns the element of that name, or null if the annotation has none.
std::shared_ptr<const Bindings::Metamodel::ElementValue> FindElement(
    const Bindings::Metamodel::ElementMap& element_map, const std::string& name) {
  const auto found = element_map.elements.find(name);
  return found == element_map.elements.end() ? nullptr : found->second;
}

/// Returns the strings of a JSON array; empty optional if an element is not a string.
boost::optional<Names> ParseStrings(const JsonValue& value, Errors& errors) {
  Names names;
  for (const auto& element : value.GetArray()) {  // checked: by the caller
    if (!CheckType(element, JsonType::kString, kElementValue, errors)) return boost::none;
    names.push_back(ValToString(element));
  }
  return names;
}

void Report(const JsonMetadataParser::RegisterCallbacks& callbacks,
            const boost::optional<std::string>& resource_id) {
  if (resource_id) callbacks.resource(*resource_id);
}

void Report(const JsonMetadataParser::RegisterCallbacks& callbacks,
            const boost::optional<Names>& resource_ids) {
  for (const auto& resource_id : resource_ids.value_or(Names())) callbacks.resource(resource_id);
}

}  // namespace

bool JsonMetadataParser::ParseMetadata(const RegisterCallbacks& callbacks, const JsonValue& value,
                                       Bindings::Metamodel::MetadataMap& map, Errors& errors) {
  for (const auto& member : JsonMembers(value)) {
    auto element_map = ParseElementMap(member.value, ParseStringElementValue, errors);
    if (!element_map) return false;
    // Intended(last-annotation-counts): unlike all other maps, annotations and their elements keep
    // the last one of a name.
    const auto stored =
        map.insert_or_assign(ValToString(member.name), std::move(element_map)).first;
    if (stored->first == Constants::RESOURCE) {
      HandleResource(callbacks, *stored->second);
    }
  }
  return true;
}

std::shared_ptr<const Bindings::Metamodel::ElementMap> JsonMetadataParser::ParseElementMap(
    const JsonValue& value, ElementParser parse_element, Errors& errors) {
  if (!CheckType(value, JsonType::kObject, kElementValue, errors)) return nullptr;
  std::map<std::string, std::shared_ptr<const Bindings::Metamodel::ElementValue>> elements;
  for (const auto& member : JsonMembers(value)) {
    auto element = parse_element(member.value, errors);
    if (!element) return nullptr;
    elements.insert_or_assign(ValToString(member.name), std::move(element));
  }
  return std::make_shared<Bindings::Metamodel::ElementMap>(std::move(elements));
}

std::shared_ptr<const Bindings::Metamodel::ElementValue>
JsonMetadataParser::ParseStringElementValue(const JsonValue& value, Errors& errors) {
  if (value.IsString()) {
    return std::make_shared<Bindings::Metamodel::ElementValue>(
        ElementType::STRING, ValToString(value), boost::none, boost::none, boost::none);
  }
  if (!CheckType(value, JsonType::kArray, kElementValue, errors)) return nullptr;
  auto names = ParseStrings(value, errors);
  if (!names) return nullptr;
  return std::make_shared<Bindings::Metamodel::ElementValue>(
      ElementType::STRING_LIST, boost::none, std::move(names), boost::none, boost::none);
}

void JsonMetadataParser::HandleResource(const RegisterCallbacks& callbacks,
                                        const Bindings::Metamodel::ElementMap& element_map) {
  const auto value = FindElement(element_map, "value");
  if (!value) return;
  switch (value->type.Value()) {
    case ElementType::STRING:
      return Report(callbacks, value->string_value);
    case ElementType::STRING_LIST:
      return Report(callbacks, value->list_value);
    case ElementType::STRUCTURE_REFERENCE:
      return Report(callbacks, value->structure_id);
    case ElementType::STRUCTURE_REFERENCE_LIST:
      return Report(callbacks, value->structure_ids);
    default:
      return;
  }
}

void JsonMetadataParser::HandleModelInfo(const RegisterCallbacks& callbacks,
                                         const Bindings::Metamodel::StructureInfo& structure) {
  if (structure.metadata.count(Constants::MODEL) == 0) return;
  for (const auto& field : structure.fields) {
    const auto resource = field->metadata.find(Constants::RESOURCE);
    if (resource == field->metadata.end() || field->metadata.count("ModelKey") == 0) continue;
    const auto value = FindElement(*resource->second, "value");
    // Intended(model-key-search): a key whose resource is not a single one ends the search; later
    // fields do not count.
    if (!value || value->type != ElementType::STRING || !value->string_value) return;
    callbacks.model(*value->string_value, structure.name);
  }
}

}  // namespace Zelk::Provider::Metadata::Metamodel
