#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/diffed.h"
#include "analysis/small_model.h"

// What hosts make of elements without schemes of their own.

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to compare

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using Zelk::Analysis::Diff::OpensAccess;
using Zelk::Analysis::Diff::Result;

constexpr char kSchemes[] =
    R"("a": {"authenticationScheme": "x.a", "type": "SESSIONLESS"},
       "b": {"authenticationScheme": "x.b", "type": "SESSIONLESS"})";

std::string Component(const std::string& lists, const std::string& schemes = kSchemes) {
  return R"({"authentication": {"component": {"name": "c", "schemes": {)" + schemes + "}" + lists +
         "}}}";
}

/// The package c.p has a list, and the service or operation may have one.
std::string Package(const std::string& list, const std::string& inner = "") {
  return Component(R"(, "packages": {"c.p": )" + list + "}" + inner);
}

std::string Operations(const std::string& list) {
  return R"(, "operations": {"c.p.s.o": )" + list + "}";
}

std::string Services(const std::string& list) {
  return R"(, "services": {"c.p.s": )" + list + "}";
}

Assumptions Nearest() {
  Assumptions assumptions;
  assumptions.inheritance = Assumptions::Inheritance::kNearest;
  return assumptions;
}

/// Each change as "LETTERS ID", with "opens: " in front if it opens access, and with its witness.
std::vector<std::string> Effects(const std::vector<std::string>& old_texts,
                                 const std::vector<std::string>& new_texts,
                                 const Assumptions& assumptions) {
  std::vector<std::string> lines;
  LookAtChanges(
      old_texts, new_texts,
      [&](const Result& result) {
        for (const Change& change : result.changes) {
          std::string line = OpensAccess(change) ? "opens: " : "";
          line += Letters(change.verdicts) + " " + change.kind->id;
          if (!change.details.witness.empty()) line += ": " + change.details.witness;
          lines.push_back(line);
        }
      },
      assumptions);
  return lines;
}

std::set<std::uint64_t> Fingerprints(const std::string& before, const std::string& after) {
  std::set<std::uint64_t> fingerprints;
  LookAtChanges({before}, {after}, [&](const Result& result) {
    for (const Change& change : result.changes) fingerprints.insert(change.fingerprint);
  });
  return fingerprints;
}

}  // namespace

TEST(Inheritance, DecidesWhatAListThatComesOrGoesMeans) {
  struct Row {
    std::string before;
    std::string after;
    const char* none;
    const char* nearest;
  };

  const std::string without = Package(R"(["a"])");
  for (const Row& row : std::vector<Row>{
           {Package(R"(["a"])", Operations(R"(["a"])")), without,
            "opens: ---DB authentication-list-removed: callers without a scheme needed x.a "
            "(SESSIONLESS); now they can call",
            "----B authentication-list-removed"},
           {Package(R"(["a"])", Operations(R"(["b"])")), without,
            "opens: ---DB authentication-list-removed: callers without a scheme needed x.b "
            "(SESSIONLESS); now they can call",
            "---BB authentication-list-removed: callers with x.b (SESSIONLESS) could call; now "
            "they need x.a (SESSIONLESS)"},
           {Package(R"(["a", "b"])", Operations(R"(["b"])")), Package(R"(["a", "b"])"),
            "opens: ---DB authentication-list-removed: callers without a scheme needed x.b "
            "(SESSIONLESS); now they can call",
            "---DB authentication-list-removed: callers with x.a (SESSIONLESS) needed x.b "
            "(SESSIONLESS); now they can call"},
           {without, Package(R"(["a"])", Services(R"(["a"])")),
            "---Bc authentication-list-added: callers without a scheme could call; now they need "
            "x.a (SESSIONLESS)",
            "----c authentication-list-added"},
           {without, Package(R"(["a"])", Operations(R"(["b"])")),
            "---Bc authentication-list-added: callers without a scheme could call; now they need "
            "x.b (SESSIONLESS)",
            "---Bc authentication-list-added: callers with x.a (SESSIONLESS) could call; now they "
            "need x.b (SESSIONLESS)"},
           {Package("[]"), Package("[]", Operations(R"(["b"])")),
            "---Bc authentication-list-added: callers without a scheme could call; now they need "
            "x.b (SESSIONLESS)",
            "---Bc authentication-list-added: callers without a scheme could call; now they need "
            "x.b (SESSIONLESS)"}}) {
    EXPECT_THAT(Effects({row.before}, {row.after}, {}), ElementsAre(row.none)) << row.after;
    EXPECT_THAT(Effects({row.before}, {row.after}, Nearest()), ElementsAre(row.nearest))
        << row.after;
  }
}

TEST(EmptyList, MayOpenAccessUnderSchemes) {
  const std::string without = Package(R"(["a"])");
  const std::string empty_service = Package(R"(["a"])", Services("[]"));
  const std::string empty_operation = Package(R"(["a"])", Operations("[]"));
  const std::string filled = Package(R"(["a"])", Operations(R"(["a"])"));
  for (const Assumptions& assumptions : {Assumptions{}, Nearest()}) {
    EXPECT_THAT(Effects({without}, {empty_service}, assumptions),
                ElementsAre("opens: ---Dc authentication-entry-added"));
    EXPECT_THAT(Effects({without}, {empty_operation}, assumptions),
                ElementsAre("opens: ---Dc authentication-entry-added"));
    // The reverse may turn somebody away.
    EXPECT_THAT(Effects({empty_service}, {without}, assumptions),
                ElementsAre("---DB authentication-entry-removed"));
  }
  EXPECT_THAT(Effects({filled}, {empty_operation}, Nearest()),
              ElementsAre("opens: ---Dc authentication-list-removed"));
  EXPECT_THAT(Effects({empty_operation}, {filled}, Nearest()),
              ElementsAre("---Dc authentication-list-added"));
}

TEST(EmptyList, OpensNothingWithoutSchemesAround) {
  EXPECT_THAT(Effects({Package("[]")}, {Package("[]", Services("[]"))}, Nearest()),
              ElementsAre("----c authentication-entry-added"));
}

TEST(Inheritance, IsNamedByChangesThatStandOnIt) {
  const auto expect = [](const Assumptions& assumptions, const std::string& text) {
    LookAtChanges(
        {Package(R"(["a"])", Operations(R"(["b"])"))}, {Package(R"(["a"])")},
        [&](const Result& result) { EXPECT_EQ(result.changes.front().details.assumption, text); },
        assumptions);
    LookAtChanges(
        {Package(R"(["a"])")}, {Package("[]")},
        [&](const Result& result) { EXPECT_EQ(result.changes.front().details.assumption, text); },
        assumptions);
  };
  expect({}, "inheritance: none, schemes: any");
  Assumptions all = Nearest();
  all.schemes = Assumptions::Schemes::kAll;
  expect(all, "inheritance: nearest, schemes: all");
}

namespace {

/// The changes of Authentication, without witnesses; each with its hint.
std::vector<std::string> OfLists(const std::vector<std::string>& old_texts,
                                 const std::vector<std::string>& new_texts) {
  std::vector<std::string> lines;
  LookAtChanges(old_texts, new_texts, [&](const Result& result) {
    for (const Change& change : result.changes) {
      if (change.kind->area != Zelk::Analysis::Diff::Area::kAuthentication) continue;
      std::string line = Letters(change.verdicts) + " " + change.kind->id;
      if (!change.details.hint.empty()) line += " (" + change.details.hint + ")";
      lines.push_back(line);
    }
  });
  return lines;
}

}  // namespace

TEST(ListOfSomethingNew, ConcernsNoCaller) {
  const std::string small = MetamodelFile({"", "", ""});
  const std::string large = MetamodelFile({"", "", Operation("o", "")});
  const std::string unlisted = Component("");
  const std::string listed = Component(Operations(R"(["a"])"));
  const std::string emptied = Component(Operations("[]"));
  const std::string because =
      " (concerns no caller: what the list is for is in one version of the Metamodel files only)";
  EXPECT_THAT(OfLists({small, unlisted}, {large, listed}),
              ElementsAre("----c authentication-list-added" + because));
  EXPECT_THAT(OfLists({large, listed}, {small, unlisted}),
              ElementsAre("----B authentication-list-removed" + because));
  EXPECT_THAT(OfLists({large, listed}, {small, emptied}),
              ElementsAre("----c authentication-list-removed" + because));
  // What both versions have, and what no Metamodel file describes, may be called.
  EXPECT_THAT(OfLists({large, unlisted}, {large, listed}),
              ElementsAre("---Bc authentication-list-added"));
  EXPECT_THAT(OfLists({unlisted}, {large, listed}), ElementsAre("---Bc authentication-list-added"));
  EXPECT_THAT(OfLists({small, unlisted}, {small, Component(Services(R"(["a"])"))}),
              ElementsAre("---Bc authentication-list-added"));
  EXPECT_THAT(
      OfLists({small, unlisted},
              {small, Component(R"(, "services": {"d.p.s": ["a"]}, "packages": {"c.p": ["a"]})")}),
      ElementsAre("---Bc authentication-list-added", "---Bc authentication-list-added"));
}

TEST(ListOfSomethingNew, ConcernsCallersOfServicesThatItTakesOver) {
  const std::string before = MetamodelFile({"", "", Operation("o", "")});
  // The service keeps its name.
  std::string after = before;
  const std::string name = R"("name": "c.p", )";
  after.replace(after.find(name), name.size(), R"("name": "c.q", )");
  const std::string unlisted = Component("");
  const std::string of_new = Component(R"(, "packages": {"c.q": ["a"]})");
  const std::string of_old = Package(R"(["a"])");
  EXPECT_THAT(Effects({before, unlisted}, {after, of_new}, {}),
              Contains("---Bc authentication-list-added"));
  EXPECT_THAT(Effects({after, of_new}, {before, unlisted}, {}),
              Contains("opens: ---DB authentication-list-removed"));
  EXPECT_THAT(Effects({before, of_old}, {after, unlisted}, Nearest()),
              Contains("opens: ---DB authentication-list-removed"));
  // Another service is new with its package.
  const std::string service = R"("name": "c.p.s", )";
  after.replace(after.find(service), service.size(), R"("name": "c.q.s", )");
  EXPECT_THAT(Effects({before, unlisted}, {after, of_new}, {}),
              Contains("----c authentication-list-added"));
}

TEST(AuthenticationChanges, IgnoreSchemesOfWhatIsLeftOut) {
  const auto with = [](const std::string& list) {
    const std::string good = Package(list);
    const std::string broken =
        R"("component": {"name": "d", "schemes": {"a": {"authenticationScheme": "x", "type": "?"}}}, )";
    const std::string slot = "\"component\"";
    std::string text = good;
    return text.replace(good.find(slot), slot.size(), broken + "\"product\"");
  };
  EXPECT_THAT(
      Effects({with(R"(["a"])")}, {with("[]")}, {}),
      ElementsAre("opens: ---Dc authentication-list-removed: callers without a scheme needed "
                  "x.a (SESSIONLESS); now they can call"));
}

TEST(AuthenticationFingerprints, DifferByWhatChanged) {
  const auto expect_different = [](const std::string& before,
                                   const std::vector<std::string>& after) {
    std::set<std::uint64_t> all;
    std::size_t count = 0;
    for (const std::string& text : after) {
      const std::set<std::uint64_t> some = Fingerprints(before, text);
      count += some.size();
      all.insert(some.begin(), some.end());
    }
    EXPECT_GE(count, after.size());
    EXPECT_EQ(all.size(), count) << before;
  };
  const std::string none = Component("");
  // Lists in lists.
  expect_different(none, {Package(R"(["a"])"), Package(R"(["a"])", Operations(R"(["b"])")),
                          Package(R"(["a"])", Operations(R"(["a"])"))});
  // Gone, or empty.
  expect_different(Package(R"(["a"])"), {Package("[]"), none});
  // The same list without schemes, but with other effects.
  EXPECT_NE(Fingerprints(Package("[]"), Package("[]", Services("[]"))),
            Fingerprints(Package(R"(["a"])"), Package(R"(["a"])", Services("[]"))));
}

TEST(AuthenticationFingerprints, OfSchemesHaveTheirLists) {
  const auto with = [](const std::string& id, const std::string& more) {
    return Component(R"(, "packages": {"c.p": ["s"])" + more + "}",
                     R"("s": {"authenticationScheme": ")" + id + R"(", "type": "SESSIONLESS"})");
  };
  const std::string more = R"(, "c.q": ["s"])";
  EXPECT_NE(Fingerprints(with("x.s", ""), with("x.t", "")),
            Fingerprints(with("x.s", more), with("x.t", more)));
  // Texts that differ only in what is not shown.
  const std::string half(1000, 's');
  EXPECT_NE(Fingerprints(with("x.s", ""), with(half + "a" + half, "")),
            Fingerprints(with("x.s", ""), with(half + "b" + half, "")));
}

TEST(AuthenticationChanges, OfLongListsAreShownInPart) {
  std::string schemes;
  std::string list;
  for (int i = 0; i < 30; ++i) {
    const std::string name = "s" + std::to_string(100 + i);
    schemes += (i == 0 ? "\"" : ", \"") + name + R"(": {"authenticationScheme": ")" + name +
               R"(", "type": "SESSIONLESS"})";
    list += (i == 0 ? "\"" : ", \"") + name + "\"";
  }
  const auto with = [&](const std::string& names) {
    return Component(R"(, "packages": {"c.p": [)" + names + "]}", schemes);
  };
  LookAtChanges({with("")}, {with(list)}, [](const Result& result) {
    EXPECT_THAT(result.changes.front().details.new_value,
                AllOf(testing::StartsWith("s100 (SESSIONLESS), s101"),
                      testing::EndsWith("s119 (SESSIONLESS) and 10 more")));
  });
}

TEST(AuthenticationChanges, OfSeveralListsSayHowMany) {
  const std::string none = Component("");
  LookAtChanges({none}, {Package(R"(["a"])", Operations(R"(["b"])"))}, [](const Result& result) {
    EXPECT_EQ(result.changes.front().details.new_value, "x.a (SESSIONLESS); and 1 more list");
    EXPECT_EQ(result.changes.front().details.witness,
              "the list of the package 'c.p': callers without a scheme could call; now they need "
              "x.a (SESSIONLESS); and 1 more list");
  });
}
