#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/diffed.h"
#include "analysis/small_cli.h"
#include "analysis/small_model.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to compare

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;
using testing::UnorderedElementsAre;
using Zelk::Analysis::Diff::Result;

/// Each change as "LETTER ID", for command lines, then its witness if there is one.
std::vector<std::string> WitnessedIn(const std::vector<std::string>& old_texts,
                                     const std::vector<std::string>& new_texts) {
  std::vector<std::string> lines;
  LookAtChanges(old_texts, new_texts, [&](const Result& result) {
    for (const Change& change : result.changes) {
      std::string line = Letters(change.verdicts).substr(2, 1) + " " + change.kind->id;
      if (!change.details.witness.empty()) line += ": " + change.details.witness;
      lines.push_back(line);
    }
  });
  return lines;
}

std::vector<std::string> Witnessed(const std::vector<OptionText>& before,
                                   const std::vector<OptionText>& after) {
  return WitnessedIn({OneCommand(CommandText{"acme", "start", before})},
                     {OneCommand(CommandText{"acme", "start", after})});
}

}  // namespace

TEST(CliChanges, RemovedCommandIsShownAsItWasTyped) {
  const CommandText command{"acme.power", "start", {{"volts", "volts"}, {"a", "a", "ID", "list"}}};
  EXPECT_THAT(WitnessedIn({OneCommand(command)}, {CliFile({})}),
              ElementsAre("B command-removed: acme power start --volts 1 --a id (now refused: "
                          "there is no such command)"));
  EXPECT_THAT(Changed({CliFile({})}, {OneCommand(command)}),
              ElementsAre("--c-c command-added command:acme.power.start: the command "
                          "'acme.power.start' was added"));
}

TEST(CliChanges, ShortFormsAreShownWithTheDashesThatAreTyped) {
  const auto shown = [](const std::string& before, const std::string& after) {
    const auto option = [](const std::string& letter) {
      return OneCommand(CommandText{"", "go", {{"v", "v", "LONG", "none", letter}}});
    };
    std::vector<std::string> messages;
    for (const std::string& line : Changed({option(before)}, {option(after)})) {
      messages.push_back(line.substr(line.find("'go.v' ") + 7));
    }
    return messages;
  };
  EXPECT_THAT(shown("", "v"), ElementsAre("has the new short form '-v'"));
  EXPECT_THAT(shown("verb", "-v"), UnorderedElementsAre("no longer has the short form '--verb'",
                                                        "has the new short form '-v'"));
  EXPECT_THAT(shown("--verb", ""), ElementsAre("no longer has the short form '--verb'"));
  EXPECT_THAT(shown("\u00fc", ""), ElementsAre("no longer has the short form '-\u00fc'"));
}

TEST(CliChanges, CommandThatCallsAnotherOperationShowsWhich) {
  EXPECT_THAT(WitnessedIn({OneCommand(CommandText{"", "start", {}, "start"})},
                          {OneCommand(CommandText{"", "start", {}, "stop"})}),
              ElementsAre("B command-operation-changed: start (now calls stop of c.p.s)"));
}

TEST(CliChanges, CommandOfOtherPathAndEqualWordsIsNoWitness) {
  EXPECT_THAT(
      WitnessedIn({OneCommand(CommandText{"a", "b.c"})}, {OneCommand(CommandText{"a.b", "c"})}),
      ElementsAre("B command-removed", "c command-added"));
}

TEST(CliChanges, OptionsThatComeAndGo) {
  const OptionText volts{"volts", "volts"};
  EXPECT_THAT(Witnessed({volts, {"amps", "amps", "STRING", "optional"}}, {volts}),
              ElementsAre("B option-removed: acme start --amps text --volts 1 (now refused: "
                          "'--amps' is not an option)"));
  EXPECT_THAT(Witnessed({volts}, {volts, {"amps", "amps"}}),
              ElementsAre("B option-added-required: acme start --volts 1 (now refused: '--amps' is "
                          "required)"));
  EXPECT_THAT(Witnessed({}, {{"amps", "amps", "LONG", "list"}}),
              ElementsAre("B option-added-required: acme start (now refused: '--amps' is "
                          "required)"));
  EXPECT_THAT(Witnessed({}, {{"amps", "amps", "LONG", "optional_list"}}),
              ElementsAre("c option-added-optional"));
  EXPECT_THAT(Witnessed({}, {{"amps", "amps", "LONG", "some"}}),
              ElementsAre("D option-added-required"));
}

TEST(CliChanges, RemovedOptionMayBeRenamed) {
  EXPECT_THAT(Changed({OneCommand(CommandText{"", "start", {{"volts", "v"}, {"x", "x"}}})},
                      {OneCommand(CommandText{"", "start", {{"voltage", "v"}, {"amps", "a"}}})}),
              UnorderedElementsAre(
                  "--B-c option-removed option:volts: the option 'start.volts' was removed "
                  "(possibly renamed to 'voltage')",
                  "--B-c option-removed option:x: the option 'start.x' was removed",
                  "--B-c option-added-required option:voltage: the option 'start.voltage' was "
                  "added and is required",
                  "--B-c option-added-required option:amps: the option 'start.amps' was added and "
                  "is required"));
}

TEST(CliChanges, GenericsDecideWhichCommandLinesAreLeft) {
  struct Row {
    const char* before;
    const char* after;
    const char* change;
  };

  for (const Row& row : std::vector<Row>{
           {"none", "optional", "c option-generic-changed"},
           {"none", "list", "c option-generic-changed"},
           {"none", "optional_list", "c option-generic-changed"},
           {"optional", "optional_list", "c option-generic-changed"},
           {"list", "optional_list", "c option-generic-changed"},
           {"optional", "none",
            "B option-generic-changed: acme start (now refused: '--a' is required)"},
           {"optional", "list",
            "B option-generic-changed: acme start (now refused: '--a' is required)"},
           {"optional_list", "list_optional",
            "B option-generic-changed: acme start (now refused: '--a' is required)"},
           {"list", "none",
            "B option-generic-changed: acme start --a 1 --a 1 (now refused: '--a' takes one "
            "value)"},
           {"optional_list", "optional",
            "B option-generic-changed: acme start --a 1 --a 1 (now refused: '--a' takes one "
            "value)"},
           {"list", "list_optional", "D option-generic-changed"},
           {"list_optional", "list", "D option-generic-changed"},
           {"none", "some", "D option-generic-changed"},
           {"some", "none", "D option-generic-changed"},
           {"some", "any", "D option-generic-changed"}}) {
    EXPECT_THAT(Witnessed({{"a", "a", "LONG", row.before}}, {{"a", "a", "LONG", row.after}}),
                ElementsAre(row.change))
        << row.before << " " << row.after;
  }
  EXPECT_THAT(Witnessed({{"a", "a", "LONG", ""}}, {{"a", "a", "LONG", "None"}}),
              ElementsAre("- formatting-only"));
  EXPECT_THAT(Witnessed({{"a", "a", "LONG", "some"}}, {{"a", "a", "LONG", "SOME"}}),
              ElementsAre("- formatting-only"));
}

TEST(CliChanges, TypesDecideWhatValuesMean) {
  struct Row {
    const char* before;
    const char* after;
    const char* change;
  };

  for (const Row& row : std::vector<Row>{
           {"STRING", "LONG",
            "B option-type-changed: acme start --a text (now refused: 'text' is not of type LONG)"},
           {"LONG", "DOUBLE",
            "B option-type-changed: acme start --a 1 (now '--a' is of type "
            "DOUBLE)"},
           {"c.p.mode", "STRING",
            "B option-type-changed: acme start --a '<c.p.mode>' (now '--a' is of type STRING)"},
           {"ID", "STRING", "c option-type-changed"},
           {"STRING", "id", "c option-type-changed"},
           {"long", "LONG", "c option-type-changed"},
           {"c.p.Mode", "c.p.mode", "c option-type-changed"}}) {
    EXPECT_THAT(Witnessed({{"a", "a", row.before}}, {{"a", "a", row.after}}),
                ElementsAre(row.change));
  }
}

TEST(CliChanges, OptionThatFillsAnotherFieldBindsOtherwise) {
  EXPECT_THAT(Witnessed({{"a", "from"}}, {{"a", "to"}}),
              ElementsAre("B option-field-changed: acme start --a 1 (now '--a' fills to)"));
}

TEST(CliChanges, ShortFormsBelongToTheirOptions) {
  const auto option = [](const char* name, const char* field, const char* letter) {
    return OptionText{name, field, "LONG", "optional", letter};
  };
  EXPECT_THAT(Witnessed({option("a", "a", "x")}, {option("a", "a", "")}),
              ElementsAre("B option-short-removed: acme start -x 1 (now refused: '-x' is not an "
                          "option)"));
  EXPECT_THAT(Witnessed({option("a", "a", "x")}, {option("a", "a", "y")}),
              ElementsAre("B option-short-removed: acme start -x 1 (now refused: '-x' is not an "
                          "option)",
                          "c option-short-added"));
  EXPECT_THAT(Witnessed({option("a", "a", "x"), option("b", "b", "")},
                        {option("a", "a", ""), option("b", "b", "x")}),
              ElementsAre("B option-short-reassigned: acme start -x 1 (now '-x' fills b)"));
  EXPECT_THAT(Witnessed({option("a", "a", "x")}, {option("b", "b", "x")}),
              UnorderedElementsAre(
                  "B option-removed: acme start --a 1 (now refused: '--a' is not an option)",
                  "B option-short-reassigned: acme start -x 1 (now '-x' fills b)",
                  "c option-added-optional"));
}

TEST(CliChanges, ShortFormMayGoToAnotherOptionOfTheSameField) {
  struct Row {
    const char* before;
    const char* after;
    const char* change;
  };

  // Command lines may have both options.
  for (const Row& row :
       std::vector<Row>{{"optional_list", "optional_list", "c option-short-reassigned"},
                        {"optional", "list", "c option-short-reassigned"},
                        {"optional", "optional", "B option-short-reassigned"},
                        {"optional_list", "list_optional", "B option-short-reassigned"},
                        {"some", "some", "B option-short-reassigned"},
                        {"none", "optional_list",
                         "B option-short-reassigned: acme start -x 1 (now refused: '--a' is "
                         "required)"}}) {
    EXPECT_THAT(Witnessed({{"a", "a", "LONG", row.before, "x"}, {"b", "a", "LONG", row.after}},
                          {{"a", "a", "LONG", row.before}, {"b", "a", "LONG", row.after, "x"}}),
                ElementsAre(row.change))
        << row.before << " " << row.after;
  }
}

TEST(CliChanges, ShortFormMayStayWithARenamedOption) {
  EXPECT_THAT(Witnessed({{"a", "a", "ID", "optional", "x"}}, {{"b", "a", "STRING", "none", "x"}}),
              UnorderedElementsAre(
                  "B option-removed: acme start --a id (now refused: '--a' is not an option)",
                  "B option-added-required: acme start (now refused: '--b' is required)",
                  "c option-short-reassigned"));
}

TEST(CliChanges, OfASharedShortFormOnlyTheFirstOwnerCounts) {
  const OptionText first{"a", "a", "LONG", "optional", "x"};
  const OptionText second{"b", "b", "LONG", "optional", "x"};
  const OptionText without{"b", "b", "LONG", "optional"};
  EXPECT_THAT(Witnessed({first, second}, {first, without}), ElementsAre("c option-short-removed"));
  EXPECT_THAT(Witnessed({first, without}, {first, second}), ElementsAre("c option-short-added"));
  EXPECT_THAT(Witnessed({first, second}, {second, first}),
              ElementsAre("B option-short-reassigned: acme start -x 1 (now '-x' fills b)",
                          "t option-order-changed"));
}

TEST(CliChanges, WitnessNeedsACommandLineThatWorked) {
  // The first option is required and cannot be typed.
  EXPECT_THAT(Witnessed({{"x y", "x"}, {"a", "a"}}, {{"x y", "x"}}),
              ElementsAre("B option-removed"));
  EXPECT_THAT(Witnessed({{"b", "b", "LONG", "some"}, {"a", "a"}}, {{"b", "b", "LONG", "some"}}),
              ElementsAre("B option-removed"));
}

TEST(CliChanges, OfOptionsOfOneNameOnlyTheFirstOneCounts) {
  EXPECT_THAT(Witnessed({{"a", "a"}, {"a", "a"}}, {{"a", "a"}}), ElementsAre("c option-removed"));
  EXPECT_THAT(Witnessed({{"a", "a"}}, {{"a", "a"}, {"a", "a"}}),
              ElementsAre("c option-added-required"));
  EXPECT_THAT(Witnessed({{"a", "x"}, {"a", "y"}}, {{"a", "y"}, {"a", "x"}}),
              UnorderedElementsAre("B option-field-changed: acme start --a 1 (now '--a' fills y)",
                                   "c option-field-changed"));
}

TEST(CliChanges, OptionOfAnEnumerationShowsAValueThatIsRefused) {
  const auto files = [](const std::string& type, const std::string& values) {
    return std::vector<std::string>{MetamodelFile({"", Enumeration(type, values), ""}),
                                    OneCommand(CommandText{"acme", "start", {{"a", "a", type}}})};
  };
  const std::string a = EnumerationValue("A");
  const std::string both = a + "," + EnumerationValue("B");
  const std::string text = OneCommand(CommandText{"acme", "start", {{"a", "a", "STRING"}}});
  EXPECT_THAT(WitnessedIn(files("c.p.e", both), files("c.p.f", a)),
              Contains("B option-type-changed: acme start --a B (now refused: 'B' is not of type "
                       "c.p.f)"));
  EXPECT_THAT(WitnessedIn(files("c.p.e", a), files("c.p.f", both)),
              Contains("D option-type-changed"));
  EXPECT_THAT(WitnessedIn(files("c.p.e", a), {text}),
              Contains("B option-type-changed: acme start --a A (now '--a' is of type STRING)"));
  EXPECT_THAT(WitnessedIn(files("c.p.e", ""), files("c.p.f", a)),
              Contains(StartsWith("B option-type-changed: acme start --a '<c.p.e>'")));
  EXPECT_THAT(WitnessedIn(files("c.p.e", a), {CliFile({})}),
              Contains(StartsWith("B command-removed: acme start --a A")));
}

TEST(CliChanges, RemovedCommandMayBeRenamed) {
  const auto file = [](const std::vector<std::string>& names) {
    std::vector<std::string> texts;
    for (const std::string& name : names) {
      texts.push_back(Text(CommandText{"acme", name, {}, name.substr(0, 4)}));
    }
    return CliFile(texts);
  };
  EXPECT_THAT(
      Changed({file({"stop", "halt"})}, {file({"stop-all", "list"})}),
      UnorderedElementsAre("--B-B command-removed command:acme.stop: the command 'acme.stop' was "
                           "removed (possibly renamed to 'acme.stop-all')",
                           "--B-B command-removed command:acme.halt: the command 'acme.halt' was "
                           "removed",
                           "--c-c command-added command:acme.stop-all: the command "
                           "'acme.stop-all' was added (possibly renamed from 'acme.stop')",
                           "--c-c command-added command:acme.list: the command 'acme.list' was "
                           "added"));
}

TEST(CliChanges, OutputsOfOneStructureAreMatchedByTheirFields) {
  const auto output = [](const std::string& structure, const std::string& field) {
    return R"({"structure_id": ")" + structure + R"(", "output_fields": [{"field_name": ")" +
           field + R"(", "display_name": ""}]})";
  };
  const auto file = [](const std::vector<std::string>& outputs) {
    return OneCommand(
        CommandText{"",
                    "start",
                    {},
                    "start",
                    R"(, "formatter": "CSV", "output_field_list": [)" + Listed(outputs) + "]"});
  };
  const std::string a = output("c.p.t", "a");
  const std::string b = output("c.p.t", "b");
  const std::string other = output("c.p.u", "a");
  EXPECT_THAT(WitnessedIn({file({a, b})}, {file({b, a})}),
              ElementsAre("D output-structure-order-changed"));
  EXPECT_THAT(WitnessedIn({file({a, b, other})}, {file({other, a, b})}),
              ElementsAre("t output-structure-order-changed"));
  EXPECT_THAT(WitnessedIn({file({a, b})}, {file({b})}), ElementsAre("B output-structure-removed"));
  EXPECT_THAT(WitnessedIn({file({a, b})}, {file({output("c.p.t", "c"), b, other})}),
              UnorderedElementsAre("B output-field-removed", "D output-field-added",
                                   "D output-structure-added"));
}

TEST(CliChanges, FormattersDecideWhatReadersOfOutputNotice) {
  struct Row {
    const char* formatter;
    const char* added;
    const char* order;
    const char* heading;
  };

  const auto file = [](const std::string& formatter, const char* fields) {
    std::string members =
        R"(, "output_field_list": [{"structure_id": "c.p.T", "output_fields": [)" +
        std::string(fields) + "]}]";
    if (!formatter.empty()) members += R"(, "formatter": ")" + formatter + "\"";
    return OneCommand(CommandText{"", "start", {}, "start", members});
  };
  const char* const one = R"({"field_name": "a", "display_name": "A"})";
  const char* const titled = R"({"field_name": "a", "display_name": "Title"})";
  const char* const both =
      R"({"field_name": "a", "display_name": "A"}, {"field_name": "b", "display_name": "B"})";
  const char* const turned =
      R"({"field_name": "b", "display_name": "B"}, {"field_name": "a", "display_name": "A"})";
  for (const Row& row : std::vector<Row>{{"simple", "D", "B", "D"},
                                         {"table", "D", "B", "B"},
                                         {"CSV", "D", "B", "B"},
                                         {"json", "c", "c", "D"},
                                         {"XML", "c", "c", "D"},
                                         {"html", "c", "c", "t"},
                                         {"", "D", "D", "D"},
                                         {"other", "D", "D", "D"}}) {
    const std::string formatter = row.formatter;
    EXPECT_THAT(WitnessedIn({file(formatter, one)}, {file(formatter, both)}),
                ElementsAre(std::string(row.added) + " output-field-added"));
    EXPECT_THAT(WitnessedIn({file(formatter, both)}, {file(formatter, one)}),
                ElementsAre("B output-field-removed"));
    EXPECT_THAT(WitnessedIn({file(formatter, both)}, {file(formatter, turned)}),
                ElementsAre(std::string(row.order) + " output-field-order-changed"));
    EXPECT_THAT(WitnessedIn({file(formatter, one)}, {file(formatter, titled)}),
                ElementsAre(std::string(row.heading) + " output-heading-changed"));
  }
  EXPECT_THAT(WitnessedIn({file("json", one)}, {file("JSON", one)}),
              ElementsAre("- formatting-only"));
  EXPECT_THAT(WitnessedIn({file("json", one)}, {file("", one)}),
              ElementsAre("B formatter-removed"));
  EXPECT_THAT(WitnessedIn({file("json", one)}, {file("xml", one)}),
              ElementsAre("B formatter-changed"));
}

TEST(CliChanges, WitnessesAreAboutWhatChanged) {
  const OptionText a{"a", "a"};
  const OptionText b{"b", "b"};
  EXPECT_THAT(
      Witnessed({}, {a, b}),
      UnorderedElementsAre("B option-added-required: acme start (now refused: '--a' is required)",
                           "B option-added-required: acme start (now refused: '--b' is required)"));
  EXPECT_THAT(Witnessed({a, b}, {{"a", "a", "DATE_TIME"}}),
              UnorderedElementsAre("B option-type-changed: acme start --a 1 --b 1 (now refused: "
                                   "'1' is not of type DATE_TIME)",
                                   "B option-removed: acme start --b 1 --a 1 (now refused: '--b' "
                                   "is not an option)"));
  EXPECT_THAT(
      Witnessed({a, b}, {{"a", "x"}, {"b", "y"}}),
      UnorderedElementsAre("B option-field-changed: acme start --a 1 --b 1 (now '--a' fills x)",
                           "B option-field-changed: acme start --b 1 --a 1 (now '--b' fills y)"));
}

TEST(CliChanges, FirstListedStructureHidesOtherFields) {
  const auto file = [](const std::string& outputs) {
    return OneCommand(
        CommandText{"",
                    "start",
                    {},
                    "start",
                    R"(, "formatter": "JSON", "output_field_list": [)" + outputs + "]"});
  };
  const std::string one = R"({"structure_id": "c.p.T", "output_fields": []})";
  const std::string other = R"({"structure_id": "c.p.U", "output_fields": []})";
  EXPECT_THAT(Changed({file("")}, {file(one)}),
              ElementsAre("--D-c output-structure-added output:c.p.T: the command 'start' lists "
                          "the fields of 'c.p.T'"));
  EXPECT_THAT(Changed({file(one)}, {file(one + "," + other)}),
              ElementsAre(StartsWith("--c-c output-structure-added output:c.p.U")));
  EXPECT_THAT(Changed({file(one)}, {file("")}),
              ElementsAre("--B-c output-structure-removed output:c.p.T: the command 'start' no "
                          "longer lists the fields of 'c.p.T'"));
}

TEST(CliChanges, NamespacesAreRolledUpAndCommandsAreNot) {
  const std::string all = CliFile({NamespaceText("", "a"), NamespaceText("a", "b"),
                                   NamespaceText("a.b", "c"), Text(CommandText{"a.b", "start"})});
  EXPECT_THAT(Changed({all}, {CliFile({NamespaceText("", "a")})}),
              ElementsAre("--B-B command-removed command:a.b.start: the command 'a.b.start' was "
                          "removed",
                          "--D-D namespace-removed namespace:a.b: the namespace 'a.b' with 1 "
                          "namespace was removed"));
  EXPECT_THAT(
      Changed({CliFile({})}, {CliFile({NamespaceText("", "a")})}),
      ElementsAre("--c-c namespace-added namespace:: the root namespace with 1 namespace was "
                  "added"));
}

TEST(CliChanges, NamespacesThatAreMadeHaveDescriptions) {
  EXPECT_THAT(Changed({CliFile({NamespaceText("a", "b")})},
                      {CliFile({NamespaceText("", ""), NamespaceText("", "a", "a namespace"),
                                NamespaceText("a", "b")})}),
              ElementsAre("--t-- namespace-description-changed namespace:: the description of the "
                          "root namespace was changed",
                          "--t-- namespace-list-changed namespace:: the root namespace lists its "
                          "namespaces in another order"));
}

TEST(CliChanges, ListsOfNamespacesFollowTheirOrderInTheFile) {
  const std::string root = NamespaceText("", "");
  EXPECT_THAT(Changed({CliFile({root, NamespaceText("", "a"), NamespaceText("", "b")})},
                      {CliFile({root, NamespaceText("", "b"), NamespaceText("", "a")})}),
              ElementsAre("--t-- namespace-list-changed namespace:: the root namespace lists its "
                          "namespaces in another order"));
  EXPECT_THAT(Changed({CliFile({NamespaceText("", "a"), NamespaceText("a", "b"), root})},
                      {CliFile({NamespaceText("a", "b"), NamespaceText("", "a", ""), root})}),
              ElementsAre("--D-c namespace-list-changed namespace:a: the namespace 'a' lists other "
                          "namespaces than before"));
}
