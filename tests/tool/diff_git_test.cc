#include <gmock/gmock.h>

#include "tool/shell_run.h"

// Versions that are in a repository of git.

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::RunShell;
using Zelk::Testing::ToolRun;

namespace {

/// Runs the commands in a repository whose only revision has the folder `files`, with `git` as its
/// author calls it.
ToolRun InRepository(const std::string& commands) {
  return RunShell(
      "cd $(dirname $0); mkdir -p repository/files/below repository/texts; cd repository\n"
      "export GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_SYSTEM=/dev/null\n"
      "git() { command git -c user.name=me -c user.email=me -c init.defaultBranch=main \"$@\"; }\n"
      "echo '{\"cli\": []}' > files/a.json\n"
      "echo '{\"cli\": [{\"type\": \"namespace\", \"path\": \"\", \"name\": \"n\", "
      "\"description\": \"d\"}]}' > files/below/b.json\n"
      "echo text > texts/c.txt; echo '{' > files/.hidden.json; ln -s a.json files/link.json\n"
      "git init -q; git add .; git commit -q -m one\n" +
      commands);
}

}  // namespace

TEST(DiffGit, FolderOfARevisionIsComparedWithTheDisk) {
  const ToolRun run = InRepository("$tool diff git:HEAD:files files; echo $?");
  EXPECT_THAT(run.out, HasSubstr("old: git:HEAD:files (3 files)\n"));
  EXPECT_THAT(run.out, HasSubstr("no changes\n"));
  EXPECT_EQ(run.err, "");
}

TEST(DiffGit, AnyPathOfARevisionCanBeNamed) {
  const ToolRun run = InRepository(
      "cd files; for name in HEAD:files/a.json HEAD:./a.json main: HEAD:files/ :files/a.json; do\n"
      "$tool diff git:$name git:$name; echo $?; done");
  EXPECT_THAT(
      run.out,
      AllOf(HasSubstr("old: git:HEAD:files/a.json (1 file)\n"),
            HasSubstr("old: git:HEAD:./a.json (1 file)\n"), HasSubstr("old: git:main: (3 files)\n"),
            HasSubstr("old: git:HEAD:files/ (3 files)\n"),
            HasSubstr("old: git::files/a.json (1 file)\n"), Not(HasSubstr("1\n"))));
  EXPECT_EQ(run.err, "");
}

TEST(DiffGit, StepsToTheSameFolderAreLeftOut) {
  const ToolRun run = InRepository(
      "ln -s files linked; git add .; git commit -q -m two\n"
      "diff() { $tool diff git:HEAD:$1 git:HEAD:$1 | head -n 1; }\n"
      "diff .; diff files/./a.json; diff files/././below/.; diff linked/.; cd files/below\n"
      "diff .; diff ..; diff ../.; diff ./../below");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out,
            "old: git:HEAD:. (3 files)\n"
            "old: git:HEAD:files/./a.json (1 file)\n"
            "old: git:HEAD:files/././below/. (1 file)\n"
            "old: git:HEAD:linked/. (3 files)\n"
            "old: git:HEAD:. (1 file)\n"
            "old: git:HEAD:.. (3 files)\n"
            "old: git:HEAD:../. (3 files)\n"
            "old: git:HEAD:./../below (1 file)\n");
}

TEST(DiffGit, FilesOfARevisionHaveTheirNamesInMessages) {
  const ToolRun run = InRepository(
      "echo '{' > files/below/b.json; git commit -q -a -m two\n"
      "$tool diff git:HEAD~:files git:HEAD:files; echo $?");
  EXPECT_THAT(run.out, HasSubstr("git:HEAD:files/below/b.json:2:1: error: "));
  EXPECT_THAT(
      run.out,
      HasSubstr("  source:below/b\n    the file 'git:HEAD:files/below/b.json' does not load any "
                "more [source-lost]\n"));
  EXPECT_THAT(run.out, HasSubstr("\nfailed: a file does not load\n1\n"));
}

TEST(DiffGit, WhatIsNotThereIsNamed) {
  const ToolRun run = InRepository(
      "for name in nope:files --help:files $'HEAD\nHEAD:files' HEAD:nope HEAD:files/a.json/ "
      "HEAD:texts HEAD; do\n"
      "$tool diff \"git:$name\" files | tail -n 2; done");
  EXPECT_EQ(run.err,
            "zelk-metadata: git:nope:files: this revision is not known\n"
            "zelk-metadata: git:--help:files: this revision is not known\n"
            "zelk-metadata: git:HEAD\\x0aHEAD:files: a name with a line end cannot be read\n"
            "zelk-metadata: git:HEAD:nope: this revision has no such path\n"
            "zelk-metadata: git:HEAD:files/a.json/: a part of this path is a file, not a folder\n"
            "zelk-metadata: git:HEAD:texts: this folder has no *.json file\n"
            "zelk-metadata: git:HEAD: a revision is given as git:REV:PATH\n");
  EXPECT_THAT(run.out, EndsWith("nothing was compared\nfailed: OLD cannot be read\n"));
}

TEST(DiffGit, AnnotationsNameTheFilesOfTheRepository) {
  const ToolRun run = InRepository(
      "echo '{\"cli\": []}' > files/below/b.json; git commit -q -a -m two\n"
      "$tool diff git:HEAD~:files files --output github\n"
      "$tool diff git:HEAD:files git:HEAD~:files --output github");
  EXPECT_THAT(run.out, HasSubstr(" file=files/below/b.json,title=namespace-removed::"));
  EXPECT_THAT(run.out, HasSubstr(" file=files/below/b.json,line=1,col="));
  const ToolRun below = InRepository(
      "cd files; $tool diff git:HEAD:./below/b.json git:HEAD:./a.json --output github\n"
      "cd below; $tool diff git:HEAD:../a.json git:HEAD:./b.json --output github");
  EXPECT_THAT(below.out, HasSubstr(" file=files/below/b.json,title=namespace-removed::"));
  EXPECT_THAT(below.out, HasSubstr(" file=files/below/b.json,line=1,col="));
}

TEST(DiffGit, PathAfterADateWithColonsIsFound) {
  const ToolRun run = InRepository(
      "rev='HEAD@{2999-01-02 10:00:00}'; echo '{\"cli\": []}' > files/below/b.json\n"
      "$tool diff \"git:$rev:files\" files --output github\n"
      "$tool diff \"git:$rev\" files; $tool diff \"git:$rev:nope\" files; echo '[]' >files/a.json\n"
      "git add .; $tool diff git::0:files/a.json git::0:files/b.json --output github; echo $?");
  EXPECT_THAT(run.out, HasSubstr(" file=files/below/b.json,title=namespace-removed::"));
  EXPECT_THAT(run.out, HasSubstr(" file=files/a.json,line=1,col=1::Not a metadata file"));
  EXPECT_THAT(
      run.err,
      AllOf(HasSubstr("git:HEAD@{2999-01-02 10:00:00}: a revision is given as git:REV:PATH"),
            HasSubstr("10:00:00}:nope: this revision has no such path\n"),
            HasSubstr("git::0:files/b.json: this revision has no such path\n")));
}

TEST(DiffGit, LinksAreFollowedAsOnTheDisk) {
  const ToolRun run = InRepository(
      "cp files/below/b.json texts/t.json; ln -s ../../texts/t.json files/below/out.json\n"
      "ln -s ../texts files/texts; ln -s ../texts files/texts.json; ln -s files linked\n"
      "git add .; git commit -q -m two\n"
      "$tool diff git:HEAD:files files; $tool diff git:HEAD:linked linked\n"
      "$tool diff git:HEAD:linked/below/out.json files/below/b.json");
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, HasSubstr("old: git:HEAD:files (4 files)\nnew: files (4 files)\n"));
  EXPECT_THAT(run.out, HasSubstr("old: git:HEAD:linked (4 files)\nnew: linked (4 files)\n"));
  EXPECT_THAT(run.out, HasSubstr("old: git:HEAD:linked/below/out.json (1 file)\n"));
  EXPECT_THAT(run.out, Not(HasSubstr("change:")));
}

TEST(DiffGit, LinksThatLeadNowhereAreReported) {
  const ToolRun run = InRepository(
      "cd files; ln -s /etc/a.json abs.json; ln -s nope.json gone.json; ln -s loop.json loop.json\n"
      "ln -s a.json/b.json in.json; ln -s a.json $'line\n.json'\n"
      "git add .; git commit -q -m two; rm [a-z][a-z]*.json\n"
      "$tool diff git:HEAD:files .; echo $?");
  EXPECT_EQ(run.err,
            "zelk-metadata: git:HEAD:files/abs.json: it is a link to '/etc/a.json', outside of the "
            "repository\n"
            "zelk-metadata: git:HEAD:files/gone.json: it is a link to what does not exist\n"
            "zelk-metadata: git:HEAD:files/in.json: a part of this path is a file, not a folder\n"
            "zelk-metadata: git:HEAD:files/line\\x0a.json: a name with a line end cannot be read\n"
            "zelk-metadata: git:HEAD:files/loop.json: it is a link in a loop of links\n");
  EXPECT_THAT(run.out, EndsWith("\n1\n"));
}

TEST(DiffGit, SubmodulesAreReported) {
  const ToolRun run = InRepository(
      "git update-index --add --cacheinfo 160000,$(git rev-parse HEAD),files/other\n"
      "git commit -q -m two\n"
      "$tool diff git:HEAD:files files; echo $?; $tool diff git:HEAD:files/other files; echo $?");
  const std::string reason = ": it is a submodule, whose files are in another repository\n";
  EXPECT_EQ(run.err, "zelk-metadata: git:HEAD:files/other" + reason +
                         "zelk-metadata: git:HEAD:files/other" + reason);
  EXPECT_THAT(run.out, AllOf(HasSubstr("\n1\nold: "), EndsWith("\n1\n")));
}

TEST(DiffGit, TagIsNotAFile) {
  EXPECT_EQ(InRepository("$tool diff 'git::/one' files").err,
            "zelk-metadata: git::/one: it is not a file or a folder\n");
}

TEST(DiffGit, PathThatIsTooLongIsReported) {
  const ToolRun run = InRepository(
      "name=$(printf 'n%.0s' {1..200}); tree=$(git rev-parse HEAD:files)\n"
      "for n in {1..21}; do tree=$(printf '040000 tree %s\\t%s\\n' $tree $name | git mktree); "
      "done\n"
      "$tool diff git:$tree: files");
  EXPECT_THAT(run.err, HasSubstr(": this path is too long\n"));
}

TEST(DiffGit, RepositoryThatLacksSomethingIsNamed) {
  const ToolRun run = InRepository(
      "lose() { id=$(git rev-parse $1); rm -f .git/objects/${id:0:2}/${id:2}; }\n"
      "lose HEAD:files/a.json; $tool diff git:HEAD:files files\n"
      "lose HEAD:files/below; $tool diff git:HEAD:files files");
  EXPECT_EQ(run.err,
            "zelk-metadata: git:HEAD:files/a.json: the repository lacks it\n"
            "zelk-metadata: git:HEAD:files/a.json: the repository lacks it\n");
}

TEST(DiffGit, FolderWithTooManyEntriesIsNotRead) {
  const ToolRun run = InRepository(
      "entries() { for n in {1..400}; do printf '%s\\t%s\\n' \"$1\" $n; done | git mktree; }\n"
      "tree=$(entries \"100644 blob $(git rev-parse HEAD:texts/c.txt)\")\n"
      "tree=$(entries \"040000 tree $tree\")\n"
      "$tool diff git:$tree: files");
  EXPECT_THAT(run.err, HasSubstr(": this folder has too many entries\n"));
}

TEST(DiffGit, GitThatFailsIsQuoted) {
  EXPECT_THAT(RunShell("cd $(dirname $0); GIT_DIR=/nope $tool diff git:HEAD:a git:HEAD:a").err,
              HasSubstr("zelk-metadata: git:HEAD:a: git has failed: not a git repository: "
                        "'/nope'\n"));
  EXPECT_THAT(
      RunShell(
          "cd $(dirname $0); GIT_CEILING_DIRECTORIES=$(dirname $PWD) LC_ALL=de_DE.UTF-8 $tool diff "
          "git:HEAD:a git:HEAD:a")
          .err,
      HasSubstr("git:HEAD:a: the working folder is not in a repository of git\n"));
  EXPECT_THAT(InRepository("$tool diff git:HEAD:../a files").err,
              HasSubstr("git:HEAD:../a: git has failed: '../a' is outside repository at "));
  EXPECT_THAT(RunShell("PATH=/nope $tool diff git:HEAD:a git:HEAD:a").err,
              HasSubstr(": git cannot be started: No such file or directory\n"));
}

TEST(DiffGit, GitThatEndsEarlyIsAFailure) {
  const auto complaint = [](const std::string& script) {
    return RunShell("cd $(dirname $0); printf '#!/bin/sh\\n" + script +
                    "\\n' > git; chmod +x git; PATH=.:$PATH $tool diff git:HEAD:a git:HEAD:a")
        .err;
  };
  EXPECT_THAT(complaint("exit 0"), HasSubstr("git has ended without a message\n"));
  EXPECT_THAT(complaint("read line; echo id blob 10; echo 123"),
              HasSubstr("git has ended without a message\n"));
  EXPECT_THAT(complaint("read line; echo id blob 99999999999"),
              HasSubstr("it is larger than a file may be\n"));
  EXPECT_THAT(complaint("while read line; do echo id tree 9; echo 123456789; done"),
              HasSubstr("this folder has no *.json file\n"));
}

TEST(DiffGit, GitNeedsFilesOfItsOwn) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "sanitizers open files of their own";
#endif
  EXPECT_THAT(RunShell("prlimit --nofile=4 $tool diff git:HEAD:a git:HEAD:a 3>&-").err,
              HasSubstr(": git cannot be started: Too many open files\n"));
}
