#include <filesystem>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "support/file_text.h"
#include "tool/diff_run.h"
#include "tool/shell_run.h"

// Changes that a project accepts.

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Zelk::Testing::FileText;
using Zelk::Testing::kAfter;
using Zelk::Testing::kBefore;
using Zelk::Testing::kMore;
using Zelk::Testing::RunShell;
using Zelk::Testing::RunTool;
using Zelk::Testing::ToolRun;
using Zelk::Testing::Versions;

namespace {

/// A list without entries.
constexpr char kOld[] = R"({"changes": []})";

/// The file that --write-accept writes, with `more` in front of each fingerprint.
std::string Accepted(const Versions& versions, const std::string& more) {
  const std::string path = versions.Path("accepted.json");
  EXPECT_EQ(versions.Run({"--write-accept", path, "--fail-on", "any"}).status, 0);
  std::string text = FileText(path);
  const std::string key = "\"fingerprint\"";
  for (std::size_t at = text.find(key); at != std::string::npos;
       at = text.find(key, at + more.size() + key.size())) {
    text.insert(at, more);
  }
  return versions.Write("accepted.json", text);
}

}  // namespace

TEST(DiffAccept, WrittenChangesFailNoRun) {
  const Versions versions(kBefore, kAfter);
  const std::string path = Accepted(versions, R"("reason": "agreed", "until": "2999-12-31", )");
  const ToolRun run = versions.Run({"--accept", path, "--fail-on", "any"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(
      run.out,
      AllOf(HasSubstr("\nAccepted\n  breaking: the operation 'acme.power.switch.stop' was removed "
                      "[operation-removed] (agreed, until 2999-12-31)\n  compatible: "),
            EndsWith("\n\nno other changes\n2 accepted by accepted.json\npassed\n")));
  EXPECT_EQ(versions.Run({"--accept", path, "--bump"}).out, "major\n");
  EXPECT_EQ(versions.Run({"--accept", path, "--output", "github"}).out, "");
  EXPECT_THAT(versions.Run({"--accept", path, "--output", "markdown"}).out,
              HasSubstr("(`operation-removed`), accepted (agreed, until 2999-12-31)\n"));
  EXPECT_THAT(versions.Run({"--accept", path, "--json"}).out,
              HasSubstr(R"("accepted":{"reason":"agreed","until":"2999-12-31"})"));
}

TEST(DiffAccept, WritingAgainKeepsReasons) {
  const Versions versions(kBefore, kAfter);
  const std::string path = Accepted(versions, R"("reason": "agreed", "until": "2999-12-31", )");
  const std::string again = versions.Path("again.json");
  EXPECT_EQ(versions.Run({"--accept", path, "--write-accept", again}).status, 0);
  EXPECT_THAT(
      FileText(again),
      AllOf(HasSubstr("\"version\": 1"), HasSubstr(R"("reason": "agreed")"),
            HasSubstr(R"("until": "2999-12-31")"), HasSubstr(R"("id": "operation-removed")")));
}

TEST(DiffAccept, WritingOverAListKeepsReasonsAndOtherAudiences) {
  const Versions versions(kBefore, kAfter);
  const std::string path = Accepted(versions, R"("reason": "agreed", "until": "2999-12-31", )");
  EXPECT_EQ(versions.Run({"--write-accept", path}).err,
            "zelk-metadata: accepted.json: 2 entries written\n");
  const std::string all = FileText(path);
  EXPECT_THAT(all, AllOf(HasSubstr(R"("reason": "agreed")"), HasSubstr("2999-12-31")));
  // Nothing of this concerns command lines.
  const std::pair<std::string, std::string> cli{"cli.json", R"({"cli": []})"};
  const std::string old_folder = versions.Folder("old", {{"a.json", kBefore}, cli});
  const std::string new_folder = versions.Folder("new", {{"a.json", kAfter}, cli});
  const ToolRun run =
      RunTool({"diff", old_folder, new_folder, "--for", "cli", "--write-accept", path});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(FileText(path), all);
  versions.Write("new.json", kMore);
  EXPECT_EQ(versions.Run({"--write-accept", path}).err,
            "zelk-metadata: accepted.json: 1 entry written; 1 earlier entry is left out\n");
  EXPECT_THAT(FileText(path), AllOf(HasSubstr("operation-added"), HasSubstr("agreed"),
                                    Not(HasSubstr("operation-removed"))));
}

TEST(DiffAccept, WritingOverAListKeepsMembersThatNothingReads) {
  const Versions versions(kBefore, kAfter);
  const std::string path = Accepted(versions, R"("$ticket": [{"no": 7, "deep": [[]]}, null], )");
  std::string list = FileText(path);
  list.insert(1, R"("$schema": "../list.json", "$\u00fc": {}, )");
  versions.Write("accepted.json", list);
  EXPECT_EQ(versions.Run({"--write-accept", path}).status, 0);
  const std::string written = FileText(path);
  EXPECT_THAT(written, StartsWith("{\n  \"$schema\": \"../list.json\",\n  \"$\\u00FC\": {},\n"
                                  "  \"version\": 1,\n"));
  EXPECT_THAT(written, HasSubstr(R"(      "$ticket": [
        {
          "no": 7,
          "deep": [
            []
          ]
        },
        null
      ])"));
  EXPECT_EQ(versions.Run({"--write-accept", path}).status, 0);
  EXPECT_EQ(FileText(path), written);
}

TEST(DiffAccept, WritingOverAListKeepsWhatItSaysBesideOtherLists) {
  const Versions versions(kBefore, kAfter);
  const std::string other = versions.Write("other.json", FileText(Accepted(versions, "")));
  const std::string path = Accepted(versions, R"("$ticket": 7, "reason": "agreed", )");
  const std::string list = FileText(path);
  EXPECT_EQ(versions.Run({"--accept", other, "--write-accept", path}).status, 0);
  EXPECT_THAT(FileText(path), AllOf(HasSubstr(R"("$ticket": 7)"), HasSubstr("agreed")));
  versions.Write("accepted.json", list);
  EXPECT_EQ(versions.Run({"--accept", other, "--accept", path, "--write-accept", path}).status, 0);
  EXPECT_THAT(FileText(path), AllOf(HasSubstr(R"("$ticket": 7)"), HasSubstr("agreed")));
}

TEST(DiffAccept, WritingOverAListRenewsNoEntryThatHasEnded) {
  const Versions versions(kBefore, kAfter);
  const std::string path = Accepted(versions, R"("reason": "agreed", "until": "2001-01-01", )");
  EXPECT_EQ(versions.Run({"--write-accept", path}).err,
            "zelk-metadata: accepted.json: 2 entries written; 2 of them have ended and accept "
            "nothing; change 'until' to renew them\n");
  std::string list = FileText(path);
  EXPECT_THAT(list, AllOf(HasSubstr("agreed"), HasSubstr("2001-01-01")));
  EXPECT_EQ(versions.Run({"--accept", path}).status, 5);
  EXPECT_EQ(versions.Run({"--for", "source", "--write-accept", path}).status, 0);
  EXPECT_EQ(FileText(path), list);
  list.replace(list.find("2001"), 4, "2999");
  versions.Write("accepted.json", list);
  EXPECT_THAT(versions.Run({"--write-accept", path}).err,
              EndsWith("2 entries written; 1 of them has ended and accepts nothing; change 'until' "
                       "to renew it\n"));
  EXPECT_EQ(FileText(path), list);
  versions.Write("new.json", kBefore);
  EXPECT_THAT(versions.Run({"--write-accept", path}).err,
              EndsWith("0 entries written; 2 earlier entries are left out\n"));
}

TEST(DiffAccept, ChangeAtAnotherPositionIsNotAccepted) {
  const auto takes = [](const std::string& parameters) {
    const std::string marker = "PARAMETERS";
    std::string text = ZELK_EXAMPLE_OF("", "PARAMETERS", ZELK_EXAMPLE_VOID, "");
    return text.replace(text.find(marker), marker.size(), parameters);
  };
  const std::string a = ZELK_EXAMPLE_FIELD("a", "", ZELK_EXAMPLE_LONG);
  const std::string b = ZELK_EXAMPLE_FIELD("b", "", ZELK_EXAMPLE_LONG);
  const Versions versions(takes(a + "," + b + "," + a), takes(a + "," + b));
  const std::string config =
      versions.Write("config.json", R"({"diff": {"parameters": "positional"}})");
  const std::string path = versions.Path("accepted.json");
  EXPECT_EQ(versions.Run({"--config", config, "--write-accept", path}).status, 0);
  EXPECT_EQ(versions.Run({"--config", config, "--accept", path}).status, 0);
  versions.Write("new.json", takes(b + "," + a));
  EXPECT_EQ(versions.Run({"--config", config, "--accept", path}).status, 5);
}

TEST(DiffAccept, OnlyChangesThatFailTheRunAreWritten) {
  const Versions versions(kBefore, kAfter);
  const std::string path = versions.Path("accepted.json");
  const auto written = [&](std::vector<std::string> words) {
    std::filesystem::remove(path);
    words.insert(words.end(), {"--write-accept", path});
    return versions.Run(words).err;
  };
  const std::string one = "zelk-metadata: accepted.json: 1 entry written\n";
  EXPECT_EQ(written({}), one);
  EXPECT_THAT(FileText(path), HasSubstr("operation-removed"));
  EXPECT_EQ(versions.Run({"--accept", path}).status, 0);
  EXPECT_EQ(written({"--bump"}), one);
  EXPECT_EQ(written({"--output", "json"}), one);
  EXPECT_EQ(written({"--fail-on", "any"}), "zelk-metadata: accepted.json: 2 entries written\n");
  EXPECT_EQ(written({"--fail-on", "never"}), "zelk-metadata: accepted.json: 0 entries written\n");
}

TEST(DiffAccept, OnlyAListIsReplaced) {
  const Versions versions(kBefore, kAfter);
  const std::string expected =
      ":1:1: this is not a list of accepted changes: it has no 'changes'\n";
  for (const std::string name : {"old.json", "new.json", "other.json"}) {
    versions.Write("other.json", R"({"findings": []})");
    const std::string text = FileText(versions.Path(name));
    const ToolRun run = versions.Run({"--write-accept", versions.Path(name)});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "zelk-metadata: " + name + expected);
    EXPECT_EQ(FileText(versions.Path(name)), text);
  }
}

TEST(DiffAccept, ListIsNeverStandardInputOrOutput) {
  const Versions versions(kBefore, kAfter);
  for (const char* option : {"--accept", "--write-accept"}) {
    const ToolRun run = versions.Run({option, "-"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "zelk-metadata: --accept and --write-accept need a file, not -\n");
  }
}

TEST(DiffAccept, ListHasAName) {
  const ToolRun run = Versions(kBefore, kAfter).Run({"--accept", ""});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "zelk-metadata: --accept needs a file, not an empty text\n");
}

TEST(DiffAccept, EntryThatHasEndedAcceptsNothing) {
  const Versions versions(kBefore, kAfter);
  const std::string path = Accepted(versions, R"("until": "2001-01-01", )");
  const auto shown = [&](const std::string& output) {
    const ToolRun run = versions.Run({"--accept", path, "--output", output});
    EXPECT_EQ(run.status, 5) << output;
    return run.out;
  };
  const std::string text = "an entry for 'operation-removed' has ended";
  EXPECT_THAT(shown("text"), HasSubstr("accepted.json: warning: " + text + "\n"));
  EXPECT_THAT(shown("markdown"), HasSubstr("\n- `accepted.json`: warning: " + text + "\n"));
  EXPECT_THAT(shown("github"),
              HasSubstr("::warning file=accepted.json,title=unused-entry::" + text + "\n"));
  EXPECT_THAT(shown("json"), HasSubstr("\"accepted.json: " + text + "\""));
}

TEST(DiffAccept, SeveralFilesAreRead) {
  const Versions versions(kBefore, kAfter);
  const std::string all = FileText(Accepted(versions, ""));
  const std::size_t second = all.find("    },");
  const std::string end = all.substr(all.rfind("  ]"));
  const std::string first = versions.Write("first.json", all.substr(0, second) + "    }\n" + end);
  const std::string rest =
      versions.Write("rest.json", all.substr(0, all.find("    {")) + all.substr(second + 7));
  EXPECT_EQ(versions.Run({"--accept", rest}).status, 5);
  const ToolRun run = versions.Run({"--accept", first, "--accept", rest, "--fail-on", "any"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("\n2 accepted by first.json, rest.json\npassed\n"));
}

TEST(DiffAccept, EntryWithoutAChangeIsAWarning) {
  const Versions both(kBefore, kAfter);
  const std::string accepted = Accepted(both, "");
  both.Write("new.json", kMore);
  const ToolRun more = both.Run({"--accept", accepted});
  EXPECT_EQ(more.status, 0);
  EXPECT_THAT(more.out,
              AllOf(HasSubstr("warning: an entry for 'operation-removed' accepts nothing\n"),
                    HasSubstr("\n1 accepted by accepted.json\npassed\n"),
                    Not(HasSubstr("'operation-added' accepts"))));
}

TEST(DiffAccept, FileOfAnotherKindIsWrongUsage) {
  const Versions versions(kBefore, kAfter);
  const auto complaint = [&](const std::string& text) {
    const ToolRun run = versions.Run({"--accept", versions.Write("accepted.json", text)});
    EXPECT_EQ(run.status, 2) << text;
    return run.err;
  };
  EXPECT_EQ(complaint(R"({"findings": []})"),
            "zelk-metadata: accepted.json:1:1: this is not a list of accepted changes: it has no "
            "'changes'\n");
  EXPECT_EQ(complaint(R"({"changes": [{"id": "a", "fingerprint": "xyz"}]})"),
            "zelk-metadata: accepted.json:1:14: the fingerprint must be 16 hexadecimal digits\n");
  const std::string fingerprint = R"("fingerprint": "0123456789abcdef")";
  const auto entry = [&](const std::string& more) {
    return complaint("{\"changes\": [\n{" + fingerprint + ", " + more + "}]}");
  };
  EXPECT_EQ(entry(R"("reason": 1)"),
            "zelk-metadata: accepted.json:2:47: 'reason' must be a string\n");
  EXPECT_EQ(entry(R"("reasons": "")"),
            "zelk-metadata: accepted.json:2:48: unknown key 'reasons'; did you mean reason?\n");
  EXPECT_EQ(complaint(R"({"changes": [], "version": 2, "owner": "me"})"),
            "zelk-metadata: accepted.json:1:40: unknown key 'owner'\n"
            "zelk-metadata: accepted.json:1:28: 'version' must be 1\n");
  for (const char* day : {"2026-02-30", "2026-13-01", "2026-00-10", "2026-01-00", "2023-02-29",
                          "1900-02-29", "9999-99-99", "2026-1-1", ""}) {
    EXPECT_EQ(entry(std::string(R"("until": ")") + day + "\""),
              "zelk-metadata: accepted.json:2:46: 'until' must be a date such as 2030-01-31\n")
        << day;
  }
  for (const char* day : {"2024-02-29", "2000-02-29", "2026-12-31"}) {
    const std::string text = R"({"changes": [{)" + fingerprint + R"(, "until": ")" + day + "\"}]}";
    EXPECT_EQ(versions.Run({"--accept", versions.Write("accepted.json", text)}).err, "") << day;
  }
  EXPECT_EQ(complaint("[]"), "zelk-metadata: accepted.json:1:1: an object is needed here\n");
}

TEST(DiffAccept, FileThatCannotBeWrittenIsAFailure) {
  const ToolRun run = Versions(kBefore, kAfter).Run({"--write-accept", "/dev/full"});
  EXPECT_EQ(run.status, 4);
  EXPECT_EQ(run.err, "zelk-metadata: /dev/full: could not be written: No space left on device\n");
}

TEST(DiffAccept, FileIsOnlyWrittenIfAllWasCompared) {
  const Versions broken(kBefore, "{");
  const std::string path = broken.Write("accepted.json", kOld);
  const ToolRun run = broken.Run({"--write-accept", path});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("zelk-metadata: new.json:1:2: "));
  EXPECT_THAT(run.err, EndsWith("accepted.json: not written, since not all could be compared\n"));
  EXPECT_EQ(FileText(path), kOld);
  const Versions other(kBefore, R"({"cli": []})");
  const std::string other_path = other.Write("accepted.json", kOld);
  EXPECT_EQ(other.Run({"--write-accept", other_path}).status, 2);
  EXPECT_EQ(FileText(other_path), kOld);
}

TEST(DiffAccept, FileThatIsReplacedKeepsItsPermissionsLinksAndNames) {
  const Versions versions(kBefore, kAfter);
  const std::string path = versions.Write("accepted.json", kOld);
  std::filesystem::permissions(path, std::filesystem::perms(0640));
  std::filesystem::create_symlink("accepted.json", versions.Path("link"));
  EXPECT_EQ(versions.Run({"--write-accept", versions.Path("link")}).status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(versions.Path("link")));
  EXPECT_THAT(FileText(path), HasSubstr("operation-removed"));
  EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0640));
  const std::string other = versions.Write("other.json", kOld);
  std::filesystem::create_hard_link(other, versions.Path("name.json"));
  EXPECT_EQ(versions.Run({"--write-accept", other}).status, 0);
  EXPECT_EQ(FileText(versions.Path("name.json")), FileText(path));
}

TEST(DiffAccept, FileKeepsItsTextIfTheNewOneCannotBeWritten) {
  const Versions versions(kBefore, kAfter);
  const std::string path = versions.Write("accepted.json", kOld);
  const std::string command = "$tool diff " + versions.Path("old.json") + " " +
                              versions.Path("new.json") + " --write-accept ";
  EXPECT_EQ(RunShell("ulimit -f 0; " + command + path).status, 4);
  EXPECT_EQ(FileText(path), kOld);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(versions.Path("")), {}), 3);
  // A longer name beside it is not possible.
  const std::string long_name(250, 'n');
  const std::string long_path = versions.Write(long_name, kOld);
  const ToolRun run = versions.Run({"--write-accept", long_path});
  EXPECT_EQ(run.status, 4);
  EXPECT_THAT(run.err, EndsWith(": could not be written: a file next to it cannot be created: File "
                                "name too long\n"));
  EXPECT_EQ(FileText(long_path), kOld);
}

TEST(DiffAccept, RepairOfAFileIsAcceptedForTheseTextsOnly) {
  const Versions versions(kBefore, kAfter);
  const std::string old_folder = versions.Folder("old", {{"a.json", kBefore}, {"b.json", "{"}});
  const auto diff = [&](const std::vector<std::string>& more) {
    std::vector<std::string> words{"diff", old_folder, versions.Path("new")};
    words.insert(words.end(), more.begin(), more.end());
    return RunTool(words);
  };
  versions.Folder("new", {{"a.json", kBefore}, {"b.json", R"({"cli": []})"}});
  const ToolRun run = diff({});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out,
              AllOf(HasSubstr("/old/b.json' does not load, so the repaired file "
                              "cannot be compared [source-repaired]\n"),
                    HasSubstr("  source:b\n"), EndsWith("failed: a file does not load\n")));
  EXPECT_EQ(diff({"--bump"}).out, "");
  const std::string path = versions.Path("accepted.json");
  EXPECT_EQ(diff({"--write-accept", path}).status, 0);
  const ToolRun accepted = diff({"--accept", path});
  EXPECT_EQ(accepted.status, 0);
  EXPECT_THAT(accepted.out, AllOf(HasSubstr("\nAccepted\n  dangerous: the file '"),
                                  Not(HasSubstr("error: ")), EndsWith("\npassed\n")));
  EXPECT_EQ(diff({"--accept", path, "--bump"}).out, "minor\n");
  // A break elsewhere is found all the same, and so is another text.
  versions.Folder("new", {{"a.json", kAfter}, {"b.json", R"({"cli": []})"}});
  EXPECT_EQ(diff({"--accept", path}).status, 5);
  versions.Folder("new", {{"a.json", kBefore}, {"b.json", R"({"cli": [ ]})"}});
  EXPECT_EQ(diff({"--accept", path}).status, 1);
}

TEST(DiffAccept, RepairOfTheOnlyFileCanBeAccepted) {
  const Versions versions("{", kBefore);
  const std::string path = versions.Path("accepted.json");
  EXPECT_EQ(versions.Run().status, 1);
  EXPECT_EQ(versions.Run({"--write-accept", path}).status, 0);
  const ToolRun run = versions.Run({"--accept", path});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, EndsWith("\nno other changes\n1 accepted by accepted.json\npassed\n"));
}

TEST(DiffAccept, LossOfAFileCannotBeAccepted) {
  const Versions versions(kBefore, kAfter);
  const std::string path = Accepted(versions, "");
  versions.Write("new.json", "{");
  const std::string json = versions.Run({"--json"}).out;
  const std::size_t at = json.find("\"fingerprint\"");
  versions.Write("accepted.json", R"({"changes": [{)" + json.substr(at, 32) + "}]}");
  const ToolRun run = versions.Run({"--accept", path});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, AllOf(HasSubstr("breaking: the file 'new.json' does not load any more "
                                       "[source-lost]\n"),
                             EndsWith("failed: a file does not load\n")));
}
