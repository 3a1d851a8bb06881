#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/metamodel_under_test.h"

// What is reported of files that are JSON and no Metamodel metadata.

namespace Zelk::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A good file and one change that makes it a bad one.
struct Change {
  std::string from;
  std::string to;
  Lines error;
};

const std::vector<Change> kChanges = {
    {R"("component")", R"("Component")", MissingField("component")},
    {R"({"component": {)", R"({"component": [], "": {)", InvalidField("component")},
    {R"({"component": {)", R"({"component": null, "": {)", InvalidField("component")},
    {R"("name": "c")", R"("Name": "c")", MissingField("name")},
    {R"("name": "c")", R"("name": null)", InvalidField("name")},
    {R"("name": "c")", R"("name": null, "name": "c")", InvalidField("name")},
    {R"("documentation": "")", R"("documentation": 1)", InvalidField("documentation")},
    {R"("metadata": {)", R"("metadata": [], "": {)", InvalidField("metadata")},
    {R"("metadata": {)", R"("metadata": {"a": 1)", InvalidField("ElementValue")},
    {R"("metadata": {)", R"("metadata": {"a": [])", InvalidField("ElementValue")},
    {R"("metadata": {)", R"("metadata": {"a": {"b": null})", InvalidField("ElementValue")},
    {R"("metadata": {)", R"("metadata": {"a": {"b": ["c", 1]})", InvalidField("ElementValue")},
    {R"("packages": [)", R"("packages": {}, "": [)", InvalidField("packages")},
    {R"("packages": [)", R"("packages": [1, )", MissingField("name")},
    {R"("structures": [)", R"("structures": [null, )", MissingField("name")},
    {R"("services")", R"("Services")", MissingField("services")},
    {R"("type": "STRUCTURE")", R"("type": "FOO")", InvalidEnumValue("type")},
    {R"("type": "STRUCTURE")", R"("type": 1)", InvalidField("type")},
    {R"("BUILTIN")", R"("FOO")", InvalidEnumValue("category")},
    {R"("STRING")", R"("FOO")", InvalidEnumValue("primitive_type")},
    {R"("STRING")", "null", InvalidField("primitive_type")},
};

TEST(MetamodelFailures, AreReportedWithOneMessageThatNamesTheKey) {
  const std::string good =
      MetamodelFile(Component("c", {Package("p", {Structure("t", {Field("f")})})}));
  ASSERT_EQ(MetamodelSources().Create("m", good), Lines());
  for (const auto& change : kChanges) {
    const MetamodelSources sources;
    EXPECT_EQ(sources.Create("m", Replaced(good, change.from, change.to)), change.error)
        << change.to;
    EXPECT_THAT(sources->ListSources(), IsEmpty()) << change.to;
  }
}

TEST(MetamodelFailures, CarryEveryMessageInTheOrderFound) {
  const Part tolerated = Structure("t", {Constant("NAME")});
  const std::string text =
      Replaced(Replaced(MetamodelFile(Component("c", {Package("p", {tolerated})})),
                        R"("value": "")", R"("value": 1)"),
               R"("services")", R"("Services")");
  EXPECT_EQ(MetamodelSources().Create("m", text),
            (Lines{kInvalidArgumentError, InvalidField("value").back(),
                   MissingField("services").back()}));
}

TEST(MetamodelFailures, ThatAreToleratedAreNotReported) {
  const std::string text =
      Replaced(MetamodelFile(Component("c", {Package("p", {Structure("t", {Constant("NAME")})})})),
               R"("value": "")", R"("value": 1)");
  const MetamodelSources sources{{"m", text}};
  const auto constants = sources->StructureInfo("t")->constants;
  ASSERT_EQ(constants.count("NAME"), 1U);
  EXPECT_EQ(constants.at("NAME")->value->primitive_value, nullptr);
}

TEST(MetamodelFailures, OfOneSourceLeaveTheOthersAlone) {
  const ComponentSources sources{{"a", Component("c", {Package("p")})}};
  EXPECT_EQ(sources.Create("b", R"({"metamodel": {"component": {"name": "d"}}})"),
            MissingField("documentation"));
  EXPECT_THAT(sources->ListComponents(), ElementsAre("c"));
  EXPECT_THAT(sources->ListPackages(), ElementsAre("p"));
}

}  // namespace
}  // namespace Zelk::Testing
