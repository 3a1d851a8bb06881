#include "host/known_names.h"

#include <algorithm>

namespace Zelk::Tool {

Names AllNames(const FoundKind& found) {
  const auto& list = found.kind->list;
  if (list.ids.min == 0) return list.call({}).answer.value_or(Names());
  Names all;
  for (const std::string& parent : found.NamesAt(0, {})) {
    const Names names = list.call({parent}).answer.value_or(Names());
    for (std::string& name : FullNames(found, parent, names)) all.push_back(std::move(name));
  }
  return all;
}

Names FullNames(const FoundKind& found, const std::string& id, const Names& names) {
  const bool is_named_within = found.kind->list.ids.min > 0 && found.kind->id_kinds.size() > 1;
  if (!is_named_within) return names;
  Names full;
  for (const std::string& name : names) full.push_back(Dotted({id, name}));
  return full;
}

std::vector<OutlineKind> OutlineKinds(const Host& host) {
  std::vector<OutlineKind> kinds;
  for (const std::string& name : host.KindNames()) {
    for (const FoundKind& found : host.FindKinds(name)) {
      if (found.kind->precedence.rule == Rule::kNone) continue;
      kinds.push_back({found.row, name});
      for (const char* part : found.kind->parts) kinds.push_back({found.row, part});
    }
  }
  return kinds;
}

Names OutlineKindNames(const Host& host) {
  Names names;
  for (const OutlineKind& kind : OutlineKinds(host)) {
    if (std::find(names.begin(), names.end(), kind.name) == names.end()) names.push_back(kind.name);
  }
  return names;
}

}  // namespace Zelk::Tool
