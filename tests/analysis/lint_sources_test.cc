#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/linted.h"
#include "analysis/small_model.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to write files
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

std::string Namespace(const std::string& path, const std::string& name) {
  return R"({"type": "namespace", "path": ")" + path + R"(", "name": ")" + name +
         R"(", "description": ""})";
}

std::string Command(const std::string& description) {
  return R"({"type": "command", "path": "", "name": "x", "description": ")" + description +
         R"(", "node_metadata": {"service_id": "s", "operation_id": "o"}})";
}

std::string Cli(const std::string& nodes) {
  return R"({"cli": [)" + nodes + "]}";
}

const std::string kModel =
    Structure("c.p.a", Field("k", Builtin("ID"), R"("Resource": {"value": "r"}, "ModelKey": {})"),
              R"("Model": {})");

}  // namespace

TEST(ShadowedDefinition, IsAWarningIfBothAreTheSame) {
  EXPECT_THAT(Found("shadowed-definition", {Cli(Command("one")), Cli(Command("two"))}),
              ElementsAre("error command:x: no lookup returns the command 'x': that of 'a' comes "
                          "first, as its source id does"));
  EXPECT_THAT(Found("shadowed-definition", {Cli(Command("one")), Cli("  " + Command("one"))}),
              ElementsAre(HasSubstr("warning command:x")));
}

TEST(ShadowedDefinition, IsReportedWithAllThatIsInIt) {
  const std::string file = MetamodelFile({Structure("c.p.a", ""), Enumeration("c.p.k"), ""});
  EXPECT_THAT(Found("shadowed-definition", {file, file}),
              ElementsAre(HasSubstr("warning component:c: no lookup returns the component 'c'")));
  std::string other = file;
  other.replace(other.find(R"("c")"), 3, R"("d")");
  EXPECT_THAT(Found("shadowed-definition", {file, other}),
              ElementsAre(HasSubstr("warning package:c.p: no lookup returns the package 'c.p'")));
}

TEST(ShadowedDefinition, MayBeWonByALaterSourceOrByTheSameFile) {
  std::string inner = MetamodelFile({"", "", ""});
  const std::string key = R"("structures": [])";
  const auto with = [&](std::string text, std::size_t at) {
    return text.replace(at, key.size(), R"("structures": [)" + Structure("c.x", "") + "]");
  };
  const std::string of_service = with(inner, inner.rfind(key));
  std::string of_package = with(inner, inner.find(key));
  EXPECT_THAT(Found("shadowed-definition", {with(of_service, of_service.find(key))}),
              ElementsAre("warning structure:c.x: no lookup returns the structure 'c.x': another "
                          "one of the same file comes first"));
  for (const char* name : {R"("c")", R"("c.p")", R"("c.p.s")"}) {
    of_package.replace(of_package.find(name) + 1, 1, "d");
  }
  EXPECT_THAT(Found("shadowed-definition", {of_service, of_package}),
              ElementsAre("warning structure:c.x: no lookup returns the structure 'c.x': that of "
                          "'b' comes first, since it is further out"));
}

TEST(ShadowedDefinition, OfAListMayBeOneThatIsImplied) {
  const auto file = [](const std::string& component, const std::string& lists) {
    return R"({"authentication": {"component": {"name": ")" + component + R"(", )" + lists + "}}}";
  };
  EXPECT_THAT(Found("shadowed-definition", {file("c", R"("operations": {"p.s.o": []})"),
                                            file("d", R"("services": {"p.s": []})")}),
              ElementsAre(HasSubstr("error service:p.s: no lookup returns the service 'p.s'")));
}

TEST(SplitTree, HidesTheChildrenOfLaterSources) {
  EXPECT_THAT(Found("split-tree", {Cli(Namespace("", "n") + "," + Namespace("n", "a")),
                                   Cli(Namespace("", "n") + "," + Namespace("n", "b") + "," +
                                       Namespace("n", "c") + "," + Namespace("", "m"))}),
              testing::UnorderedElementsAre(
                  "error namespace:n: the namespace 'n' lists only what 'a' has in it, not 'n.b' "
                  "and others",
                  "note namespace:: the root lists only what 'a' has in it, not 'm'"));
  EXPECT_THAT(Found("split-tree", {Cli(Namespace("", "n")), Cli(Namespace("", "n"))}), IsEmpty());
}

TEST(SplitTree, HidesTheModelsOfEarlierSources) {
  const std::string names = MetamodelFile(
      {"", "", Operation("get", Field("i", Builtin("ID"), R"("Resource": {"value": "r"})"))});
  const std::string models = MetamodelFile({kModel, "", ""});
  EXPECT_THAT(
      Found("split-tree", {models, names}),
      ElementsAre("error structure:c.p.a: the structure 'c.p.a' is not listed as a model of "
                  "'r': only those of 'b' are, as its source id comes last"));
  EXPECT_THAT(Found("split-tree", {names, models}), IsEmpty());
  EXPECT_THAT(Found("split-tree", {models, models}), IsEmpty());
}
