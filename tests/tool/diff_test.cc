#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tool/diff_run.h"

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::kAfter;
using Zelk::Testing::kBefore;
using Zelk::Testing::kMore;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
using Zelk::Testing::Versions;
using Zelk::Testing::Without;

namespace {

/// What `words` print on such a terminal.
std::string OnTerminal(const std::vector<std::string>& words, std::size_t width, bool colours) {
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  const Zelk::Tool::Render::Terminal terminal{true, width, colours};
  Zelk::Tool::Run(words, {in, out, err, terminal});
  return out.str();
}

}  // namespace

TEST(Diff, TextHasClassesElementsPlacesAndASummary) {
  const ToolRun run = Versions(kBefore, kAfter).Run();
  EXPECT_EQ(run.status, 5);
  EXPECT_EQ(run.err, "");
  const std::string service =
      "  metamodel/component:acme/package:acme.power/service:acme.power.switch/operation:";
  EXPECT_EQ(run.out,
            "old: old.json (1 file)\n"
            "new: new.json (1 file)\n"
            "assumed: parameters: named, unknown_fields: ignored, enumerations: closed, "
            "enumeration_form: ordinal, schemes: any, inheritance: none\n"
            "\nBreaking\n" +
                service +
                "stop\n"
                "    the operation 'acme.power.switch.stop' was removed [operation-removed]\n"
                "      old: old.json:10:12\n"
                "      for: wire\n"
                "      hint: possibly renamed to 'acme.power.switch.pause'\n"
                "\nCompatible\n" +
                service +
                "pause\n"
                "    the operation 'acme.power.switch.pause' was added [operation-added]\n"
                "      new: new.json:10:12\n"
                "      for: wire\n"
                "      hint: possibly renamed from 'acme.power.switch.stop'\n"
                "\n2 changes: 1 breaking, 1 compatible\n"
                "failed: found a change at or above 'breaking'\n");
}

TEST(Diff, TextFitsTheTerminal) {
  const TempFolder folder;
  const std::vector<std::string> words{"diff", folder.Write("a", kBefore),
                                       folder.Write("b", kAfter)};
  for (const std::size_t width : {40U, 80U}) {
    std::istringstream lines(OnTerminal(words, width, false));
    for (std::string line; std::getline(lines, line);) {
      // Names are not broken.
      const bool is_word = line.find(' ', line.find_first_not_of(' ')) == std::string::npos;
      EXPECT_TRUE(line.size() <= width || is_word) << line;
    }
  }
}

TEST(Diff, ClassesHaveColoursOnTerminals) {
  const TempFolder folder;
  const std::vector<std::string> words{"diff", folder.Write("a", kBefore),
                                       folder.Write("b", kAfter), "--for", "wire"};
  EXPECT_THAT(OnTerminal(words, 80, true), AllOf(HasSubstr("\n\x1b[1;31mBreaking\x1b[0m\n"),
                                                 HasSubstr("\n\x1b[1;36mCompatible\x1b[0m\n")));
  EXPECT_THAT(OnTerminal(words, 80, false), Not(HasSubstr("\x1b")));
}

TEST(Diff, FailOnDecidesTheStatus) {
  const Versions breaking(kBefore, kAfter);
  EXPECT_EQ(breaking.Run({"--fail-on", "breaking"}).status, 5);
  EXPECT_EQ(breaking.Run({"--fail-on", "never"}).status, 0);
  const Versions compatible(kBefore, kMore);
  EXPECT_THAT(compatible.Run().out, EndsWith("\n1 change: 1 compatible\npassed\n"));
  EXPECT_EQ(compatible.Run().status, 0);
  EXPECT_EQ(compatible.Run({"--fail-on", "dangerous"}).status, 0);
  const ToolRun any = compatible.Run({"--fail-on", "any"});
  EXPECT_EQ(any.status, 5);
  EXPECT_THAT(any.out, EndsWith("\nfailed: found a change\n"));
}

TEST(Diff, OnlyWhatConcernsTheAudiencesIsShown) {
  const Versions versions(kBefore, kAfter);
  EXPECT_THAT(versions.Run({"--for", "cli", "--for", "auth", "--for", "metadata"}).out,
              EndsWith("\nno command lines were compared: no CLI file was loaded\n"
                       "no access was compared: no Authentication file was loaded\n"
                       "failed: found a change at or above 'breaking'\n"));
  EXPECT_THAT(versions.Run({"--for", "cli", "--for", "source"}).out,
              AllOf(HasSubstr("      for: source\n"), Not(HasSubstr("wire"))));
  EXPECT_THAT(versions.Run({"--for", "wire", "--for", "source"}).out,
              HasSubstr("      for: wire, source\n"));
}

TEST(Diff, InterfacesThatWereNotComparedAreNamed) {
  const Versions versions(R"({"cli": []})", R"({"cli": []})");
  const std::string text = "no interfaces were compared: no Metamodel file was loaded\n";
  for (const char* audience : {"wire", "source"}) {
    const ToolRun run = versions.Run({"--for", "cli", "--for", audience});
    EXPECT_THAT(run.out, EndsWith("no changes\n" + text + "passed\n")) << audience;
  }
  EXPECT_THAT(versions.Run({"--for", "cli"}).out, EndsWith("no changes\npassed\n"));
  EXPECT_THAT(versions.Run({"--for", "metadata", "--output", "markdown"}).out,
              Not(HasSubstr("were compared")));
}

TEST(Diff, OtherFormattingIsNoChange) {
  const ToolRun run = Versions(kBefore, std::string("\n\n  ") + kBefore).Run();
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, EndsWith("\nno changes\nOnly the fingerprint changes.\npassed\n"));
}

TEST(Diff, FoldersAreComparedAsAWhole) {
  const TempFolder old_folder;
  const TempFolder new_folder;
  old_folder.Write("a.json", kBefore);
  old_folder.Write("b.json", R"({"cli": []})");
  new_folder.Write("b.json", kBefore);
  new_folder.Write("c.json", R"({"cli": []})");
  const ToolRun run = RunTool({"diff", old_folder.Path(""), new_folder.Path("")});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, EndsWith("no changes\npassed\n"));
}

TEST(Diff, OneVersionCanBeStandardInput) {
  const TempFolder folder;
  const std::string file = folder.Write("a.json", kBefore);
  const ToolRun run = RunTool({"diff", "-", file}, kAfter);
  EXPECT_EQ(run.status, 5);
  EXPECT_THAT(run.out, HasSubstr("      old: standard input:10:12\n"));
}

TEST(Diff, FileThatDoesNotLoadIsLeftOutOnBothSides) {
  const TempFolder old_folder;
  const TempFolder new_folder;
  old_folder.Write("a.json", kBefore);
  old_folder.Write("b.json", R"({"cli": []})");
  new_folder.Write("a.json", kAfter);
  new_folder.Write("b.json", R"({"cli": 1})");
  const std::string old_path = old_folder.Path("");
  const std::string new_path = new_folder.Path("");
  const ToolRun lost = RunTool({"diff", old_path, new_path, "--for", "wire"});
  EXPECT_EQ(lost.status, 1);
  EXPECT_THAT(lost.out, AllOf(HasSubstr("b.json:1:9: error: "),
                              HasSubstr("b.json' does not load any more [source-lost]\n"),
                              HasSubstr("3 changes: 2 breaking, 1 compatible\n"),
                              EndsWith("failed: a file does not load\n")));
  const ToolRun found = RunTool({"diff", new_path, old_path, "--output", "markdown"});
  EXPECT_EQ(found.status, 1);
  EXPECT_THAT(found.out,
              AllOf(HasSubstr("b.json` does not load.\n"), HasSubstr("(`source-repaired`)\n")));
  EXPECT_THAT(RunTool({"diff", new_path, old_path, "--output", "github"}).out,
              HasSubstr("b.json,line=1,col=9,title="));
}

TEST(Diff, NothingComparedIsAFailure) {
  const ToolRun broken = Versions("{", "{").Run();
  EXPECT_EQ(broken.status, 1);
  EXPECT_THAT(broken.out, EndsWith("nothing was compared\nfailed: 2 files do not load\n"));
  const TempFolder folder;
  const ToolRun missing = RunTool({"diff", folder.Path("no"), folder.Write("a.json", kBefore)});
  EXPECT_EQ(missing.status, 1);
  EXPECT_THAT(missing.err, HasSubstr("no: No such file or directory\n"));
  EXPECT_THAT(missing.out, EndsWith("nothing was compared\nfailed: OLD cannot be read\n"));
  EXPECT_THAT(RunTool({"diff", folder.Path("a.json"), folder.Path("no")}).out,
              EndsWith("nothing was compared\nfailed: NEW cannot be read\n"));
  const TempFolder two;
  two.Write("a.json", kBefore);
  two.Write("b.json", R"({"cli": []})");
  const std::string whole = two.Path("");
  const std::string open = folder.Write("open.json", "{");
  for (const auto& [before, after] : {std::pair(whole, open), std::pair(open, whole)}) {
    const ToolRun unknown = RunTool({"diff", before, after});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_THAT(unknown.out, HasSubstr("old: " + before + "\nnew: " + after + "\nassumed: "));
    EXPECT_THAT(unknown.out, Not(HasSubstr("source-repaired")));
    EXPECT_THAT(unknown.out, EndsWith("\nnothing was compared\nfailed: a file does not load\n"));
  }
  const Versions other(R"({"cli": []})",
                       R"({"authentication": {"component": {"name": "a", "schemes": {},
                                      "authentication": {"packages": {}, "services": {},
                                      "operations": {}}}}})");
  for (const char* option : {"--json", "--bump", "--no-pager"}) {
    const ToolRun run = other.Run({option});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "zelk-metadata: OLD and NEW have no domain in common\n");
  }
  const Versions versions(kBefore, kAfter);
  const auto complaint = [&](const std::vector<std::string>& words) {
    const ToolRun run = versions.Run(words);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    return run.err;
  };
  const std::string text = "zelk-metadata: OLD and NEW have no file that concerns ";
  EXPECT_EQ(complaint({"--for", "auth"}), text + "auth\n");
  EXPECT_EQ(complaint({"--for", "cli", "--json"}), text + "cli\n");
  EXPECT_EQ(complaint({"--for", "auth", "--for", "cli"}), text + "cli, auth\n");
  versions.Write("old.json", R"({"cli": []})");
  versions.Write("new.json", R"({"cli": [] })");
  EXPECT_EQ(complaint({"--for", "wire", "--for", "source"}), text + "wire, source\n");
}

TEST(Diff, FilesThatCannotBeReadAreCounted) {
  const TempFolder old_folder;
  const TempFolder new_folder;
  for (const TempFolder* folder : {&old_folder, &new_folder}) folder->Write("a.json", kBefore);
  std::filesystem::create_symlink("no", new_folder.Path("b.json"));
  const std::vector<std::string> words{"diff", old_folder.Path(""), new_folder.Path("")};
  EXPECT_THAT(RunTool(words).out, EndsWith("no changes\nfailed: a file cannot be read\n"));
  std::filesystem::create_symlink("no", new_folder.Path("c.json"));
  new_folder.Write("d.json", "{");
  EXPECT_THAT(RunTool(words).out,
              EndsWith("\nfailed: a file does not load, 2 files cannot be read\n"));
}

TEST(Diff, NextVersionIsNotKnownIfAFileDoesNotLoad) {
  const Versions versions(kBefore, "{");
  const ToolRun run = versions.Run({"--bump"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, AllOf(HasSubstr("new.json:1:2: "),
                             EndsWith("the next version is not known, since not all could be "
                                      "compared\n")));
  EXPECT_THAT(versions.Run({"--json"}).out, HasSubstr("\"bump\":null"));
}

TEST(Diff, WrongWordsAreWrongUsage) {
  const auto complaint = [](const std::string& line) {
    const ToolRun run = RunLine("diff " + line);
    EXPECT_EQ(run.status, 2) << line;
    EXPECT_EQ(run.out, "") << line;
    return run.err;
  };
  const std::string paths = "zelk-metadata: OLD and NEW need a path each; try diff --help\n";
  EXPECT_EQ(complaint("a"), paths);
  EXPECT_EQ(RunTool({"diff", "a", ""}).err, paths);
  EXPECT_EQ(RunTool({"diff", "", "a"}).err, paths);
  EXPECT_EQ(complaint("--list-changes --output github"),
            "zelk-metadata: --list-changes prints text or JSON, not github\n");
  EXPECT_EQ(complaint("- -"), "zelk-metadata: only one of OLD and NEW can be standard input\n");
  EXPECT_EQ(complaint("a b --for wires"),
            "zelk-metadata: unknown audience 'wires'; did you mean wire?\n");
  EXPECT_EQ(complaint("a b --fail-on compatible"),
            "zelk-metadata: unknown class 'compatible'; it is one of breaking, "
            "dangerous, any, never\n");
  EXPECT_THAT(complaint("a b --fail-on never --fail-on any"),
              HasSubstr("'--fail-on' is given more"));
  EXPECT_EQ(complaint("a b --bump --json"),
            "zelk-metadata: --bump prints one word, whatever --output is\n");
  EXPECT_EQ(complaint("a b --source c"),
            "zelk-metadata: diff takes OLD and NEW as arguments, not as --source\n");
  EXPECT_THAT(RunTool({"shell"}, "diff - a\n").err, HasSubstr("standard input"));
}

TEST(Diff, BumpIsOneWord) {
  EXPECT_EQ(Versions(kBefore, kAfter).Run({"--bump"}).out, "major\n");
  EXPECT_EQ(Versions(kBefore, kAfter).Run({"--bump"}).status, 0);
  EXPECT_EQ(Versions(kBefore, kAfter).Run({"--bump", "--fail-on", "breaking"}).status, 5);
  EXPECT_EQ(Versions(kBefore, kMore).Run({"--bump"}).out, "minor\n");
  EXPECT_EQ(Versions(kBefore, kBefore).Run({"--bump"}).out, "patch\n");
}

TEST(Diff, AssumptionsAreThoseOfTheProject) {
  const Versions versions(kBefore, kAfter);
  const std::string config = versions.Write("config.json", R"({"diff": {
    "parameters": "positional", "unknown_fields": "refused", "enumerations": "open",
    "enumeration_form": "text", "schemes": "all", "inheritance": "nearest",
    "deprecated": ["Old"], "annotations": {"Since": "documentation", "Must": "breaking"}}})");
  const ToolRun run = versions.Run({"--config", config});
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, HasSubstr("assumed: parameters: positional, unknown_fields: refused, "
                                 "enumerations: open, enumeration_form: text, schemes: all, "
                                 "inheritance: nearest\n"));
  EXPECT_THAT(versions.Run({"--config", versions.Write("other.json", "{}")}).out,
              HasSubstr("assumed: parameters: named, "));
}

TEST(Diff, WrongAssumptionsAreComplaints) {
  const Versions versions(kBefore, kAfter);
  const std::string config = versions.Write("config.json", R"({"diff": {
"parameters": "numbered", "schemas": "any", "annotations": {"Since": "bad"}}})");
  const ToolRun run = versions.Run({"--config", config});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            "zelk-metadata: config.json:2:15: 'parameters' is named or positional\n"
            "zelk-metadata: config.json:2:38: unknown key 'schemas'; did you mean schemes?\n"
            "zelk-metadata: config.json:2:70: a class is documentation, compatible, dangerous or "
            "breaking\n");
  EXPECT_EQ(versions.Run({"--config", versions.Path("no")}).err,
            "zelk-metadata: no: No such file or directory\n");
}

TEST(Diff, UnknownAndRepeatedKeysOfTheConfigurationAreComplaints) {
  const Versions versions(kBefore, kAfter);
  const auto complaint = [&](const std::string& text) {
    const ToolRun run = versions.Run({"--config", versions.Write("config.json", text)});
    EXPECT_EQ(run.status, 2) << text;
    return run.err;
  };
  EXPECT_EQ(complaint("{\n\"dif\": {}}"),
            "zelk-metadata: config.json:2:8: unknown key 'dif'; did you mean diff?\n");
  EXPECT_EQ(complaint("{\"diff\": {},\n\"diff\": {}}"),
            "zelk-metadata: config.json:2:9: the key 'diff' is repeated\n");
  EXPECT_EQ(complaint("{\"diff\": {\"schemes\": \"all\",\n\"schemes\": \"any\"}}"),
            "zelk-metadata: config.json:2:12: the key 'schemes' is repeated\n");
  EXPECT_EQ(complaint("{\"diff\": {\"annotations\": {\"A\": \"breaking\",\n\"A\": \"breaking\"}}}"),
            "zelk-metadata: config.json:2:6: the key 'A' is repeated\n");
  const std::string good = R"({"$note": 1, "sources": [], "lint": {}, "diff": {}})";
  EXPECT_EQ(versions.Run({"--config", versions.Write("config.json", good)}).err, "");
}
