#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/diffed.h"
#include "analysis/mirrored.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to compare

namespace {

using testing::ElementsAre;
using Zelk::Analysis::Diff::Result;

/// A scheme under a name that is "a" for the id "acme.a".
std::string SchemeText(const std::string& name) {
  return "\"" + name + R"(": {"authenticationScheme": "acme.)" + name +
         R"(", "type": "SESSIONLESS"})";
}

const char* const kSchemes =
    R"("a": {"authenticationScheme": "acme.a", "type": "SESSIONLESS"},
       "b": {"authenticationScheme": "acme.b", "type": "SESSIONLESS"},
       "c": {"authenticationScheme": "acme.c", "type": "SESSION_AWARE", "sessionManager": "acme.s"})";

std::string Component(const std::string& schemes, const std::string& members,
                      const std::string& name = "acme", const std::string& slot = "component") {
  return R"({"authentication": {")" + slot + R"(": {"name": ")" + name + R"(", "schemes": {)" +
         schemes + "}" + members + "}}}";
}

/// A component with one package and this list.
std::string Listing(const std::string& list) {
  return Component(kSchemes, R"(, "packages": {"acme.p": [)" + list + "]}");
}

Assumptions All() {
  Assumptions assumptions;
  assumptions.schemes = Assumptions::Schemes::kAll;
  return assumptions;
}

/// Each change as "LETTERS ID", then its witness if there is one.
std::vector<std::string> Witnessed(const std::vector<std::string>& old_texts,
                                   const std::vector<std::string>& new_texts,
                                   const Assumptions& assumptions = {}) {
  std::vector<std::string> lines;
  LookAtChanges(
      old_texts, new_texts,
      [&](const Result& result) {
        for (const Change& change : result.changes) {
          std::string line = Letters(change.verdicts) + " " + change.kind->id;
          if (!change.details.witness.empty()) line += ": " + change.details.witness;
          lines.push_back(line);
        }
      },
      assumptions);
  return lines;
}

}  // namespace

TEST(AuthenticationChanges, VerdictsDependOnWhetherOneSchemeIsEnough) {
  struct Row {
    const char* before;
    const char* after;
    const char* any;
    const char* all;
  };

  for (const Row& row : std::vector<Row>{
           {R"()", R"("a")",
            "---Bc authentication-list-added: callers without a scheme could call; now they need "
            "acme.a (SESSIONLESS)",
            "---Bc authentication-list-added: callers without a scheme could call; now they need "
            "acme.a (SESSIONLESS)"},
           {R"("a", "b")", R"()",
            "---Dc authentication-list-removed: callers without a scheme needed acme.a "
            "(SESSIONLESS) or acme.b (SESSIONLESS); now they can call",
            "---Dc authentication-list-removed: callers without a scheme needed acme.a "
            "(SESSIONLESS) and acme.b (SESSIONLESS); now they can call"},
           {R"("a", "b")", R"("b")",
            "---Bc authentication-scheme-removed: callers with acme.a (SESSIONLESS) could call; "
            "now they need acme.b (SESSIONLESS)",
            "---Dc authentication-scheme-removed: callers with acme.b (SESSIONLESS) needed acme.a "
            "(SESSIONLESS) and acme.b (SESSIONLESS); now they can call"},
           {R"("a")", R"("a", "c")",
            "---Dc authentication-scheme-added: callers with acme.c (SESSION_AWARE, session "
            "manager acme.s) needed acme.a (SESSIONLESS); now they can call",
            "---Bc authentication-scheme-added: callers with acme.a (SESSIONLESS) could call; now "
            "they need acme.a (SESSIONLESS) and acme.c (SESSION_AWARE, session manager acme.s)"},
           {R"("a", "b")", R"("c")",
            "---Bc authentication-schemes-replaced: callers with acme.a (SESSIONLESS) could call; "
            "now they need acme.c (SESSION_AWARE, session manager acme.s)",
            "---Bc authentication-schemes-replaced: callers with acme.a (SESSIONLESS) and acme.b "
            "(SESSIONLESS) could call; now they need acme.c (SESSION_AWARE, session manager "
            "acme.s)"},
           {R"("a", "b")", R"("b", "a")", "---Dc authentication-scheme-order-changed",
            "---cc authentication-scheme-order-changed"},
           {R"("a", "b", "a")", R"("a", "b")", "---cc authentication-scheme-order-changed",
            "---cc authentication-scheme-order-changed"}}) {
    EXPECT_THAT(Witnessed({Listing(row.before)}, {Listing(row.after)}), ElementsAre(row.any));
    EXPECT_THAT(Witnessed({Listing(row.before)}, {Listing(row.after)}, All()),
                ElementsAre(row.all));
  }
}

TEST(AuthenticationChanges, WhatClientsDoNotSeeIsNoChange) {
  const std::string before = Listing(R"("a", "c")");
  const std::string renamed = Component(
      R"("x": {"authenticationScheme": "acme.a", "type": "sessionless", "sessionManager": "s"},
         "y": {"authenticationScheme": "acme.c", "type": "SESSIONAWARE", "sessionManager": "acme.s"})",
      R"(, "packages": {"acme.p": ["x", "y"]})", "acme", "product");
  EXPECT_THAT(Witnessed({before}, {renamed}), ElementsAre("----- formatting-only"));
}

TEST(AuthenticationChanges, ChangedSchemeIsOneChangeForAllItsLists) {
  const char* const lists = R"(, "packages": {"acme.p": ["a"], "acme.q": ["a"]},
    "services": {"acme.p.s": ["a"], "acme.p.t": ["a"]},
    "operations": {"acme.p.s.o": ["a", "b"], "acme.p.s.x": ["a"], "acme.p.s.y": ["a"]})";
  const auto with = [&](const char* scheme) {
    return Component(std::string(R"("a": {)") + scheme + "}, " + SchemeText("b"), lists);
  };
  const std::string one = with(R"("authenticationScheme": "acme.a", "type": "SESSIONLESS")");
  const std::string other = with(R"("authenticationScheme": "acme.x", "type": "SESSIONLESS")");
  const std::string aware = with(
      R"("authenticationScheme": "acme.a", "type": "SESSION_AWARE", "sessionManager": "acme.s")");
  const std::string moved = with(
      R"("authenticationScheme": "acme.a", "type": "SESSION_AWARE", "sessionManager": "acme.t")");
  EXPECT_THAT(
      Changed({one}, {other}),
      ElementsAre("---Bc authentication-scheme-id-changed scheme:a: acme.a (SESSIONLESS) is now "
                  "acme.x (SESSIONLESS) in the lists of the package 'acme.p', the package "
                  "'acme.q', the service 'acme.p.s', the service 'acme.p.t', the operation "
                  "'acme.p.s.o' and 2 more"));
  EXPECT_THAT(Witnessed({one}, {aware}),
              ElementsAre("---Bc authentication-scheme-type-changed: the list of the package "
                          "'acme.p': callers with acme.a (SESSIONLESS) could call; now they need "
                          "acme.a (SESSION_AWARE, session manager acme.s); and 6 more lists"));
  EXPECT_THAT(Witnessed({aware}, {moved}),
              ElementsAre("---Bc authentication-session-manager-changed: the list of the package "
                          "'acme.p': callers with acme.a (SESSION_AWARE, session manager acme.s) "
                          "could call; now they need acme.a (SESSION_AWARE, session manager "
                          "acme.t); and 6 more lists"));
}

TEST(AuthenticationChanges, ReplacedSchemeIsOneChangeForEachPairOfComponents) {
  const auto file = [](const std::string& name, const char* scheme, const char* packages) {
    return Component(
        std::string(R"("a": {"type": "SESSIONLESS", "authenticationScheme": ")") + scheme + "\"}",
        std::string(R"(, "packages": {)") + packages + "}", name);
  };
  const std::vector<std::string> together{
      file("acme", "acme.a", R"("acme.p": ["a"], "acme.q": ["a"])"), file("more", "acme.a", "")};
  const std::vector<std::string> apart{file("acme", "acme.x", R"("acme.p": ["a"])"),
                                       file("more", "acme.x", R"("acme.q": ["a"])")};
  EXPECT_EQ(TallyOf(together, apart, false), TallyOf(apart, together, true));
}

TEST(AuthenticationChanges, SchemeThatIsStillListedElsewhereWasNotChanged) {
  const auto with = [](const char* list) {
    return Component(R"("a": {"authenticationScheme": "acme.a", "type": "SESSION_AWARE",
                              "sessionManager": "acme.s"},
                        "x": {"authenticationScheme": "acme.a", "type": "SESSION_AWARE",
                              "sessionManager": "acme.t"})",
                     std::string(R"(, "packages": {"acme.p": ["a"], "acme.q": )") + list + "}");
  };
  EXPECT_THAT(Changed({with(R"(["a"])")}, {with(R"(["x"])")}),
              ElementsAre("---Bc authentication-schemes-replaced package:acme.q: all schemes of "
                          "the list of the package 'acme.q' were replaced"));
}

TEST(AuthenticationChanges, RenamedAndRedefinedSchemeIsFoundByItsId) {
  const std::string before = Component(SchemeText("a"), R"(, "packages": {"acme.p": ["a"]})");
  const std::string after = Component(
      R"("x": {"authenticationScheme": "acme.a", "type": "SESSION_AWARE", "sessionManager": "m"})",
      R"(, "packages": {"acme.p": ["x"]})");
  EXPECT_THAT(Changed({before}, {after}),
              ElementsAre(testing::StartsWith("---Bc authentication-scheme-type-changed")));
}

TEST(AuthenticationChanges, KeptSchemesInAnotherOrderAreReportedBesideOthers) {
  EXPECT_THAT(Witnessed({Listing(R"("a", "b")")}, {Listing(R"("b", "c", "a")")}, All()),
              ElementsAre(testing::StartsWith("---Bc authentication-scheme-added"),
                          "---cc authentication-scheme-order-changed"));
}

TEST(AuthenticationChanges, OrderIsComparedIfASchemeIsRedefined) {
  const auto listing = [](const std::string& manager, const std::string& schemes) {
    return Component(SchemeText("a") +
                         R"(, "b": {"authenticationScheme": "acme.b", "type": "SESSION_AWARE",
                            "sessionManager": ")" +
                         manager + "\"}",
                     R"(, "packages": {"acme.p": [)" + schemes + "]}");
  };
  const auto changed = testing::StartsWith("---Bc authentication-session-manager-changed");
  const std::string before = listing("m", R"("a", "b")");
  EXPECT_THAT(
      Changed({before}, {listing("n", R"("b", "a")")}),
      ElementsAre(changed, testing::StartsWith("---Dc authentication-scheme-order-changed")));
  EXPECT_THAT(Changed({before}, {listing("n", R"("a", "b")")}), ElementsAre(changed));
}

TEST(AuthenticationChanges, WholeListsAreRolledUp) {
  const std::string none = Component(kSchemes, R"(, "packages": {"acme.q": ["a"]})");
  const std::string all = Component(kSchemes, R"(, "packages": {"acme.q": ["a"], "acme.p": []},
      "services": {"acme.p.s": ["a"]},
      "operations": {"acme.p.s.o": ["a"], "acme.p.s.x": ["a"], "acme.p.t.o": ["b"]})");
  EXPECT_THAT(Changed({none}, {all}),
              ElementsAre("---Bc authentication-list-added package:acme.p: the package 'acme.p' "
                          "with 2 services and 3 operations has schemes now"));
  EXPECT_THAT(Changed({all}, {none}),
              ElementsAre("---DB authentication-list-removed package:acme.p: the package 'acme.p' "
                          "with 2 services and 3 operations has no schemes any more"));
  EXPECT_THAT(Witnessed({all}, {none}),
              ElementsAre("---DB authentication-list-removed: the list of the service 'acme.p.s': "
                          "callers without a scheme needed acme.a (SESSIONLESS); now they can "
                          "call; and 3 more lists"));
}

TEST(AuthenticationChanges, ListsThatAreMadeAreReportedForSeveral) {
  const std::string none = Component(kSchemes, "");
  const std::string one = Component(kSchemes, R"(, "operations": {"acme.p.s.o": ["a"]})");
  EXPECT_THAT(Changed({none}, {one}),
              ElementsAre("---Bc authentication-list-added operation:acme.p.s.o: the operation "
                          "'acme.p.s.o' has schemes now"));
  const std::string two =
      Component(kSchemes, R"(, "operations": {"acme.p.s.o": ["a"], "acme.p.s.x": ["a"]})");
  EXPECT_THAT(Changed({none}, {two}),
              ElementsAre("---Bc authentication-list-added service:acme.p.s: the service "
                          "'acme.p.s' with 2 operations has schemes now"));
}

TEST(AuthenticationChanges, ListsOfOneServiceMayBeInSeveralComponents) {
  const std::string first = Component(kSchemes, R"(, "services": {"acme.p.s": []})", "acme.a");
  const std::string second =
      Component(kSchemes, R"(, "operations": {"acme.p.s.o": ["a"]})", "acme.b");
  EXPECT_THAT(Changed({first, second},
                      {Component(kSchemes, "", "acme.a"), Component(kSchemes, "", "acme.b")}),
              ElementsAre("---DB authentication-list-removed operation:acme.p.s.o: the operation "
                          "'acme.p.s.o' has no schemes any more",
                          "----B authentication-entry-removed service:acme.p.s: the service "
                          "'acme.p.s' has no list any more"));
}

TEST(AuthenticationChanges, ComponentsWithoutSchemesConcernNoCaller) {
  const std::string file = Listing(R"("a")");
  const std::string other = Component(kSchemes, R"(, "packages": {"acme.o": []})", "acme.other");
  EXPECT_THAT(Changed({file}, {file, other}),
              ElementsAre("----c authentication-component-added component:acme.other: the "
                          "component 'acme.other' with 1 package was added"));
  EXPECT_THAT(Changed({file, other}, {file}),
              ElementsAre("----B authentication-component-removed component:acme.other: the "
                          "component 'acme.other' with 1 package was removed"));
  EXPECT_THAT(
      Witnessed({file, Component(kSchemes, R"(, "packages": {"acme.o": ["a"]})", "other")}, {file}),
      ElementsAre("---DB authentication-component-removed: callers without a scheme needed "
                  "acme.a (SESSIONLESS); now they can call"));
}

TEST(AuthenticationChanges, OpenedAccessComesFirst) {
  const auto with = [](const char* first, const char* second) {
    return Component(kSchemes, std::string(R"(, "packages": {"acme.p": )") + first +
                                   R"(, "acme.q": )" + second + "}");
  };
  EXPECT_THAT(Witnessed({with(R"(["a", "b"])", R"(["a"])")}, {with(R"(["a"])", "[]")}),
              ElementsAre(testing::StartsWith("---Dc authentication-list-removed"),
                          testing::StartsWith("---Bc authentication-scheme-removed")));
}

TEST(AuthenticationChanges, ComponentThatOpensAccessComesFirst) {
  const std::string spare = Component(kSchemes, R"(, "packages": {"acme.s": ["a"]})", "acme.spare");
  EXPECT_THAT(Witnessed({Listing("\"a\", \"b\""), spare}, {Listing("\"a\"")}),
              ElementsAre(testing::StartsWith("---DB authentication-component-removed"),
                          testing::StartsWith("---Bc authentication-scheme-removed")));
}

TEST(AuthenticationChanges, LongListsAreShownInPart) {
  std::string schemes;
  std::string list;
  for (int i = 0; i < 120; ++i) {
    const std::string name = "s" + std::to_string(1000 + i);
    schemes += (i == 0 ? "" : ", ") + SchemeText(name);
    list += (i == 0 ? "\"" : ", \"") + name + "\"";
    if (i != 6 && i != 119) continue;
    const auto with = [&](const std::string& names) {
      return Component(schemes, R"(, "packages": {"acme.p": [)" + names + "]}");
    };
    // Witnesses of very long lists are left out.
    const char* const witness =
        ": callers without a scheme could call; now they need acme.s1000 (SESSIONLESS), "
        "acme.s1001 (SESSIONLESS), acme.s1002 (SESSIONLESS), acme.s1003 (SESSIONLESS), acme.s1004 "
        "(SESSIONLESS) or 2 more";
    EXPECT_THAT(
        Witnessed({with("")}, {with(list)}),
        ElementsAre(std::string("---Bc authentication-list-added") + (i == 6 ? witness : "")));
  }
}

namespace {

using Held = std::set<std::string>;
using List = std::vector<std::string>;

/// All lists of up to two of the schemes "a", "b" and "c".
std::vector<List> ShortLists() {
  const List names{"a", "b", "c"};
  std::vector<List> lists{{}};
  for (const std::string& first : names) {
    lists.push_back({first});
    for (const std::string& second : names) lists.push_back({first, second});
  }
  return lists;
}

std::vector<Held> Callers() {
  return {{}, {"a"}, {"b"}, {"c"}, {"a", "b"}, {"a", "c"}, {"b", "c"}, {"a", "b", "c"}};
}

bool IsAccepted(const List& list, const Held& held, bool are_all_needed) {
  const auto is_held = [&](const std::string& name) { return held.count(name) != 0; };
  if (list.empty()) return true;
  return are_all_needed ? std::all_of(list.begin(), list.end(), is_held)
                        : std::any_of(list.begin(), list.end(), is_held);
}

std::string ListingOf(const List& list) {
  std::string names;
  for (const std::string& name : list) names += (names.empty() ? "\"" : ", \"") + name + "\"";
  return Listing(names);
}

/// Whether a caller that the first list accepts is refused by the second one.
bool IsAnyoneTurnedAway(const List& before, const List& after, bool are_all_needed) {
  const std::vector<Held> callers = Callers();
  return std::any_of(callers.begin(), callers.end(), [&](const Held& held) {
    return IsAccepted(before, held, are_all_needed) && !IsAccepted(after, held, are_all_needed);
  });
}

using Zelk::Analysis::Diff::Audience;
using Zelk::Analysis::Diff::Class;
using Zelk::Analysis::Diff::ClassOf;

/// The worst change for callers. Those that turn somebody away, or let somebody in, must say whom.
Class WorstForCallers(const Result& result) {
  Class worst = Class::kNotConcerned;
  for (const Change& change : result.changes) {
    const Class verdict = ClassOf(change, SetOf(Audience::kAuth));
    worst = std::max(worst, verdict);
    const bool is_order = std::string(change.kind->id) == "authentication-scheme-order-changed";
    EXPECT_EQ(change.details.witness.empty(), is_order) << change.details.message;
  }
  return worst;
}

}  // namespace

TEST(AuthenticationChanges, BreakExactlyIfACallerIsTurnedAway) {
  for (const bool are_all_needed : {false, true}) {
    const Assumptions assumptions = are_all_needed ? All() : Assumptions{};
    for (const List& before : ShortLists()) {
      for (const List& after : ShortLists()) {
        LookAtChanges(
            {ListingOf(before)}, {ListingOf(after)},
            [&](const Result& result) {
              const Class worst = WorstForCallers(result);
              EXPECT_EQ(worst == Class::kBreaking,
                        IsAnyoneTurnedAway(before, after, are_all_needed))
                  << ListingOf(before) << ListingOf(after);
              if (worst < Class::kDangerous) {
                EXPECT_FALSE(IsAnyoneTurnedAway(after, before, are_all_needed))
                    << ListingOf(before) << ListingOf(after);
              }
              EXPECT_EQ(result.changes.empty(), before == after);
            },
            assumptions);
      }
    }
  }
}
