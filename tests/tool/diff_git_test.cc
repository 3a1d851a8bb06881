#include <gmock/gmock.h>

#include "tool/shell_run.h"

// Versions that are in a repository of git.

using testing::AllOf;
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
  EXPECT_THAT(run.out, HasSubstr("old: git:HEAD:files (2 files)\n"));
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
            HasSubstr("old: git:HEAD:./a.json (1 file)\n"), HasSubstr("old: git:main: (2 files)\n"),
            HasSubstr("old: git:HEAD:files/ (2 files)\n"),
            HasSubstr("old: git::files/a.json (1 file)\n"), Not(HasSubstr("1\n"))));
  EXPECT_EQ(run.err, "");
}

TEST(DiffGit, FilesOfARevisionHaveTheirNamesInMessages) {
  const ToolRun run = InRepository(
      "echo '{' > files/below/b.json; git commit -q -a -m two\n"
      "$tool diff git:HEAD~:files git:HEAD:files; echo $?");
  EXPECT_THAT(run.out, HasSubstr("git:HEAD:files/below/b.json:2:1: error: "));
  EXPECT_THAT(run.out, HasSubstr("\nnot compared: git:HEAD~:files/below/b.json\n"));
  EXPECT_THAT(run.out, HasSubstr("\nfailed: a file does not load\n1\n"));
}

TEST(DiffGit, WhatIsNotThereIsNamed) {
  const ToolRun run = InRepository(
      "for name in nope:files --help:files $'HEAD\nHEAD:files' HEAD:nope HEAD:texts HEAD; do\n"
      "$tool diff \"git:$name\" files | tail -n 2; done");
  EXPECT_EQ(run.err,
            "zelk-metadata: git:nope:files: this revision is not known\n"
            "zelk-metadata: git:--help:files: this revision is not known\n"
            "zelk-metadata: git:HEAD\\x0aHEAD:files: this revision is not known\n"
            "zelk-metadata: git:HEAD:nope: this revision has no such path\n"
            "zelk-metadata: git:HEAD:texts: this folder has no *.json file\n"
            "zelk-metadata: git:HEAD: a revision is given as git:REV:PATH\n");
  EXPECT_THAT(run.out, testing::EndsWith("nothing was compared\nfailed: a file does not load\n"));
}

TEST(DiffGit, AnnotationsNameTheFilesOfTheRepository) {
  const ToolRun run = InRepository(
      "echo '{\"cli\": []}' > files/below/b.json; git commit -q -a -m two\n"
      "$tool diff git:HEAD~:files files --output github\n"
      "$tool diff git:HEAD:files git:HEAD~:files --output github");
  EXPECT_THAT(run.out, HasSubstr(" file=files/below/b.json,title=namespace-removed::"));
  EXPECT_THAT(run.out, HasSubstr(" file=files/below/b.json,line=1,col="));
}

TEST(DiffGit, CommitInAFolderIsNotAFile) {
  EXPECT_EQ(InRepository("git update-index --add --cacheinfo 160000,$(git rev-parse HEAD),other\n"
                         "git commit -q -m two; $tool diff git:HEAD:other files")
                .err,
            "zelk-metadata: git:HEAD:other: it is not a file or a folder\n");
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
              HasSubstr("zelk-metadata: git:HEAD:a: fatal: not a git repository: '/nope'\n"));
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
