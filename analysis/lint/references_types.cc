#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <boost/graph/adjacency_list.hpp>
#include <boost/graph/strong_components.hpp>

#include "analysis/lint/references_rules.h"
#include "analysis/types.h"

namespace Zelk::Analysis::Lint {
namespace {

constexpr std::uint32_t kDeep = 8;

/// Structures, and the fields by which a value of one must hold a value of another.
class RequiredParts {
 public:
  explicit RequiredParts(const Workspace& workspace)
      : model_(workspace.ModelOf(Domain::kMetamodel)),
        definitions_(workspace.GetDefinitions()),
        circle_of_(model_.Size()) {
    boost::adjacency_list<boost::vecS, boost::vecS, boost::directedS> graph(model_.Size());
    for (ElementId id = 0; id < model_.Size(); ++id) {
      if (!IsRequired(id)) continue;
      boost::add_edge(model_[id].owner, definitions_.ContentOf(id).definition, graph);
    }
    boost::strong_components(graph, boost::make_iterator_property_map(
                                        circle_of_.begin(), get(boost::vertex_index, graph)));
  }

  /// A field of the structure that leads to a structure from which a field leads back here;
  /// kNoElement if it has none.
  ElementId FieldInCircle(ElementId structure) const {
    for (const ElementId field : model_.Children(structure)) {
      if (IsRequired(field) && circle_of_[Next(field)] == circle_of_[structure]) return field;
    }
    return kNoElement;
  }

  ElementId Next(ElementId field) const { return definitions_.ContentOf(field).definition; }

  std::size_t CircleOf(ElementId structure) const { return circle_of_[structure]; }

 private:
  bool IsRequired(ElementId id) const {
    if (model_[id].kind != ElementKind::kField || !IsKept(model_[id])) return false;
    const Content& content = definitions_.ContentOf(id);
    return content.shape.arity == Arity::kOne && content.definition != kNoElement &&
           model_[content.definition].kind == ElementKind::kStructure;
  }

  const Model& model_;
  const Definitions& definitions_;
  /// Structures that lead to each other have the same number.
  std::vector<std::size_t> circle_of_;
};

/// The fields of a circle that begins somewhere after the structure, from its first structure in
/// the order of names.
std::vector<ElementId> CircleAfter(const Model& model, const RequiredParts& parts,
                                   ElementId structure) {
  std::vector<ElementId> fields;
  std::set<ElementId> seen;
  while (seen.insert(structure).second) {
    fields.push_back(parts.FieldInCircle(structure));
    structure = parts.Next(fields.back());
  }
  const auto first = std::find_if(fields.begin(), fields.end(),
                                  [&](ElementId id) { return model[id].owner == structure; });
  fields.erase(fields.begin(), first);
  const auto lowest =
      std::min_element(fields.begin(), fields.end(), [&](ElementId left, ElementId right) {
        return model[model[left].owner].name < model[model[right].owner].name;
      });
  std::rotate(fields.begin(), lowest, fields.end());
  return fields;
}

std::string CircleText(const Model& model, const RequiredParts& parts,
                       const std::vector<ElementId>& fields) {
  constexpr std::size_t kMostShown = 5;
  std::string text;
  for (std::size_t i = 0; i < fields.size() && i < kMostShown; ++i) {
    text += (i == 0 ? " '" : ", '") + model.FullName(fields[i]) + "' is '" +
            std::string(model[parts.Next(fields[i])].name) + "'";
  }
  return fields.size() > kMostShown ? text + ", and so on" : text;
}

/// What is wrong with a type, each thing at most once.
class TypeProblems {
 public:
  TypeProblems(const Model& model, ElementId element, Findings& findings)
      : model_(model),
        element_(element),
        document_(model.DocumentOf(element)),
        findings_(findings) {}

  void Find() {
    const NodeId type = document_.Find(model_[element_].node, "type");
    const ElementKind kind = model_[element_].kind;
    if (kind != ElementKind::kResult && ReadType(document_, type).word == "VOID") {
      Report(std::string("VOID is the type of a ") + Word(kind), type);
    }
    ForEachLevel(document_, type, [&](const TypeLevel& level) {
      if (level.form == TypeForm::kGeneric) CheckGeneric(level);
      if (level.depth == kDeep) {
        Report("the type has more than " + std::to_string(kDeep) + " levels", type);
      }
    });
  }

 private:
  void CheckGeneric(const TypeLevel& level) {
    const TypeLevel element = ReadType(document_, level.element);
    if (element.word == "VOID") Report("VOID is in another type", level.element);
    if (level.word == "OPTIONAL" && element.word == "OPTIONAL") {
      Report("an OPTIONAL is in another one", level.element);
    }
    if (level.word == "SET") CheckKey("the elements of a SET", element, level.element);
    if (level.key == kNoNode) return;
    const TypeLevel key = ReadType(document_, level.key);
    if (key.word == "VOID") Report("VOID is in another type", level.key);
    CheckKey("the keys of a MAP", key, level.key);
  }

  /// Keys are compared with each other.
  void CheckKey(const char* what, const TypeLevel& key, NodeId node) {
    const bool is_structure =
        key.form == TypeForm::kUserDefined && key.wanted == ElementKind::kStructure;
    const bool is_generic = key.form == TypeForm::kGeneric && key.word != "OPTIONAL";
    if (!is_structure && !is_generic && key.word != "OPAQUE" && key.word != "DYNAMIC_STRUCTURE") {
      return;
    }
    Report(std::string(what) + " are " +
               (is_structure ? std::string("structures") : "of type " + std::string(key.word)),
           node);
  }

  void Report(const std::string& message, NodeId node) {
    if (std::find(reported_.begin(), reported_.end(), message) != reported_.end()) return;
    reported_.push_back(message);
    findings_.Add(PlaceOf(model_, element_, node), {message, message});
  }

  const Model& model_;
  ElementId element_;
  const Document& document_;
  Findings& findings_;
  std::vector<std::string> reported_;
};

}  // namespace

void InfiniteStructure(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  const RequiredParts parts(workspace);
  std::vector<bool> is_done(model.Size());
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (model[id].kind != ElementKind::kStructure || is_done[parts.CircleOf(id)]) continue;
    if (parts.FieldInCircle(id) == kNoElement) continue;
    is_done[parts.CircleOf(id)] = true;
    const std::vector<ElementId> fields = CircleAfter(model, parts, id);
    const ElementId structure = model[fields.front()].owner;
    findings.Add(PlaceOf(model, structure),
                 {"no value of '" + std::string(model[structure].name) +
                  "' can be complete:" + CircleText(model, parts, fields)});
  }
}

void SuspiciousType(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  for (ElementId id = 0; id < model.Size(); ++id) {
    const ElementKind kind = model[id].kind;
    const bool has_type = kind == ElementKind::kParameter || kind == ElementKind::kField ||
                          kind == ElementKind::kResult;
    if (has_type && IsKept(model[id])) TypeProblems(model, id, findings).Find();
  }
}

}  // namespace Zelk::Analysis::Lint
