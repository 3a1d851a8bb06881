#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/diff/configuration.h"
#include "analysis/diff/verdicts.h"
#include "analysis/diffed.h"
#include "analysis/small_cli.h"
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

std::vector<std::string> TextsOf(const Zelk::Analysis::Diff::ExampleFiles& files) {
  std::vector<std::string> texts;
  for (const std::string_view text : files) {
    if (!text.empty()) texts.emplace_back(text);
  }
  return texts;
}

/// Calls `look(result)` with what changed in the example.
template <typename Look>
void LookAtExample(const Kind& kind, const Look& look, const Assumptions& assumptions = {}) {
  // One of its files does not load, so it cannot be in a workspace.
  if (std::string_view(kind.about) == "source") {
    const bool is_lost = kind.action == Action::kRemoved;
    const Zelk::Analysis::Workspace nothing({});
    look(Zelk::Analysis::Diff::Compare(nothing, nothing, assumptions,
                                       {{"file", "NEW", is_lost, "12", "34"}}));
  } else {
    LookAtChanges(TextsOf(kind.example.old_files), TextsOf(kind.example.new_files), look,
                  assumptions);
  }
}

/// Each change as "ID PATH".
std::vector<std::string> ChangedIn(const Kind& kind) {
  std::vector<std::string> changed;
  LookAtExample(kind, [&](const Result& result) {
    for (const Change& change : result.changes) {
      changed.push_back(change.kind->id + (" " + change.element));
    }
  });
  return changed;
}

/// The assumptions as reports show them, and as changes name them.
std::set<std::string> TextsOf(const Assumptions& assumptions) {
  std::set<std::string> texts;
  for (const auto& choice : Zelk::Analysis::Diff::Choices()) {
    texts.insert(choice.key + (": " + choice.WordOf(assumptions)));
  }
  return texts;
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

TEST(ChangeKinds, FewHaveExamplesWithAnotherChange) {
  std::set<std::string_view> ids;
  for (const Kind* kind : Kinds()) {
    if (kind->example.also != nullptr) ids.insert(kind->id);
  }
  // Only annotations name resources, and what has the annotation has changed, too.
  EXPECT_EQ(ids, (std::set<std::string_view>{"output-became-reachable", "output-became-unreachable",
                                             "resource-added", "resource-removed"}));
}

TEST(ChangeKinds, ExamplesHaveDomainsInCommon) {
  for (const Kind* kind : Kinds()) {
    EXPECT_FALSE(TextsOf(kind->example.old_files).empty()) << kind->id;
    EXPECT_FALSE(TextsOf(kind->example.new_files).empty()) << kind->id;
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

TEST(Changes, NameAssumptionsAsTheConfigurationDoes) {
  Assumptions others;
  for (const auto& choice : Zelk::Analysis::Diff::Choices()) choice.set_second(others);
  for (const Assumptions& assumptions : {Assumptions{}, others}) {
    const std::set<std::string> known = TextsOf(assumptions);
    for (const Kind* kind : Kinds()) {
      const auto look = [&](const Result& result) {
        for (const Change& change : result.changes) {
          const std::string& all = change.details.assumption;
          if (all.rfind("annotations: ", 0) == 0) continue;
          for (std::size_t begin = 0; begin < all.size();) {
            const std::size_t end = std::min(all.find(", ", begin), all.size());
            EXPECT_EQ(known.count(all.substr(begin, end - begin)), 1U) << all;
            begin = end + 2;
          }
        }
      };
      LookAtExample(*kind, look, assumptions);
    }
  }
}

TEST(Changes, OfLostFilesDependOnTheirTexts) {
  const Zelk::Analysis::Workspace nothing({});
  std::set<std::uint64_t> fingerprints;
  const auto message = [&](const Zelk::Analysis::Diff::LostFile& file) {
    const Result result = Zelk::Analysis::Diff::Compare(nothing, nothing, {}, {file});
    fingerprints.insert(result.changes.front().fingerprint);
    return result.changes.front().details.message;
  };
  EXPECT_EQ(message({"a", "b/a.json", true, "12", "34"}),
            "the file 'b/a.json' does not load any more");
  EXPECT_EQ(message({"a", "b/a.json", false, "12", "34"}),
            "the file 'b/a.json' does not load, so the repaired file cannot be compared");
  EXPECT_EQ(message({"a", "b/a.json", false, "12", ""}),
            "the file 'b/a.json' does not load and was removed");
  message({"a", "b/a.json", false, "12", "35"});
  message({"a", "b/a.json", false, "13", "34"});
  EXPECT_EQ(fingerprints.size(), 5U);
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

TEST(Changes, HaveFingerprintsOfWhatChanged) {
  const std::string text = Builtin("STRING");
  const std::string a = Field("a", text);
  const std::string b = Field("b", text);
  const auto operations = [](const std::string& operation) {
    return MetamodelFile({"", "", operation});
  };
  const auto takes = [&](const std::string& parameters) {
    return operations(Operation("o", parameters));
  };
  const std::string optional = Field("a", Of("OPTIONAL", text));
  const auto has = [](const std::string& fields) {
    return MetamodelFile({Structure("c.p.t", fields), "", ""});
  };
  const auto values = [](const std::vector<std::string>& names) {
    std::vector<std::string> texts;
    for (const std::string& name : names) texts.push_back(EnumerationValue(name));
    return MetamodelFile({"", Enumeration("c.p.e", Listed(texts)), ""});
  };
  const auto command = [](const std::vector<OptionText>& options, const std::string& fields = "") {
    return OneCommand(CommandText{"", "go", options, "start",
                                  R"(, "output_field_list": [{"structure_id": "c.p.s",
                                  "output_fields": [)" +
                                      fields + "]}]"});
  };
  const auto shown = [](const std::string& name, const std::string& heading = "") {
    return R"({"field_name": ")" + name + R"(", "display_name": ")" + heading + R"("})";
  };
  const auto shows = [&](const std::vector<std::string>& names) {
    std::vector<std::string> fields;
    for (const std::string& name : names) fields.push_back(shown(name));
    return command({}, Listed(fields));
  };
  const OptionText x{"x", "x"};
  const OptionText y{"y", "y"};
  const OptionText z{"z", "z"};
  const std::string root = NamespaceText("", "");
  const std::string outer = NamespaceText("", "n");
  const std::string inner = NamespaceText("n", "p");
  const std::string other = NamespaceText("n", "q");

  struct Row {
    const char* id;
    std::string before;
    std::string after;
    std::string other_after;
  };

  for (const Row& row : std::vector<Row>{
           {"operation-added", operations(""), takes(a), takes(b)},
           {"parameter-added-required", takes(""), takes(a), takes(Field("a", Builtin("LONG")))},
           {"enumeration-value-inserted", values({"A", "B"}), values({"X", "A", "B"}),
            values({"A", "X", "B"})},
           {"enumeration-value-removed", values({"A", "B", "C"}), values({"A", "X", "C"}),
            values({"A", "C", "X"})},
           {"enumeration-value-removed", values({"A", "B", "C", "D"}), values({"A", "C", "X", "D"}),
            values({"A", "C", "D"})},
           {"option-order-changed", command({x, y, z}), command({y, x, z}), command({z, x, y})},
           {"option-added-required", command({}), command({x}), command({{"x", "y"}})},
           {"output-field-order-changed", shows({"a", "b", "c"}), shows({"b", "a", "c"}),
            shows({"c", "a", "b"})},
           {"output-field-added", shows({}), command({}, shown("a", "A")), shows({"a"})},
           {"output-field-added", shows({"b"}), shows({"b", "a"}), shows({"a", "b"})},
           {"output-field-removed", shows({"a", "b"}), shows({"b"}), shows({"x", "b"})},
           {"parameter-added-optional", takes(b), takes(b + "," + optional),
            takes(optional + "," + b)},
           {"field-added-optional", has(b), has(b + "," + optional), has(optional + "," + b)},
           {"output-structure-added", CliFile({Text(CommandText{"", "go"})}), shows({"a"}),
            shows({"b"})},
           {"namespace-list-changed", CliFile({root, outer, inner, other}),
            CliFile({root, inner, outer, other}), CliFile({root, inner, other, outer})}}) {
    std::set<std::uint64_t> fingerprints;
    const auto take = [&](const Result& result) {
      for (const Change& change : result.changes) {
        if (change.kind->id == std::string(row.id)) fingerprints.insert(change.fingerprint);
      }
    };
    LookAtChanges({row.before}, {row.after}, take);
    const std::size_t count = fingerprints.size();
    EXPECT_GT(count, 0U) << row.id;
    LookAtChanges({row.before}, {row.after + " "}, take);
    EXPECT_EQ(fingerprints.size(), count) << row.id;
    LookAtChanges({row.before}, {row.other_after}, take);
    EXPECT_GT(fingerprints.size(), count) << row.id;
  }
}

TEST(Changes, OfPartsThatAreSentByPositionHaveFingerprintsWithPositions) {
  const std::string text = Builtin("STRING");
  const auto fields = [&](const std::vector<std::string>& names) {
    std::vector<std::string> texts;
    for (const std::string& name : names) texts.push_back(Field(name, text));
    return Listed(texts);
  };
  const auto fingerprint_of = [](const char* id, const std::string& before,
                                 const std::string& after, const Assumptions& assumptions) {
    std::uint64_t fingerprint = 0;
    LookAtChanges(
        {before}, {after},
        [&](const Result& result) {
          for (const Change& change : result.changes) {
            if (change.kind->id == std::string(id)) fingerprint = change.fingerprint;
          }
        },
        assumptions);
    EXPECT_NE(fingerprint, 0U) << id << '\n' << after;
    return fingerprint;
  };
  Assumptions positional;
  positional.parameters = Assumptions::Parameters::kPositional;
  const auto takes = [&](const std::vector<std::string>& names) {
    return MetamodelFile({"", "", Operation("o", fields(names))});
  };
  const auto has = [&](const std::vector<std::string>& names) {
    return MetamodelFile({Structure("c.p.t", fields(names)), "", ""});
  };
  const std::vector<std::string> before{"a", "b", "c"};
  const std::vector<std::string> after{"a", "c"};
  const std::vector<std::string> replaced{"a", "x", "c"};
  const auto differ = [&](const Assumptions& assumptions) {
    return std::pair(
        fingerprint_of("parameter-removed", takes(before), takes(after), assumptions) !=
            fingerprint_of("parameter-removed", takes(before), takes(replaced), assumptions),
        fingerprint_of("field-removed", has(before), has(after), assumptions) !=
            fingerprint_of("field-removed", has(before), has(replaced), assumptions));
  };
  EXPECT_EQ(differ(positional), std::pair(true, true));
  EXPECT_EQ(differ({}), std::pair(false, false));
}

TEST(Changes, HaveThePlacesInBothVersions) {
  const Kind& kind = *FindKind("operation-removed");
  LookAtChanges(TextsOf(kind.example.old_files), TextsOf(kind.example.new_files),
                [](const Result& result) {
                  EXPECT_TRUE(result.fingerprints_differ);
                  EXPECT_TRUE(result.changes.front().old_place.has_value());
                  EXPECT_FALSE(result.changes.front().new_place.has_value());
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
