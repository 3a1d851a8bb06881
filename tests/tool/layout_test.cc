#include "render/layout.h"

#include <sstream>

#include <gmock/gmock.h>

#include "render/page.h"
#include "render/table.h"

using testing::ElementsAre;
using Zelk::Tool::Columns;
using Zelk::Tool::Page;
using Zelk::Tool::Table;
using Zelk::Tool::Terminal;
using Zelk::Tool::Wrapped;

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
                      "    a  one two three four five\n    b\n")
      << "beside the names there is no room to wrap";
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
