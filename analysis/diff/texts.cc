#include "analysis/diff/texts.h"

#include <algorithm>
#include <map>
#include <vector>

#include "analysis/diff/cli_comparers.h"
#include "analysis/diff/types.h"
#include "analysis/fates.h"
#include "analysis/format.h"
#include "analysis/options.h"
#include "analysis/place.h"
#include "analysis/schemes.h"

namespace Zelk::Analysis::Diff {
namespace {

std::string ValueText(const Document& document, NodeId value) {
  if (document[value].kind == NodeKind::kString) return Unambiguous(document.String(value));
  std::string text = "[";
  for (NodeId each = document[value].first_child; each != kNoNode; each = document[each].next) {
    text += (text.size() == 1 ? "" : ", ") + Unambiguous(document.String(each));
  }
  return text + "]";
}

/// What clients see of the scheme.
std::string SchemeText(const Scheme& scheme) {
  return Unambiguous(scheme.id) + " " + Unambiguous(scheme.type) + " " +
         Unambiguous(scheme.session_manager);
}

/// The parts without lookups of their own, as the library orders them.
std::vector<ElementId> RecordParts(const Model& model, ElementId id) {
  std::vector<ElementId> parts;
  for (const ElementId part : model.Children(id)) {
    if (IsKept(model[part]) && !HasLookup(model[part].kind)) parts.push_back(part);
  }
  const auto key = [&](ElementId part) {
    const Element& element = model[part];
    return std::pair(element.kind, IsOrdered(element.kind) ? std::string_view() : element.name);
  };
  std::stable_sort(parts.begin(), parts.end(),
                   [&](ElementId left, ElementId right) { return key(left) < key(right); });
  return parts;
}

}  // namespace

std::string Unambiguous(std::string_view text) {
  if (!text.empty() && text.find_first_of("\"\\,=[]") == std::string_view::npos) {
    return std::string(text);
  }
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + "\"";
}

std::string AnnotationText(const Model& model, ElementId annotation) {
  const Document& document = model.DocumentOf(annotation);
  std::map<std::string_view, NodeId> values;
  for (NodeId member = document[model[annotation].node].first_child; member != kNoNode;
       member = document[member].next) {
    values[document.Key(member)] = member;
  }
  std::string text;
  for (const auto& [name, value] : values) {
    text.append(text.empty() ? "" : ", ").append(Unambiguous(name)).append("=");
    text += ValueText(document, value);
  }
  return text;
}

std::string ConstantType(const Model& model, ElementId constant) {
  const Document& document = model.DocumentOf(constant);
  const NodeId type = document.Find(model[constant].node, "type");
  const auto word = [&](const char* key) {
    return ToUpper(document.String(document.Find(type, key)));
  };
  return word("category") + " " + word("type");
}

std::string ConstantValue(const Model& model, ElementId constant) {
  if (ConstantType(model, constant) != "PRIMITIVE STRING") return "";
  const Document& document = model.DocumentOf(constant);
  return std::string(document.String(document.Find(model[constant].node, "value")));
}

std::string OwnText(const Model& model, ElementId id) {
  const auto text = [&](const char* key) { return std::string(TextOf(model, id, key)); };
  switch (model[id].kind) {
    case ElementKind::kParameter:
    case ElementKind::kField:
    case ElementKind::kResult:
      return TypeText(model.DocumentOf(id), model.DocumentOf(id).Find(model[id].node, "type"),
                      Names::kWithKinds);
    case ElementKind::kConstant:
      return ConstantType(model, id) + " " + ConstantValue(model, id);
    case ElementKind::kStructure:
      return kStructureTypes.Find(text("type"));
    case ElementKind::kAnnotation:
      return AnnotationText(model, id);
    case ElementKind::kCommand:
      return CallOf(model, id);
    case ElementKind::kOption:
      return text("field_name") + " " + TypeOfOption(text("type")) + " " +
             ToUpper(text("generic")) + " " + text("short_option");
    case ElementKind::kOutputField:
      return text("display_name");
    case ElementKind::kEntry:
      return SchemeText(SchemeOf(model, model[id].target));
    default:
      return "";
  }
}

bool IsOrdered(ElementKind kind) {
  return kind == ElementKind::kParameter || kind == ElementKind::kField ||
         kind == ElementKind::kValue || kind == ElementKind::kError || kind == ElementKind::kEntry;
}

std::string RecordText(const Model& model, ElementId id, WithDocumentation with_documentation) {
  const Element& element = model[id];
  std::string text = Word(element.kind);
  // Clients do not see the names that schemes have in files.
  if (element.kind != ElementKind::kEntry) text += " " + Unambiguous(element.name);
  text += " " + Unambiguous(OwnText(model, id));
  if (with_documentation == WithDocumentation::kYes) {
    text += " " + Unambiguous(TextOf(model, id, "documentation"));
  }
  text += " [";
  // Only a few levels of parts have no lookups.
  for (const ElementId part : RecordParts(model, id)) {
    text += RecordText(model, part, with_documentation);
  }
  return text + "]";
}

}  // namespace Zelk::Analysis::Diff
