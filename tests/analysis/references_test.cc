#include "analysis/references.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/definitions.h"
#include "analysis/small_model.h"
#include "support/small_stack.h"

using Zelk::Analysis::Definitions;
using Zelk::Analysis::Domain;
using Zelk::Analysis::DomainElement;
using Zelk::Analysis::ElementId;
using Zelk::Analysis::ElementKind;
using Zelk::Analysis::kNoElement;
using Zelk::Analysis::Model;
using Zelk::Analysis::Models;
using Zelk::Analysis::Reference;
using Zelk::Analysis::References;

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): all of small_model.h

namespace {

using Lines = std::vector<std::string>;

/// The sources of the domains, and their references.
class Loaded {
 public:
  Loaded(const Lines& metamodel, const Lines& authentication, const Lines& cli)
      : metamodel_(ModelOf(Domain::kMetamodel, metamodel)),
        authentication_(ModelOf(Domain::kAuthentication, authentication)),
        cli_(ModelOf(Domain::kCli, cli)),
        definitions_(metamodel_),
        models_{metamodel_, authentication_, cli_},
        references_(models_, definitions_) {}

  const Model& Metamodel() const { return metamodel_; }

  const References& All() const { return references_; }

  /// "FROM: NAME -> TARGET".
  std::string Line(const Reference& reference) const {
    return Path(reference.from) + ": " + std::string(reference.name) + " -> " +
           Path(reference.target);
  }

  Lines AllLines() const {
    Lines lines;
    for (const Reference& reference : references_.All()) lines.push_back(Line(reference));
    return lines;
  }

 private:
  /// Without what it is in.
  std::string Path(const DomainElement& place) const {
    if (place.element == kNoElement) return "?";
    const std::string path = models_.Of(place.domain).Path(place.element);
    return path.substr(path.rfind('/') + 1);
  }

  Model metamodel_;
  Model authentication_;
  Model cli_;
  Definitions definitions_;
  Models models_;
  References references_;
};

std::string Resource(const std::string& name) {
  return R"("Resource": {"value": ")" + name + R"("})";
}

std::string Error(const std::string& name) {
  return R"({"user_defined_type_name": ")" + name + R"(", "documentation": ""})";
}

std::string Authentication(const std::string& lists) {
  return R"({"authentication": {"component": {"name": "c", "schemes": {
    "s": {"authenticationScheme": "x", "type": "sessionAware", "sessionManager": "c.p.s"},
    "t": {"authenticationScheme": "y", "type": "SESSIONLESS", "sessionManager": "ignored"}}, )" +
         lists + "}}}";
}

std::string Command(const std::string& service, const std::string& operation,
                    const std::string& options, const std::string& outputs) {
  return R"({"type": "command", "path": "", "name": "x", "description": "", "node_metadata": {
    "service_id": ")" +
         service + R"(", "operation_id": ")" + operation + R"(", "options": [)" + options +
         R"(], "output_field_list": [)" + outputs + "]}}";
}

std::string Option(const std::string& field, const std::string& type) {
  return R"({"long_option": "o", "field_name": ")" + field + R"(", "description": "", "type": ")" +
         type + R"(", "generic": "none"})";
}

std::string Output(const std::string& structure, const std::string& field) {
  return R"({"structure_id": ")" + structure + R"(", "output_fields": [{"field_name": ")" + field +
         R"(", "display_name": ""}]})";
}

}  // namespace

TEST(References, TypesNameDefinitionsAtAnyLevel) {
  const std::string kind = Named("Enumeration", "c.p.kind");
  const Loaded loaded(
      {MetamodelFile(
          {Structure("c.p.a", Field("f", MapOf(kind, Of("LIST", Named("Structure", "c.p.a"))))),
           Enumeration("c.p.kind"),
           Operation("get", Field("i", Named("com.orvane.zelk.structure", "c.p.none")),
                     Named("Structure", "c.p.kind"), Error("c.p.a") + "," + Error("c.p.kind"))})},
      {}, {});
  EXPECT_EQ(loaded.AllLines(),
            (Lines{"field:f: c.p.a -> structure:c.p.a", "field:f: c.p.kind -> enumeration:c.p.kind",
                   "parameter:i: c.p.none -> ?", "result:result: c.p.kind -> enumeration:c.p.kind",
                   "error:c.p.a: c.p.a -> structure:c.p.a", "error:c.p.kind: c.p.kind -> ?"}));
}

TEST(References, ResourcesNameTheirFirstModel) {
  const std::string key = Field("k", Builtin("ID"), Resource("r") + R"(, "ModelKey": {})");
  const Loaded loaded(
      {MetamodelFile({Structure("c.p.a", key, R"("Model": {})"), "", ""}),
       MetamodelFile(
           {Structure("c.p.b", key, R"("Model": {})") + "," +
                Structure("c.p.c", key, R"("Model": {})"),
            "",
            Operation("get", Field("f", Builtin("ID"), R"("Resource": {"value": ["r", "q"]})"))})},
      {}, {});
  EXPECT_EQ(loaded.AllLines(),
            (Lines{"annotation:Resource: r -> structure:c.p.b",
                   "annotation:Resource: r -> structure:c.p.b",
                   "annotation:Resource: r -> structure:c.p.b",
                   "annotation:Resource: r -> structure:c.p.b", "annotation:Resource: q -> ?"}));
}

TEST(References, ListsOfAuthenticationNameDefinitionsAndSchemes) {
  const Lines authentication{Authentication(R"(
    "packages": {"c.p": ["s"], "c.q": []}, "services": {"c.p.s": ["t"], "c.p.t": []},
    "operations": {"c.p.s.get": ["s"], "c.p.s.put": [], "c.p.u.get": []})")};
  const Loaded loaded({MetamodelFile({"", "", Operation("get", "")})}, authentication, {});
  EXPECT_EQ(loaded.AllLines(),
            (Lines{"component:c: c -> component:c", "scheme:s: c.p.s -> service:c.p.s",
                   "operation:c.p.s.get: c.p.s.get -> operation:get", "entry:s: s -> scheme:s",
                   "operation:c.p.s.put: c.p.s.put -> ?", "operation:c.p.u.get: c.p.u.get -> ?",
                   "service:c.p.s: c.p.s -> service:c.p.s", "entry:t: t -> scheme:t",
                   "service:c.p.t: c.p.t -> ?", "package:c.p: c.p -> package:c.p",
                   "entry:s: s -> scheme:s", "package:c.q: c.q -> ?"}));
  const Loaded alone({}, authentication, {});
  EXPECT_EQ(alone.All().All().size(), loaded.All().All().size());
  EXPECT_EQ(alone.AllLines().front(), "component:c: c -> ?");
}

TEST(References, CommandsNameOperationsFieldsAndStructures) {
  const Lines metamodel{MetamodelFile({Structure("c.p.a", Field("f", Named("Structure", "c.p.a"))),
                                       Enumeration("c.p.kind"),
                                       Operation("get", Field("i", Named("Structure", "c.p.a")))})};
  const Lines cli{
      R"({"cli": [)" +
      Command(
          "c.p.s", "get",
          Option("i.f.f", "c.p.kind") + "," + Option("i.g.h", "id") + "," + Option("j", "c.p.none"),
          Output("c.p.a", "f") + "," + Output("c.p.a", "g") + "," + Output("c.p.b", "f")) +
      "]}"};
  const Lines all = Loaded(metamodel, {}, cli).AllLines();
  EXPECT_EQ(Lines(all.begin() + 2, all.end()),
            (Lines{"command:x: c.p.s -> service:c.p.s", "command:x: get -> operation:get",
                   "option:o: c.p.kind -> enumeration:c.p.kind", "option:o: i -> parameter:i",
                   "option:o: f -> field:f", "option:o: f -> field:f", "option:o: i -> parameter:i",
                   "option:o: g -> ?", "option:o: c.p.none -> ?", "option:o: j -> ?",
                   "output:c.p.a: c.p.a -> structure:c.p.a", "output-field:f: f -> field:f",
                   "output:c.p.a: c.p.a -> structure:c.p.a", "output-field:g: g -> ?",
                   "output:c.p.b: c.p.b -> ?"}));
  EXPECT_EQ(
      Loaded({}, {}, cli).AllLines(),
      (Lines{"command:x: c.p.s -> ?", "option:o: c.p.kind -> ?", "option:o: c.p.none -> ?",
             "output:c.p.a: c.p.a -> ?", "output:c.p.a: c.p.a -> ?", "output:c.p.b: c.p.b -> ?"}));
}

TEST(References, CommandThatIsOverriddenHasNone) {
  const Loaded loaded({}, {},
                      {R"({"cli": [)" + Command("s", "get", Option("i", "t"), "") + "," +
                       Command("t", "get", "", "") + "]}"});
  EXPECT_EQ(loaded.AllLines(), (Lines{"command:x: t -> ?"}));
}

TEST(References, OperationOfAKnownServiceMayBeUnknown) {
  const Loaded loaded({MetamodelFile({"", "", ""})}, {},
                      {R"({"cli": [)" + Command("c.p.s", "put", Option("i", "ID"), "") + "]}"});
  EXPECT_EQ(loaded.AllLines(), (Lines{"command:x: c.p.s -> service:c.p.s", "command:x: put -> ?"}));
}

TEST(References, CanBeAskedForByElementAndByTarget) {
  const Loaded loaded(
      {MetamodelFile({Structure("c.p.a", Field("f", Named("Structure", "c.p.a"))), "",
                      Operation("get", Field("i", Named("Structure", "d.a")),
                                Named("Structure", "c.p.a"), Error("d.a"))})},
      {}, {});
  const auto lines = [&](const std::vector<const Reference*>& references) {
    Lines found;
    for (const Reference* reference : references) found.push_back(loaded.Line(*reference));
    return found;
  };
  const ElementId a = loaded.Metamodel().Find(ElementKind::kStructure, "c.p.a");
  EXPECT_EQ(
      lines(loaded.All().To({Domain::kMetamodel, a})),
      (Lines{"field:f: c.p.a -> structure:c.p.a", "result:result: c.p.a -> structure:c.p.a"}));
  Lines from;
  for (const Reference& reference : loaded.All().From({Domain::kMetamodel, a + 1})) {
    from.push_back(loaded.Line(reference));
  }
  EXPECT_EQ(from, (Lines{"field:f: c.p.a -> structure:c.p.a"}));
  EXPECT_TRUE(loaded.All().To({Domain::kCli, a}).empty());
}

TEST(References, TypesMayNestToAnyDepth) {
  Zelk::Testing::RunOnSmallStack(256 * 1024, [] {
    std::string type = Named("Structure", "c.p.a");
    std::string begin;
    for (int i = 0; i < 100000; ++i) {
      begin += R"({"category": "GENERIC", "generic_type": "LIST", "element_type": )";
    }
    const Loaded loaded(
        {MetamodelFile({Structure("c.p.a", ""), "",
                        Operation("get", Field("i", begin + type + std::string(100000, '}')))})},
        {}, {});
    EXPECT_EQ(loaded.AllLines(), (Lines{"parameter:i: c.p.a -> structure:c.p.a"}));
  });
}
