#include <cstdlib>
#include <string>

#include <gmock/gmock.h>

#include "shell/line.h"

using testing::ElementsAre;
using Zelk::Tool::Shell::Quoted;
using Zelk::Tool::Shell::Split;

TEST(ShellLine, BlanksSeparateWords) {
  EXPECT_THAT(Split("").words, ElementsAre());
  EXPECT_THAT(Split(" \t ").words, ElementsAre());
  EXPECT_THAT(Split("  list\tsources \r").words, ElementsAre("list", "sources"));
}

TEST(ShellLine, QuotesAndBackslashesKeepBlanksInAWord) {
  EXPECT_THAT(Split(R"('a b' "c d" e\ f g'h'"i")").words, ElementsAre("a b", "c d", "e f", "ghi"));
  EXPECT_THAT(Split(R"('\' "\"" '' "")").words, ElementsAre("\\", "\"", "", ""));
  EXPECT_THAT(Split("end\\").words, ElementsAre("end\\"));
}

TEST(ShellLine, OpenQuoteIsReported) {
  EXPECT_TRUE(Split("a 'b").is_open);
  EXPECT_TRUE(Split("\"").is_open);
  EXPECT_FALSE(Split("a 'b' c").is_open);
}

TEST(ShellLine, CommentIsNotAWord) {
  EXPECT_THAT(Split("# a comment").words, ElementsAre());
  EXPECT_THAT(Split("list # a comment").words, ElementsAre("list"));
  EXPECT_THAT(Split("a#b").words, ElementsAre("a#b"));
  EXPECT_TRUE(Split("list # a comment").is_comment);
  EXPECT_FALSE(Split("list '#1' a#b").is_comment);
}

TEST(ShellLine, BeginningOfTheLastWordIsKnown) {
  EXPECT_EQ(Split("list so").last_word, 5U);
  EXPECT_EQ(Split("list 'a b").last_word, 5U);
  EXPECT_EQ(Split("list ").last_word, 5U);
  EXPECT_EQ(Split("").last_word, 0U);
}

TEST(ShellLine, TildeIsExpandedAsInShells) {
  const std::string home = "/home/somebody";
  setenv("HOME", home.c_str(), 1);
  EXPECT_THAT(Split("check ~/a id=~/b").words,
              ElementsAre("check", home + "/a", "id=" + home + "/b"));
  EXPECT_THAT(Split(R"(a~/b ~ ~a '~/a' \~/a)").words, ElementsAre("a~/b", "~", "~a", "~/a", "~/a"));
  EXPECT_THAT(Split(R"(a\ ~/b)").words, ElementsAre("a ~/b")) << "the blank is part of the word";
  unsetenv("HOME");
  EXPECT_THAT(Split("check ~/a").words, ElementsAre("check", "~/a")) << "there is no home";
}

TEST(ShellLine, QuotedTextIsReadUnchanged) {
  for (const char* text :
       {"plain", "", "a b", "it's", "\"", "\\", "#1", "\t", "x\\ y", "~/a", "a=~/b"}) {
    EXPECT_THAT(Split(Quoted(text)).words, ElementsAre(text)) << text;
    EXPECT_FALSE(Split(Quoted(text)).is_open) << text;
  }
}
