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
    {R"("component")", R"("Component")", MissingFieldError("component")},
    {R"({"component": {)", R"({"component": [], "": {)", InvalidFieldError("component")},
    {R"({"component": {)", R"({"component": null, "": {)", InvalidFieldError("component")},
    {R"("name": "c")", R"("Name": "c")", MissingFieldError("name")},
    {R"("name": "c")", R"("name": null)", InvalidFieldError("name")},
    {R"("name": "c")", R"("name": null, "name": "c")", InvalidFieldError("name")},
    {R"("documentation": "")", R"("documentation": 1)", InvalidFieldError("documentation")},
    {R"("metadata": {)", R"("metadata": [], "": {)", InvalidFieldError("metadata")},
    {R"("metadata": {)", R"("metadata": {"a": 1)", InvalidFieldError("ElementValue")},
    {R"("metadata": {)", R"("metadata": {"a": [])", InvalidFieldError("ElementValue")},
    {R"("metadata": {)", R"("metadata": {"a": {"b": null})", InvalidFieldError("ElementValue")},
    {R"("metadata": {)", R"("metadata": {"a": {"b": ["c", 1]})", InvalidFieldError("ElementValue")},
    {R"("packages": [)", R"("packages": {}, "": [)", InvalidFieldError("packages")},
    {R"("packages": [)", R"("packages": [1, )", MissingFieldError("name")},
    {R"("structures": [)", R"("structures": [null, )", MissingFieldError("name")},
    {R"("services")", R"("Services")", MissingFieldError("services")},
    {R"("type": "STRUCTURE")", R"("type": "FOO")", InvalidEnumValueError("type")},
    {R"("type": "STRUCTURE")", R"("type": 1)", InvalidFieldError("type")},
    {R"("BUILTIN")", R"("FOO")", InvalidEnumValueError("category")},
    {R"("STRING")", R"("FOO")", InvalidEnumValueError("primitive_type")},
    {R"("STRING")", "null", InvalidFieldError("primitive_type")},
};

TEST(MetamodelFailures, ReportTheKeyOnce) {
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

TEST(MetamodelFailures, ReportMessagesInOrder) {
  const Part tolerated = Structure("t", {Constant("NAME")});
  const std::string text =
      Replaced(Replaced(MetamodelFile(Component("c", {Package("p", {tolerated})})),
                        R"("value": "")", R"("value": 1)"),
               R"("services")", R"("Services")");
  EXPECT_EQ(MetamodelSources().Create("m", text),
            (Lines{kInvalidArgumentError, InvalidFieldError("value").back(),
                   MissingFieldError("services").back()}));
}

TEST(MetamodelFailures, ReportNothingIfTolerated) {
  const std::string text =
      Replaced(MetamodelFile(Component("c", {Package("p", {Structure("t", {Constant("NAME")})})})),
               R"("value": "")", R"("value": 1)");
  const MetamodelSources sources{{"m", text}};
  const auto constants = sources->StructureInfo("t")->constants;
  ASSERT_EQ(constants.count("NAME"), 1U);
  EXPECT_EQ(constants.at("NAME")->value->primitive_value, nullptr);
}

TEST(MetamodelFailures, DoNotAffectOtherSources) {
  const ComponentSources sources{{"a", Component("c", {Package("p")})}};
  EXPECT_EQ(sources.Create("b", R"({"metamodel": {"component": {"name": "d"}}})"),
            MissingFieldError("documentation"));
  EXPECT_THAT(sources->ListComponents(), ElementsAre("c"));
  EXPECT_THAT(sources->ListPackages(), ElementsAre("p"));
}

}  // namespace
}  // namespace Zelk::Testing
