#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/linted.h"
#include "analysis/small_model.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to write files
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

const std::string kMetamodel =
    MetamodelFile({"", "", Operation("get", "") + "," + Operation("put", "")});

std::string File(const std::string& lists, const std::string& component = "c") {
  return R"({"authentication": {"component": {"name": ")" + component + R"(", "schemes": {
    "s": {"authenticationScheme": "x", "type": "SESSION_AWARE", "sessionManager": "manager"},
    "t": {"authenticationScheme": "x", "type": "sessionless", "sessionManager": "manager"},
    "u": {"authenticationScheme": "x", "type": "SESSIONLESS"}}, )" +
         lists + "}}}";
}

}  // namespace

TEST(UnusedScheme, IsInNoListThatIsKept) {
  EXPECT_THAT(Found("unused-scheme", {File(R"("packages": {"p": ["t", "u"], "p": ["s"]})")}),
              ElementsAre("warning scheme:t: the scheme 'c.t' is not in any list",
                          "warning scheme:u: the scheme 'c.u' is not in any list"));
  EXPECT_THAT(Found("unused-scheme", {File(R"("packages": {"p": ["s", "t", "u"]})")}), IsEmpty());
}

TEST(SchemeList, ReportsRepetitionsAndEmptyLists) {
  EXPECT_THAT(Found("scheme-list", {File(R"("operations": {"c.p.s.get": ["t", "s", "u", "t"]},
                                            "services": {"c.p.t": []})")}),
              ElementsAre("warning entry:u: the list names two equal schemes, 't' and 'u'",
                          "warning entry:t: the list names the scheme 't' twice",
                          "note service:c.p.t: the list of the service 'c.p.t' is empty"));
}

TEST(UnknownAuthenticationTarget, ComparesWithTheComponent) {
  EXPECT_THAT(
      Found("unknown-authentication-target",
            {kMetamodel, File(R"("packages": {"c.p": [], "c.q": []},
                                 "services": {"c.p.s": [], "other.service": []},
                                 "operations": {"c.p.s.get": [], "c.p.s.gte": [],
                                                "c.p.u.a": [], "c.p.u.b": []})")}),
      testing::UnorderedElementsAre(
          "error package:c.q: the package 'c.q' is not loaded (did you mean 'c.p'?)",
          "error service:other.service: the service 'other.service' is not loaded",
          "error operation:c.p.s.gte: the service 'c.p.s' has no operation 'gte' "
          "(did you mean 'get'?)",
          "error operation:c.p.u.a: the service 'c.p.u' is not loaded (did you mean 'c.p.s'?)",
          "note authentication: the service 'manager' is not loaded"));
}

TEST(UnknownAuthenticationTarget, NotesAComponentThatIsNotLoaded) {
  const Lines texts{kMetamodel, File(R"("packages": {"d.p": []})", "d")};
  Zelk::Analysis::Lint::Settings settings;
  settings.external = {"man*"};
  EXPECT_THAT(Found("unknown-authentication-target", texts, settings),
              ElementsAre("note authentication: the component 'd' is not loaded"));
}

TEST(AuthenticationPackageMismatch, IsAWarningBesideAListOfThePackage) {
  std::string metamodel = kMetamodel;
  metamodel.replace(metamodel.find("c.p.s\""), 6, "c.p.s.t\"");
  EXPECT_THAT(Found("authentication-package-mismatch",
                    {metamodel, File(R"("operations": {"c.p.s.t.get": []})")}),
              ElementsAre("note service:c.p.s.t: the service 'c.p.s.t' is listed in the package "
                          "'c.p.s', but is in 'c.p'"));
  EXPECT_THAT(Found("authentication-package-mismatch",
                    {metamodel,
                     File(R"("packages": {"c.p.s": []}, "services": {"c.p.s.t": [], "x.y": []})")}),
              ElementsAre("warning service:c.p.s.t: the service 'c.p.s.t' is listed in the package "
                          "'c.p.s', but is in 'c.p'"));
  EXPECT_THAT(
      Found("authentication-package-mismatch", {kMetamodel, File(R"("services": {"c.p.s": []})")}),
      IsEmpty());
}

TEST(OperationWithoutScheme, HasNoListAtAnyLevel) {
  const auto found = [](const std::string& lists, const std::string& component = "c") {
    return Found("operation-without-scheme", {kMetamodel, File(lists, component)});
  };
  EXPECT_THAT(
      found(R"("operations": {"c.p.s.get": []})"),
      ElementsAre("warning operation:put: the operation 'c.p.s.put' has no schemes, nor has "
                  "its service or package"));
  EXPECT_THAT(found(R"("services": {"c.p.s": []})"), IsEmpty());
  EXPECT_THAT(found(R"("packages": {"c.p": []})"), IsEmpty());
  EXPECT_THAT(found(R"("packages": {"d.p": []})", "d"), IsEmpty());
  std::string twice = kMetamodel;
  twice.replace(twice.find("\"put\""), 5, "\"get\"");
  EXPECT_THAT(
      Found("operation-without-scheme", {twice, File(R"("operations": {"c.p.s.get": []})")}),
      IsEmpty())
      << "the second operation is dropped";
}
