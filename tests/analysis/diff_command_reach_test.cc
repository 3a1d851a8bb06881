#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/diffed.h"
#include "analysis/small_cli.h"
#include "analysis/small_model.h"

// Commands that are the same in both versions and fail because of what they call.

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to compare

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using Zelk::Analysis::Diff::Result;

const std::string kText = Builtin("STRING");
const std::string kSpec = Named("Structure", "c.p.spec");

std::string Optional(const std::string& type) {
  return Of("OPTIONAL", type);
}

/// The operation "start" of these parameters, which returns nothing.
std::string Takes(const std::string& parameters) {
  return MetamodelFile({"", "", Operation("start", parameters)});
}

/// The operation "start" takes a structure of these fields.
std::string TakesSpec(const std::string& fields, const std::string& type = kSpec) {
  return MetamodelFile({Structure("c.p.spec", fields), "", Operation("start", Field("x", type))});
}

std::string Command(const std::vector<OptionText>& options, const std::string& members = "") {
  return OneCommand(CommandText{"acme", "go", options, "start", members});
}

std::string Shows(const std::string& structure, const std::string& field) {
  return R"(, "output_field_list": [{"structure_id": ")" + structure +
         R"(", "output_fields": [{"field_name": ")" + field + R"(", "display_name": ""}]}])";
}

/// The changes that concern command lines, as "LETTER ID", then the commands that they break.
std::vector<std::string> Broken(const std::vector<std::string>& old_texts,
                                const std::vector<std::string>& new_texts) {
  std::vector<std::string> lines;
  LookAtChanges(old_texts, new_texts, [&](const Result& result) {
    for (const Change& change : result.changes) {
      const std::string letter = Letters(change.verdicts).substr(2, 1);
      if (letter == "-") continue;
      std::string line = letter + " " + change.kind->id;
      const std::string& commands = change.details.breaks.text;
      if (!commands.empty()) line += ": " + commands;
      lines.push_back(line);
    }
  });
  return lines;
}

constexpr char kGo[] = "the command 'acme.go'";

}  // namespace

TEST(SameCommand, BreaksWithoutItsOperation) {
  const std::string command = Command({});
  const std::string none = MetamodelFile({"", "", ""});
  EXPECT_THAT(Changed({Takes(""), command}, {none, command}),
              ElementsAre("BBB-B operation-removed operation:start: the operation 'c.p.s.start' "
                          "was removed; this breaks the command 'acme.go'"));
  EXPECT_THAT(Broken({Takes(""), command}, {command}),
              ElementsAre(std::string("B component-removed: ") + kGo));
  EXPECT_THAT(Broken({Takes("")}, {none}), IsEmpty());
  // Changes of the command itself are shown there.
  EXPECT_THAT(Broken({Takes(""), command}, {none, CliFile({})}), ElementsAre("B command-removed"));
  EXPECT_THAT(
      Broken({Takes(""), command}, {none, OneCommand(CommandText{"acme", "go", {}, "stop"})}),
      ElementsAre("B command-operation-changed"));
}

TEST(SameCommand, IsNamedWithFewOthers) {
  const auto commands = [](std::size_t count) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < count; ++i) {
      texts.push_back(Text(CommandText{"", std::string(1, static_cast<char>('a' + i))}));
    }
    return CliFile(texts);
  };
  EXPECT_THAT(Broken({Takes(""), commands(2)}, {commands(2)}),
              ElementsAre("B component-removed: the commands 'a' and 'b'"));
  EXPECT_THAT(Broken({Takes(""), commands(4)}, {commands(4)}),
              ElementsAre("B component-removed: the commands 'a', 'b' and others"));
}

TEST(SameCommand, BreaksEvenIfWhatItCallsWasDeprecated) {
  std::string deprecated = Takes("");
  const std::string plain = R"("metadata": {}, "params")";
  deprecated.replace(deprecated.find(plain), plain.size(),
                     R"("metadata": {"Deprecated": {}}, "params")");
  EXPECT_THAT(Changed({deprecated, Command({})}, {MetamodelFile({"", "", ""}), Command({})}),
              ElementsAre("DDB-D operation-removed operation:start: the deprecated operation "
                          "'c.p.s.start' was removed; this breaks the command 'acme.go'"));
}

TEST(SameCommand, MakesAnotherFingerprint) {
  const auto command = [](const std::string& name) {
    return Text(CommandText{"", name, {}, "start"});
  };
  std::string deprecated = Takes("");
  const std::string plain = R"("metadata": {}, "params")";
  deprecated.replace(deprecated.find(plain), plain.size(),
                     R"("metadata": {"Deprecated": {}}, "params")");
  const std::string none = MetamodelFile({"", "", ""});
  Assumptions other;
  other.deprecated = {"Old"};
  std::set<std::uint64_t> fingerprints;
  for (const std::string& commands :
       {CliFile({}), CliFile({command("a")}), CliFile({command("a"), command("b")})}) {
    for (const Assumptions& assumptions : {Assumptions{}, other}) {
      LookAtChanges(
          {deprecated, commands}, {none, commands},
          [&](const Result& result) {
            for (const Change& change : result.changes) fingerprints.insert(change.fingerprint);
          },
          assumptions);
    }
  }
  EXPECT_EQ(fingerprints.size(), 6U);
}

TEST(SameCommand, CountsInFingerprintsEvenIfItIsNotShown) {
  const auto commands = [](const std::string& names, const std::string& filling) {
    std::vector<std::string> texts;
    for (const char name : names) {
      const bool is_filling = filling.find(name) != std::string::npos;
      const std::vector<OptionText> options{{"x", "x.f", "STRING"}, {"y", "x.g", "STRING"}};
      texts.push_back(Text(CommandText{
          "", std::string(1, name), {options.begin(), options.begin() + (is_filling ? 2 : 1)}}));
    }
    return CliFile(texts);
  };
  const std::string f = Field("f", kText);
  const std::string required = f + "," + Field("g", kText);
  for (const auto& [before, after] : std::vector<std::pair<std::string, std::string>>{
           {TakesSpec(f), MetamodelFile({Structure("c.p.spec", f), "", ""})},
           {TakesSpec(f), TakesSpec(required)},
           {Takes(Field("x", kSpec)), Takes(Field("x", kSpec) + "," + Field("y", kText))}}) {
    std::set<std::uint64_t> fingerprints;
    std::set<std::string> shown;
    for (const std::string names : {"abcd", "abce", "abcde"}) {
      const std::string file = commands(names, "e");
      LookAtChanges({before, file}, {after, file}, [&](const Result& result) {
        for (const Change& change : result.changes) {
          if (change.details.breaks.text.empty()) continue;
          fingerprints.insert(change.fingerprint);
          shown.insert(change.details.breaks.text);
        }
      });
    }
    EXPECT_THAT(shown, ElementsAre("the commands 'a', 'b' and others")) << after;
    EXPECT_EQ(fingerprints.size(), after.find("\"g\"") == std::string::npos ? 3U : 2U) << after;
  }
}

TEST(SameCommand, BreaksWithoutAParameterThatItFills) {
  const std::string with = Takes(Field("x", kText));
  const std::string command = Command({{"x", "x", "STRING"}});
  EXPECT_THAT(Broken({with, command}, {Takes(""), command}),
              ElementsAre(std::string("B parameter-removed: ") + kGo));
  EXPECT_THAT(Broken({with, command}, {Takes(""), Command({})}), ElementsAre("B option-removed"));
  EXPECT_THAT(Broken({with, command}, {Takes(""), Command({{"x", "y", "STRING"}})}),
              ElementsAre("B option-field-changed"));
}

TEST(SameCommand, BreaksIfItDoesNotFillARequiredParameter) {
  const std::string one = Takes(Field("x", kText));
  const std::string added = "B parameter-added-required: the command 'acme.go'";
  const std::string became = "B parameter-became-required: the command 'acme.go'";
  const std::string optional = Takes(Field("x", Optional(kText)));
  const OptionText always{"x", "x", "STRING"};
  const OptionText sometimes{"x", "x", "STRING", "optional"};
  EXPECT_THAT(Broken({Takes(""), Command({})}, {one, Command({})}), ElementsAre(added));
  EXPECT_THAT(Broken({Takes(""), Command({})}, {one, Command({sometimes})}),
              ElementsAre(added, "c option-added-optional"));
  EXPECT_THAT(Broken({Takes(""), Command({})}, {one, Command({always})}),
              ElementsAre("B option-added-required"));
  EXPECT_THAT(Broken({optional, Command({})}, {one, Command({})}), ElementsAre(became));
  EXPECT_THAT(Broken({optional, Command({sometimes})}, {one, Command({sometimes})}),
              ElementsAre(became));
  EXPECT_THAT(Broken({optional, Command({always})}, {one, Command({always})}), IsEmpty());
  // Nothing is known of clients without such files.
  EXPECT_THAT(Broken({optional}, {one}), ElementsAre("B parameter-became-required"));
  EXPECT_THAT(Broken({optional, Command({})}, {one}),
              ElementsAre("B parameter-became-required", "B command-removed"));
  EXPECT_THAT(Broken({optional, Command({})}, {Takes(Field("x", Builtin("LONG"))), Command({})}),
              ElementsAre("B parameter-type-changed: the command 'acme.go'"));
}

TEST(SameCommand, BreaksIfAnOptionNoLongerFits) {
  const std::string command = Command({{"x", "x", "STRING"}});
  const std::string before = Takes(Field("x", kText));
  const std::string broken = "B parameter-type-changed: the command 'acme.go'";
  for (const std::string& type : {Builtin("LONG"), Of("LIST", kText), MapOf(kText, kText),
                                  Of("LIST", Of("LIST", kText)), kSpec}) {
    EXPECT_THAT(Broken({before, command}, {Takes(Field("x", type)), command}), ElementsAre(broken))
        << type;
  }
  // A matching change of the option is shown there.
  EXPECT_THAT(Broken({before, command},
                     {Takes(Field("x", Builtin("LONG"))), Command({{"x", "x", "LONG"}})}),
              ElementsAre("D parameter-type-changed", "B option-type-changed"));
  // It did not fit before.
  EXPECT_THAT(Broken({Takes(Field("x", Builtin("LONG"))), command},
                     {Takes(Field("x", Builtin("DOUBLE"))), command}),
              ElementsAre("D parameter-type-changed"));
  // Nothing is known of an option that takes something unknown.
  const std::string unknown = Command({{"x", "x", "STRING", "some"}});
  EXPECT_THAT(Broken({before, unknown}, {Takes(Field("x", Of("LIST", kText))), unknown}),
              ElementsAre("D parameter-type-changed"));
  const std::string absent = Command({{"x", "x", "STRING", "list_optional"}});
  EXPECT_THAT(Broken({Takes(Field("x", Of("LIST", Optional(kText)))), absent},
                     {Takes(Field("x", Of("LIST", kText))), absent}),
              ElementsAre(broken));
}

TEST(SameCommand, BreaksIfTheTypeAroundAFieldIsAnother) {
  const std::string command = Command({{"f", "x.f", "STRING"}});
  const std::string before = TakesSpec(Field("f", kText));
  EXPECT_THAT(Broken({before, command}, {TakesSpec(Field("f", kText), kText), command}),
              ElementsAre("B parameter-type-changed: the command 'acme.go'"));
  EXPECT_THAT(Broken({before, command}, {TakesSpec(Field("f", kText), Builtin("OPAQUE")), command}),
              ElementsAre("D parameter-type-changed"));
  EXPECT_THAT(Broken({before, command}, {TakesSpec(Field("f", Builtin("LONG"))), command}),
              ElementsAre("B field-type-changed: the command 'acme.go'"));
  EXPECT_THAT(Broken({before, command}, {TakesSpec(""), command}),
              ElementsAre("B field-removed: the command 'acme.go'"));
}

TEST(SameCommand, BreaksIfItDoesNotFillARequiredFieldOfAStructureThatItSends) {
  const std::string one = Field("f", kText);
  const std::string both = one + "," + Field("g", kText);
  const std::string loose = one + "," + Field("g", Optional(kText));
  const OptionText f{"f", "x.f", "STRING"};
  const OptionText g{"g", "x.g", "STRING"};
  const OptionText may_be_g{"g", "x.g", "STRING", "optional"};
  EXPECT_THAT(Broken({TakesSpec(one), Command({f})}, {TakesSpec(both), Command({f})}),
              ElementsAre("B field-added-required: the command 'acme.go'"));
  EXPECT_THAT(
      Broken({TakesSpec(one), Command({f})}, {TakesSpec(both), Command({f, may_be_g})}),
      ElementsAre("B field-added-required: the command 'acme.go'", "c option-added-optional"));
  EXPECT_THAT(Broken({TakesSpec(one), Command({f})}, {TakesSpec(both), Command({f, g})}),
              ElementsAre("c field-added-required", "B option-added-required"));
  EXPECT_THAT(Broken({TakesSpec(loose), Command({f})}, {TakesSpec(both), Command({f})}),
              ElementsAre("B field-became-required: the command 'acme.go'"));
  EXPECT_THAT(
      Broken({TakesSpec(loose), Command({f, may_be_g})}, {TakesSpec(both), Command({f, may_be_g})}),
      ElementsAre("B field-became-required: the command 'acme.go'"));
  EXPECT_THAT(Broken({TakesSpec(loose), Command({f, g})}, {TakesSpec(both), Command({f, g})}),
              IsEmpty());
  // A command that sends no such structure.
  EXPECT_THAT(Broken({TakesSpec(one), Command({})}, {TakesSpec(both), Command({})}),
              ElementsAre("c field-added-required"));
}

TEST(SameCommand, BreaksIfItDoesNotFillARequiredFieldOfAnotherStructure) {
  const std::string x = Field("x", kText);
  const std::string z = Field("z", kText);
  const OptionText has_x{"x", "q.x", "STRING"};
  const OptionText may_have_x{"x", "q.x", "STRING", "optional"};
  const OptionText has_z{"z", "q.z", "STRING"};
  const OptionText may_have_z{"z", "q.z", "STRING", "optional"};
  const std::string broken = "B parameter-type-changed: the command 'acme.go'";
  const std::string safe = "D parameter-type-changed";

  struct Row {
    std::string old_fields;
    std::string new_fields;
    std::vector<OptionText> options;
    std::string expected;
  };

  for (const Row& row : std::vector<Row>{
           {x, x + "," + z, {has_x}, broken},
           {x, x + "," + z, {may_have_x}, broken},
           {x, x + "," + Field("z", Optional(kText)), {has_x}, safe},
           {x + "," + Field("z", Optional(kText)), x + "," + z, {has_x, has_z}, safe},
           {x + "," + Field("z", Optional(kText)), x + "," + z, {has_x, may_have_z}, broken},
           {x + "," + Field("y", kText), x + "," + z, {may_have_x}, safe}}) {
    const auto file = [&](const std::string& structure) {
      return MetamodelFile(
          {Structure("c.p.old", row.old_fields) + "," + Structure("c.p.new", row.new_fields), "",
           Operation("start", Field("q", Named("Structure", structure)))});
    };
    EXPECT_THAT(
        Broken({file("c.p.old"), Command(row.options)}, {file("c.p.new"), Command(row.options)}),
        ElementsAre(row.expected))
        << row.old_fields << '\n'
        << row.new_fields;
  }
}

TEST(SameCommand, BreaksIfItDoesNotFillARequiredFieldOfAnotherInnerStructure) {
  const auto file = [](const std::string& inner) {
    return MetamodelFile({Structure("c.p.old", Field("x", kText)) + "," +
                              Structure("c.p.new", Field("x", kText) + "," + Field("z", kText)) +
                              "," + Structure("c.p.spec", Field("i", Named("Structure", inner))),
                          "", Operation("start", Field("q", kSpec))});
  };
  const std::string command = Command({{"x", "q.i.x", "STRING"}});
  EXPECT_THAT(Broken({file("c.p.old"), command}, {file("c.p.new"), command}),
              ElementsAre("B field-type-changed: the command 'acme.go'"));
}

TEST(SameCommand, BreaksIfOneOfSeveralStructuresIsNotFilled) {
  const auto file = [](const std::string& fields) {
    return MetamodelFile({Structure("c.p.spec", fields), "",
                          Operation("start", Field("x", kSpec) + "," + Field("y", kSpec))});
  };
  const std::string one = Field("f", kText);
  const std::string both = one + "," + Field("g", kText);
  const std::vector<OptionText> options{
      {"xf", "x.f", "STRING"}, {"xg", "x.g", "STRING"}, {"yf", "y.f", "STRING"}};
  EXPECT_THAT(Broken({file(one), Command(options)}, {file(both), Command(options)}),
              ElementsAre("B field-added-required: the command 'acme.go'"));
}

TEST(SameCommand, BreaksWithoutWhatItShows) {
  const auto file = [](const std::string& structures, const std::string& result) {
    return MetamodelFile({structures, "", Operation("start", "", result)});
  };
  const std::string f = Field("f", kText);
  const std::string spec = Structure("c.p.spec", f);
  const std::string other = Structure("c.p.other", Field("o", kText));
  const std::string command = Command({}, Shows("c.p.spec", "f"));
  EXPECT_THAT(
      Broken({file(spec, kSpec), command}, {file(Structure("c.p.spec", ""), kSpec), command}),
      ElementsAre("B field-removed: the command 'acme.go'"));
  EXPECT_THAT(Broken({file(spec, kSpec), command}, {file("", kSpec), command}),
              ElementsAre("B structure-removed: the command 'acme.go'"));
  EXPECT_THAT(Broken({file(spec + "," + other, kSpec), command},
                     {file(spec + "," + other, Named("Structure", "c.p.other")), command}),
              ElementsAre("D result-type-changed", "B output-became-unreachable"));
  EXPECT_THAT(Broken({file(spec, kSpec), command}, {file(spec, Of("LIST", kSpec)), command}),
              ElementsAre("D result-type-changed"));
  EXPECT_THAT(Broken({file(spec, kText), command}, {file(spec, kSpec), command}),
              ElementsAre("D result-type-changed", "D output-became-reachable"));
  EXPECT_THAT(Broken({file(spec, kSpec), command}, {file(spec, Builtin("VOID")), command}),
              ElementsAre("B result-became-void: the command 'acme.go'"));
  EXPECT_THAT(
      Broken({file(spec, kSpec), command}, {file("", kText), Command({}, Shows("c.p.t", "f"))}),
      Not(Contains(HasSubstr(": the command"))));
}

TEST(SameCommand, BreaksWithoutTheEnumerationOfAnOption) {
  const auto file = [](const std::string& enumerations, const std::string& type) {
    return MetamodelFile({"", enumerations, Operation("start", Field("x", type))});
  };
  const std::string mode = Named("Enumeration", "c.p.mode");
  const std::string command = Command({{"x", "x", "c.p.mode"}});
  const std::string before = file(Enumeration("c.p.mode", EnumerationValue("ON")), mode);
  EXPECT_THAT(Changed({before, command}, {file("", mode), command}),
              ElementsAre(AllOf(StartsWith("BBB-B enumeration-removed"),
                                EndsWith("; this breaks the command 'acme.go'"))));
  EXPECT_THAT(Broken({before, command}, {file(Enumeration("c.p.mode"), mode), command}),
              ElementsAre("B enumeration-value-removed: the command 'acme.go'"));
  // One report of a new name.
  const std::string renamed = Named("Enumeration", "c.p.form");
  EXPECT_THAT(
      Broken({before, command},
             {file(Enumeration("c.p.form", EnumerationValue("ON")), renamed), command}),
      ElementsAre("B enumeration-removed: the command 'acme.go'", "D parameter-type-changed"));
}
