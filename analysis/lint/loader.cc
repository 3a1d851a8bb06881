#include <algorithm>
#include <utility>

#include "analysis/lint/finding.h"
#include "analysis/lint/shape.h"

// What the library drops, overrides or ignores without a message.

namespace Zelk::Analysis::Lint {
namespace {

/// One file that loads, with how the library reads it.
struct OpenFile {
  const Model& model;
  std::uint32_t source;
  const Document& document;
  Shape shape;
  std::vector<ElementId> around;
};

/// Calls `look` with each file that loads.
template <typename Look>
void ForEachFile(const Workspace& workspace, DomainSet domains, const Look& look) {
  for (const Domain domain : {Domain::kMetamodel, Domain::kAuthentication, Domain::kCli}) {
    if ((domains & SetOf(domain)) == 0) continue;
    const Model& model = workspace.ModelOf(domain);
    for (std::uint32_t source = 0; source < model.Sources().size(); ++source) {
      if (!model.Loads(source)) continue;
      const Document& document = *model.Sources()[source].document;
      look(OpenFile{model, source, document, Shape(document, FormatOf(domain)),
                    ElementsAround(model, source)});
    }
  }
}

Place PlaceOfKey(const OpenFile& file, NodeId member) {
  return {file.model.GetDomain(), file.source, file.around[member], member,
          file.document[member].key_begin};
}

using Members = std::vector<std::pair<std::string_view, NodeId>>;

/// The members by their keys, those of one key together in the order of the text.
Members SortedMembers(const Document& document, NodeId object) {
  Members members;
  for (NodeId member = document[object].first_child; member != kNoNode;
       member = document[member].next) {
    const std::string_view key = document.Key(member);
    members.emplace_back(key.substr(0, key.find('\0')), member);
  }
  std::sort(members.begin(), members.end());
  return members;
}

/// Whether the last of several equal keys in a map counts.
bool LastCounts(const ValueForm& map) {
  return map.each->element != ElementKind::kServiceList &&
         map.each->element != ElementKind::kOperationList;
}

void AddRepeated(const OpenFile& file, NodeId member, NodeId counts, bool last_counts,
                 Findings& findings) {
  const std::string key(file.document.Key(member));
  Remark remark{"the key '" + key + "' is there again; the " + (last_counts ? "last" : "first") +
                    " one counts, not this one",
                key};
  if (IsSameValue(file.document, member, file.document, counts)) {
    remark.severity = Severity::kWarning;
  }
  findings.Add(PlaceOfKey(file, member), std::move(remark));
}

void FindRepeated(const OpenFile& file, NodeId object, Findings& findings) {
  const ValueForm& form = *file.shape.FormOf(object);
  const bool is_map = form.form == Form::kMembers;
  const bool last_counts = is_map && LastCounts(form);
  const Members members = SortedMembers(file.document, object);
  for (auto first = members.begin(); first != members.end();) {
    const auto next = std::find_if(first, members.end(),
                                   [&](const auto& other) { return other.first != first->first; });
    const NodeId counts = last_counts ? std::prev(next)->second : first->second;
    // A key that is not read does not count at all.
    for (; first != next && file.shape.FormOf(counts) != nullptr; ++first) {
      if (first->second != counts) {
        AddRepeated(file, first->second, counts, last_counts, findings);
      }
    }
    first = next;
  }
}

void DuplicateKey(const Workspace& workspace, Findings& findings) {
  ForEachFile(workspace, kAllDomains, [&](const OpenFile& file) {
    for (NodeId node = kRootNode; node < file.document.Size(); ++node) {
      const bool is_object = file.document[node].kind == NodeKind::kObject;
      if (is_object && file.shape.FormOf(node) != nullptr) FindRepeated(file, node, findings);
    }
  });
}

constexpr Rule kRules[] = {
    {"duplicate-key",
     Group::kLoader,
     Severity::kError,
     DecidedBy::kFile,
     kAllDomains,
     0,
     "An object has a key twice, of which only one counts.",
     "An object has a key twice. The first one counts; among annotations and their values, schemes "
     "and the lists of packages it is the last one. If both values are the same, it is a warning.",
     "A part that was copied, or two edits that were merged.",
     "Remove the one that does not count.",
     {{R"({"cli": [{"type": "namespace", "path": "", "name": "acme", "name": "other",
  "description": "Controls a machine."}]})"},
      "cli/namespace:acme"},
     DuplicateKey},
};

}  // namespace

const Rows<Rule> kLoaderRules = kRules;

}  // namespace Zelk::Analysis::Lint
