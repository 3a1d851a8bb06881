#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/diffed.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to compare

namespace {

using Zelk::Analysis::Diff::FindKind;
using Zelk::Analysis::Diff::Kind;
using Zelk::Analysis::Diff::Kinds;
using Zelk::Analysis::Diff::Result;

std::vector<std::string> TextsOf(const std::array<std::string_view, 2>& files) {
  std::vector<std::string> texts;
  for (const std::string_view text : files) {
    if (!text.empty()) texts.emplace_back(text);
  }
  return texts;
}

/// Each change as "ID PATH".
std::vector<std::string> ChangedIn(const Kind& kind) {
  std::vector<std::string> changed;
  LookAtChanges(TextsOf(kind.example.old_files), TextsOf(kind.example.new_files),
                [&](const Result& result) {
                  for (const Change& change : result.changes) {
                    changed.push_back(change.kind->id + (" " + change.element));
                  }
                });
  return changed;
}

}  // namespace

TEST(ChangeKinds, EachExampleHasItsChange) {
  for (const Kind* kind : Kinds()) {
    std::vector<std::string> expected{kind->id + (" " + std::string(kind->example.element))};
    std::vector<std::string> changed = ChangedIn(*kind);
    if (kind->example.also != nullptr) {
      const auto is_consequence = [&](const std::string& line) {
        return line.substr(0, line.find(' ')) == kind->example.also;
      };
      const auto rest = std::remove_if(changed.begin(), changed.end(), is_consequence);
      EXPECT_EQ(changed.end() - rest, 1) << kind->id;
      changed.erase(rest, changed.end());
    }
    EXPECT_EQ(changed, expected) << kind->id;
  }
}

TEST(ChangeKinds, IdsAreUniqueAndFindable) {
  std::set<std::string_view> ids;
  for (const Kind* kind : Kinds()) {
    EXPECT_TRUE(ids.insert(kind->id).second) << kind->id;
    EXPECT_EQ(FindKind(kind->id), kind);
  }
  EXPECT_EQ(FindKind("no-such-change"), nullptr);
}
