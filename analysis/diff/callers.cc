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

std::string With(const Schemes& held) {
  return held.empty() ? "callers without a scheme" : "callers with " + Shown(held, "and");
}

}  // namespace

std::string Shown(const Scheme& scheme) {
  std::string text = Shortened(scheme.id) + " (" + std::string(scheme.type);
  if (scheme.type == "SESSION_AWARE") {
    text += ", session manager " + Shortened(scheme.session_manager);
  }
  return text + ")";
}

std::string Shown(const Schemes& schemes, const char* between) {
  std::vector<std::string> parts;
  for (const Scheme& scheme : schemes) {
    if (parts.size() == kMostShown && schemes.size() > kMostShown + 1) {
      parts.push_back(std::to_string(schemes.size() - kMostShown) + " more");
      break;
    }
    parts.push_back(Shown(scheme));
  }
  std::string text;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const bool is_last = i + 1 == parts.size();
    text += (i == 0 ? "" : is_last ? std::string(" ") + between + " " : ", ") + parts[i];
  }
  return text;
}

bool Accepts(const Schemes& list, const Schemes& held, Assumptions::Schemes needed) {
  const auto is_held = [&](const Scheme& scheme) { return held.count(scheme) != 0; };
  if (list.empty()) return true;
  if (needed == Assumptions::Schemes::kAll) return std::all_of(list.begin(), list.end(), is_held);
  return std::any_of(list.begin(), list.end(), is_held);
}

const char* Callers::Between() const {
  return needed_ == Assumptions::Schemes::kAll ? "and" : "or";
}

std::string Callers::TurnedAway(const Schemes& held) const {
  if (before_.size() + after_.size() > kMostChecked) return "";
  if (!Accepts(before_, held, needed_) || Accepts(after_, held, needed_)) return "";
  return With(held) + " could call; now they need " + Shown(after_, Between());
}

std::string Callers::LetIn(const Schemes& held) const {
  if (before_.size() + after_.size() > kMostChecked) return "";
  if (Accepts(before_, held, needed_) || !Accepts(after_, held, needed_)) return "";
  return With(held) + " needed " + Shown(before_, Between()) + "; now they can call";
}

}  // namespace Zelk::Analysis::Diff
