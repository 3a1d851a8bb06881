#include "analysis/command_line.h"

#include <gmock/gmock.h>

#include "analysis/files.h"
#include "analysis/small_cli.h"
#include "analysis/small_model.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): all of the small files

namespace Zelk::Analysis {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;

ElementId CommandOf(const Workspace& workspace, std::string_view name, std::string_view path = "") {
  return workspace.ModelOf(Domain::kCli).Find(ElementKind::kCommand, name, path);
}

/// The problem of a line, or "FIELD=VALUE of TYPE" for each of its values.
std::string ReadBy(const std::vector<OptionText>& options, const CommandWords& words) {
  const Workspace workspace(FilesOf({OneCommand({"", "start", options})}));
  const CommandLine line = CommandForm(workspace, CommandOf(workspace, "start")).Read(words);
  if (!line.problem.empty()) return line.problem;
  std::string text;
  for (const BoundValue& value : line.values) {
    text += (text.empty() ? "" : " ") + std::string(value.field) + "=" + value.value + " of " +
            value.type;
  }
  return text;
}

TEST(CommandLine, ValuesFillTheFieldsOfTheirOptions) {
  const std::vector<OptionText> options{{"volts", "level.volts", "LONG", "none", "v"},
                                        {"name", "names", "ID", "optional_list", "n"}};
  EXPECT_EQ(ReadBy(options, {"--volts", "5"}), "level.volts=5 of LONG");
  EXPECT_EQ(ReadBy(options, {"-n", "a", "-v", "5", "--name", "b"}),
            "names=a of STRING level.volts=5 of LONG names=b of STRING");
}

TEST(CommandLine, ProblemsAreNamed) {
  const std::vector<OptionText> options{{"volts", "volts", "LONG", "none", "v"},
                                        {"amps", "amps", "long", "optional"}};
  EXPECT_EQ(ReadBy(options, {}), "'--volts' is required");
  EXPECT_EQ(ReadBy(options, {"--volts"}), "'--volts' needs a value");
  EXPECT_EQ(ReadBy(options, {"--volt", "1"}), "'--volt' is not an option");
  EXPECT_EQ(ReadBy(options, {"-a", "1"}), "'-a' is not an option");
  EXPECT_EQ(ReadBy(options, {"volts", "1"}), "'volts' is not an option");
  EXPECT_EQ(ReadBy(options, {"--volts", "1", "-v", "2"}), "'-v' takes one value");
  EXPECT_EQ(ReadBy(options, {"--volts", "x"}), "'x' is not of type LONG");
}

TEST(CommandLine, TypesDecideWhichValuesAreAccepted) {
  struct Row {
    const char* type;
    CommandWords accepted;
    CommandWords refused;
  };

  for (const Row& row : std::vector<Row>{{"BOOLEAN", {"true", "false"}, {"1", "TRUE", ""}},
                                         {"long", {"0", "-12"}, {"", "-", "1.5", "x"}},
                                         {"DOUBLE", {"0", "-1.5"}, {"", ".5", "1.", "x"}},
                                         {"STRING", {"", "x", "--x"}, {}},
                                         {"SECRET", {"x"}, {}},
                                         {"ID", {"x"}, {}},
                                         {"DATE_TIME", {"<DATE_TIME>"}, {"x"}},
                                         {"acme.Mode", {"<acme.mode>"}, {"x"}}}) {
    const std::vector<OptionText> options{{"a", "a", row.type}};
    for (const std::string& value : row.accepted) {
      EXPECT_THAT(ReadBy(options, {"--a", value}), testing::StartsWith("a=" + value)) << row.type;
    }
    for (const std::string& value : row.refused) {
      EXPECT_THAT(ReadBy(options, {"--a", value}), testing::HasSubstr("is not of type"))
          << row.type << " " << value;
    }
  }
}

/// Small and big enumerations, and structures.
std::string Definitions() {
  std::string many;
  for (int i = 0; i < 2000; ++i) {
    many += (i == 0 ? "" : ",") + EnumerationValue("v" + std::to_string(i));
  }
  return MetamodelFile(
      {Structure("c.p.Struct", ""),
       Enumeration("c.p.Mode", EnumerationValue("on") + "," + EnumerationValue("off")) + "," +
           Enumeration("c.p.None") + "," + Enumeration("c.p.Many", many),
       ""});
}

TEST(CommandLine, ValuesOfEnumerationsAreThoseThatAreDefined) {
  const Workspace workspace(
      FilesOf({Definitions(), OneCommand({"",
                                          "start",
                                          {{"mode", "mode", "c.p.Mode"},
                                           {"many", "many", "c.p.Many"},
                                           {"none", "none", "c.p.None"},
                                           {"struct", "s", "c.p.Struct"}}})}));
  const CommandForm form(workspace, CommandOf(workspace, "start"));
  EXPECT_THAT(form.Shortest("--mode", 1),
              Optional(ElementsAre("--mode", "on", "--many", "<c.p.many>", "--none", "<c.p.none>",
                                   "--struct", "<c.p.struct>")));
  EXPECT_EQ(form.Read({"--mode", "c.p.mode"}).problem, "'c.p.mode' is not of type c.p.mode");
  EXPECT_EQ(form.Read({"--mode", "off"}).problem, "'--many' is required");
  EXPECT_EQ(form.Read({"--mode", "c.p.mode"}, "--none").problem, "'--none' is required");
  EXPECT_EQ(form.Read({"--mode", "off"}, "--mode").problem, "");
}

TEST(CommandLine, ShortestHasWhatIsRequiredAndWhatIsAskedFor) {
  const Workspace workspace(
      FilesOf({OneCommand({"",
                           "start",
                           {{"volts", "volts", "LONG", "none", "v"},
                            {"x=", "x", "DOUBLE", "LIST_OPTIONAL", "x"},
                            {"amps", "amps", "BOOLEAN", "optional_list"}}})}));
  const CommandForm form(workspace, CommandOf(workspace, "start"));
  EXPECT_THAT(form.Shortest("", 0), Optional(ElementsAre("--volts", "1", "-x", "1.5")));
  EXPECT_THAT(form.Shortest("-v", 1), Optional(ElementsAre("-v", "1", "-x", "1.5")));
  EXPECT_THAT(form.Shortest("--amps", 2), Optional(ElementsAre("--amps", "true", "--amps", "true",
                                                               "--volts", "1", "-x", "1.5")));
  EXPECT_EQ(form.Shortest("--volts", 2), std::nullopt);
  EXPECT_EQ(form.Shortest("--unknown", 1), std::nullopt);
}

TEST(CommandLine, CommandsThatCannotBeTypedHaveNone) {
  const std::vector<CommandText> commands{
      {"", "start", {{"x y", "x"}}},                                     // required
      {"", "start", std::vector<OptionText>(60, OptionText{"a", "a"})},  // fine: one name
      {"", "start", {{std::string(2000, 'a'), "a"}}},
      {"", "start", {{"a", "a", std::string(2000, 'a')}}},
  };
  const std::vector<bool> expected{false, true, false, false};
  for (std::size_t i = 0; i < commands.size(); ++i) {
    const Workspace workspace(FilesOf({OneCommand(commands[i])}));
    const CommandForm form(workspace, CommandOf(workspace, "start"));
    EXPECT_EQ(form.Shortest("", 0).has_value(), expected[i]) << i;
  }
}

TEST(CommandLine, ManyRequiredOptionsHaveNoShortestLine) {
  CommandText command{"", "start"};
  for (int i = 0; i < 51; ++i) command.options.push_back({"a" + std::to_string(i), "a"});
  const Workspace workspace(FilesOf({OneCommand(command)}));
  EXPECT_EQ(CommandForm(workspace, CommandOf(workspace, "start")).Shortest("", 0), std::nullopt);
}

TEST(CommandLine, WhatIsNotAWordOfTheFormatIsNotKnown) {
  const auto is_known = [](const CommandText& command) {
    const Workspace workspace(FilesOf({OneCommand(command)}));
    return CommandForm(workspace, CommandOf(workspace, command.name)).IsKnown();
  };
  EXPECT_TRUE(is_known({"", "start", {{"a", "a", "LONG", ""}}}));
  EXPECT_FALSE(is_known({"", "start", {{"a", "a", "LONG", "some"}}}));
  EXPECT_FALSE(is_known({"", "-start"}));
  EXPECT_FALSE(is_known({"", ""}));
}

TEST(CommandLine, OfOptionsOfOneNameTheFirstOneCounts) {
  const std::vector<OptionText> options{{"a", "first", "LONG", "optional", "x"},
                                        {"a", "second", "STRING", "none", "y"},
                                        {"b", "third", "LONG", "optional", "x"}};
  EXPECT_EQ(ReadBy(options, {"--a", "1"}), "first=1 of LONG");
  EXPECT_EQ(ReadBy(options, {"-x", "1"}), "first=1 of LONG");
  EXPECT_EQ(ReadBy(options, {"-y", "1"}), "'-y' is not an option");
}

TEST(CommandLine, CommandsAreFoundByTheirWords) {
  const Workspace workspace(
      FilesOf({CliFile({Text(CommandText{"", "top"}), Text(CommandText{"a.b", "c"}),
                        Text(CommandText{"a", "b.c"}), Text(CommandText{"a", "d.e"})})}));
  const Model& model = workspace.ModelOf(Domain::kCli);
  EXPECT_EQ(FindCommand(model, {"top"}), CommandOf(workspace, "top"));
  EXPECT_EQ(FindCommand(model, {"a", "b", "c"}), CommandOf(workspace, "b.c", "a"));
  EXPECT_EQ(FindCommand(model, {"a", "d", "e"}), CommandOf(workspace, "d.e", "a"));
  EXPECT_EQ(FindCommand(model, {"a", "b"}), kNoElement);
  EXPECT_EQ(FindCommand(model, {}), kNoElement);
  EXPECT_EQ(FindCommand(model, {std::string(2000, 'a')}), kNoElement);
  EXPECT_THAT(CommandForm(workspace, CommandOf(workspace, "c", "a.b")).Name(),
              ElementsAre("a", "b", "c"));
}

TEST(CommandLine, WordsAreQuotedForShells) {
  EXPECT_EQ(Quoted({"a.b", "--c", "1.5"}), "a.b --c 1.5");
  EXPECT_EQ(Quoted({"a b", "", "it's", "$x"}), R"('a b' '' 'it'\''s' '$x')");
}

}  // namespace
}  // namespace Zelk::Analysis
