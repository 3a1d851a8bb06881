#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/example.h"
#include "analysis/linted.h"

// What the rules of the groups 'loader' and 'names' say, beyond the example of each rule.

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to lint
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

/// A file with one structure with these members of its "metadata" and these fields.
std::string WithStructure(const std::string& metadata, const std::string& fields) {
  std::string text =
      ZELK_EXAMPLE_SERVICE(ZELK_EXAMPLE_STRUCTURE("acme.power.switch.state", "STRUCTURE", "FIELDS"),
                           "", ZELK_EXAMPLE_START);
  text.replace(text.find("FIELDS"), 6, fields);
  const std::string marker = "\"Facts.\",\n  \"metadata\": {";
  return text.insert(text.find(marker) + marker.size(), metadata);
}

std::string KeyField(const std::string& name, const std::string& metadata) {
  std::string text = ZELK_EXAMPLE_FIELD("NAME", "METADATA", ZELK_EXAMPLE_BUILTIN("ID"));
  text.replace(text.find("NAME"), 4, name);
  return text.replace(text.find("METADATA"), 8, metadata);
}

const std::string kMark = R"("Model": {})";
const std::string kKey = R"("ModelKey": {}, "Resource": {"value": "acme.state"})";

/// The same file with another text in place of the first occurrence of `part`.
std::string With(std::string text, const std::string& part, const std::string& other) {
  return text.replace(text.find(part), part.size(), other);
}

const std::string kFile = ZELK_EXAMPLE_SERVICE("", "", ZELK_EXAMPLE_START);

/// An Authentication file whose component has these members, each after a comma.
std::string Schemes(const std::string& members) {
  return With(ZELK_EXAMPLE_SCHEME(", MEMBERS"), ", MEMBERS", members);
}

}  // namespace

TEST(IgnoredAnnotation, SaysWhatAResourceLacks) {
  EXPECT_THAT(Found("ignored-annotation",
                    {WithStructure("", KeyField("id", R"("Resource": {"valeu": "acme.state"})"))}),
              ElementsAre("warning annotation:Resource: the annotation 'Resource' has no 'value', "
                          "so it names none"));
  EXPECT_THAT(
      Found("ignored-annotation",
            {WithStructure("", KeyField("id", R"("Resource": {"value": []})"))}),
      ElementsAre("warning annotation:Resource: the annotation 'Resource' has an empty list, so it "
                  "names none"));
}

TEST(IgnoredAnnotation, SaysWhyAKeyDoesNotCount) {
  EXPECT_THAT(Found("ignored-annotation", {WithStructure(kMark, KeyField("id", kKey))}), IsEmpty());
  EXPECT_THAT(Found("ignored-annotation", {WithStructure("", KeyField("id", kKey))}),
              ElementsAre("warning annotation:ModelKey: the structure is not marked as a 'Model'"));
  EXPECT_THAT(Found("ignored-annotation", {WithStructure(kMark, "")}),
              ElementsAre("warning annotation:Model: the structure is not a model, because none "
                          "of its fields has a valid key"));
  EXPECT_THAT(
      Found("ignored-annotation",
            {WithStructure(kMark, KeyField("a", kKey) + "," + KeyField("b", R"("ModelKey": {})"))}),
      ElementsAre("warning annotation:ModelKey: the key has no 'Resource' beside it"));
  EXPECT_THAT(
      Found("ignored-annotation",
            {WithStructure(
                kMark, KeyField("a", kKey) + "," +
                           KeyField("b", R"("ModelKey": {}, "Resource": {"value": ["x"]})") + "," +
                           KeyField("c", kKey))}),
      ElementsAre("warning annotation:ModelKey: the 'Resource' of a key must be one string",
                  "warning annotation:ModelKey: the key is not read, because the key of 'b' is not "
                  "of one resource"));
  EXPECT_THAT(Found("ignored-annotation",
                    {With(kFile, R"("metadata": {})", R"("metadata": {"ModelKey": {}})")}),
              ElementsAre("warning annotation:ModelKey: the annotation 'ModelKey' is only read in "
                          "fields"));
}

TEST(DuplicateDefinition, SaysThatItsResourcesStay) {
  const std::string other = With(ZELK_EXAMPLE_START, "\"metadata\": {}",
                                 R"("metadata": {"Resource": {"value": "acme.state"}})");
  EXPECT_THAT(
      Found("duplicate-definition",
            {With(kFile, ZELK_EXAMPLE_START, ZELK_EXAMPLE_START "," + other)}),
      ElementsAre("error operation:start: the operation 'acme.power.switch.start' is there more "
                  "than once; the first one is kept, and of this one only the resources that it "
                  "names"));
}

TEST(IgnoredComponent, OfTheSameNameIsReplaced) {
  EXPECT_THAT(Found("ignored-component", {R"({"authentication": {"product": {"name": "a"},
                                             "component": {"name": "a"}}})"}),
              ElementsAre("error component:a: the component has the same name, and replaces this "
                          "one"));
}

TEST(OperationWithoutPackage, NamesTheServiceThatSortsFirst) {
  EXPECT_THAT(Found("operation-without-package", {Schemes(R"(, "packages": {"acme": ["login"]},
                       "operations": {"y.start": ["login"], "x.start": ["login"]})")}),
              ElementsAre(testing::StartsWith("error operation:y.start: "),
                          testing::StartsWith("error operation:x.start: ")));
}

TEST(DuplicateKey, WithTheSameValueIsAWarning) {
  const auto found = [](const std::string& first, const std::string& second) {
    const std::string file =
        ZELK_EXAMPLE_SERVICE("",
                             R"({"name": "limit", "documentation": "How many.", "value": VALUES,
            "type": {"category": "PRIMITIVE", "type": "LONG"}})",
                             ZELK_EXAMPLE_START);
    return Found("duplicate-key", {With(file, "VALUES", first + R"(, "value": )" + second)});
  };
  EXPECT_THAT(found("[1, {\"a\": 2}]", "[1, {\"a\": 2}]"),
              ElementsAre(testing::StartsWith("warning ")));
  for (const char* const other :
       {"[1, {\"a\": 3}]", "[1, {\"b\": 2}]", "[1, {}]", "[1, [2]]", "1"}) {
    EXPECT_THAT(found("[1, {\"a\": 2}]", other), ElementsAre(testing::StartsWith("error ")))
        << other;
  }
}

TEST(UnknownKey, SaysWhenItIsReadElsewhere) {
  EXPECT_THAT(
      Found("unknown-key", {With(kFile, R"("services": [)", R"("constants": [], "services": [)")}),
      ElementsAre("note package:acme.power: the key 'constants' is read elsewhere, but not "
                  "in the package 'acme.power'"));
}

TEST(MalformedName, IsEmptyOnlyForTheRoot) {
  EXPECT_THAT(Found("malformed-name", {ZELK_EXAMPLE_CLI(ZELK_EXAMPLE_NAMESPACE("", ""))}),
              IsEmpty());
  EXPECT_THAT(Found("malformed-name", {ZELK_EXAMPLE_CLI(ZELK_EXAMPLE_NAMESPACE("acme", ""))}),
              ElementsAre(testing::EndsWith(" is empty")));
  EXPECT_THAT(
      Found("malformed-name", {With(kFile, R"("name": "acme.power")", R"("name": "acme..power")")}),
      ElementsAre(testing::EndsWith(" has an empty part between full stops")));
  EXPECT_THAT(
      Found("malformed-name", {With(kFile, R"("name": "acme.power")", R"("name": "acme\tpower")")}),
      ElementsAre(testing::EndsWith(" has a control character")));
}

TEST(UnreachableNode, HasAnEmptyPartInItsPath) {
  EXPECT_THAT(Found("unreachable-node", {ZELK_EXAMPLE_CLI(ZELK_EXAMPLE_NAMESPACE("a..b", "c"))}),
              ElementsAre(testing::EndsWith(" has an empty part")));
}

TEST(UnknownEnumerator, MayBeNearlyTheKindOfAType) {
  const auto found = [](const std::string& kind) {
    return Found("unknown-enumerator",
                 {With(kFile, ZELK_EXAMPLE_VOID,
                       With(ZELK_EXAMPLE_TYPE("KIND", "acme.power.switch.state"), "KIND", kind))});
  };
  EXPECT_THAT(found("structure"),
              ElementsAre("warning result:result: 'structure' is taken for the name of a resource "
                          "(did you mean 'Structure'?)"));
  EXPECT_THAT(found("Structure"), IsEmpty());
  EXPECT_THAT(found("acme.state"), IsEmpty());
}

TEST(InvalidUtf8, MayBeInAKey) {
  EXPECT_THAT(Found("invalid-utf8", {Schemes(", \"packages\": {\"caf\xe9\": []}")}),
              ElementsAre(testing::EndsWith("the key is not valid UTF-8")));
}

TEST(NamingConvention, DiffersByKind) {
  EXPECT_THAT(Found("naming-convention",
                    {With(kFile, R"("name": "acme.power")", R"("name": "acme.Power")")}),
              testing::Contains(testing::HasSubstr("lower_snake_case between full stops")));
  const std::string enumeration =
      R"("enumerations": [{"name": "acme.kind", "documentation": "", "metadata": {},
         "values": [{"name": "fast", "documentation": "", "metadata": {}}]}])";
  EXPECT_THAT(Found("naming-convention", {With(kFile, R"("enumerations": [])", enumeration)}),
              testing::Contains(testing::HasSubstr("UPPER_SNAKE_CASE")));
}

TEST(Lint, LongNamesAreShortened) {
  const std::string name = std::string(150, 'a') + std::string(150, 'B');
  const Lines found =
      Found("naming-convention", {With(kFile, R"("name": "start")", R"("name": ")" + name + '"')});
  ASSERT_EQ(found.size(), 1U);
  EXPECT_THAT(found[0], testing::HasSubstr("a...B"));
  EXPECT_THAT(found[0], testing::Not(testing::HasSubstr(name + "'")));
}
