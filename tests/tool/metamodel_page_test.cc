#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "domains/metamodel_shapes.h"
#include "render/page.h"

// What a service may answer although no file that is loaded today says it.

namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
using Bindings::Metamodel::ElementValue;
using Type = Bindings::Metamodel::ElementValueEnumerations::Type;

/// The page of an empty structure with one annotation, "@Foo bar=<element>".
std::string PageWith(const ElementValue& element) {
  const auto annotation = std::make_shared<const Bindings::Metamodel::ElementMap>(
      std::map<std::string, std::shared_ptr<const ElementValue>>{
          {"bar", std::make_shared<const ElementValue>(element)}});
  const Bindings::Metamodel::StructureInfo structure(
      "foo", Bindings::Metamodel::StructureInfoEnumerations::Type::STRUCTURE, {}, {}, {},
      {{"Foo", annotation}}, "");
  std::ostringstream out;
  Zelk::Tool::Render::Page page(out);
  Zelk::Tool::WritePage(page, structure);
  return out.str();
}

}  // namespace

TEST(MetamodelPage, ShowsAnAnnotationsStringsQuoted) {
  EXPECT_NE(PageWith({Type::STRING, std::string(R"(a "b" \ c)"), {}, {}, {}})
                .find(R"(@Foo bar="a \"b\" \\ c")"),
            std::string::npos);
}

TEST(MetamodelPage, ShowsAnAnnotationThatNamesStructures) {
  EXPECT_NE(PageWith({Type::STRUCTURE_REFERENCE, {}, {}, std::string("baz"), {}})
                .find(R"(@Foo bar="baz")"),
            std::string::npos);
  EXPECT_NE(PageWith({Type::STRUCTURE_REFERENCE_LIST, {}, {}, {}, std::list<std::string>{"a", "b"}})
                .find(R"(@Foo bar=["a", "b"])"),
            std::string::npos);
}

TEST(MetamodelPage, ShowsTheTypeOfAnAnnotationWithoutAValue) {
  EXPECT_NE(
      PageWith({Type::STRUCTURE_REFERENCE, {}, {}, {}, {}}).find("@Foo bar=STRUCTURE_REFERENCE"),
      std::string::npos);
}
