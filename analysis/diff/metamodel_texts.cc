#include <algorithm>
#include <string>

#include "analysis/call.h"
#include "analysis/diff/metamodel.h"
#include "analysis/diff/texts.h"
#include "analysis/diff/verdicts.h"
#include "analysis/resources.h"

namespace Zelk::Analysis::Diff {
namespace {

constexpr char kResource[] = "Resource";
constexpr char kModel[] = "Model";

/// The document and a value of an element in it.
struct Value {
  const Document& document;
  NodeId node;
};

Value ValueOf(const Model& model, ElementId id, const char* key) {
  const Document& document = model.DocumentOf(id);
  return {document, document.Find(model[id].node, key)};
}

void CompareDocumentation(Metamodel& metamodel, Pair pair) {
  const ModelPair& models = metamodel.models;
  const Value old_text = ValueOf(models.old_model, pair.old_id, "documentation");
  const Value new_text = ValueOf(models.new_model, pair.new_id, "documentation");
  const std::string_view old_value = old_text.document.String(old_text.node);
  const std::string_view new_value = new_text.document.String(new_text.node);
  if (old_value == new_value) return;
  const std::string action = old_value.empty()   ? "added"
                             : new_value.empty() ? "removed"
                                                 : "changed";
  Details details{"the documentation of " + metamodel.CalledIn(pair) + " was " + action,
                  std::string(old_value), std::string(new_value)};
  details.old_node = old_text.node;
  details.new_node = new_text.node;
  metamodel.Add("documentation-" + action, pair, std::move(details));
}

/// The names of the resources whose ids the annotation says that it has.
std::string ResourceText(const Model& model, ElementId annotation) {
  if (annotation == kNoElement) return "";
  const NodeId value = ResourceValue(model, annotation);
  if (value == kNoNode) return "";
  const Document& document = model.DocumentOf(annotation);
  if (document[value].kind == NodeKind::kString) return std::string(document.String(value));
  std::string text;
  for (NodeId name = document[value].first_child; name != kNoNode; name = document[name].next) {
    text.append(text.empty() ? "" : ", ").append(Unambiguous(document.String(name)));
  }
  return text;
}

bool HasType(ElementKind kind) {
  return kind == ElementKind::kParameter || kind == ElementKind::kField ||
         kind == ElementKind::kResult;
}

/// Whether it makes a structure a model, or a field its key, and that is reported as a change of
/// the model.
bool IsOfChangedModel(const Metamodel& metamodel, Pair pair, std::string_view name) {
  const Model& model = metamodel.models.old_model;
  const Element& element = model[pair.old_id];
  const bool is_model = element.kind == ElementKind::kStructure && name == kModel;
  const bool is_key = element.kind == ElementKind::kField && name == kModelKey;
  if (!is_model && !is_key) return false;
  const Element& structure = is_model ? element : model[element.owner];
  return metamodel.changed_models.count(structure.name) != 0;
}

/// Whether the resource of an id is another one, which is then reported.
bool CompareResourceOf(Metamodel& metamodel, Pair pair, Pair annotation) {
  if (!HasType(metamodel.models.Of(pair)[pair.Id()].kind)) return false;
  const std::string old_value = ResourceText(metamodel.models.old_model, annotation.old_id);
  const std::string new_value = ResourceText(metamodel.models.new_model, annotation.new_id);
  if (old_value == new_value) return false;
  const auto renamed = metamodel.renamed_resources.find(old_value);
  const bool is_renamed =
      renamed != metamodel.renamed_resources.end() && renamed->second == new_value;
  if (is_renamed) return true;
  const auto shown = [](const std::string& value) {
    return value.empty() ? std::string("no resource") : "'" + Shortened(value) + "'";
  };
  metamodel.Add("identifier-resource-changed", pair,
                {"the resource of " + metamodel.CalledIn(pair) + " changed from " +
                     shown(old_value) + " to " + shown(new_value),
                 old_value, new_value});
  return true;
}

void CompareAnnotation(Metamodel& metamodel, Pair pair, Pair annotation) {
  const ModelPair& models = metamodel.models;
  const std::string name(models.Of(annotation)[annotation.Id()].name);
  if (name == kResource && CompareResourceOf(metamodel, pair, annotation)) return;
  if (IsOfChangedModel(metamodel, pair, name)) return;
  std::string old_value;
  std::string new_value;
  if (!annotation.IsAdded()) old_value = AnnotationText(models.old_model, annotation.old_id);
  if (!annotation.IsRemoved()) new_value = AnnotationText(models.new_model, annotation.new_id);
  if (annotation.IsMatched() && old_value == new_value) return;
  const std::string action = annotation.IsAdded()     ? "added"
                             : annotation.IsRemoved() ? "removed"
                                                      : "changed";
  Details details{
      "the annotation '" + Shortened(name) + "' of " + metamodel.CalledIn(pair) + " was " + action,
      std::move(old_value), std::move(new_value)};
  const auto& policy = metamodel.changes.GetAssumptions().annotations;
  const auto chosen = policy.find(name);
  if (chosen != policy.end()) {
    details.verdicts = Verdicts{kN, kN, kN, kN, chosen->second};
    details.assumption = "annotations: " + name + " " + Word(chosen->second);
  }
  metamodel.Add("annotation-" + action, annotation, std::move(details));
}

/// Whether both versions have CLI files, so that it is known which commands fail.
bool HasCommands(const Metamodel& metamodel) {
  const ModelPair cli = metamodel.changes.Models(Domain::kCli);
  return cli.old_model.Size() != 0 && cli.new_model.Size() != 0;
}

/// The commands that the change of the type of a parameter, a field or a result breaks. `output` is
/// what it means to callers that receive it.
Commands BrokenByType(Metamodel& metamodel, Pair pair, Class output) {
  const Element& element = metamodel.models.old_model[pair.old_id];
  Commands commands;
  if (output == kB) commands.Add(metamodel.commands.PrintingOther(pair));
  if (element.kind == ElementKind::kResult) return commands;
  commands.Add(metamodel.commands.Misfitting(pair.old_id));
  const bool is_newly_required = IsOptional(metamodel.changes.Old(), pair.old_id) &&
                                 !IsOptional(metamodel.changes.New(), pair.new_id);
  if (is_newly_required) {
    const Pair owner{element.owner, metamodel.models.new_model[pair.new_id].owner};
    commands.Add(metamodel.commands.Lacking(owner, pair.new_id));
  }
  return commands;
}

}  // namespace

void CompareTexts(Metamodel& metamodel, Pair pair) {
  CompareDocumentation(metamodel, pair);
  for (const Pair& annotation : PartPairs(metamodel.models, pair, ElementKind::kAnnotation)) {
    CompareAnnotation(metamodel, pair, annotation);
  }
}

void CompareTypesOf(Metamodel& metamodel, const std::string& kind, Pair pair, Direction direction) {
  const ModelPair& models = metamodel.models;
  const Value old_value = ValueOf(models.old_model, pair.old_id, "type");
  const Value new_value = ValueOf(models.new_model, pair.new_id, "type");
  const TypeOf old_type{old_value.document, old_value.node,
                        metamodel.changes.Old().GetDefinitions(), metamodel.old_shapes};
  const TypeOf new_type{new_value.document, new_value.node,
                        metamodel.changes.New().GetDefinitions(), metamodel.new_shapes};
  const TypeChange change = CompareTypes(old_type, new_type);
  if (change.form == TypeChange::kNone) return;
  const auto show = [&](Details& details, Names names) {
    details.old_value = TypeText(old_type.document, old_type.node, names);
    details.new_value = TypeText(new_type.document, new_type.node, names);
  };
  Details details{"", "", "", direction};
  show(details, Names::kAlone);
  if (details.old_value == details.new_value) show(details, Names::kWithKinds);
  details.old_node = old_type.node;
  details.new_node = new_type.node;
  details.message = "the type of " + metamodel.CalledIn(pair) + " changed from " +
                    Shortened(details.old_value) + " to " + Shortened(details.new_value);
  // The removal of the old name breaks commands, too.
  if (!change.is_renamed) {
    details.breaks = metamodel.commands.NamesOf(BrokenByType(metamodel, pair, change.output));
  }
  const bool has_own_kinds = kind != "result" && change.form != TypeChange::kOther;
  if (!has_own_kinds) {
    const Verdicts input{change.input, kB, kD, kN, change.is_renamed ? kB : kC};
    const Verdicts output{change.output, kB, kD, kN, change.is_renamed ? kB : kC};
    details.verdicts = ByDirection({input, output}, direction);
    if (change.is_renamed) details.hint = "possibly renamed, since both have the same parts";
    return metamodel.Add(kind + "-type-changed", pair, std::move(details));
  }
  const bool is_required = change.form == TypeChange::kBecameRequired;
  const std::string id = kind + (is_required ? "-became-required" : "-became-optional");
  // A client without CLI files may ask for each parameter by its name, but not for fields.
  if (is_required && (kind == "field" || HasCommands(metamodel))) {
    details.verdicts = ByDirection(FindKind(id)->verdicts, direction);
    (*details.verdicts)[static_cast<std::size_t>(Audience::kCli)] = kN;
  }
  metamodel.Add(id, pair, std::move(details));
}

}  // namespace Zelk::Analysis::Diff
