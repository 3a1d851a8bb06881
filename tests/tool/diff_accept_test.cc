#include <gmock/gmock.h>

#include "support/file_text.h"
#include "tool/diff_run.h"

// Changes that a project accepts.

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::FileText;
using Zelk::Testing::kAfter;
using Zelk::Testing::kBefore;
using Zelk::Testing::kMore;
using Zelk::Testing::ToolRun;
using Zelk::Testing::Versions;

namespace {

/// The file that --write-accept writes, with `more` in front of each fingerprint.
std::string Accepted(const Versions& versions, const std::string& more) {
  const std::string path = versions.Path("accepted.json");
  EXPECT_EQ(versions.Run({"--write-accept", path}).status, 0);
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

TEST(DiffAccept, EntryThatHasEndedAcceptsNothing) {
  const Versions versions(kBefore, kAfter);
  const ToolRun run = versions.Run({"--accept", Accepted(versions, R"("until": "2001-01-01", )")});
  EXPECT_EQ(run.status, 5);
  EXPECT_THAT(run.out, HasSubstr("accepted.json: warning: an entry for 'operation-removed' has "
                                 "ended\n"));
}

TEST(DiffAccept, EntryWithoutAChangeIsAWarning) {
  const Versions both(kBefore, kAfter);
  const std::string accepted = Accepted(both, "");
  both.Write("new.json", kMore);
  const ToolRun more = both.Run({"--accept", accepted});
  EXPECT_EQ(more.status, 0);
  EXPECT_THAT(more.out,
              AllOf(HasSubstr("warning: an entry for 'operation-removed' hides nothing\n"),
                    HasSubstr("\n1 accepted by accepted.json\npassed\n"),
                    Not(HasSubstr("'operation-added' hides"))));
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
  EXPECT_EQ(complaint(R"({"changes": [{"id": "a", "fingerprint": "0", "reason": 1}]})"),
            "zelk-metadata: accepted.json:1:56: 'reason' must be a string\n");
  EXPECT_EQ(complaint("[]"), "zelk-metadata: accepted.json: the file is not a JSON object\n");
}

TEST(DiffAccept, FileThatCannotBeWrittenIsAFailure) {
  const ToolRun run = Versions(kBefore, kAfter).Run({"--write-accept", "/dev/full"});
  EXPECT_EQ(run.status, 4);
  EXPECT_EQ(run.err, "zelk-metadata: /dev/full: the file could not be written\n");
}

TEST(DiffAccept, FileThatDoesNotLoadFailsAllTheSame) {
  const Versions versions(kBefore, "{");
  EXPECT_EQ(versions.Run({"--write-accept", versions.Path("accepted.json")}).status, 1);
}
