#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/diffed.h"
#include "analysis/small_model.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to write files

namespace {

using testing::_;
using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAre;
using Zelk::Analysis::Diff::Class;
using Zelk::Analysis::Diff::Result;

constexpr char kNothing[] = "----- formatting-only metamodel: only the fingerprint changes";

std::string Operations(const std::string& operations) {
  return MetamodelFile({"", "", operations});
}

/// A file whose operation takes the parameters.
std::string Takes(const std::string& parameters) {
  return Operations(Operation("a", parameters));
}

std::string Optional(const std::string& type) {
  return Of("OPTIONAL", type);
}

const char* const kText = R"({"category": "BUILTIN", "primitive_type": "STRING"})";
const char* const kNumber = R"({"category": "BUILTIN", "primitive_type": "LONG"})";

/// How the structure c.p.spec is used.
const std::string kSent = Operation("a", Field("x", Named("Structure", "c.p.spec")));
const std::string kReceived = Operation("a", "", Of("LIST", Named("Structure", "c.p.spec")));
const std::string kThrown = Operation("a", "", Builtin("VOID"),
                                      R"({"user_defined_type_name": "c.p.spec",
                                          "documentation": ""})");

/// A file with the structure c.p.spec.
std::string Spec(const std::string& fields, const std::string& operations,
                 const std::string& metadata = "") {
  return MetamodelFile({Structure("c.p.spec", fields, metadata), "", operations});
}

std::string Value(const std::string& name, const std::string& documentation = "") {
  return R"({"name": ")" + name + R"(", "documentation": ")" + documentation +
         R"(", "metadata": {}})";
}

/// A file with an enumeration that nothing uses, or that the operation uses.
std::string State(const std::string& values, const std::string& operations = "") {
  return MetamodelFile(
      {"",
       R"({"name": "c.p.state", "documentation": "", "metadata": {}, "values": [)" + values + "]}",
       operations});
}

const std::string kStateSent = Operation("a", Field("x", Named("Enumeration", "c.p.state")));
const std::string kStateReceived = Operation("a", "", Named("Enumeration", "c.p.state"));

std::string Deprecated(const std::string& operation) {
  std::string text = operation;
  return text.replace(text.find(R"("metadata": {)"), 13, R"("metadata": {"Deprecated": {})");
}

}  // namespace

TEST(OperationChanges, AreFoundByTheNamesOfOperations) {
  EXPECT_THAT(
      Changed({Operations(Operation("a", "") + "," + Operation("b", ""))},
              {Operations(Operation("b", "") + "," + Operation("cde", ""))}),
      ElementsAre("BB--B operation-removed operation:a: the operation 'c.p.s.a' was removed",
                  "cc--c operation-added operation:cde: the operation 'c.p.s.cde' was added"));
  EXPECT_THAT(Changed({Operations(Operation("a", "") + "," + Operation("b", ""))},
                      {Operations(Operation("b", "") + "," + Operation("a", ""))}),
              ElementsAre(kNothing));
}

TEST(OperationChanges, ErrorsHaveDocumentation) {
  std::string documented = kThrown;
  documented.replace(documented.rfind(R"("documentation": "")"), 19, R"("documentation": "why")");
  EXPECT_THAT(Changed({Spec("", kThrown)}, {Spec("", documented)}),
              ElementsAre("-t--t documentation-added error:c.p.spec: the documentation of the "
                          "error 'c.p.s.a.c.p.spec' was added"));
}

TEST(Removals, AreRolledUpInWhatTheyAreIn) {
  const std::string whole = MetamodelFile({Structure("c.p.x", "") + "," + Structure("c.p.y", ""),
                                           Enumeration("c.p.e"), Operation("a", "")});
  EXPECT_THAT(
      Changed({whole}, {}),
      ElementsAre("BB--B component-removed component:c: the component 'c' with 1 package, 1 "
                  "service, 1 operation, 2 structures and 1 enumeration was removed"));
  EXPECT_THAT(Changed({}, {whole}),
              ElementsAre("cc--c component-added component:c: the component 'c' with 1 package, 1 "
                          "service, 1 operation, 2 structures and 1 enumeration was added"));
}

TEST(Removals, OfAComponentDoNotConcernCallersOfWhatStays) {
  const std::string before = MetamodelFile({"", "", Operation("a", "")});
  std::string after = before;
  const std::string name = R"("name": "c", )";
  after.replace(after.find(name), name.size(), R"("name": "d", )");
  EXPECT_THAT(Changed({before}, {after}),
              UnorderedElementsAre(
                  StartsWith("----B component-removed component:c: the component 'c' was removed"),
                  StartsWith("----D package-moved package:c.p"),
                  StartsWith("cc--c component-added component:d: the component 'd' was added")));
}

TEST(Removals, DoNotHaveWhatWasMoved) {
  const std::string before = R"({"metamodel": {"component": {"name": "c", "documentation": "",
      "metadata": {}, "packages": [)";
  const std::string package = R"({"name": "c.p", "documentation": "", "metadata": {},
      "enumerations": [], "structures": [], "services": [)";
  const std::string other = R"({"name": "c.q", "documentation": "", "metadata": {},
      "enumerations": [], "structures": [], "services": [)";
  const std::string service = R"({"name": "c.p.s", "documentation": "", "metadata": {},
      "enumerations": [], "structures": [], "constants": [], "operations": []})";
  EXPECT_THAT(
      Changed({before + package + service + "]}]}}}"}, {before + other + service + "]}]}}}"}),
      ElementsAre("----B package-removed package:c.p: the package 'c.p' was removed",
                  "-D--D service-moved service:c.p.s: the service 'c.p.s' was moved from the "
                  "package 'c.p' to the package 'c.q'",
                  "cc--c package-added package:c.q: the package 'c.q' was added"));
}

TEST(Removals, OfWhatWasDeprecatedAreDangerous) {
  EXPECT_THAT(Changed({Operations(Deprecated(Operation("a", "")))}, {Operations("")}),
              ElementsAre("DD--D operation-removed operation:a: the deprecated operation "
                          "'c.p.s.a' was removed"));
  Assumptions assumptions;
  assumptions.deprecated = {"Old"};
  EXPECT_THAT(Changed({Operations(Deprecated(Operation("a", "")))}, {Operations("")}, assumptions),
              ElementsAre(StartsWith("BB--B operation-removed")));
}

TEST(Removals, OfWhatWasDeprecatedBreakThoseWhoUseTheRest) {
  const std::string old_value = Deprecated(Value("A"));
  EXPECT_THAT(Changed({State(old_value + "," + Value("B"), kStateReceived)},
                      {State(Value("B"), kStateReceived)}),
              ElementsAre(StartsWith("BDD-c enumeration-value-removed value:A: the "
                                     "deprecated value 'c.p.state.A' was removed")));
  EXPECT_THAT(Changed({State(Value("A") + "," + Deprecated(Value("B")), kStateSent)},
                      {State(Value("A"), kStateSent)}),
              ElementsAre(StartsWith("DDD-c enumeration-value-removed")));
  EXPECT_THAT(Changed({MetamodelFile({"", Deprecated(Enumeration("c.p.state")), kStateSent})},
                      {MetamodelFile({"", "", kStateSent})}),
              ElementsAre("BB--B enumeration-removed enumeration:c.p.state: the enumeration "
                          "'c.p.state' was removed, but is still used"));
  const std::string x = Field("x", kText, R"("Deprecated": {})");
  const std::string y = Field("y", kText);
  Assumptions positional;
  positional.parameters = Assumptions::Parameters::kPositional;
  EXPECT_THAT(Changed({Takes(x + "," + y)}, {Takes(y)}),
              ElementsAre(StartsWith("DB--c parameter-removed")));
  EXPECT_THAT(Changed({Takes(x + "," + y)}, {Takes(y)}, positional),
              ElementsAre(StartsWith("BB--c parameter-removed")));
  EXPECT_THAT(Changed({Takes(y + "," + x)}, {Takes(y)}),
              ElementsAre(StartsWith("DD--c parameter-removed")));
  EXPECT_THAT(Changed({Takes(y + "," + x)}, {Takes(y)}, positional),
              ElementsAre(StartsWith("BD--c parameter-removed")));
  EXPECT_THAT(Changed({Spec(x + "," + y, kSent)}, {Spec(y, kSent)}),
              ElementsAre("DB--c field-removed field:x: the deprecated field 'c.p.spec.x' was "
                          "removed"));
  EXPECT_THAT(Changed({Spec(y + "," + x, kSent)}, {Spec(y, kSent)}),
              ElementsAre(StartsWith("DD--c field-removed")));
  EXPECT_THAT(Changed({Spec(x + "," + y, kSent)}, {Spec(y, kSent)}, positional),
              ElementsAre(StartsWith("BB--c field-removed field:x: the field 'c.p.spec.x'")));
  EXPECT_THAT(Changed({Spec(y + "," + x, kSent)}, {Spec(y, kSent)}, positional),
              ElementsAre(StartsWith("DD--c field-removed")));
}

TEST(Removals, OfOptionalParametersDependOnTheWire) {
  const std::string old_text = Takes(Field("x", Optional(kText)));
  EXPECT_THAT(Changed({old_text}, {Takes("")}), ElementsAre(StartsWith("DB--c parameter-removed")));
  Assumptions assumptions;
  assumptions.unknown_fields = Assumptions::UnknownFields::kRefused;
  EXPECT_THAT(Changed({old_text}, {Takes("")}, assumptions),
              ElementsAre(StartsWith("BB--c parameter-removed")));
}

TEST(Removals, OfStructuresBreakCallsIfSomethingNamesThem) {
  EXPECT_THAT(Changed({Spec("", kSent)}, {Operations(kSent)}),
              ElementsAre("BB--B structure-removed structure:c.p.spec: the structure 'c.p.spec' "
                          "was removed, but is still used"));
  EXPECT_THAT(Changed({Spec("", "")}, {Operations("")}),
              ElementsAre(StartsWith("-B--B structure-removed")));
}

TEST(Renames, AreHintsAtWhatIsAlike) {
  EXPECT_THAT(Changed({Operations(Operation("start_all", Field("x", kText)))},
                      {Operations(Operation("start_al", Field("x", kText)))}),
              UnorderedElementsAre(HasSubstr("(possibly renamed to 'c.p.s.start_al')"),
                                   HasSubstr("(possibly renamed from 'c.p.s.start_all')")));
  EXPECT_THAT(Changed({Operations(Operation("start_all", Field("x", kText)))},
                      {Operations(Operation("start_al", Field("x", kNumber)))}),
              Each(Not(HasSubstr("renamed"))));
  EXPECT_THAT(Changed({State(Value("ON", "It runs on its own."))},
                      {State(Value("RUNNING", "It runs on its own!"))}),
              ElementsAre(HasSubstr("(possibly renamed to 'c.p.state.RUNNING')"), _));
}

TEST(Renames, AreNotLookedForInLongTexts) {
  EXPECT_THAT(Changed({State(Value("ON", std::string(300, 'a')))},
                      {State(Value("RUNNING", std::string(300, 'b')))}),
              Each(Not(HasSubstr("renamed"))));
}

TEST(Renames, AreLookedForAmongSomeElementsOnly) {
  std::string old_values;
  std::string new_values;
  for (int i = 100; i < 200; ++i) {
    old_values += Value("a" + std::to_string(i)) + ",";
    new_values += Value("b" + std::to_string(i)) + ",";
  }
  EXPECT_THAT(Changed({State(old_values + Value("RUNNING_ALL"))},
                      {State(new_values + Value("RUNNING_AL"))}),
              Each(Not(HasSubstr("renamed"))));
}

TEST(ParameterChanges, DependOnThePositionIfThatIsSent) {
  const std::string x = Field("x", kText);
  const std::string y = Field("y", Optional(kText));
  Assumptions positional;
  positional.parameters = Assumptions::Parameters::kPositional;
  EXPECT_THAT(Changed({Takes(x)}, {Takes(y + "," + x)}),
              ElementsAre(StartsWith("cDc-c parameter-added-optional")));
  EXPECT_THAT(Changed({Takes(x)}, {Takes(y + "," + x)}, positional),
              ElementsAre(StartsWith("BDc-c parameter-added-optional")));
  EXPECT_THAT(Changed({Takes(x)}, {Takes(x + "," + y)}, positional),
              ElementsAre(StartsWith("cDc-c parameter-added-optional")));
  EXPECT_THAT(Changed({Takes(x + "," + y)}, {Takes(y + "," + x)}),
              ElementsAre("cB--c parameter-order-changed operation:a: the parameters of the "
                          "operation 'c.p.s.a' are in another order"));
  EXPECT_THAT(Changed({Takes(x + "," + y)}, {Takes(y + "," + x)}, positional),
              ElementsAre(StartsWith("BB--c parameter-order-changed")));
  EXPECT_THAT(Changed({Takes(x + "," + y)}, {Takes(x)}, positional),
              ElementsAre(StartsWith("BB--c parameter-removed")));
}

TEST(ParameterChanges, OfOneNameAreMatchedInTheirOrder) {
  const std::string x = Field("x", kText);
  EXPECT_THAT(Changed({Takes(x + "," + Field("x", kNumber))}, {Takes(x)}),
              ElementsAre(StartsWith("BB--c parameter-removed")));
  EXPECT_THAT(Changed({Takes(x)}, {Takes(x + "," + x + "," + Field("y", kText))}),
              ElementsAre(StartsWith("BB--c parameter-added-required parameter:x"),
                          StartsWith("BB--c parameter-added-required parameter:y")));
}

TEST(FieldChanges, DependOnWhoSendsThem) {
  const std::string x = Field("x", kText);
  for (const auto& [operations, verdicts] :
       {std::pair(kSent, "BDc-c"), std::pair(kReceived, "cDc-c"), std::pair(kThrown, "cDc-c"),
        std::pair(std::string(), "BDc-c")}) {
    EXPECT_THAT(Changed({Spec("", operations)}, {Spec(x, operations)}),
                ElementsAre(StartsWith(verdicts + std::string(" field-added-required"))))
        << operations;
  }
  EXPECT_THAT(Changed({Spec(x, kSent)}, {Spec(Field("x", Optional(kText)), kSent)}),
              ElementsAre("cBD-c field-became-optional field:x: the type of the field "
                          "'c.p.spec.x' changed from STRING to OPTIONAL<STRING>"));
  EXPECT_THAT(Changed({Spec(x, kReceived)}, {Spec(Field("x", Optional(kText)), kReceived)}),
              ElementsAre(StartsWith("BBD-c field-became-optional")));
}

TEST(FieldChanges, ReachThroughOtherStructures) {
  const std::string outer = Structure("c.p.outer", Field("in", Named("Structure", "c.p.spec")));
  const auto file = [&](const std::string& fields) {
    return MetamodelFile({outer + "," + Structure("c.p.spec", fields), "",
                          Operation("a", Field("x", Named("Structure", "c.p.outer"))) + "," +
                              Operation("b", "", Named("Structure", "c.p.outer"))});
  };
  LookAtChanges({file("")}, {file(Field("x", kText))}, [](const Result& result) {
    ASSERT_THAT(result.changes, SizeIs(1));
    EXPECT_EQ(result.changes.front().details.direction, Zelk::Analysis::Diff::Direction::kBoth);
    EXPECT_EQ(Word(result.changes.front().details.direction), std::string("both"));
  });
}

TEST(FieldChanges, DependOnWhatIsAssumed) {
  const std::string x = Field("x", kText);
  const std::string y = Field("y", Optional(kText));
  Assumptions refused;
  refused.unknown_fields = Assumptions::UnknownFields::kRefused;
  EXPECT_THAT(Changed({Spec("", kReceived)}, {Spec(y, kReceived)}, refused),
              ElementsAre(StartsWith("BDc-c field-added-optional")));
  EXPECT_THAT(Changed({Spec("", kSent)}, {Spec(y, kSent)}, refused),
              ElementsAre(StartsWith("cDc-c field-added-optional")));
  Assumptions positional;
  positional.parameters = Assumptions::Parameters::kPositional;
  EXPECT_THAT(Changed({Spec(x, kSent)}, {Spec(y + "," + x, kSent)}, positional),
              ElementsAre(StartsWith("BDc-c field-added-optional")));
  EXPECT_THAT(Changed({Spec(x, kSent)}, {Spec(x + "," + y, kSent)}, positional),
              ElementsAre(StartsWith("cDc-c field-added-optional")));
  EXPECT_THAT(Changed({Spec(x + "," + y, kSent)}, {Spec(y + "," + x, kSent)}),
              ElementsAre(StartsWith("cBD-c field-order-changed")));
  EXPECT_THAT(Changed({Spec(x + "," + y, kSent)}, {Spec(y + "," + x, kSent)}, positional),
              ElementsAre(StartsWith("BBD-c field-order-changed")));
}

TEST(FieldChanges, ConcernCommandsThatUseTheField) {
  const auto cli = [](const std::string& options, const std::string& outputs) {
    return R"({"cli": [{"type": "command", "path": "", "name": "a", "description": "",
        "node_metadata": {"service_id": "c.p.s", "operation_id": "a", "options": [)" +
           options + R"(], "output_field_list": [)" + outputs + "]}}]}";
  };
  const std::string option = R"({"long_option": "x", "field_name": "x.f", "description": "",
      "type": "STRING", "generic": "OPTIONAL"})";
  const std::string output = R"({"structure_id": "c.p.spec", "output_fields":
      [{"field_name": "f", "display_name": "F"}]})";
  const std::string field = Field("f", kText);
  for (const std::string& commands : {cli(option, ""), cli("", output)}) {
    EXPECT_THAT(Changed({Spec(field, kSent), commands}, {Spec("", kSent), commands}),
                ElementsAre(StartsWith("BBB-c field-removed")));
  }
  EXPECT_THAT(Changed({Spec(field, kSent)}, {Spec("", kSent)}),
              ElementsAre(StartsWith("BB--c field-removed")));
  const std::string optional = Field("f", Optional(kText));
  EXPECT_THAT(
      Changed({Spec(optional, kSent), cli(option, "")}, {Spec(field, kSent), cli(option, "")}),
      ElementsAre(StartsWith("BBB-c field-became-required")));
  EXPECT_THAT(
      Changed({Spec(optional, kSent), cli("", output)}, {Spec(field, kSent), cli("", output)}),
      ElementsAre(StartsWith("BB--c field-became-required")));
}

TEST(EnumerationChanges, DependOnWhoSendsTheValues) {
  const std::string on = Value("ON");
  const std::string both = on + "," + Value("OFF");
  EXPECT_THAT(Changed({State(on, kStateSent)}, {State(both, kStateSent)}),
              ElementsAre(StartsWith("cDc-c enumeration-value-appended")));
  EXPECT_THAT(Changed({State(on, kStateReceived)}, {State(both, kStateReceived)}),
              ElementsAre(StartsWith("DDc-c enumeration-value-appended")));
  EXPECT_THAT(Changed({State(both, kStateSent)}, {State(on, kStateSent)}),
              ElementsAre(StartsWith("BBB-c enumeration-value-removed")));
  EXPECT_THAT(Changed({State(both, kStateReceived)}, {State(on, kStateReceived)}),
              ElementsAre(StartsWith("cBB-c enumeration-value-removed")));
  EXPECT_THAT(Changed({State(both)}, {State(Value("ON", "It runs.") + "," + Value("OFF"))}),
              ElementsAre(StartsWith("-t--t documentation-added value:ON")));
}

TEST(EnumerationChanges, DependOnWhatIsAssumed) {
  const std::string on = Value("ON");
  const std::string reversed = Value("OFF") + "," + on;
  Assumptions open;
  open.enumerations = Assumptions::Enumerations::kOpen;
  EXPECT_THAT(
      Changed({State(on, kStateReceived)}, {State(on + "," + Value("X"), kStateReceived)}, open),
      ElementsAre(StartsWith("cDc-c enumeration-value-appended")));
  Assumptions text;
  text.enumeration_form = Assumptions::EnumerationForm::kText;
  EXPECT_THAT(Changed({State(on, kStateSent)}, {State(reversed, kStateSent)}),
              ElementsAre(StartsWith("BBc-c enumeration-value-inserted")));
  EXPECT_THAT(Changed({State(on, kStateSent)}, {State(reversed, kStateSent)}, text),
              ElementsAre(StartsWith("cDc-c enumeration-value-inserted")));
  EXPECT_THAT(Changed({State(reversed, kStateReceived)}, {State(on, kStateReceived)}),
              ElementsAre(StartsWith("BBB-c enumeration-value-removed")));
  EXPECT_THAT(Changed({State(reversed, kStateReceived)}, {State(on, kStateReceived)}, text),
              ElementsAre(StartsWith("cBB-c enumeration-value-removed")));
  EXPECT_THAT(Changed({State(reversed)}, {State(on + "," + Value("OFF"))}, text),
              ElementsAre(StartsWith("ccc-c enumeration-order-changed")));
}

TEST(EnumerationChanges, MayGiveThePositionOfARemovedValueToAnother) {
  const std::string on = Value("ON");
  const std::string before = on + "," + Value("OFF");
  const std::string after = on + "," + Value("IDLE");
  for (const std::string& used : {kStateSent, kStateReceived}) {
    EXPECT_THAT(
        Changed({State(before, used)}, {State(after, used)}),
        UnorderedElementsAre(AllOf(StartsWith("BBB-c enumeration-value-removed value:OFF"),
                                   HasSubstr("was removed, and another value has its position")),
                             AllOf(StartsWith("BBc-c enumeration-value-appended value:IDLE"),
                                   HasSubstr("was added at the position of a removed one"))));
  }
  Assumptions text;
  text.enumeration_form = Assumptions::EnumerationForm::kText;
  EXPECT_THAT(Changed({State(before, kStateReceived)}, {State(after, kStateReceived)}, text),
              UnorderedElementsAre(StartsWith("cBB-c enumeration-value-removed"),
                                   StartsWith("DDc-c enumeration-value-appended")));
  // Each keeps its own position.
  EXPECT_THAT(Changed({State(before, kStateReceived)}, {State(on, kStateReceived)}),
              ElementsAre(StartsWith("cBB-c enumeration-value-removed")));
}

TEST(FieldChanges, MayGiveThePositionOfARemovedFieldToAnother) {
  Assumptions positional;
  positional.parameters = Assumptions::Parameters::kPositional;
  const std::string a = Field("a", kText);
  const std::string b = a + "," + Field("b", Optional(kText), R"("Deprecated": {})");
  const std::string c = a + "," + Field("c", Optional(kText));
  EXPECT_THAT(
      Changed({Spec(b, kReceived)}, {Spec(c, kReceived)}, positional),
      UnorderedElementsAre(AllOf(StartsWith("BD--c field-removed field:b"),
                                 HasSubstr("was removed, and another field has its position")),
                           StartsWith("BDc-c field-added-optional field:c")));
  EXPECT_THAT(Changed({Spec(b, kReceived)}, {Spec(c, kReceived)}),
              UnorderedElementsAre(StartsWith("DD--c field-removed field:b"),
                                   StartsWith("cDc-c field-added-optional field:c")));
  EXPECT_THAT(Changed({Takes(b)}, {Takes(c)}, positional),
              UnorderedElementsAre(StartsWith("BD--c parameter-removed parameter:b"),
                                   StartsWith("BDc-c parameter-added-optional parameter:c")));
}

TEST(AnnotationChanges, HaveTheClassOfTheProject) {
  const std::string plain = Takes(Field("x", kText));
  const std::string deprecated = Takes(Field("x", kText, R"("Deprecated": {})"));
  EXPECT_THAT(Changed({plain}, {deprecated}),
              ElementsAre("----t annotation-added annotation:Deprecated: the annotation "
                          "'Deprecated' of the parameter 'c.p.s.a.x' was added"));
  Assumptions assumptions;
  assumptions.annotations = {{"Deprecated", Class::kBreaking}};
  EXPECT_THAT(Changed({plain}, {deprecated}, assumptions),
              ElementsAre(StartsWith("----B annotation-added")));
}

TEST(AnnotationChanges, CompareTheLastOfEachName) {
  const auto with = [](const std::string& metadata) { return Takes(Field("x", kText, metadata)); };
  EXPECT_THAT(Changed({with(R"("A": {"v": "1"}, "A": {"v": "2", "w": ["a", "b"]})")},
                      {with(R"("A": {"w": ["x"], "w": ["a", "b"], "v": "2"})")}),
              ElementsAre(kNothing));
}

TEST(AnnotationChanges, TellTextsAndListsApart) {
  const std::vector<std::string> values{R"("x, y")",     R"(["x, y"])", R"(["x", "y"])",
                                        R"("[x, y]")",   R"("")",       "[]",
                                        R"("\"x, y\"")", R"("\\\"x\"")"};
  for (const char* name : {"A", "Resource"}) {
    const auto with = [&](const std::string& value) {
      return Takes(Field("x", kText, std::string("\"") + name + R"(": {"value": )" + value + "}"));
    };
    for (const std::string& before : values) {
      for (const std::string& after : values) {
        const std::vector<std::string> changes = Changed({with(before)}, {with(after)});
        const bool is_found = !changes.empty() && changes[0] != kNothing;
        EXPECT_EQ(is_found, before != after) << name << ": " << before << " -> " << after;
      }
    }
  }
  EXPECT_THAT(Changed({Takes(Field("x", kText, R"("A": {"v": "1", "w": "a=b"})"))},
                      {Takes(Field("x", kText, R"("A": {"v": "1, w=\"a=b\""})"))}),
              ElementsAre(StartsWith("----D annotation-changed")));
}

TEST(AnnotationChanges, OfResourcesAreOnesOfIds) {
  const auto with = [](const std::string& metadata) {
    return Takes(Field("x", Builtin("ID"), metadata));
  };
  EXPECT_THAT(
      Changed({with(R"("Resource": {"value": "r"})")}, {with(R"("Resource": {"other": "r"})")}),
      UnorderedElementsAre(
          "--D-B identifier-resource-changed parameter:x: the resource of the parameter "
          "'c.p.s.a.x' changed from 'r' to no resource",
          StartsWith("--D-B resource-removed resource:r")));
  EXPECT_THAT(Changed({with(R"("Resource": {"value": "r"})")},
                      {with(R"("Resource": {"value": "r", "other": "x"})")}),
              ElementsAre(StartsWith("----D annotation-changed")));
  EXPECT_THAT(Changed({Spec("", "", R"("Resource": {})")}, {Spec("", "")}),
              ElementsAre(StartsWith("----D annotation-removed")));
}

TEST(ResourceChanges, OfANameAreReportedOnce) {
  const auto uses = [](const std::string& first, const std::string& second) {
    return Takes(Field("x", Builtin("ID"), R"("Resource": {"value": ")" + first + "\"}") + "," +
                 Field("y", Builtin("ID"), R"("Resource": {"value": ")" + second + "\"}"));
  };
  EXPECT_THAT(Changed({uses("r", "r")}, {uses("t", "t")}),
              ElementsAre("--D-B resource-removed resource:r: the resource 'r' is no longer named "
                          "(possibly renamed to 't')",
                          "--c-c resource-added resource:t: the resource 't' is named for the "
                          "first time (possibly renamed from 'r')"));
  EXPECT_THAT(Changed({uses("r", "r")}, {uses("t", "u")}),
              AllOf(SizeIs(5), Contains(StartsWith("--D-B identifier-resource-changed"))));
  EXPECT_THAT(Changed({uses("r", "s")}, {uses("t", "s")}), SizeIs(2));
  EXPECT_THAT(Changed({uses("r", "s")}, {uses("s", "s")}), SizeIs(2));
}

TEST(ModelChanges, AreRolledUpInTheStructureAndTheResource) {
  const std::string key =
      Field("id", Builtin("ID"), R"("Resource": {"value": "r"}, "ModelKey": {})");
  const std::string named =
      Operation("a", Field("x", Builtin("ID"), R"("Resource": {"value": "r"})"));
  const std::string model = Spec(key, named, R"("Model": {})");
  EXPECT_THAT(Changed({model}, {Operations(named)}),
              ElementsAre(StartsWith("-B--B structure-removed")));
  EXPECT_THAT(Changed({Operations(named)}, {model}),
              ElementsAre(StartsWith("-c--c structure-added")));
  EXPECT_THAT(Changed({Spec(Field("id", Builtin("ID")), "", R"("Model": {}, "Other": {})")},
                      {Spec(Field("id", Builtin("ID")), "", R"("Other": {})")}),
              ElementsAre(StartsWith("----D annotation-removed annotation:Model")));
}

TEST(ConstantChanges, CompareTypesAndTheValuesThatAreKept) {
  const auto with = [](const std::string& constant) {
    return R"({"metamodel": {"component": {"name": "c", "documentation": "", "metadata": {},
        "packages": [{"name": "c.p", "documentation": "", "metadata": {}, "enumerations": [],
        "structures": [], "services": [{"name": "c.p.s", "documentation": "", "metadata": {},
        "enumerations": [], "structures": [], "operations": [], "constants": [)" +
           constant + "]}]}]}}}";
  };
  const auto constant = [](const std::string& type, const std::string& value) {
    return R"({"name": "k", "documentation": "", "type": {"category": "PRIMITIVE", "type": ")" +
           type + R"("}, "value": )" + value + "}";
  };
  EXPECT_THAT(Changed({with(constant("LONG", "1"))}, {with(constant("LONG", "2"))}),
              ElementsAre(kNothing));
  EXPECT_THAT(Changed({with(constant("STRING", "\"1\""))}, {with(constant("string", "\"2\""))}),
              ElementsAre("DD--D constant-value-changed constant:k: the value of the constant "
                          "'c.p.s.k' changed from '1' to '2'"));
  EXPECT_THAT(Changed({with(constant("STRING", "\"1\""))}, {with(constant("LONG", "2"))}),
              ElementsAre("-B--B constant-type-changed constant:k: the type of the constant "
                          "'c.p.s.k' changed from 'PRIMITIVE STRING' to 'PRIMITIVE LONG'"));
  EXPECT_THAT(Changed({with(constant("LONG", "1"))},
                      {with(constant("LONG", "1") + "," + constant("LONG", "2"))}),
              ElementsAre(kNothing));
}

TEST(SourceChanges, AreThoseOfAnswersThatStayTheSame) {
  const std::string file = Takes(Field("x", kText));
  const std::string other = R"({"metamodel": {"component": {"name": "o", "documentation": "",
      "metadata": {}, "packages": []}}})";
  EXPECT_THAT(
      Changed({file, file + "\n"}, {other, file}),
      UnorderedElementsAre("----c answering-source-changed component:c: the source 'b' answers for "
                           "the component 'c' instead of 'a', with the same data",
                           StartsWith("cc--c component-added component:o")));
  EXPECT_THAT(Changed({file, " " + Takes(" " + Field("x", kText))}, {other, file}),
              Contains(StartsWith("----c answering-source-changed component:c")));
  // What differs is reported as what changed.
  EXPECT_THAT(
      Changed({file, Takes("")}, {other, Takes("")}),
      ElementsAre(StartsWith("BB--c parameter-removed"), StartsWith("cc--c component-added")));
}

TEST(SourceChanges, DoNotCountFilesThatWereMoved) {
  const std::string file = Takes(Field("x", kText));
  const std::string other = R"({"metamodel": {"component": {"name": "o", "documentation": "",
      "metadata": {}, "packages": []}}})";
  EXPECT_THAT(Changed({file, other}, {other, file}), IsEmpty());
  EXPECT_THAT(Changed({file, other}, {other, file + "\n"}), ElementsAre(kNothing));
}

TEST(SourceChanges, OfShadowedDefinitionsAreThoseOfTheRecordsThatHaveThem) {
  const auto file = [](const std::string& component, const std::string& structures) {
    return R"({"metamodel": {"component": {"name": ")" + component +
           R"(", "documentation": "", "metadata": {}, "packages": [{"name": "c.p",
           "documentation": "", "metadata": {}, "enumerations": [], "services": [],
           "structures": [)" +
           structures + "]}]}}}";
  };
  const std::string x = Field("x", kText);
  const std::string y = Field("y", kText);
  std::set<std::uint64_t> fingerprints;
  // The component d has this instead of the structure c.p.t with x and y.
  const auto changed = [&](const std::string& structures) {
    const std::string both = Structure("c.p.t", x + "," + y);
    const std::vector<std::string> before{file("c", both), file("d", both)};
    const std::vector<std::string> after{file("c", both), file("d", structures)};
    LookAtChanges(before, after, [&](const Result& result) {
      for (const Change& change : result.changes) fingerprints.insert(change.fingerprint);
    });
    return Changed(before, after);
  };
  const std::string id = "shadowed-definition-changed structure:c.p.t: the structure 'c.p.t'";
  const std::string in_record = id + " in the record of the package 'c.p' was ";
  EXPECT_THAT(changed(Structure("c.p.t", x)), ElementsAre("DD--D " + in_record + "changed"));
  EXPECT_THAT(changed(" " + Structure("c.p.t", x + " ")), SizeIs(1));
  EXPECT_EQ(fingerprints.size(), 1U);
  EXPECT_THAT(changed(Structure("c.p.t", y)), SizeIs(1));
  EXPECT_THAT(changed(Structure("c.p.t", y + "," + x)), SizeIs(1));
  EXPECT_THAT(changed(""), ElementsAre("DD--D " + in_record + "removed"));
  EXPECT_EQ(fingerprints.size(), 4U);
  std::string documented = Structure("c.p.t", x + "," + y);
  const std::string empty = R"("documentation": "")";
  documented.replace(documented.find(empty), empty.size(), R"("documentation": "Text.")");
  EXPECT_THAT(changed(documented), ElementsAre("-t--t " + in_record + "changed"));
  EXPECT_THAT(Changed({file("c", Structure("c.p.t", x)), file("d", "")},
                      {file("c", Structure("c.p.t", x)), file("d", Structure("c.p.t", x))}),
              ElementsAre("DD--D " + in_record + "added"));
}

TEST(SourceChanges, OfShadowedDefinitionsAreReportedOnce) {
  const auto file = [](const std::string& structures, const std::string& enumerations) {
    std::string in_service = Structure("c.t", "");
    const std::string none = R"("enumerations": [])";
    in_service.replace(in_service.find(none), none.size(),
                       R"("enumerations": [)" + enumerations + "]");
    std::string text = MetamodelFile({structures, Enumeration("c.e"), ""});
    const std::size_t service = text.find("\"c.p.s\"");
    const std::string empty = R"("structures": [])";
    return text.replace(text.find(empty, service), empty.size(),
                        R"("structures": [)" + in_service + "]");
  };
  // The enumeration of the structure that lookups found, which is now found in the package.
  EXPECT_THAT(
      Changed({file("", Enumeration("c.e"))}, {file(Structure("c.t", ""), "")}),
      UnorderedElementsAre(StartsWith("-D--D structure-moved"),
                           StartsWith("DD--D shadowed-definition-changed enumeration:c.e")));
}
