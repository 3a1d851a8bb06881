#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/diff/verdicts.h"
#include "analysis/diffed.h"
#include "analysis/small_model.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to compare

namespace {

using Zelk::Analysis::Diff::Action;
using Zelk::Analysis::Diff::Area;
using Zelk::Analysis::Diff::Audience;
using Zelk::Analysis::Diff::Class;
using Zelk::Analysis::Diff::ClassOf;
using Zelk::Analysis::Diff::Direction;
using Zelk::Analysis::Diff::FindKind;
using Zelk::Analysis::Diff::Kind;
using Zelk::Analysis::Diff::Kinds;
using Zelk::Analysis::Diff::Result;
using Zelk::Analysis::Diff::SetOf;

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

TEST(ChangeKinds, HaveWords) {
  EXPECT_STREQ(Word(Class::kBreaking), "breaking");
  EXPECT_STREQ(Word(Class::kNotConcerned), "not concerned");
  EXPECT_STREQ(Word(Audience::kMetadata), "metadata");
  EXPECT_STREQ(Word(Direction::kUnreached), "unreached");
  EXPECT_STREQ(Word(Direction::kNone), "");
  EXPECT_STREQ(Word(Area::kSources), "sources");
  EXPECT_STREQ(Word(Action::kTightened), "tightened");
}

TEST(ChangeKinds, MayHaveOtherVerdictsOnTheWireForEachDirection) {
  constexpr auto kAlways =
      Zelk::Analysis::Diff::Always(Class::kBreaking, Class::kDangerous, Class::kCompatible,
                                   Class::kNotConcerned, Class::kDocumentation);
  EXPECT_EQ(Letters(kAlways.input), "BDc-t");
  EXPECT_EQ(kAlways.output, kAlways.input);
  constexpr auto kDirected =
      Zelk::Analysis::Diff::Directed(Class::kBreaking, Class::kCompatible, Class::kDangerous,
                                     Class::kNotConcerned, Class::kDocumentation);
  EXPECT_EQ(Letters(kDirected.input), "BD--t");
  EXPECT_EQ(Letters(kDirected.output), "cD--t");
}

TEST(ChangeClass, IsTheWorstForTheAudiences) {
  const Zelk::Analysis::Diff::Verdicts verdicts{Class::kBreaking, Class::kDangerous,
                                                Class::kNotConcerned, Class::kNotConcerned,
                                                Class::kCompatible};
  EXPECT_EQ(ClassOf(verdicts, SetOf(Audience::kWire) | SetOf(Audience::kMetadata)),
            Class::kBreaking);
  EXPECT_EQ(ClassOf(verdicts, SetOf(Audience::kSource) | SetOf(Audience::kMetadata)),
            Class::kDangerous);
  EXPECT_EQ(ClassOf(verdicts, SetOf(Audience::kCli)), Class::kNotConcerned);
}

TEST(Changes, HaveFingerprintsThatStayTheSame) {
  const Kind& kind = *FindKind("parameter-type-changed");
  std::set<std::uint64_t> fingerprints;
  const auto take = [&](const Result& result) {
    for (const Change& change : result.changes) fingerprints.insert(change.fingerprint);
  };
  const std::vector<std::string> old_texts = TextsOf(kind.example.old_files);
  LookAtChanges(old_texts, TextsOf(kind.example.new_files), take);
  LookAtChanges({"\n" + old_texts[0]}, TextsOf(kind.example.new_files), take);
  EXPECT_EQ(fingerprints.size(), 1U);
  LookAtChanges(TextsOf(kind.example.new_files), old_texts, take);
  EXPECT_EQ(fingerprints.size(), 2U);
}

TEST(Changes, HaveThePlacesInBothVersions) {
  const Kind& kind = *FindKind("operation-removed");
  LookAtChanges(TextsOf(kind.example.old_files), TextsOf(kind.example.new_files),
                [](const Result& result) {
                  EXPECT_TRUE(result.fingerprints_differ);
                  EXPECT_TRUE(result.changes.at(0).old_place.has_value());
                  EXPECT_FALSE(result.changes.at(0).new_place.has_value());
                });
}

TEST(Changes, AreCountedIfTheirTextsAreTooLong) {
  // Each has the name of the component in its path.
  constexpr std::size_t kCount = 40;
  const std::string name(1000000, 'c');
  const std::string key =
      Field("id", Builtin("ID"), R"("Resource": {"value": "r"}, "ModelKey": {})");
  const auto file = [&](bool has_operations, bool has_models) {
    std::string operations;
    std::string structures;
    for (std::size_t i = 0; i < kCount; ++i) {
      const std::string comma = i == 0 ? "" : ",";
      if (has_operations) operations += comma + Operation("o" + std::to_string(i), "");
      structures +=
          comma + Structure("s" + std::to_string(i), key, has_models ? R"("Model": {})" : "");
    }
    std::string text = MetamodelFile({structures, "", operations});
    return text.replace(text.find("\"c\""), 3, "\"" + name + "\"");
  };
  const auto expect_unlisted = [&](const Result& result) {
    ASSERT_EQ(result.unlisted.size(), 1U);
    const auto& [verdicts, count] = *result.unlisted.begin();
    EXPECT_EQ(ClassOf(verdicts, SetOf(Audience::kMetadata)), Class::kBreaking);
    EXPECT_GT(count, 0U);
    EXPECT_EQ(result.changes.size() + count, kCount);
  };
  LookAtChanges({file(true, false)}, {file(false, false)}, expect_unlisted);
  LookAtChanges({file(false, true)}, {file(false, false)}, expect_unlisted);
}
