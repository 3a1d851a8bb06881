#include "analysis/diff/callers.h"

#include <algorithm>
#include <vector>

#include "analysis/place.h"

namespace Zelk::Analysis::Diff {
namespace {

/// Longer lists are shown in part.
constexpr std::size_t kMostShown = 5;

/// Witnesses of longer lists would take long to check.
constexpr std::size_t kMostChecked = 100;

/// The first scheme of the list that the other one does not have, or the end.
Schemes::const_iterator FirstWithout(const Schemes& list, const Schemes& other) {
  return std::find_if(list.begin(), list.end(),
                      [&](SchemeNumber scheme) { return !Has(other, scheme); });
}

}  // namespace

std::string Shown(const Scheme& scheme) {
  std::string text = Shortened(scheme.id) + " (" + std::string(scheme.type);
  if (scheme.type == "SESSION_AWARE") {
    text += ", session manager " + Shortened(scheme.session_manager);
  }
  return text + ")";
}

bool Callers::IsLong() const {
  return before_.size() + after_.size() > kMostChecked;
}

bool Callers::Accepts(const Schemes& list, const Schemes& held) const {
  const auto is_held = [&](SchemeNumber scheme) { return Has(held, scheme); };
  if (list.empty()) return true;
  if (needed_ == Assumptions::Schemes::kAll) return std::all_of(list.begin(), list.end(), is_held);
  return std::any_of(list.begin(), list.end(), is_held);
}

bool Callers::AcceptsMore(const Schemes& list, const Schemes& other) const {
  if (needed_ == Assumptions::Schemes::kAll) return FirstWithout(other, list) != other.end();
  return !other.empty() && (list.empty() || FirstWithout(list, other) != list.end());
}

Schemes Callers::AcceptedOnlyBy(const Schemes& list, const Schemes& other) const {
  if (needed_ == Assumptions::Schemes::kAll || list.empty()) return list;
  return {*FirstWithout(list, other)};
}

std::string Callers::Shown(const Schemes& schemes, const char* last) const {
  std::vector<std::string> parts;
  for (const SchemeNumber scheme : schemes) {
    if (parts.size() == kMostShown && schemes.size() > kMostShown + 1) {
      parts.push_back(std::to_string(schemes.size() - kMostShown) + " more");
      break;
    }
    parts.push_back(Diff::Shown(table_[scheme]));
  }
  std::string text;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const bool is_last = i + 1 == parts.size();
    text += (i == 0 ? "" : is_last ? std::string(" ") + last + " " : ", ") + parts[i];
  }
  return text;
}

std::string Callers::With(const Schemes& held) const {
  return held.empty() ? "callers without a scheme" : "callers with " + Shown(held, "and");
}

const char* Callers::Between() const {
  return needed_ == Assumptions::Schemes::kAll ? "and" : "or";
}

std::string Callers::TurnedAway(const Schemes& held) const {
  if (IsLong() || !Accepts(before_, held) || Accepts(after_, held)) return "";
  return With(held) + " could call; now they need " + Shown(after_, Between());
}

std::string Callers::TurnedAway() const {
  return IsLong() ? "" : TurnedAway(AcceptedOnlyBy(before_, after_));
}

std::string Callers::LetIn(const Schemes& held) const {
  if (IsLong() || Accepts(before_, held) || !Accepts(after_, held)) return "";
  return With(held) + " needed " + Shown(before_, Between()) + "; now they can call";
}

std::string Callers::LetIn() const {
  return IsLong() ? "" : LetIn(AcceptedOnlyBy(after_, before_));
}

}  // namespace Zelk::Analysis::Diff
