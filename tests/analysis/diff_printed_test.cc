#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/diffed.h"
#include "analysis/linted.h"
#include "analysis/small_cli.h"
#include "analysis/small_model.h"

// Commands that are the same in both versions and print something else.

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to compare

namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAre;
using Zelk::Analysis::Diff::Result;

const std::string kText = Builtin("STRING");
const std::string kState = Named("Structure", "c.p.state");
const std::string kPart = Named("Structure", "c.p.part");

/// The operation "start" of this result.
std::string Returns(const std::string& result, const std::string& structures,
                    const std::string& enumerations = "") {
  return MetamodelFile({structures, enumerations, Operation("start", "", result)});
}

/// It returns a structure of these fields.
std::string ReturnsState(const std::string& fields) {
  return Returns(kState, Structure("c.p.state", fields));
}

/// The structure has a part, which is a structure of these fields.
std::string ReturnsPart(const std::string& fields, const std::string& type = Of("LIST", kPart)) {
  return Returns(kState, Structure("c.p.state", Field("k", kText) + "," + Field("part", type)) +
                             "," + Structure("c.p.part", fields));
}

/// A part of "output_field_list".
std::string Lists(const std::string& structure, const std::vector<std::string>& fields) {
  std::vector<std::string> texts;
  for (const std::string& field : fields) {
    texts.push_back(R"({"field_name": ")" + field + R"(", "display_name": ""})");
  }
  return R"({"structure_id": ")" + structure + R"(", "output_fields": [)" + Listed(texts) + "]}";
}

std::string Prints(const std::string& formatter, const std::vector<std::string>& outputs = {}) {
  std::string members = R"(, "output_field_list": [)" + Listed(outputs) + "]";
  if (!formatter.empty()) members += R"(, "formatter": ")" + formatter + "\"";
  return OneCommand(CommandText{"", "go", {}, "start", members});
}

/// The changes of Metamodel that concern command lines if this CLI file stays the same: "LETTER
/// ID", then what is said about commands.
std::vector<std::string> Noticed(const std::string& before, const std::string& after,
                                 const std::string& cli) {
  std::vector<std::string> lines;
  LookAtChanges({before, cli}, {after, cli}, [&](const Result& result) {
    for (const Change& change : result.changes) {
      const std::string letter = Letters(change.verdicts).substr(2, 1);
      if (letter == "-") continue;
      const std::string& message = change.details.message;
      const std::size_t about = message.find("; this ");
      lines.push_back(letter + " " + change.kind->id +
                      (about == std::string::npos ? "" : message.substr(about)));
    }
  });
  return lines;
}

const std::string kX = Field("x", kText);
const std::string kZ = Field("z", kText);

}  // namespace

TEST(PrintedFields, AreAllIfNoOutputListsThem) {
  const std::string both = ReturnsState(kX + "," + kZ);
  for (const char* formatter : {"", "simple", "csv", "json", "other"}) {
    EXPECT_THAT(Noticed(both, ReturnsState(kZ), Prints(formatter)),
                ElementsAre("B field-removed; this breaks the command 'go'"))
        << formatter;
    // An output of another structure, or one without fields, does not hide them.
    EXPECT_THAT(Noticed(both, ReturnsState(kZ),
                        Prints(formatter, {Lists("c.p.state", {}), Lists("c.p.other", {"x"})})),
                ElementsAre("B field-removed; this breaks the command 'go'"))
        << formatter;
  }
  EXPECT_THAT(Noticed(both, ReturnsState(kZ), Prints("csv", {Lists("c.p.state", {"z"})})),
              IsEmpty());
  EXPECT_THAT(Noticed(both, ReturnsState(kZ), CliFile({})), IsEmpty());
}

TEST(PrintedFields, MoveColumns) {
  const struct {
    const char* formatter;
    const char* added;
    const char* order;
  } rows[] = {
      {"csv", "D field-added-required; this may move columns of the command 'go'",
       "B field-order-changed; this breaks the command 'go'"},
      {"", "D field-added-required; this may move columns of the command 'go'",
       "D field-order-changed; this may move columns of the command 'go'"},
      {"json", "c field-added-required", "D field-order-changed"},
  };

  const std::string both = ReturnsState(kX + "," + kZ);
  for (const auto& row : rows) {
    const std::string command = Prints(row.formatter);
    EXPECT_THAT(Noticed(ReturnsState(kZ), both, command), ElementsAre(row.added));
    EXPECT_THAT(Noticed(ReturnsState(kX), both, command), ElementsAre("c field-added-required"));
    EXPECT_THAT(Noticed(both, ReturnsState(kZ + "," + kX), command), ElementsAre(row.order));
  }
}

TEST(PrintedFields, AreThoseOfWhatIsPrinted) {
  const auto notices = [](const std::vector<std::string>& outputs) {
    return !Noticed(ReturnsPart(kX + "," + kZ), ReturnsPart(kZ), Prints("json", outputs)).empty();
  };
  EXPECT_TRUE(notices({}));
  EXPECT_TRUE(notices({Lists("c.p.state", {"part"})}));
  EXPECT_TRUE(notices({Lists("c.p.part", {"x"})}));
  EXPECT_FALSE(notices({Lists("c.p.state", {"k"})}));
  EXPECT_FALSE(notices({Lists("c.p.part", {"z"})}));
}

TEST(PrintedFields, AreOthersIfTheResultIs) {
  const auto file = [](const std::string& result) {
    return Returns(result, Structure("c.p.state", kX) + "," + Structure("c.p.part", kZ) + "," +
                               Structure("c.p.same", kX));
  };
  EXPECT_THAT(Noticed(file(kState), file(kPart), Prints("csv")),
              ElementsAre("B result-type-changed; this breaks the command 'go'"));
  EXPECT_THAT(Noticed(file(kState), file(Of("LIST", kState)), Prints("csv")),
              ElementsAre("D result-type-changed"));
  EXPECT_THAT(Noticed(file(kState), file(Named("Structure", "c.p.same")), Prints("csv")),
              ElementsAre("D result-type-changed"));
  EXPECT_THAT(Noticed(file(kText), file(kPart), Prints("csv")),
              ElementsAre("D result-type-changed"));
  EXPECT_THAT(Noticed(file(kState), file(kText), Prints("csv", {Lists("c.p.part", {"z"})})),
              ElementsAre("B result-type-changed; this breaks the command 'go'"));
}

TEST(PrintedFields, AreOthersIfTheTypeOfAFieldIs) {
  const std::string other = Named("Structure", "c.p.other");
  const auto file = [](const std::string& type) {
    return Returns(kState,
                   Structure("c.p.state", Field("k", kText) + "," + Field("part", type)) + "," +
                       Structure("c.p.part", kX + "," + kZ) + "," + Structure("c.p.other", kX) +
                       "," + Structure("c.p.unused", Field("part", type)),
                   Enumeration("c.p.mode"));
  };
  const std::string before = file(Of("LIST", kPart));
  const std::string breaks = "B field-type-changed; this breaks the command 'go'";
  for (const std::vector<std::string>& outputs :
       {std::vector<std::string>{}, {Lists("c.p.state", {"part"})}}) {
    const std::string command = Prints("table", outputs);
    EXPECT_THAT(Noticed(before, file(Of("LIST", other)), command),
                UnorderedElementsAre(breaks, "D field-type-changed"));
    EXPECT_THAT(Noticed(before, file(kPart), command),
                ElementsAre("D field-type-changed", "D field-type-changed"));
  }
  EXPECT_THAT(Noticed(before, file(other), Prints("table", {Lists("c.p.state", {"k"})})),
              ElementsAre("D field-type-changed", "D field-type-changed"));
  EXPECT_THAT(Noticed(file(MapOf(kPart, kText)), file(MapOf(other, kText)), Prints("csv")),
              UnorderedElementsAre(breaks, "D field-type-changed"));
  // The names of the values are texts as well.
  const std::string mode = Named("Enumeration", "c.p.mode");
  EXPECT_THAT(Noticed(file(mode), file(kText), Prints("csv")),
              ElementsAre("D field-type-changed", "D field-type-changed"));
  EXPECT_THAT(Noticed(file(mode), file(Builtin("LONG")), Prints("csv")),
              UnorderedElementsAre(breaks, "D field-type-changed"));
}

TEST(PrintedFields, AreOthersIfTheKeysOrValuesOfTheResultAre) {
  const auto file = [](const std::string& key, const std::string& value) {
    return Returns(MapOf(key, value),
                   Structure("c.p.state", kX + "," + kZ) + "," + Structure("c.p.part", kZ));
  };
  const std::string breaks = "B result-type-changed; this breaks the command 'go'";
  EXPECT_THAT(Noticed(file(kText, kState), file(kText, kPart), Prints("table")),
              ElementsAre(breaks));
  EXPECT_THAT(Noticed(file(kState, kText), file(kPart, kText), Prints("table")),
              ElementsAre(breaks));
  EXPECT_THAT(Noticed(file(kText, kState), file(Builtin("ID"), kState), Prints("table")),
              ElementsAre("D result-type-changed"));
}

TEST(PrintedFields, AreLookedForOnlyForSomeTime) {
  constexpr int kSize = 1100;
  const auto file = [](const std::string& last, const std::string& unused) {
    std::string structures = Structure("c.p.last", last) + "," + Structure("c.p.unused", unused);
    for (int i = 0; i < kSize; ++i) {
      const std::string next = i + 1 < kSize ? "c.p.s" + std::to_string(i + 1) : "c.p.last";
      const std::string self = "c.p.s" + std::to_string(i);
      structures += "," + Structure(self, Field("f", Named("Structure", next)));
    }
    return Returns(Named("Structure", "c.p.s0"), structures);
  };
  std::vector<std::string> commands;
  for (int i = 0; i < kSize; ++i) commands.push_back(Text(CommandText{"", std::to_string(i)}));
  // What prints other fields may be among the commands that were not looked at.
  EXPECT_THAT(
      Noticed(file(kX, kX + "," + kZ), file("", Field("a", kText) + "," + kZ), CliFile(commands)),
      UnorderedElementsAre("B field-removed; this breaks the commands '0', '1' and others",
                           "D field-removed", "D field-added-required"));
}

TEST(ListedOutputs, NeedAResultThatHasThem) {
  const std::string part = Lists("c.p.part", {"x"});
  for (const std::vector<std::string>& outputs :
       {std::vector<std::string>{part}, {Lists("c.p.state", {"part"}), part}}) {
    const std::string command = Prints("table", outputs);
    const std::string has = ReturnsPart(kX);
    const std::string has_not = ReturnsPart(kX, kText);
    EXPECT_THAT(Noticed(has, has_not, command),
                ElementsAre("D field-type-changed", "B output-became-unreachable"));
    EXPECT_THAT(Noticed(has_not, has, command),
                ElementsAre("D field-type-changed", "D output-became-reachable"));
    EXPECT_THAT(Noticed(has, ReturnsPart(kX, Builtin("OPAQUE")), command),
                ElementsAre("D field-type-changed"));
  }
  const std::string gone =
      Returns(kState, Structure("c.p.state", Field("k", kText)) + "," + Structure("c.p.part", kX));
  EXPECT_THAT(Noticed(ReturnsPart(kX), gone, Prints("json", {part})),
              Contains("B output-became-unreachable"));
}

// What a command prints is looked for in two ways.
TEST(ListedOutputs, AreWarnedAboutIfTheyAreNotReached) {
  const std::vector<std::string> files{
      ReturnsPart(kX),
      ReturnsPart(kX, kText),
      ReturnsPart(kX, kPart),
      ReturnsPart(kX, Builtin("OPAQUE")),
      ReturnsState(kX),
      ReturnsState(kZ),
      Returns(Of("LIST", kPart), Structure("c.p.part", kX) + "," + Structure("c.p.state", kZ)),
      Returns(MapOf(kText, kState),
              Structure("c.p.state", Field("part", kPart)) + "," + Structure("c.p.part", kX)),
      Returns(kText, Structure("c.p.state", kX)),
      Returns(Builtin("VOID"), "")};
  const std::string command = Prints("", {Lists("c.p.state", {"k"}), Lists("c.p.part", {"x"})});
  std::size_t worse = 0;
  for (const std::string& before : files) {
    const auto old_warnings = Found("unreachable-output", {before, command});
    for (const std::string& after : files) {
      const auto warnings = Found("unreachable-output", {after, command});
      const bool is_worse = std::any_of(warnings.begin(), warnings.end(), [&](const auto& each) {
        return std::count(old_warnings.begin(), old_warnings.end(), each) == 0;
      });
      if (!is_worse) continue;
      ++worse;
      EXPECT_THAT(Noticed(before, after, command),
                  Contains(AnyOf(StartsWith("B "), StartsWith("D "))))
          << before << '\n'
          << after;
    }
  }
  EXPECT_GT(worse, 10U);
}
