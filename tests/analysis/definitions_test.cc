#include "analysis/definitions.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/small_model.h"

using Zelk::Analysis::Arity;
using Zelk::Analysis::Definitions;
using Zelk::Analysis::Domain;
using Zelk::Analysis::ElementId;
using Zelk::Analysis::ElementKind;
using Zelk::Analysis::FieldPath;
using Zelk::Analysis::kNoElement;
using Zelk::Analysis::Model;

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): all of small_model.h

namespace {

const std::string kFile = MetamodelFile(
    {Structure("c.p.spec", Field("inner", Of("OPTIONAL", Named("Structure", "c.p.spec"))) + "," +
                               Field("text", Builtin("STRING")) + "," +
                               Field("text", Builtin("ID"))),
     Enumeration("c.p.kind"),
     Operation("get", Field("spec", Named("Structure", "c.p.spec")) + "," +
                          Field("specs", Of("LIST", Named("Structure", "c.p.spec"))) + "," +
                          Field("kind", Named("Enumeration", "c.p.kind")) + "," +
                          Field("other", Named("Structure", "d.unknown")) + "," +
                          Field("any", Builtin("DYNAMIC_STRUCTURE")))});

}  // namespace

TEST(Definitions, FieldPathsLeadThroughStructures) {
  const Model model = ModelOf(Domain::kMetamodel, {kFile});
  const Definitions definitions(model);
  const ElementId service = model.Find(ElementKind::kService, "c.p.s");
  const ElementId get = definitions.Part(service, ElementKind::kOperation, "get");
  ASSERT_NE(get, kNoElement);

  const struct {
    const char* path;
    FieldPath::End end;
    std::size_t found;
    const char* part;
  } rows[] = {
      {"spec", FieldPath::kComplete, 1, ""},
      {"spec.text", FieldPath::kComplete, 2, ""},
      {"spec.inner.inner.text", FieldPath::kComplete, 4, ""},
      {"spek", FieldPath::kMissing, 0, "spek"},
      {"", FieldPath::kMissing, 0, ""},
      {"spec.", FieldPath::kMissing, 1, ""},
      {"spec.tex.more", FieldPath::kMissing, 1, "tex"},
      {"spec.text.more", FieldPath::kNoStructure, 2, "more"},
      {"specs.text", FieldPath::kNoStructure, 1, "text"},
      {"kind.text", FieldPath::kNoStructure, 1, "text"},
      {"other.text", FieldPath::kUnknown, 1, "text"},
      {"any.text.more", FieldPath::kUnknown, 1, "text"},
  };

  for (const auto& row : rows) {
    const FieldPath path = definitions.Follow(get, row.path);
    EXPECT_EQ(path.end, row.end) << row.path;
    EXPECT_EQ(path.found.size(), row.found) << row.path;
    EXPECT_EQ(path.part, row.part) << row.path;
  }
}

TEST(Definitions, FirstPartOfANameCounts) {
  const Model model = ModelOf(Domain::kMetamodel, {kFile});
  const Definitions definitions(model);
  const ElementId spec = model.Find(ElementKind::kStructure, "c.p.spec");
  const ElementId text = definitions.Part(spec, ElementKind::kField, "text");
  EXPECT_LT(text, definitions.Part(model.Find(ElementKind::kService, "c.p.s"),
                                   ElementKind::kOperation, "get"));
  EXPECT_EQ(model.DocumentOf(text).Pointer(model[text].node),
            "/metamodel/component/packages/0/structures/0/fields/1");
  EXPECT_EQ(definitions.Part(spec, ElementKind::kField, "none"), kNoElement);
}

TEST(Definitions, ArityIsWhatIsAroundAType) {
  const std::string text = Builtin("STRING");

  const struct {
    std::string type;
    Arity arity;
  } rows[] = {
      {text, Arity::kOne},
      {Of("OPTIONAL", text), Arity::kOptional},
      {Of("OPTIONAL", Of("OPTIONAL", text)), Arity::kOptional},
      {Of("LIST", text), Arity::kList},
      {Of("set", text), Arity::kList},
      {Of("OPTIONAL", Of("SET", text)), Arity::kOptionalList},
      {Of("LIST", Of("OPTIONAL", Of("OPTIONAL", text))), Arity::kListOptional},
      {Of("LIST", Of("LIST", text)), Arity::kOther},
      {Of("OPTIONAL", Of("LIST", Of("OPTIONAL", text))), Arity::kOther},
      {Of("OPTIONAL", MapOf(text, text)), Arity::kOther},
      {MapOf(text, text), Arity::kOther},
  };

  for (const auto& row : rows) {
    const Model model = ModelOf(Domain::kMetamodel,
                                {MetamodelFile({"", "", Operation("get", Field("f", row.type))})});
    const Definitions definitions(model);
    const ElementId get = definitions.Part(model.Find(ElementKind::kService, "c.p.s"),
                                           ElementKind::kOperation, "get");
    const ElementId field = definitions.Part(get, ElementKind::kParameter, "f");
    EXPECT_EQ(definitions.ContentOf(field).shape.arity, row.arity) << row.type;
  }
}

TEST(Definitions, NamesThatAreLoadedBeginWithWhatIsLoaded) {
  const Model model = ModelOf(Domain::kMetamodel, {kFile});
  const Definitions definitions(model);
  for (const char* name : {"c", "c.p", "c.p.s", "c.x", "c.p.s.any"}) {
    EXPECT_TRUE(definitions.IsLoaded(name)) << name;
  }
  for (const char* name : {"", "b", "c-p", "cc", "cc.p", "d.c.p", "C.p"}) {
    EXPECT_FALSE(definitions.IsLoaded(name)) << name;
  }
}

TEST(Definitions, KindOfATypeIsPreferredToAnotherKind) {
  const Model model = ModelOf(
      Domain::kMetamodel, {MetamodelFile({Structure("c.p.x", ""),
                                          Enumeration("c.p.x") + "," + Enumeration("c.p.y"), ""})});
  const Definitions definitions(model);
  const auto kind = [&](ElementKind wanted, const char* name) {
    return model[definitions.Definition(wanted, name)].kind;
  };
  EXPECT_EQ(kind(ElementKind::kStructure, "c.p.x"), ElementKind::kStructure);
  EXPECT_EQ(kind(ElementKind::kEnumeration, "c.p.x"), ElementKind::kEnumeration);
  EXPECT_EQ(kind(ElementKind::kStructure, "c.p.y"), ElementKind::kEnumeration);
  EXPECT_EQ(kind(ElementKind::kNone, "c.p.x"), ElementKind::kStructure);
  EXPECT_EQ(definitions.Definition(ElementKind::kNone, "c.p.z"), kNoElement);
}
