#include "host/precedence.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <set>

namespace Zelk::Tool {
namespace {

/// A name without a dot may be given after its parent, or as one dotted text.
bool Matches(const Ids& given, const Ids& ids) {
  if (given == ids) return true;
  if (given.size() != 2 || ids.size() != 1 || given[1].find('.') != std::string::npos) return false;
  return given[0].empty() ? ids[0] == given[1] : ids[0] == given[0] + '.' + given[1];
}

std::vector<Holder> HoldersOf(const std::vector<SourceOutline>& sources, const DomainRow& row,
                              const std::string& kind, const Ids& ids) {
  std::vector<Holder> holders;
  for (const SourceOutline& source : sources) {
    if (source.row != &row) continue;
    for (std::size_t i = 0; i < source.outline.size(); ++i) {
      const Subject& subject = source.outline[i].subject;
      if (subject.kind == kind && Matches(ids, subject.ids)) holders.push_back({&source, i});
    }
  }
  return holders;
}

/// Null for an entry at the top.
const Entry* ParentOf(const Holder& holder) {
  const std::size_t depth = holder.Held().depth;
  for (std::size_t i = holder.index; i-- > 0;) {
    const Entry& entry = holder.source->outline[i];
    if (entry.depth < depth) return &entry;
  }
  return nullptr;
}

std::vector<Holder>::const_iterator ByPlace(const std::vector<Holder>& holders) {
  return std::min_element(holders.begin(), holders.end(),
                          [](const Holder& left, const Holder& right) {
                            return left.Held().place < right.Held().place;
                          });
}

/// The holder whose parent is the first of all things with the parent's name.
std::vector<Holder>::const_iterator ByParent(const std::vector<Holder>& holders,
                                             const std::vector<SourceOutline>& sources,
                                             const DomainRow& row) {
  const Subject& parent = ParentOf(holders.front())->subject;
  const Holder first = HoldersOf(sources, row, parent.kind, parent.ids).front();
  return std::find_if(holders.begin(), holders.end(),
                      [&first](const Holder& holder) { return ParentOf(holder) == &first.Held(); });
}

}  // namespace

Decision Decide(const std::vector<SourceOutline>& sources, const FoundKind& found, const Ids& ids) {
  const auto holders = HoldersOf(sources, *found.row, found.kind->name, ids);
  if (holders.empty()) return {};
  const Rule rule = found.kind->precedence.rule;
  if (rule == Rule::kAll) return {holders, {}};
  auto answering = holders.begin();
  if (rule == Rule::kLastSource) answering = holders.end() - 1;
  if (rule == Rule::kPlace) answering = ByPlace(holders);
  if (rule == Rule::kFirstParent) answering = ByParent(holders, sources, *found.row);
  Decision decision;
  for (auto at = holders.begin(); at != holders.end(); ++at) {
    (at == answering ? decision.answering : decision.passed_over).push_back(*at);
  }
  return decision;
}

Names NamesOf(const std::vector<SourceOutline>& sources, const DomainRow& row,
              const std::string& kind, const Ids& before) {
  std::set<std::string> names;
  for (const SourceOutline& source : sources) {
    if (source.row != &row) continue;
    if (kind == "source") names.insert(source.source.id);
    for (const Entry& entry : source.outline) {
      const Ids& ids = entry.subject.ids;
      const bool is_named = entry.subject.kind == kind && ids.size() <= before.size() + 1 &&
                            std::equal(ids.begin(), ids.end() - 1, before.begin());
      if (is_named) names.insert(ids.back());
    }
  }
  return {names.begin(), names.end()};
}

std::string PlaceText(const Holder& holder) {
  const Entry* const parent = ParentOf(holder);
  if (parent == nullptr) return "";
  return fmt::format("{} {}", parent->subject.kind, fmt::join(parent->subject.ids, " "));
}

}  // namespace Zelk::Tool
