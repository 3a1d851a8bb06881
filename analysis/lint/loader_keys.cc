#include <algorithm>
#include <iterator>
#include <utility>

#include "analysis/lint/loader_rules.h"
#include "analysis/near.h"
#include "analysis/text.h"

namespace Zelk::Analysis::Lint {
namespace {

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

/// Whether the last of several equal keys counts.
bool LastCounts(const ValueForm& object) {
  return object.form == Form::kMembers && object.each->element != ElementKind::kServiceList &&
         object.each->element != ElementKind::kOperationList;
}

/// Whether the library put services into this list. Another rule reports that.
bool HasServices(const OpenFile& file, NodeId member) {
  const ElementId element = file.around[member];
  if (element == kNoElement || file.model[element].node != member) return false;
  const ElementIds children = file.model.Children(element);
  return file.model[element].kind == ElementKind::kPackageList &&
         std::any_of(children.begin(), children.end(), [&](ElementId id) {
           return file.model[id].kind == ElementKind::kServiceList;
         });
}

void AddRepeated(const OpenFile& file, NodeId member, NodeId counts, bool last_counts,
                 Findings& findings) {
  const std::string key(file.document.Key(member));
  Remark remark{"the key '" + key + "' is there more than once; the " +
                    (last_counts ? "last" : "first") + " one counts, not this one",
                key};
  if (IsSameValue(file.document, member, file.document, counts)) {
    remark.severity = Severity::kWarning;
  }
  findings.Add(file.PlaceOfKey(member), std::move(remark));
}

void FindRepeated(const OpenFile& file, NodeId object, Findings& findings) {
  const bool last_counts = LastCounts(*file.shape.FormOf(object));
  const Members members = SortedMembers(file.document, object);
  for (auto first = members.begin(); first != members.end();) {
    const auto next = std::find_if(first, members.end(),
                                   [&](const auto& other) { return other.first != first->first; });
    const NodeId counts = last_counts ? std::prev(next)->second : first->second;
    for (; first != next; ++first) {
      // A key that is not read does not count at all.
      if (first->second == counts || file.shape.FormOf(counts) == nullptr) continue;
      if (HasServices(file, first->second)) continue;
      AddRepeated(file, first->second, counts, last_counts, findings);
    }
  }
}

/// Calls `look(object)` with each object that the library reads.
template <typename Look>
void ForEachObject(const OpenFile& file, const Look& look) {
  for (NodeId node = kRootNode; node < file.document.Size(); ++node) {
    const bool is_object = file.document[node].kind == NodeKind::kObject;
    if (is_object && file.shape.FormOf(node) != nullptr) look(node);
  }
}

/// What the library looks for in an object.
struct WantedKeys {
  std::vector<std::string_view> all;
  /// Optional ones that the object does not have.
  std::vector<std::string> absent;
};

WantedKeys WantedIn(const OpenFile& file, NodeId object) {
  WantedKeys wanted;
  for (const KeyForm* key : file.shape.KeysOf(object)) {
    wanted.all.emplace_back(key->name);
    const bool is_absent =
        key->presence != KeyForm::kRequired && file.document.Find(object, key->name) == kNoNode;
    if (is_absent) wanted.absent.emplace_back(key->name);
  }
  return wanted;
}

/// One of the absent keys that the author may have meant; empty for another key.
std::string MeantKey(const OpenFile& file, const WantedKeys& wanted, NodeId member) {
  constexpr std::size_t kMostErrors = 2;
  const std::string key = LowerCase(std::string(file.document.Key(member)));
  for (const std::string& absent : wanted.absent) {
    if (EditDistance(key, LowerCase(absent), kMostErrors) <= kMostErrors) return absent;
  }
  return "";
}

/// Calls `look(member, meant)` with each member whose key the library does not look for, and with
/// the key that its author may have meant.
template <typename Look>
void ForEachUnreadMember(const OpenFile& file, const Look& look) {
  const Document& document = file.document;
  ForEachObject(file, [&](NodeId object) {
    if (file.shape.FormOf(object)->form == Form::kMembers) return;
    const WantedKeys wanted = WantedIn(file, object);
    for (NodeId member = document[object].first_child; member != kNoNode;
         member = document[member].next) {
      if (file.shape.FormOf(member) != nullptr) continue;
      const std::string_view key = document.Key(member);
      const bool is_wanted = std::find(wanted.all.begin(), wanted.all.end(),
                                       key.substr(0, key.find('\0'))) != wanted.all.end();
      if (!is_wanted && key.substr(0, 1) != "$") look(member, MeantKey(file, wanted, member));
    }
  });
}

ElementKind KindAround(const OpenFile& file, NodeId node) {
  const ElementId around = file.around[node];
  return around == kNoElement ? ElementKind::kNone : file.model[around].kind;
}

constexpr char kSessionManager[] = "sessionManager";

/// Of a scheme. Another rule reports it.
bool IsSessionManager(const OpenFile& file, NodeId member) {
  return KindAround(file, member) == ElementKind::kScheme &&
         file.document.Key(member) == kSessionManager;
}

struct ElsewhereRow {
  ElementKind kind;
  std::string_view key;
};

constexpr ElsewhereRow kReadElsewhere[] = {
    {ElementKind::kError, "metadata"},          {ElementKind::kConstant, "metadata"},
    {ElementKind::kStructure, "structures"},    {ElementKind::kPackage, "constants"},
    {ElementKind::kNamespace, "node_metadata"},
};

std::string UnreadText(const OpenFile& file, NodeId member) {
  const std::string key(file.document.Key(member));
  const ElementKind kind = KindAround(file, member);
  for (const ElsewhereRow& row : kReadElsewhere) {
    if (row.kind != kind || row.key != key) continue;
    return "the key '" + key + "' is read elsewhere, but not in the " + Word(kind) + " '" +
           Shortened(file.model[file.around[member]].name) + "'";
  }
  return "the key '" + key + "' is not read";
}

}  // namespace

void DuplicateKey(const OpenFile& file, Findings& findings) {
  ForEachObject(file, [&](NodeId object) { FindRepeated(file, object, findings); });
}

void MisspeltKey(const OpenFile& file, Findings& findings) {
  ForEachUnreadMember(file, [&](NodeId member, const std::string& meant) {
    if (meant.empty()) return;
    const std::string key(file.document.Key(member));
    findings.Add(file.PlaceOfKey(member),
                 {"the key '" + key + "' is not read", key, "did you mean '" + meant + "'?"});
  });
}

void UnknownKey(const OpenFile& file, Findings& findings) {
  ForEachUnreadMember(file, [&](NodeId member, const std::string& meant) {
    if (!meant.empty() || IsSessionManager(file, member)) return;
    findings.Add(file.PlaceOfKey(member),
                 {UnreadText(file, member), std::string(file.document.Key(member))});
  });
}

void IgnoredSessionManager(const OpenFile& file, Findings& findings) {
  ForEachUnreadMember(file, [&](NodeId member, const std::string& /*meant*/) {
    if (!IsSessionManager(file, member)) return;
    findings.Add(file.PlaceOfKey(member),
                 {"the scheme '" + std::string(file.model[file.around[member]].name) +
                      "' has no sessions, so its session manager is ignored",
                  std::string(file.document.String(member))});
  });
}

}  // namespace Zelk::Analysis::Lint
