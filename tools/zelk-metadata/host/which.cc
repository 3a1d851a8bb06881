#include "host/which.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace Zelk::Tool {
namespace {

/// A name without a dot in it may be given behind what it is in, or as one dotted text.
bool IsMeant(const Ids& given, const Ids& ids) {
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
      if (subject.kind == kind && IsMeant(ids, subject.ids)) holders.push_back({&source, i});
    }
  }
  return holders;
}

/// What the entry stands in; null for what stands in nothing.
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

/// The one that stands in the first of all things that are called like what it stands in.
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
  if (found.kind->rule == Rule::kAll) return {holders, {}};
  auto answering = holders.begin();
  if (found.kind->rule == Rule::kLastSource) answering = holders.end() - 1;
  if (found.kind->rule == Rule::kPlace) answering = ByPlace(holders);
  if (found.kind->rule == Rule::kFirstParent) answering = ByParent(holders, sources, *found.row);
  Decision decision;
  for (auto at = holders.begin(); at != holders.end(); ++at) {
    (at == answering ? decision.answering : decision.passed_over).push_back(*at);
  }
  return decision;
}

std::string RuleText(Rule rule) {
  switch (rule) {
    case Rule::kNone:
      break;
    case Rule::kFirstSource:
      return "The first source in the order of the ids answers.";
    case Rule::kLastSource:
      return "The last source in the order of the ids answers; the sets of the others are not "
             "added "
             "to its own.";
    case Rule::kFirstParent:
      return "The first source in the order of the ids that has the service answers for all its "
             "operations.";
    case Rule::kPlace:
      return "What stands in packages comes before what stands in services, and both before what "
             "stands in structures, whichever source it is in; in equal places the first source in "
             "the order of the ids answers.";
    case Rule::kAll:
      return "All sources answer together, each name once.";
  }
  return "";
}

std::string PlaceText(const Holder& holder) {
  const Entry* const parent = ParentOf(holder);
  if (parent == nullptr) return "";
  return fmt::format("{} {}", parent->subject.kind, fmt::join(parent->subject.ids, " "));
}

}  // namespace Zelk::Tool
