#include "render/layout.h"

#include <set>
#include <sstream>

#include <gmock/gmock.h>

#include "render/page.h"
#include "render/table.h"

using testing::ElementsAre;
using Zelk::Tool::Render::Columns;
using Zelk::Tool::Render::Cut;
using Zelk::Tool::Render::InColumns;
using Zelk::Tool::Render::Page;
using Zelk::Tool::Render::PrintError;
using Zelk::Tool::Render::Style;
using Zelk::Tool::Render::Styled;
using Zelk::Tool::Render::Table;
using Zelk::Tool::Render::Terminal;
using Zelk::Tool::Render::Wrapped;

namespace {

Terminal Wide(std::size_t width) {
  return {true, width, false};
}

template <typename Write>
std::string Written(const Write& write) {
  std::ostringstream out;
  write(out);
  return out.str();
}

}  // namespace

TEST(Layout, TextThatIsTooWideIsCut) {
  EXPECT_EQ(Cut("abcdefgh", 0), "abcdefgh");
  EXPECT_EQ(Cut("abcdefgh", 8), "abcdefgh");
  EXPECT_EQ(Cut("abcdefgh", 7), "abcd...");
  EXPECT_EQ(Cut("\u4e00\u4e8c\u4e09\u56db", 7), "\u4e00\u4e8c...") << "two columns each";
  EXPECT_EQ(Cut("\u4e00\u4e8c\u4e09\u56db", 6), "\u4e00...") << "no half of a character";
}

TEST(Layout, ColumnsAreThoseThatATerminalFills) {
  EXPECT_EQ(Columns("abc"), 3U);
  EXPECT_EQ(Columns("\u00e9\u20ac"), 2U);
  EXPECT_EQ(Columns("e\u0301"), 1U) << "a combining accent";
  EXPECT_EQ(Columns("\u6f22\u5b57"), 4U) << "ideographs";
  EXPECT_EQ(Columns("\U0001f600"), 2U) << "a pictograph";
}

TEST(Layout, TextIsWrappedBetweenWords) {
  EXPECT_THAT(Wrapped("one two three", 7), ElementsAre("one two", "three"));
  EXPECT_THAT(Wrapped("one two three", 13), ElementsAre("one two three"));
  EXPECT_THAT(Wrapped("one incredible two", 5), ElementsAre("one", "incredible", "two"));
  EXPECT_THAT(Wrapped("  one two", 6), ElementsAre("  one", "  two")) << "indentation stays";
  EXPECT_THAT(Wrapped("", 5), ElementsAre(""));
  EXPECT_THAT(Wrapped("        ", 5), ElementsAre(""));
}

TEST(Layout, NothingIsWrappedWithoutAWidth) {
  const std::string text(10000, 'a');
  EXPECT_THAT(Wrapped(text + "  " + text, 0), ElementsAre(text + "  " + text));
}

TEST(Layout, TableAlignsColumnsAndWrapsTheLast) {
  Table table({"NAME", "TEXT"});
  table.Add({"a", "one two three four five six seven"});
  table.Add({"b\u00e9\x1b", ""});
  EXPECT_EQ(Written([&](std::ostream& out) { table.Write(out, Wide(30)); }),
            "NAME    TEXT\n"
            "a       one two three four\n"
            "        five six seven\n"
            "b\u00e9\\x1b\n");
  EXPECT_EQ(Written([&](std::ostream& out) { table.Write(out, {}); }),
            "NAME    TEXT\n"
            "a       one two three four five six seven\n"
            "b\u00e9\\x1b\n");
}

TEST(Layout, NarrowTableHasTheLastColumnBelowTheOthers) {
  Table table({"NAME", "TEXT"});
  table.Add({std::string(25, 'n'), "one two three four five six seven"});
  table.Add({"b", ""});
  EXPECT_EQ(Written([&](std::ostream& out) { table.Write(out, Wide(30)); }),
            "NAME\n" + std::string(25, 'n') + "\n    one two three four five\n    six seven\nb\n");
}

TEST(Layout, NarrowTableBreaksBetweenTheOtherColumns) {
  Table table({"KIND", "NAME", "TEXT"});
  table.Add({"kind", std::string(25, 'n') + " x", "text"});
  EXPECT_EQ(Written([&](std::ostream& out) { table.Write(out, Wide(30)); }),
            "KIND NAME\nkind " + std::string(25, 'n') + "\n        x\n    text\n");
}

TEST(Layout, TableOfOneColumnIsAList) {
  Table table({"NAME"});
  table.Add({"a name with blanks in it"});
  for (const std::size_t width : {10U, 21U}) {
    EXPECT_EQ(Written([&](std::ostream& out) { table.Write(out, Wide(width)); }),
              "NAME\na name with blanks in it\n");
  }
}

TEST(Layout, PlainTableHasTabsAndNoHeadings) {
  Table table({"NAME", "TEXT"});
  table.Add({"a\tb", "c"});
  EXPECT_EQ(Written([&](std::ostream& out) { table.WritePlain(out); }), "a\\x09b\tc\n");
}

TEST(Layout, PageWrapsParagraphsButNotNames) {
  const std::string name(50, 'n');
  const std::string page = Written([&](std::ostream& out) {
    Page written(out, Wide(24));
    written.Title(name);
    written.Line(1, name);
    written.Paragraph(1, "one two three four five\n\nsix");
    written.Pairs(1, {{"a", "one two three four five"}, {"b", ""}});
  });
  EXPECT_EQ(page, name + "\n    " + name +
                      "\n    one two three four\n    five\n\n    six\n"
                      "    a\n    one two three four\n    five\n    b\n")
      << "beside the names there is no room, and level 2 is indented less";
}

TEST(Layout, LongLinesContinueWithMoreIndentation) {
  const std::string page = Written([&](std::ostream& out) {
    Page written(out, Wide(30));
    written.Title("get(a: STRING, b: STRING, c: STRING)");
    written.Line(1, "one two three four five six");
    written.Heading("a heading that is longer than that");
  });
  EXPECT_EQ(page,
            "get(a: STRING, b: STRING, c:\n        STRING)\n"
            "    one two three four five\n            six\n"
            "\na heading that is longer than\n        that\n");
}

TEST(Layout, TextWithoutBlanksIsWrappedBetweenIdeographs) {
  EXPECT_THAT(Wrapped("\u6f22\u5b57\u304b\u306a", 5), ElementsAre("\u6f22\u5b57", "\u304b\u306a"));
  EXPECT_THAT(Wrapped("ab\u6f22\u5b57cd", 4), ElementsAre("ab\u6f22", "\u5b57cd"));
  EXPECT_THAT(Wrapped("\u6f22\u5b57\u3002\u304b", 4),
              ElementsAre("\u6f22", "\u5b57\u3002", "\u304b"))
      << "a full stop does not begin a line";
  EXPECT_THAT(Wrapped("\U0001f468\u200d\U0001f469 \U0001f600", 4),
              ElementsAre("\U0001f468\u200d\U0001f469", "\U0001f600"))
      << "joined pictographs are one";
}

TEST(Layout, WordsAreShownInColumns) {
  EXPECT_THAT(InColumns({"a", "bb", "ccc", "d", "e"}, 10), ElementsAre("a    d", "bb   e", "ccc"));
  EXPECT_THAT(InColumns({"a", "b"}, 1), ElementsAre("a", "b"));
  EXPECT_THAT(InColumns({}, 10), ElementsAre());
}

TEST(Layout, ErrorsAreWrappedAndColoured) {
  const auto error = [](const Terminal& terminal) {
    return Written([&](std::ostream& out) { PrintError(out, "one two three", terminal); });
  };
  EXPECT_EQ(error({}), "zelk-metadata: one two three\n");
  EXPECT_EQ(error({true, 22, false}), "zelk-metadata: one two\n    three\n");
  EXPECT_EQ(error({true, 22, true}), "\x1b[1;31mzelk-metadata:\x1b[0m one two\n    three\n");
}

TEST(Layout, StylesDiffer) {
  const Terminal coloured{true, 80, true};
  std::set<std::string> styled;
  for (const Style style : {Style::kBold, Style::kError, Style::kWarning, Style::kNote}) {
    styled.insert(Styled(coloured, style, "x"));
    EXPECT_EQ(Styled({}, style, "x"), "x");
  }
  EXPECT_EQ(styled.size(), 4U);
}

TEST(Layout, PageWrapsTextBesideNames) {
  const std::string page = Written([&](std::ostream& out) {
    Page(out, Wide(40)).Pairs(1, {{"a", "one two three four five six seven eight nine"}});
  });
  EXPECT_EQ(page, "    a  one two three four five six seven\n       eight nine\n");
}

TEST(Layout, ColoursAreForTerminalsWithColours) {
  const auto page = [](const Terminal& terminal) {
    return Written([&](std::ostream& out) { Page(out, terminal).Title("title"); });
  };
  EXPECT_EQ(page({true, 80, true}), "\x1b[1mtitle\x1b[0m\n");
  EXPECT_EQ(page({true, 80, false}), "title\n");
  EXPECT_EQ(page({}), "title\n");
}
