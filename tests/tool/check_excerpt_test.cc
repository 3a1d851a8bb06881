#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "check/excerpt.h"
#include "render/layout.h"

using testing::EndsWith;
using testing::StartsWith;
using Zelk::Analysis::Document;
using Zelk::Tool::Check::Excerpt;
using Zelk::Tool::Check::ExcerptAt;

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

TEST(CheckExcerpt, MarkIsUnderThePlaceWhateverIsInFrontOfIt) {
  for (const Row& row : kRows) {
    const Excerpt excerpt = ExcerptAt(Document(row.text), row.offset);
    EXPECT_EQ(excerpt.line, row.line) << row.what;
    EXPECT_EQ(excerpt.mark, row.mark) << row.what;
  }
}

TEST(CheckExcerpt, LongLineIsCutToAWindowAroundThePlace) {
  const std::string text = std::string(3000000, 'a') + "HERE" + std::string(3000000, 'b');
  const Excerpt excerpt = ExcerptAt(Document(text), 3000000);
  EXPECT_THAT(excerpt.line, StartsWith("...aaaa"));
  EXPECT_THAT(excerpt.line, EndsWith("bbbb..."));
  EXPECT_EQ(excerpt.line.substr(excerpt.mark, 4), "HERE");
  EXPECT_LT(Zelk::Tool::Render::Columns(excerpt.line), 105U);
}

TEST(CheckExcerpt, WindowIsNoWiderThanTheTerminal) {
  const std::string text = std::string(300, 'a') + "HERE" + std::string(300, 'b');
  for (const std::size_t columns : {20U, 33U, 40U, 80U, 200U}) {
    const Excerpt excerpt = ExcerptAt(Document(text), 300, columns);
    EXPECT_LE(Zelk::Tool::Render::Columns(excerpt.line), columns);
    EXPECT_EQ(excerpt.line.substr(excerpt.mark, 4), "HERE") << columns;
  }
}

TEST(CheckExcerpt, WindowCutsNoCharacterInTwo) {
  std::string text;
  for (int i = 0; i < 3000; ++i) text += "\u8a9e";
  for (const std::size_t offset : {3U * 100, 3U * 1500, 3U * 2999}) {
    const Excerpt excerpt = ExcerptAt(Document(text), offset);
    EXPECT_EQ(excerpt.line.find('\\'), std::string::npos) << excerpt.line;
  }
}
