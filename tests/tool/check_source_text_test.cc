#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "check/json_tree.h"
#include "check/source_text.h"
#include "render/layout.h"
#include "support/small_stack.h"

using testing::EndsWith;
using testing::StartsWith;
using Zelk::Tool::Excerpt;
using Zelk::Tool::JsonTree;
using Zelk::Tool::SourceText;

namespace {

struct Row {
  const char* what;
  std::string text;
  std::size_t offset;
  std::string line;
  std::size_t mark;
};

const Row kRows[] = {
    {"an empty text", "", 0, "", 0},
    {"a tab", "\ta\tb", 3, "    a    b", 9},
    {"a mark under a tab", "a\tb", 1, "a    b", 1},
    {"two bytes in one column", "\u00e4\u00e4x", 4, "\u00e4\u00e4x", 2},
    {"two columns", "\u8a9e\u8a9ex", 6, "\u8a9e\u8a9ex", 4},
    {"a combining mark", "e\u0301x", 3, "e\u0301x", 1},
    {"a control character", "a\x1b[2Jx", 5, "a\\x1b[2Jx", 8},
    {"bytes that are no UTF-8", "\xe9\xe9x", 2, "\\xe9\\xe9x", 8},
    {"carriage returns", "a\r\nbc\r\nd", 4, "bc", 1},
    {"the end of a line", "ab\ncd", 2, "ab", 2},
    {"the end of the text", "ab\n", 3, "", 0},
};

}  // namespace

TEST(CheckSourceText, TheMarkIsUnderThePlaceWhateverIsBeforeIt) {
  for (const Row& row : kRows) {
    const Excerpt excerpt = SourceText(row.text).ExcerptAt(row.offset);
    EXPECT_EQ(excerpt.line, row.line) << row.what;
    EXPECT_EQ(excerpt.mark, row.mark) << row.what;
  }
}

TEST(CheckSourceText, OfALongLineAWindowAroundThePlaceIsShown) {
  const std::string text = std::string(3000000, 'a') + "HERE" + std::string(3000000, 'b');
  const Excerpt excerpt = SourceText(text).ExcerptAt(3000000);
  EXPECT_THAT(excerpt.line, StartsWith("...aaaa"));
  EXPECT_THAT(excerpt.line, EndsWith("bbbb..."));
  EXPECT_EQ(excerpt.line.substr(excerpt.mark, 4), "HERE");
  EXPECT_LT(Zelk::Tool::Columns(excerpt.line), 105U);
}

TEST(CheckSourceText, TheWindowCutsNoCharacterInTwo) {
  std::string text;
  for (int i = 0; i < 3000; ++i) text += "\u8a9e";
  for (const std::size_t offset : {3U * 100, 3U * 1500, 3U * 2999}) {
    const Excerpt excerpt = SourceText(text).ExcerptAt(offset);
    EXPECT_EQ(excerpt.line.find('\\'), std::string::npos) << excerpt.line;
  }
}

TEST(CheckSourceText, AnEmptyLineAndTheEndHavePositions) {
  const SourceText text("a\n\nb\n");
  EXPECT_EQ(text.PositionAt(2).line, 2U);
  EXPECT_EQ(text.PositionAt(2).column, 1U);
  EXPECT_EQ(text.PositionAt(5).line, 4U);
}

TEST(CheckJsonTree, EveryValueKnowsWhereItStands) {
  const std::string text =
      " { \"a\" :\t7 ,\"b\":[ true,null , -1.5e3,\n\"x\\\"\"] ,\"c\":{ } ,\"d\":[[],{}]}";
  const auto tree = JsonTree::Parse(text);
  ASSERT_TRUE(tree);
  const std::vector<std::string> expected{"{ \"a\"",   "7",   "[ true", "true", "null", "-1.5e3",
                                          "\"x\\\"\"", "{ }", "[[],",   "[]",   "{}"};
  for (JsonTree::Id id = 0; id < expected.size(); ++id) {
    EXPECT_EQ(text.substr((*tree)[id].offset, expected[id].size()), expected[id]) << id;
  }
  EXPECT_EQ(tree->Pointer(6), "/b/3");
  EXPECT_EQ(text.substr((*tree)[7].name_offset, 3), "\"c\"");
}

TEST(CheckJsonTree, PointersEscapeWhatSeparatesTheirSteps) {
  const auto tree = JsonTree::Parse(R"({"a/b~": {"": 1}})");
  ASSERT_TRUE(tree);
  EXPECT_EQ(tree->Pointer(0), "");
  EXPECT_EQ(tree->Pointer(2), "/a~1b~0/");
}

TEST(CheckJsonTree, WhatIsNoJsonHasNoTree) {
  for (const char* text : {"", "{", "[1,]", "{} {}", "tru"}) {
    EXPECT_FALSE(JsonTree::Parse(text)) << text;
  }
}

TEST(CheckJsonTree, AnyDepthIsParsedAndPointedInto) {
  constexpr std::size_t kLevels = 300000;
  Zelk::Testing::RunOnSmallStack(256 * 1024, [] {
    const auto tree = JsonTree::Parse(std::string(kLevels, '[') + std::string(kLevels, ']'));
    ASSERT_TRUE(tree);
    EXPECT_EQ(tree->Pointer(kLevels - 1).size(), 2 * (kLevels - 1));
  });
}
