#include "analysis/element_model.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/small_stack.h"

using Zelk::Analysis::Document;
using Zelk::Analysis::Domain;
using Zelk::Analysis::ElementId;
using Zelk::Analysis::ElementKind;
using Zelk::Analysis::Fate;
using Zelk::Analysis::kNoElement;
using Zelk::Analysis::Model;

namespace {

Model ModelOf(Domain domain, const char* text) {
  return {domain, {{"a", std::make_shared<const Document>(text)}}};
}

std::vector<std::string> Paths(const Model& model) {
  std::vector<std::string> paths;
  for (ElementId id = 0; id < model.Size(); ++id) paths.push_back(model.Path(id));
  return paths;
}

constexpr char kMetamodel[] = R"({"metamodel": {"component": {
  "name": "c", "documentation": "", "metadata": {}, "packages": [
    {"name": "c.p", "documentation": "", "metadata": {}, "enumerations": [], "structures": [],
     "services": [
      {"name": "c.p.v", "documentation": "", "metadata": {}, "enumerations": [], "structures": [],
       "constants": [], "operations": [
        {"name": "get", "documentation": "", "metadata": {}, "params": [
          {"name": "id", "documentation": "", "metadata": {"X": {}},
           "type": {"category": "BUILTIN", "primitive_type": "ID"}}],
         "result": {"documentation": "", "metadata": {},
                    "type": {"category": "BUILTIN", "primitive_type": "VOID"}},
         "errors": []}]}]}]}}})";

constexpr char kAuthentication[] = R"({"authentication": {"component": {
  "name": "c", "schemes": {"s": {"authenticationScheme": "x", "type": "SESSIONLESS"}},
  "operations": {"c.p.get": ["s"]}}}})";

constexpr char kCli[] = R"({"cli": [
  {"type": "namespace", "path": "a", "name": "b", "description": ""}]})";

}  // namespace

TEST(Model, ElementsHavePathsOfNames) {
  const Model metamodel = ModelOf(Domain::kMetamodel, kMetamodel);
  const std::string operation = "metamodel/component:c/package:c.p/service:c.p.v/operation:get";
  EXPECT_EQ(
      Paths(metamodel),
      (std::vector<std::string>{
          "metamodel/component:c", "metamodel/component:c/package:c.p",
          "metamodel/component:c/package:c.p/service:c.p.v", operation, operation + "/parameter:id",
          operation + "/parameter:id/annotation:X", operation + "/result:result"}));
  const std::string component = "authentication/component:c";
  EXPECT_EQ(
      Paths(ModelOf(Domain::kAuthentication, kAuthentication)),
      (std::vector<std::string>{component, component + "/scheme:s",
                                component + "/package:c/service:c.p/operation:c.p.get",
                                component + "/package:c/service:c.p/operation:c.p.get/entry:s",
                                component + "/package:c/service:c.p", component + "/package:c"}));
  EXPECT_EQ(Paths(ModelOf(Domain::kCli, kCli)),
            (std::vector<std::string>{"cli/namespace:a.b", "cli/namespace:a", "cli/namespace:"}));
}

TEST(Model, NamesAreFullOrSimple) {
  const Model metamodel = ModelOf(Domain::kMetamodel, kMetamodel);
  EXPECT_EQ(metamodel.FullName(2), "c.p.v");
  EXPECT_EQ(metamodel.SimpleName(2), "v");
  EXPECT_EQ(metamodel.FullName(4), "c.p.v.get.id");
  EXPECT_EQ(metamodel.SimpleName(4), "id");
  const Model cli = ModelOf(Domain::kCli, kCli);
  EXPECT_EQ(cli.FullName(0), "a.b");
  EXPECT_EQ(cli.SimpleName(0), "b");
}

TEST(Model, FindReturnsWhatALookupReturns) {
  const Model metamodel = ModelOf(Domain::kMetamodel, kMetamodel);
  EXPECT_EQ(metamodel.Find(ElementKind::kService, "c.p.v"), 2U);
  EXPECT_EQ(metamodel.Find(ElementKind::kService, "c.p"), kNoElement);
  EXPECT_EQ(metamodel.Find(ElementKind::kStructure, "z"), kNoElement);
  EXPECT_EQ(ModelOf(Domain::kCli, kCli).Find(ElementKind::kNamespace, "b", "a"), 0U);
}

TEST(Model, SourceThatDoesNotLoadHasNoElements) {
  for (const char* text : {"{", "{}", R"({"cli": [{"type": "namespace"}]})"}) {
    const Model model = ModelOf(Domain::kCli, text);
    EXPECT_FALSE(model.Loads(0)) << text;
    EXPECT_EQ(model.Size(), 0U) << text;
  }
  EXPECT_TRUE(ModelOf(Domain::kCli, R"({"cli": []})").Loads(0));
}

TEST(Model, BrokenPartBesideAGoodOneIsIgnoredWithAllInIt) {
  const Model model = ModelOf(Domain::kAuthentication, R"({"authentication": {
    "product": {"name": "p", "operations": {"a.b.c": []}, "packages": {"a": ["unknown"]}},
    "component": {"name": "c"}}})");
  ASSERT_TRUE(model.Loads(0));
  EXPECT_EQ(model[0].fate, Fate::kIgnored);
  EXPECT_EQ(model[1].fate, Fate::kLost);
  EXPECT_EQ(model[1].by, 0U);
  EXPECT_EQ(model.Find(ElementKind::kComponent, "p"), kNoElement);
  EXPECT_NE(model.Find(ElementKind::kComponent, "c"), kNoElement);
}

TEST(Model, TypesMayNestToAnyDepth) {
  Zelk::Testing::RunOnSmallStack(256 * 1024, [] {
    constexpr char kType[] = R"({"category": "BUILTIN", "primitive_type": "VOID"})";
    std::string type = kType;
    std::string end;
    for (int i = 0; i < 100000; ++i) end += "}";
    std::string begin;
    for (int i = 0; i < 100000; ++i) {
      begin += R"({"category": "GENERIC", "generic_type": "LIST", "element_type": )";
    }
    std::string text = kMetamodel;
    text.replace(text.find(kType), type.size(), begin + type + end);
    const Model model = ModelOf(Domain::kMetamodel, text.c_str());
    EXPECT_TRUE(model.Loads(0));
    EXPECT_EQ(model.Size(), 7U);
  });
}

TEST(Model, KnowsItsSourcesInTheOrderOfTheirIds) {
  const auto document = std::make_shared<const Document>(kCli);
  const Model model(Domain::kCli, {{"b", document}, {"a", document}});
  EXPECT_EQ(model.GetDomain(), Domain::kCli);
  EXPECT_EQ(model.Sources().front().id, "a");
  EXPECT_EQ(&model.DocumentOf(0), document.get());
}
