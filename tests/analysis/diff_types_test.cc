#include <set>
#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/diff/types.h"
#include "analysis/diffed.h"
#include "analysis/small_model.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to write types

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using Zelk::Analysis::Diff::Result;
using Zelk::Analysis::Diff::TypeVerdict;

/// Definitions that types name: x and y are made of the same parts, z of others.
std::string File(const std::string& operation) {
  const std::string definitions = Structure("c.p.x", Field("f", Builtin("LONG"))) + "," +
                                  Structure("c.p.y", Field("f", Builtin("LONG"))) + "," +
                                  Structure("c.p.z", "");
  return MetamodelFile({definitions, Enumeration("c.p.e"), operation});
}

/// The verdicts on the wire where callers send the type and where they receive it, as letters.
std::string Verdicts(const std::string& old_type, const std::string& new_type) {
  std::string letters;
  const auto take = [&](const Result& result) {
    letters += result.changes.size() == 1 ? Letters(result.changes.front().verdicts)[0] : '?';
  };
  LookAtChanges({File(Operation("a", Field("x", old_type)))},
                {File(Operation("a", Field("x", new_type)))}, take);
  LookAtChanges({File(Operation("a", "", old_type))}, {File(Operation("a", "", new_type))}, take);
  return letters;
}

const std::string kText = Builtin("STRING");
const std::string kNumber = Builtin("LONG");
const std::string kX = Named("Structure", "c.p.x");
const std::string kY = Named("Structure", "c.p.y");
const std::string kZ = Named("Structure", "c.p.z");

}  // namespace

TEST(TypeChanges, HaveVerdictsForBothDirections) {
  using Row = std::tuple<std::string, std::string, std::string>;
  const std::vector<Row> rows{
      {kText, Of("OPTIONAL", kText), "cB"},
      {Of("OPTIONAL", kText), kText, "Bc"},
      {Of("LIST", kText), Of("SET", kText), "DD"},
      {Of("SET", kText), Of("LIST", kText), "DD"},
      {kText, Of("LIST", kText), "BB"},
      {Of("LIST", kText), kText, "BB"},
      {MapOf(kText, kText), Of("LIST", kText), "BB"},
      {kText, Builtin("ID"), "DD"},
      {Builtin("URI"), kText, "DD"},
      {Builtin("SECRET"), kText, "DD"},
      {kNumber, Builtin("DOUBLE"), "DB"},
      {Builtin("DOUBLE"), kNumber, "BD"},
      {kText, Builtin("DATE_TIME"), "BB"},
      {kX, Builtin("DYNAMIC_STRUCTURE"), "DB"},
      {Builtin("DYNAMIC_STRUCTURE"), kX, "BB"},
      {kText, Builtin("OPAQUE"), "BB"},
      {kText, Named("Enumeration", "c.p.e"), "DD"},
      {Named("Enumeration", "c.p.e"), kText, "DD"},
      {kX, kY, "DD"},
      {kX, kZ, "BB"},
      {kX, Named("Structure", "c.p.unknown"), "BB"},
      {kX, Named("Enumeration", "c.p.e"), "BB"},
      {kX, Named("Enumeration", "c.p.x"), "BB"},
      {Of("LIST", kText), Of("LIST", Of("OPTIONAL", kText)), "DB"},
      {Of("LIST", kText), Of("SET", kNumber), "BB"},
      {MapOf(kText, kNumber), MapOf(kText, Builtin("DOUBLE")), "DB"},
      {MapOf(Builtin("ID"), kText), MapOf(kText, kText), "DD"},
      {Of("OPTIONAL", kNumber), Of("OPTIONAL", Builtin("DOUBLE")), "DB"},
      {Of("OPTIONAL", kNumber), Builtin("DOUBLE"), "BB"},
  };
  for (const auto& [old_type, new_type, verdicts] : rows) {
    EXPECT_EQ(Verdicts(old_type, new_type), verdicts) << old_type << '\n' << new_type;
  }
}

TEST(TypeChanges, ShowBothTypes) {
  EXPECT_THAT(
      Changed({File(Operation("a", Field("x", MapOf(kText, Of("LIST", kX)))))},
              {File(Operation("a", Field("x", MapOf(kText, Of("LIST", kY)))))}),
      ElementsAre("DBD-B parameter-type-changed parameter:x: the type of the parameter "
                  "'c.p.s.a.x' changed from MAP<STRING, LIST<c.p.x>> to MAP<STRING, LIST<c.p.y>> "
                  "(possibly renamed, since both have the same parts)"));
}

TEST(TypeChanges, ShowWhatANameIsToBeIfOnlyThatIsAnother) {
  const auto changed = [](const std::string& old_kind, const std::string& new_kind) {
    return Changed({File(Operation("a", Field("x", Named(old_kind, "c.p.x"))))},
                   {File(Operation("a", Field("x", Named(new_kind, "c.p.x"))))});
  };
  EXPECT_THAT(changed("Structure", "acme.machine"),
              ElementsAre("BBD-c parameter-type-changed parameter:x: the type of the parameter "
                          "'c.p.s.a.x' changed from structure c.p.x to acme.machine c.p.x"));
  EXPECT_THAT(changed("acme.machine", "acme.engine"),
              ElementsAre(HasSubstr("from acme.machine c.p.x to acme.engine c.p.x")));
  EXPECT_THAT(changed("Structure", "Enumeration"),
              ElementsAre(HasSubstr("from structure c.p.x to enumeration c.p.x")));
  EXPECT_THAT(changed("Structure", "com.orvane.zelk.structure"),
              ElementsAre(StartsWith("----- formatting-only")));
}

TEST(TypeChanges, OfOptionalResultsAreOnesOfTypes) {
  EXPECT_THAT(
      Changed({File(Operation("a", "", kText))}, {File(Operation("a", "", Of("OPTIONAL", kText)))}),
      ElementsAre(StartsWith("BBD-c result-type-changed")));
}

TEST(TypeChanges, AreFoundAtAnyDepth) {
  const auto deep = [](const std::string& inner) {
    constexpr int kDepth = 20000;
    std::string type;
    for (int depth = 0; depth < kDepth; ++depth) {
      type += R"({"category": "GENERIC", "generic_type": "LIST", "element_type": )";
    }
    return type + inner + std::string(kDepth, '}');
  };
  const std::string old_type = deep(kText);
  const std::string new_type = deep(kNumber);
  EXPECT_THAT(Changed({File(Operation("a", Field("x", old_type)))},
                      {File(Operation("a", Field("x", new_type)))}),
              ElementsAre(HasSubstr("changed from LIST<LIST<")));
}

TEST(TypeChanges, HaveOneRowInTheTableForEachPair) {
  std::set<std::pair<std::string, std::string>> pairs;
  for (const TypeVerdict& row : Zelk::Analysis::Diff::kTypeVerdicts) {
    EXPECT_TRUE(pairs.emplace(row.old_type, row.new_type).second) << row.old_type;
  }
}
