#include "analysis/near.h"

#include <algorithm>
#include <random>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using Zelk::Analysis::EditDistance;
using Zelk::Analysis::NearNames;
using Zelk::Analysis::Suggestion;

namespace {

struct Row {
  const char* left;
  const char* right;
  std::size_t distance;
};

const Row kRows[] = {
    {"", "", 0},         {"", "ab", 2},       {"list", "list", 0}, {"list", "lst", 1},
    {"lst", "list", 1},  {"list", "lits", 1}, {"list", "last", 1}, {"list", "lisst", 1},
    {"abcd", "badc", 2}, {"abcd", "efgh", 4}, {"ca", "abc", 3},    {"reload", "relaod", 1},
};

/// The whole table, without a limit.
std::size_t SlowDistance(const std::string& left, const std::string& right) {
  std::vector<std::vector<std::size_t>> table(left.size() + 1,
                                              std::vector<std::size_t>(right.size() + 1));
  for (std::size_t i = 0; i <= left.size(); ++i) {
    for (std::size_t j = 0; j <= right.size(); ++j) {
      if (i == 0 || j == 0) {
        table[i][j] = i + j;
        continue;
      }
      const std::size_t change = left[i - 1] == right[j - 1] ? 0 : 1;
      table[i][j] =
          std::min({table[i - 1][j] + 1, table[i][j - 1] + 1, table[i - 1][j - 1] + change});
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
        table[i][j] = std::min(table[i][j], table[i - 2][j - 2] + 1);
      }
    }
  }
  return table[left.size()][right.size()];
}

std::string RandomText(std::mt19937& random) {
  std::string text(random() % 9, ' ');
  for (char& character : text) character = "abc"[random() % 3];
  return text;
}

}  // namespace

TEST(Near, NamesWithNothingInCommonAreNotNear) {
  EXPECT_THAT(NearNames("x", {".", "y", "a.y"}), testing::ElementsAre());
}

TEST(Near, DistanceCountsTypingErrors) {
  for (const Row& row : kRows) {
    EXPECT_EQ(EditDistance(row.left, row.right, 5), row.distance) << row.left << ' ' << row.right;
  }
}

TEST(Near, DistanceIsThatOfTheWholeTableUpToTheLimit) {
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    const std::string left = RandomText(random);
    const std::string right = RandomText(random);
    const std::size_t limit = random() % 5;
    EXPECT_EQ(EditDistance(left, right, limit), std::min(SlowDistance(left, right), limit + 1))
        << left << ' ' << right << ' ' << limit;
  }
}

TEST(Near, NamesOfAnyLengthAreComparedWithinTheLimitOnly) {
  const std::string huge(500000, 'x');
  EXPECT_EQ(EditDistance(huge + "ab", huge + "ba", 4), 1U);
}

TEST(Near, TheLikeliestNameComesFirst) {
  EXPECT_THAT(NearNames("com.acme.lits", {"com.acme.list", "com.acme.lists", "com.other"}),
              ElementsAre("com.acme.list", "com.acme.lists"));
  const std::string longest(998, 'x');
  EXPECT_THAT(NearNames("a", {longest + ".a", longest + "x.a"}), ElementsAre(longest + ".a"));
  EXPECT_THAT(NearNames("COM.ACME", {"com.acme", "com.acne"}), ElementsAre("com.acme", "com.acne"));
}

TEST(Near, TheLastPartsOfANameAreEnough) {
  EXPECT_THAT(NearNames("machines", {"com.acme.machines", "com.acme.folders"}),
              ElementsAre("com.acme.machines"));
  EXPECT_THAT(NearNames("inventory.machines", {"com.acme.inventory.machines"}),
              ElementsAre("com.acme.inventory.machines"));
}

TEST(Near, UnrelatedNamesAreNotNear) {
  EXPECT_THAT(NearNames("acme.machines.pong", {"acme.machines.list"}), IsEmpty());
  EXPECT_THAT(NearNames("", {"a", ""}), IsEmpty());
  EXPECT_THAT(NearNames("a", {}), IsEmpty());
}

TEST(Near, SuggestionsAreFewAndUnique) {
  EXPECT_THAT(NearNames("a", {"a.a", "b.a", "b.a", "c.a", "d.a"}),
              ElementsAre("a.a", "b.a", "c.a"));
}

TEST(Near, SuggestionsAreASentence) {
  EXPECT_EQ(Suggestion({}), "");
  EXPECT_EQ(Suggestion({"a"}), "; did you mean a?");
  EXPECT_EQ(Suggestion({"a", "b"}), "; did you mean a or b?");
  EXPECT_EQ(Suggestion({"a", "b", "c"}), "; did you mean a, b or c?");
}
