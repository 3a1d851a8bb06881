#include "analysis/near.h"

#include <algorithm>
#include <set>
#include <utility>

#include "analysis/text.h"

namespace Zelk::Analysis {
namespace {

constexpr std::size_t kMostNames = 3;
constexpr std::size_t kFar = 100;
/// Longer names are not typed, and would take long to compare.
constexpr std::size_t kLongest = 1000;

std::string AfterLastDot(const std::string& name) {
  return name.substr(name.rfind('.') + 1);
}

/// How many typing errors are likely. Only the last part counts: names share what is before it, so
/// that a few errors there would make one name of another.
std::size_t Limit(const std::string& text) {
  return std::min<std::size_t>(1 + AfterLastDot(text).size() / 5, 4);
}

/// The smaller, the likelier; kFar for a name that is unlikely.
std::size_t Distance(const std::string& wanted, const std::string& name) {
  if (wanted.empty()) return kFar;
  if (wanted == name) return 0;
  const std::string last = AfterLastDot(name);
  if (last == wanted) return 1;
  if (name.size() > wanted.size() && name[name.size() - wanted.size() - 1] == '.' &&
      name.compare(name.size() - wanted.size(), wanted.size(), wanted) == 0) {
    return 1;
  }
  const std::size_t limit = Limit(wanted);
  // What is wholly replaced has nothing in common.
  const std::size_t whole = EditDistance(wanted, name, limit);
  if (whole <= limit && whole < std::max(wanted.size(), name.size())) return 1 + whole;
  const std::size_t part = EditDistance(wanted, last, limit);
  if (part <= limit && part < std::max(wanted.size(), last.size())) return 1 + limit + part;
  return kFar;
}

}  // namespace

std::size_t EditDistance(const std::string& left, const std::string& right, std::size_t limit) {
  const std::size_t longer = std::max(left.size(), right.size());
  if (longer - std::min(left.size(), right.size()) > limit) return limit + 1;
  // Three rows of the usual table, of which only a band round the diagonal can stay in the limit.
  std::vector<std::size_t> before(right.size() + 1, limit + 1);
  std::vector<std::size_t> above(right.size() + 1, limit + 1);
  std::vector<std::size_t> row(right.size() + 1, limit + 1);
  for (std::size_t j = 0; j <= std::min(limit, right.size()); ++j) above[j] = j;
  for (std::size_t i = 1; i <= left.size(); ++i) {
    const std::size_t first = i > limit ? i - limit : 0;
    const std::size_t last = std::min(i + limit, right.size());
    if (first > 0) row[first - 1] = limit + 1;
    if (first == 0) row[0] = i;
    for (std::size_t j = std::max<std::size_t>(first, 1); j <= last; ++j) {
      const bool same = left[i - 1] == right[j - 1];
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (same ? 0 : 1)});
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
        row[j] = std::min(row[j], before[j - 2] + 1);
      }
    }
    if (last < right.size()) row[last + 1] = limit + 1;
    before.swap(above);
    above.swap(row);
  }
  return std::min(above[right.size()], limit + 1);
}

std::vector<std::string> NearNames(const std::string& wanted,
                                   const std::vector<std::string>& known) {
  const std::string text = LowerCase(wanted);
  std::set<std::pair<std::size_t, std::string>> near;
  for (const std::string& name : known) {
    if (name.size() > kLongest) continue;
    const std::size_t distance = Distance(text, LowerCase(name));
    if (distance == kFar) continue;
    near.emplace(distance, name);
    if (near.size() > kMostNames) near.erase(std::prev(near.end()));
  }
  std::vector<std::string> names;
  names.reserve(near.size());
  for (const auto& [distance, name] : near) names.push_back(name);
  return names;
}

std::string Suggestion(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool is_last = i + 1 == names.size();
    text += (i == 0 ? "; did you mean " : is_last ? " or " : ", ") + names[i];
  }
  return text.empty() ? text : text + "?";
}

std::string Suggestion(const std::string& wanted, const std::vector<std::string>& known) {
  return Suggestion(NearNames(wanted, known));
}

}  // namespace Zelk::Analysis
