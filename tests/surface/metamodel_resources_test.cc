#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/metamodel_under_test.h"

// Resources are named by annotations of anything, their models are structures.

namespace Zelk::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Models = std::set<std::string>;

/// The models of a resource; throws when it is unknown.
Models ModelsOf(const MetamodelSources& sources, const std::string& resource) {
  return sources->ListModels(resource).value();
}

TEST(ListResources, ListsEachResourceOnceInOrder) {
  const ComponentSources sources{{"b", Component("c").Annotated(Resource("n"))},
                                 {"a", Component("c").Annotated(Resource("o"))},
                                 {"c", Component("d").Annotated(Resource("N"))},
                                 {"d", Component("d").Annotated(Resource("o"))}};
  EXPECT_THAT(sources->ListResources(), ElementsAre("N", "n", "o"));
  ASSERT_EQ(sources->DeleteSource("a"), nullptr);
  EXPECT_THAT(sources->ListResources(), ElementsAre("N", "n", "o"));
  ASSERT_EQ(sources->DeleteSource("d"), nullptr);
  EXPECT_THAT(sources->ListResources(), ElementsAre("N", "n"));
}

TEST(ListResources, ListsEveryStringOfAList) {
  const ComponentSources sources{
      {"a", Component("c").Annotated(R"("Resource": {"value": ["y", "x", "z", "x"]})")}};
  EXPECT_THAT(sources->ListResources(), ElementsAre("x", "y", "z"));
  EXPECT_THAT(ModelsOf(sources, "y"), IsEmpty());
}

TEST(ListResources, ReadsAnnotationsInEveryPlace) {
  const std::string note = Resource("r");
  const std::vector<Part> components = {
      Component("component").Annotated(note),
      Component("package", {Package("p").Annotated(note)}),
      Component("service", {Package("p", {Service("s").Annotated(note)})}),
      Component("operation", {Package("p", {Service("s", {Operation("o").Annotated(note)})})}),
      Component("parameter",
                {Package("p", {Service("s", {Operation("o", {Param("x").Annotated(note)})})})}),
      Component("result", {Package("p", {Service("s", {Operation("o", {}, note)})})}),
      Component("structure", {Package("p", {Structure("t").Annotated(note)})}),
      Component("field", {Package("p", {Structure("t", {Field("f").Annotated(note)})})}),
      Component("enumeration", {Package("p", {Enumeration("e").Annotated(note)})}),
      Component("value",
                {Package("p", {Enumeration("e", {EnumerationValue("V").Annotated(note)})})}),
      Component("structure of a service",
                {Package("p", {Service("s", {Structure("t").Annotated(note)})})})};
  for (const auto& component : components) {
    const ComponentSources sources{{"a", component}};
    EXPECT_THAT(sources->ListResources(), ElementsAre("r")) << component.Json();
  }
}

TEST(ListResources, IgnoresSimilarAnnotations) {
  for (const std::string annotation :
       {R"("Resource": {})", R"("Resource": {"values": "r"})", R"("resource": {"value": "r"})",
        R"("Resource": {"value": []})", R"("Model": {"value": "r"})",
        R"("Resource": {"Value": "r"})"}) {
    const ComponentSources sources{{"a", Component("c").Annotated(annotation)}};
    EXPECT_THAT(sources->ListResources(), IsEmpty()) << annotation;
  }
}

TEST(ListResources, IgnoresRefusedFiles) {
  const ComponentSources sources{{"a", Component("c").Annotated(Resource("r"))}};
  const Part broken = Structure("u").Annotated(Resource("s") + R"(, "foo": 1)");
  EXPECT_EQ(sources.Create(
                "b", MetamodelFile(Component("c", {Package("p", {ModelOf("t", "r"), broken})}))),
            InvalidFieldError("ElementValue"));
  EXPECT_THAT(sources->ListResources(), ElementsAre("r"));
  EXPECT_THAT(ModelsOf(sources, "r"), IsEmpty());
}

TEST(ListModels, ListsTheModelsOfAResource) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {ModelOf("u", "r"), ModelOf("t", "r"), ModelOf("x", "o"),
                                          Service("s", {ModelOf("v", "r")})})})}};
  EXPECT_THAT(sources->ListResources(), ElementsAre("o", "r"));
  EXPECT_THAT(ModelsOf(sources, "r"), ElementsAre("t", "u", "v"));
  EXPECT_THAT(ModelsOf(sources, "o"), ElementsAre("x"));
}

TEST(ListModels, UsesTheLastSourceWithTheResource) {
  const ComponentSources sources{
      {"c", Component("x", {Package("p", {ModelOf("other", "o")})})},
      {"b", Component("y", {Package("p", {ModelOf("last", "r")})})},
      {"a", Component("z", {Package("p", {ModelOf("first", "r"), ModelOf("second", "r")})})}};
  EXPECT_THAT(sources->ListResources(), ElementsAre("o", "r"));
  EXPECT_THAT(ModelsOf(sources, "r"), ElementsAre("last"));
  ASSERT_EQ(sources->DeleteSource("b"), nullptr);
  EXPECT_THAT(ModelsOf(sources, "r"), ElementsAre("first", "second"));
}

TEST(ListModels, IsEmptyIfTheLastSourceHasNoModels) {
  const ComponentSources sources{{"a", Component("c", {Package("p", {ModelOf("t", "r")})})},
                                 {"b", Component("c").Annotated(Resource("r"))}};
  EXPECT_THAT(ModelsOf(sources, "r"), IsEmpty());
  ASSERT_EQ(sources->DeleteSource("b"), nullptr);
  EXPECT_THAT(ModelsOf(sources, "r"), ElementsAre("t"));
}

TEST(ListModels, ReturnsNoSetForAnUnknownResource) {
  const ComponentSources sources{{"a", Component("c", {Package("p", {ModelOf("t", "r")})})}};
  for (const std::string resource : {"", "R", "t", "r.", "id"}) {
    EXPECT_FALSE(sources->ListModels(resource).has_value()) << resource;
  }
}

TEST(ListModels, KeepsModelsOfARepeatedResource) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {ModelOf("t", "r")}),
                            Package("q", {Structure("u").Annotated(Resource("r"))})})
                .Annotated(Resource("r"))}};
  EXPECT_THAT(ModelsOf(sources, "r"), ElementsAre("t"));
}

TEST(ListModels, ListsAStructureWithTwoKeysForBothResources) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Structure("t", {ModelKey("x", "q"), ModelKey("y", "r")})
                                              .Annotated(R"("Model": {})")})})}};
  EXPECT_THAT(ModelsOf(sources, "q"), ElementsAre("t"));
  EXPECT_THAT(ModelsOf(sources, "r"), ElementsAre("t"));
}

TEST(ListModels, NeedsAModelAnnotationAndAKeyWithAResource) {
  const std::string key = R"("ModelKey": {})";
  const std::vector<Part> structures = {
      Structure("no model", {ModelKey("x", "r")}),
      Structure("no key", {Field("x").Annotated(Resource("r"))}).Annotated(R"("Model": {})"),
      Structure("no resource", {Field("x").Annotated(key), Field("y").Annotated(Resource("r"))})
          .Annotated(R"("Model": {})"),
      Structure("no field").Annotated(R"("Model": {}, )" + Resource("r"))};
  for (const auto& structure : structures) {
    const ComponentSources sources{{"a", Component("c", {Package("p", {structure})})}};
    EXPECT_THAT(sources->ListResources(), ElementsAre("r")) << structure.Json();
    EXPECT_THAT(ModelsOf(sources, "r"), IsEmpty()) << structure.Json();
  }
}

TEST(ListModels, StopsAtTheFirstKeyWithoutASingleResource) {
  for (const std::string odd : {R"({"value": ["s"]})", "{}", R"({"value": []})"}) {
    const Part stop = Field("y").Annotated(R"("ModelKey": {}, "Resource": )" + odd);
    const ComponentSources sources{
        {"a", Component("c", {Package("p", {Structure("t", {Field("w"), ModelKey("x", "q"), stop,
                                                            ModelKey("z", "r")})
                                                .Annotated(R"("Model": {})"),
                                            ModelOf("u", "r")})})}};
    EXPECT_THAT(ModelsOf(sources, "q"), ElementsAre("t")) << odd;
    EXPECT_THAT(ModelsOf(sources, "r"), ElementsAre("u")) << odd;
  }
}

TEST(ListModels, ListsADroppedStructureOfARepeatedName) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Structure("t").Doc("1"), ModelOf("t", "r").Doc("2")})})}};
  EXPECT_EQ(DocOf(sources->StructureInfo("t")), "1");
  EXPECT_THAT(ModelsOf(sources, "r"), ElementsAre("t"));
}

}  // namespace
}  // namespace Zelk::Testing
