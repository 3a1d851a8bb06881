#include <sstream>

#include <gtest/gtest.h>

#include "host/service_error.h"
#include "render/page.h"
#include "render/utf8.h"

using Zelk::Tool::Message;
using Zelk::Tool::Render::ForTerminal;
using Zelk::Tool::Render::Page;
using Zelk::Tool::Render::RepairedUtf8;

namespace {

struct Row {
  const char* what;
  std::string bytes;
  std::string on_terminal;
  std::string repaired;
};

const Row kRows[] = {
    {"ASCII", "a b~", "a b~", "a b~"},
    {"UTF-8", "\u00e9\u20ac\U0001f600", "\u00e9\u20ac\U0001f600", "\u00e9\u20ac\U0001f600"},
    {"an escape sequence", "\x1b[31m", "\\x1b[31m", "\x1b[31m"},
    {"line ends and tabs", "a\nb\tc\r", "a\\x0ab\\x09c\\x0d", "a\nb\tc\r"},
    {"a zero byte", std::string("a\0b", 3), "a\\x00b", std::string("a\0b", 3)},
    {"delete", "\x7f", "\\x7f", "\x7f"},
    {"a control character beyond ASCII", "\u009b31m", "\\u009b31m", "\u009b31m"},
    {"a character that turns the text around", "a\u202eb", "a\\u202eb", "a\u202eb"},
    {"its younger kin", "\u2066", "\\u2066", "\u2066"},
    {"a line end of another alphabet", "a\u2028b", "a\\u2028b", "a\u2028b"},
    {"a stray continuation byte", "a\x80z", "a\\x80z", "a\ufffdz"},
    {"a sequence cut short", "\xe2\x82", "\\xe2\\x82", "\ufffd\ufffd"},
    {"a sequence broken off", "\xe2\x82z", "\\xe2\\x82z", "\ufffd\ufffdz"},
    {"an overlong spelling", "\xc0\xaf", "\\xc0\\xaf", "\ufffd\ufffd"},
    {"a longer overlong spelling", "\xe0\x80\xaf", "\\xe0\\x80\\xaf", "\ufffd\ufffd\ufffd"},
    {"half a surrogate pair", "\xed\xa0\x80", "\\xed\\xa0\\x80", "\ufffd\ufffd\ufffd"},
    {"beyond the last character", "\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80",
     "\ufffd\ufffd\ufffd\ufffd"},
    {"a byte that is never used", "\xff", "\\xff", "\ufffd"},
};

}  // namespace

TEST(Text, ControlCharactersAndInvalidBytesAreEscaped) {
  for (const Row& row : kRows) EXPECT_EQ(ForTerminal(row.bytes), row.on_terminal) << row.what;
}

TEST(Text, InvalidBytesAreReplacedOneByOne) {
  for (const Row& row : kRows) EXPECT_EQ(RepairedUtf8(row.bytes), row.repaired) << row.what;
}

TEST(Text, PlaceholdersOfAMessageAreFilledInOnce) {
  EXPECT_EQ((Message{"id", "%1%[%2%] of %1%", {"a", "b"}}.Text()), "a[b] of a");
  EXPECT_EQ((Message{"id", "no place", {"a"}}.Text()), "no place");
  EXPECT_EQ((Message{"id", "%1%", {"%1% %2%"}}.Text()), "%1% %2%");
  EXPECT_EQ((Message{"id", "%1% %2%", {"a"}}.Text()), "a %2%");
  EXPECT_EQ((Message{"id", "100% %0% % %x% %1", {"a"}}.Text()), "100% %0% % %x% %1");
}

TEST(Text, ParagraphKeepsLineBreaksAndIsIndented) {
  std::ostringstream out;
  Page page(out);
  page.Paragraph(1, "one\r\n\n\ttwo\x1b[2J\n");
  page.Paragraph(1, "");
  EXPECT_EQ(out.str(), "    one\n\n        two\\x1b[2J\n");
}
