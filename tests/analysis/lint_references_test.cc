#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/linted.h"
#include "analysis/small_model.h"
#include "support/small_stack.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to write files
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

const std::string kText = Builtin("STRING");

std::string Error(const std::string& name) {
  return R"({"user_defined_type_name": ")" + name + R"(", "documentation": ""})";
}

std::string WithOperation(const std::string& operation) {
  return MetamodelFile(
      {Structure("c.p.spec", Field("f", kText)), Enumeration("c.p.kind"), operation});
}

/// One operation with a parameter of the type.
std::string WithType(const std::string& type) {
  return WithOperation(Operation("get", Field("i", type)));
}

std::string ErrorStructure(const std::string& name) {
  std::string text = Structure(name, "");
  return text.replace(text.find("STRUCTURE"), 9, "ERROR");
}

}  // namespace

TEST(UnresolvedReference, IsAnErrorWithinWhatIsLoaded) {
  EXPECT_THAT(Found("unresolved-reference", {WithType(Of("LIST", Named("Structure", "c.p.spek")))}),
              ElementsAre("error parameter:i: the structure 'c.p.spek' is not loaded "
                          "(did you mean 'c.p.spec'?)"));
  EXPECT_THAT(
      Found("unresolved-reference", {WithOperation(Operation("get", "", kText, Error("c.none")))}),
      ElementsAre("error error:c.none: the structure 'c.none' is not loaded"));
  EXPECT_THAT(Found("unresolved-reference", {WithType(Named("Enumeration", "c.p.kind"))}),
              IsEmpty());
}

TEST(UnresolvedReference, IsNotedOnceForANameThatMayBeElsewhere) {
  const Lines texts{WithOperation(Operation(
      "get", Field("i", Named("Structure", "d.x")) + "," + Field("j", Named("Structure", "d.x")),
      Named("Enumeration", "d.y"), Error("d.x")))};
  EXPECT_THAT(Found("unresolved-reference", texts),
              ElementsAre("note metamodel: the structure 'd.x' is not loaded",
                          "note metamodel: the enumeration 'd.y' is not loaded"));
  Zelk::Analysis::Lint::Settings settings;
  settings.external = {"d.*"};
  EXPECT_THAT(Found("unresolved-reference", texts, settings), IsEmpty());
}

TEST(UnresolvedReference, IsOnlyCountedIfTheTextsAreTooLong) {
  std::string fields = Field("f", kText);
  for (int i = 0; i < 500; ++i) fields += "," + Field("f", Named("Structure", "c.p.none"));
  std::string text = MetamodelFile({Structure("c.p.spec", fields), "", ""});
  text.replace(text.find("c.p"), 3, "c.p" + std::string(1000000, 'x'));
  const Zelk::Analysis::Lint::Workspace workspace(FilesOf({text}));
  const auto result = Zelk::Analysis::Lint::Lint(
      workspace, {Zelk::Analysis::Lint::FindRule("unresolved-reference")});
  EXPECT_EQ(result.findings.size() + result.unlisted.front(), 500U);
  EXPECT_GT(result.findings.size(), 50U);
  EXPECT_GT(result.unlisted.front(), 300U);
}

TEST(UnresolvedReference, LeavesOtherResourceTypesAlone) {
  EXPECT_THAT(Found("unresolved-reference", {WithType(Named("com.example.other", "c.p.none"))}),
              IsEmpty());
}

TEST(ReferenceKindMismatch, ComparesTheWordWithTheDefinition) {
  EXPECT_THAT(Found("reference-kind-mismatch", {WithType(Named("Structure", "c.p.kind"))}),
              ElementsAre("error parameter:i: 'c.p.kind' is an enumeration, not a structure"));
  EXPECT_THAT(Found("reference-kind-mismatch", {WithType(Named("Enumeration", "c.p.spec"))}),
              ElementsAre("error parameter:i: 'c.p.spec' is a structure, not an enumeration"));
  EXPECT_THAT(Found("reference-kind-mismatch", {WithType(Named("com.example.other", "c.p.spec"))}),
              IsEmpty());
  EXPECT_THAT(Found("reference-kind-mismatch", {WithType(Named("Structure", "c.p.none"))}),
              IsEmpty());
}

TEST(NotAnError, LooksAtTheTypeOfTheStructure) {
  const auto with = [](const std::string& operation) {
    return MetamodelFile(
        {Structure("c.p.spec", "") + "," + ErrorStructure("c.p.bad"), "", operation});
  };
  EXPECT_THAT(Found("not-an-error", {with(Operation("get", "", kText, Error("c.p.spec")))}),
              ElementsAre("error error:c.p.spec: the structure 'c.p.spec' is not of type ERROR"));
  EXPECT_THAT(Found("not-an-error",
                    {with(Operation("get", Field("i", Of("SET", Named("Structure", "c.p.bad")))))}),
              ElementsAre("warning parameter:i: the error 'c.p.bad' is the type of a parameter"));
  EXPECT_THAT(Found("not-an-error",
                    {with(Operation("get", "", Named("Structure", "c.p.bad"), Error("c.p.bad")))}),
              IsEmpty());
}

TEST(InfiniteStructure, ReportsEachCircleOnce) {
  const auto named = [](const char* name) { return Named("Structure", name); };
  EXPECT_THAT(
      Found("infinite-structure",
            {MetamodelFile(
                {Structure("c.p.d", Field("to", named("c.p.b"))) + "," +
                     Structure("c.p.b", Field("x", kText) + "," + Field("next", named("c.p.a"))) +
                     "," + Structure("c.p.a", Field("back", named("c.p.b"))) + "," +
                     Structure("c.p.self", Field("own", named("c.p.self"))),
                 "", ""})}),
      ElementsAre("error structure:c.p.a: no value of 'c.p.a' can be complete: "
                  "'c.p.a.back' is 'c.p.b', 'c.p.b.next' is 'c.p.a'",
                  "error structure:c.p.self: no value of 'c.p.self' can be complete: "
                  "'c.p.self.own' is 'c.p.self'"));
}

TEST(InfiniteStructure, EndsWhereNothingIsNeeded) {
  for (const char* generic : {"LIST", "SET", "OPTIONAL"}) {
    const std::string type = Of(generic, Named("Structure", "c.p.a"));
    EXPECT_THAT(Found("infinite-structure",
                      {MetamodelFile({Structure("c.p.a", Field("f", type)), "", ""})}),
                IsEmpty())
        << generic;
  }
}

TEST(InfiniteStructure, ShowsTheBeginningOfALongCircle) {
  constexpr int kSize = 20000;
  std::string structures;
  for (int i = 0; i < kSize; ++i) {
    structures +=
        (i == 0 ? "" : ",") +
        Structure("c.p.s" + std::to_string(i),
                  Field("f", Named("Structure", "c.p.s" + std::to_string((i + 1) % kSize))));
  }
  RunOnSmallStack(256 * 1024, [&] {
    EXPECT_THAT(Found("infinite-structure", {MetamodelFile({structures, "", ""})}),
                ElementsAre("error structure:c.p.s0: no value of 'c.p.s0' can be complete: "
                            "'c.p.s0.f' is 'c.p.s1', 'c.p.s1.f' is 'c.p.s2', "
                            "'c.p.s2.f' is 'c.p.s3', 'c.p.s3.f' is 'c.p.s4', "
                            "'c.p.s4.f' is 'c.p.s5', and so on"));
  });
}

TEST(SuspiciousType, ReportsEachKindOfTrouble) {
  const std::string none = Builtin("VOID");
  const std::string structure = Named("Structure", "c.p.spec");

  const struct {
    std::string type;
    const char* message;
  } rows[] = {
      {none, "VOID is the type of a parameter"},
      {Of("OPTIONAL", none), "VOID is in another type"},
      {MapOf(none, kText), "VOID is in another type"},
      {MapOf(kText, none), "VOID is in another type"},
      {Of("LIST", Of("OPTIONAL", Of("OPTIONAL", kText))), "an OPTIONAL is in another one"},
      {Of("SET", structure), "the elements of a SET are structures"},
      {Of("SET", Of("LIST", kText)), "the elements of a SET are of type LIST"},
      {MapOf(Builtin("OPAQUE"), kText), "the keys of a MAP are of type OPAQUE"},
      {MapOf(MapOf(kText, kText), kText), "the keys of a MAP are of type MAP"},
      {MapOf(Builtin("DYNAMIC_STRUCTURE"), kText),
       "the keys of a MAP are of type DYNAMIC_STRUCTURE"},
  };

  for (const auto& row : rows) {
    EXPECT_THAT(Found("suspicious-type", {WithType(row.type)}),
                ElementsAre(std::string("warning parameter:i: ") + row.message))
        << row.type;
  }
  for (const std::string& type :
       {kText, Of("SET", Named("Enumeration", "c.p.kind")), MapOf(Of("OPTIONAL", kText), structure),
        Of("OPTIONAL", Of("LIST", Of("OPTIONAL", kText)))}) {
    EXPECT_THAT(Found("suspicious-type", {WithType(type)}), IsEmpty()) << type;
  }
  EXPECT_THAT(Found("suspicious-type", {WithOperation(Operation("get", ""))}), IsEmpty());
}

TEST(SuspiciousType, CountsLevels) {
  std::string type = kText;
  for (int i = 0; i < 7; ++i) type = Of("LIST", type);
  EXPECT_THAT(Found("suspicious-type", {WithType(type)}), IsEmpty());
  EXPECT_THAT(Found("suspicious-type", {WithType(Of("LIST", type))}),
              ElementsAre("warning parameter:i: the type has more than 8 levels"));
  EXPECT_THAT(Found("suspicious-type", {WithType(MapOf(type, kText))}),
              testing::Contains("warning parameter:i: the type has more than 8 levels"));
}

TEST(SuspiciousType, ReportsATroubleOnceHoweverDeepTheType) {
  std::string begin;
  for (int i = 0; i < 100000; ++i) {
    begin += R"({"category": "GENERIC", "generic_type": "OPTIONAL", "element_type": )";
  }
  const std::string type = begin + Builtin("VOID") + std::string(100000, '}');
  RunOnSmallStack(256 * 1024, [&] {
    EXPECT_THAT(Found("suspicious-type", {WithType(type)}),
                ElementsAre("warning parameter:i: the type has more than 8 levels",
                            "warning parameter:i: an OPTIONAL is in another one",
                            "warning parameter:i: VOID is in another type"));
  });
}

TEST(DuplicateMember, IsOneOfAnyKind) {
  EXPECT_THAT(
      Found("duplicate-member",
            {MetamodelFile({Structure("c.p.spec", Field("f", kText) + "," + Field("g", kText) +
                                                      "," + Field("f", kText)),
                            R"({"name": "c.p.kind", "documentation": "", "metadata": {}, "values": [
                   {"name": "A", "documentation": "", "metadata": {}},
                   {"name": "A", "documentation": "", "metadata": {}}]})",
                            Operation("get", Field("i", kText) + "," + Field("i", kText), kText,
                                      Error("c.p.bad") + "," + Error("c.p.bad"))})}),
      ElementsAre(
          "error value:A: the value 'c.p.kind.A' is there twice, and both are kept",
          "error field:f: the field 'c.p.spec.f' is there twice, and both are kept",
          "error parameter:i: the parameter 'c.p.s.get.i' is there twice, and both are kept",
          "error error:c.p.bad: the error 'c.p.s.get.c.p.bad' is there twice, and both are "
          "kept"));
}

TEST(EmptyDefinition, IsAWarningForEnumerations) {
  EXPECT_THAT(Found("empty-definition", {MetamodelFile({"", Enumeration("c.p.kind"), ""})}),
              ElementsAre("warning enumeration:c.p.kind: the enumeration 'c.p.kind' has no values",
                          "note service:c.p.s: the service 'c.p.s' has no operations"));
}

TEST(UnusedDefinition, IsReachedThroughFields) {
  const auto with = [](const std::string& operation) {
    return MetamodelFile({Structure("c.p.a", Field("b", Of("LIST", Named("Structure", "c.p.b")))) +
                              "," +
                              Structure("c.p.b", Field("k", Named("Enumeration", "c.p.kind")) +
                                                     "," + Field("a", Named("Structure", "c.p.a"))),
                          Enumeration("c.p.kind"), operation});
  };
  EXPECT_THAT(Found("unused-definition",
                    {with(Operation("get", "", Of("LIST", Named("Structure", "c.p.a"))))}),
              IsEmpty());
  EXPECT_THAT(Found("unused-definition", {with(Operation("get", "", kText, Error("c.p.a")))}),
              IsEmpty());
  EXPECT_THAT(
      Found("unused-definition",
            {with(Operation("get", Field("i", Named("Enumeration", "c.p.kind"))))}),
      ElementsAre("note structure:c.p.a: the structure 'c.p.a' is not used by any operation",
                  "note structure:c.p.b: the structure 'c.p.b' is not used by any operation"));
}

TEST(UnusedDefinition, ModelsOfResourcesAreUsed) {
  EXPECT_THAT(
      Found("unused-definition",
            {MetamodelFile({Structure("c.p.a",
                                      Field("k", Builtin("ID"),
                                            R"("Resource": {"value": "r"}, "ModelKey": {})"),
                                      R"("Model": {})"),
                            "", ""})}),
      IsEmpty());
}

TEST(ResourceWithoutModel, IsNotedOnceForEachName) {
  const std::string key =
      Field("k", Builtin("ID"), R"("Resource": {"value": "r"}, "ModelKey": {})");
  const std::string text = MetamodelFile(
      {Structure("c.p.a", key, R"("Model": {})"), "",
       Operation("get", Field("i", kText, R"("Resource": {"value": ["q", "r", "s", "q"]})"))});
  EXPECT_THAT(Found("resource-without-model", {text}),
              ElementsAre("note metamodel: no structure is a model of the resource 'q'",
                          "note metamodel: no structure is a model of the resource 's'"));
  Zelk::Analysis::Lint::Settings settings;
  settings.external = {"[qs]"};
  EXPECT_THAT(Found("resource-without-model", {text}, settings), IsEmpty());
}
