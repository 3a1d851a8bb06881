#include "common/sources/name_filter.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace Zelk::Provider::Metadata {
namespace {

std::string Name(unsigned number) {
  return "com.example.foo.bar_" + std::to_string(number);
}

std::vector<NameMark> Marks(unsigned kind, unsigned count) {
  std::vector<NameMark> marks;
  for (unsigned number = 0; number < count; ++number) marks.emplace_back(kind, Name(number));
  return marks;
}

TEST(NameFilter, IsEmptyByDefault) {
  EXPECT_FALSE(NameFilter().MayHold(NameMark(0, "")));
  EXPECT_FALSE(NameFilter(std::vector<NameMark>()).MayHold(NameMark(0, "foo")));
}

TEST(NameFilter, ContainsEachOfItsNames) {
  for (const unsigned count : {1U, 2U, 3U, 4U, 5U, 100U, 1000U, 20000U}) {
    const auto marks = Marks(3, count);
    const NameFilter filter(marks);
    for (const auto& mark : marks) ASSERT_TRUE(filter.MayHold(mark)) << count;
  }
}

TEST(NameFilter, AllowsRepeatedNames) {
  const NameFilter filter({NameMark(0, "foo"), NameMark(0, "foo"), NameMark(0, "")});
  EXPECT_TRUE(filter.MayHold(NameMark(0, "foo")));
  EXPECT_TRUE(filter.MayHold(NameMark(0, "")));
}

TEST(NameFilter, ExcludesNearlyAllOtherNames) {
  for (const unsigned count : {1U, 4U, 5U, 100U, 20000U}) {
    const NameFilter filter(Marks(0, count));
    unsigned passed = 0;
    for (unsigned other = 0; other < 100'000; ++other) {
      if (filter.MayHold(NameMark(0, Name(1'000'000 + other)))) ++passed;
    }
    EXPECT_LT(passed, 20U) << count;
  }
}

TEST(NameFilter, ExcludesNearlyAllNamesOfOtherKinds) {
  const NameFilter filter(Marks(0, 10'000));
  unsigned passed = 0;
  for (unsigned kind = 1; kind < 8; ++kind) {
    for (const auto& mark : Marks(kind, 10'000)) {
      if (filter.MayHold(mark)) ++passed;
    }
  }
  EXPECT_LT(passed, 20U);
}

TEST(NameMark, DependsOnWhereTheNameIsSplit) {
  const NameFilter filter({NameMark(0, "foo", "bar"), NameMark(0, "", "qux")});
  EXPECT_TRUE(filter.MayHold(NameMark(0, "foo", "bar")));
  EXPECT_FALSE(filter.MayHold(NameMark(0, "foob", "ar")));
  EXPECT_FALSE(filter.MayHold(NameMark(0, "bar", "foo")));
  EXPECT_FALSE(filter.MayHold(NameMark(0, "qux", "")));
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
