#include "common/json/json_document.h"

#include <cstdint>
#include <fstream>
#include <new>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "support/json_text.h"
#include "support/message_texts.h"
#include "support/temp_folder.h"

namespace Zelk::Provider::Metadata {
namespace {

using Testing::JsonText;
using Testing::Lines;
using Testing::MessageTexts;

TEST(ReadAll, KeepsEveryByte) {
  const std::string bytes("\xef\xbb\xbf\0\r\n\xff\0", 8);
  std::istringstream in(bytes);
  EXPECT_EQ(ReadAll(in), bytes);
}

TEST(ReadAll, ReadsWholeStreamsOfAnySize) {
  for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 131072U, 1'000'000U}) {
    std::string bytes(size, 'x');
    if (size > 0) bytes.back() = 'y';
    std::istringstream in(bytes);
    EXPECT_TRUE(ReadAll(in) == bytes) << size;
  }
}

TEST(ReadAll, StartsAtTheCurrentPosition) {
  std::istringstream in("foo bar");
  in.seekg(4);
  EXPECT_EQ(ReadAll(in), "bar");
  EXPECT_EQ(ReadAll(in), "");
}

TEST(ReadAll, ReturnsNothingForAnUnreadableStream) {
  const Testing::TempFolder folder;
  std::ifstream missing(folder.Path("foo"));
  std::ifstream opened_folder(folder.Path(""));
  EXPECT_EQ(ReadAll(missing), "");
  EXPECT_EQ(ReadAll(opened_folder), "");
}

/// What a parse comes to: the document written anew, or its messages.
struct Outcome {
  std::string document;
  Lines messages;
};

bool operator==(const Outcome& left, const Outcome& right) {
  return left.document == right.document && left.messages == right.messages;
}

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  return out << outcome.document << testing::PrintToString(outcome.messages);
}

Outcome Read(const std::string& document) {
  return {document, {}};
}

Outcome Refused(const std::string& message) {
  return {"", {message}};
}

Outcome Parse(std::string_view text) {
  JsonDocument document{TextBuffer(text)};
  Errors errors;
  const bool ok = document.Parse("foo", errors);
  EXPECT_EQ(ok, errors.empty());
  return {ok ? JsonText(document.Root()) : "", MessageTexts(errors)};
}

TEST(JsonDocument, ParsesAText) {
  EXPECT_EQ(Parse(R"( {"foo": [1, -2.5, true, null, "\u00e4"]} )"),
            Read("{\"foo\":[1,-2.5,true,null,\"\xc3\xa4\"]}"));
}

struct SyntaxErrorRow {
  std::string text;
  const char* message;
};

TEST(JsonDocument, ReportsTheCodeAndOffsetOfASyntaxError) {
  const std::vector<SyntaxErrorRow> rows = {
      {"", "foo(1, 0)"},           {" \t\r\n", "foo(1, 4)"},       {"{} {}", "foo(2, 3)"},
      {"nul", "foo(3, 3)"},        {"foo", "foo(3, 1)"},           {"[1,]", "foo(3, 3)"},
      {"{1:2}", "foo(4, 1)"},      {R"({"bar" 1})", "foo(5, 7)"},  {R"({"bar": 1)", "foo(6, 9)"},
      {"[1 2]", "foo(7, 3)"},      {R"(["\u12g4"])", "foo(8, 2)"}, {R"(["\ud800"])", "foo(9, 2)"},
      {R"(["\x"])", "foo(10, 2)"}, {R"({"bar)", "foo(11, 5)"},     {"[\"\n\"]", "foo(10, 2)"},
      {"1e999", "foo(13, 0)"},     {"[1.]", "foo(14, 3)"},         {"[1e]", "foo(15, 3)"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Parse(row.text), Refused(row.message)) << row.text;
  }
}

TEST(JsonDocument, ReportsAByteThatBeginsNoValue) {
  for (const std::string begin : {"]", "}", ",", ":", "\xef\xbb\xbf{}", "\xff", "'", "/"}) {
    for (const std::string blanks : {"", " ", "\r\n\t "}) {
      EXPECT_EQ(Parse(blanks + begin), Refused("foo(3, " + std::to_string(blanks.size()) + ")"));
    }
  }
}

TEST(JsonDocument, EndsAtAZeroByte) {
  EXPECT_EQ(Parse(std::string("{}\0]]", 5)), Read("{}"));
  EXPECT_EQ(Parse(std::string("\0{}", 3)), Refused("foo(1, 0)"));
  EXPECT_EQ(Parse(std::string("[\0]", 3)), Refused("foo(3, 1)"));
  EXPECT_EQ(Parse(std::string("[\"\0\"]", 5)), Refused("foo(11, 2)"));
}

TEST(JsonDocument, AcceptsInvalidUtf8InStrings) {
  EXPECT_EQ(Parse("\"\xff\xc0\""), Read("\"\xff\xc0\""));
}

TEST(JsonDocument, RefusesExtensionsOfJson) {
  for (const auto* text : {"[1,]", "{\"a\":1,}", "[01]", "[+1]", "[.5]", "[NaN]", "[Infinity]",
                           "//\n1", "/**/1", "'a'", "{a:1}", "[1]]", "True"}) {
    EXPECT_EQ(Parse(text).messages.size(), 1U) << text;
  }
}

TEST(JsonDocument, StopsAtTheEndOfTheText) {
  const std::string_view memory = "[1, 2]3";
  EXPECT_EQ(Parse(memory.substr(0, 6)), Read("[1,2]"));
  EXPECT_EQ(Parse(memory.substr(0, 5)), Refused("foo(7, 5)"));
}

TEST(JsonDocument, AppendsToTheMessages) {
  JsonDocument document{TextBuffer("[")};
  Errors errors{CatalogMessage("bar")};
  EXPECT_FALSE(document.Parse("zelk.metadata.metamodel.parse.error", errors));
  EXPECT_EQ(MessageTexts(errors), (Lines{"bar()", "zelk.metadata.metamodel.parse.error(3, 1)"}));
}

TEST(JsonDocument, FindsTheEndOfAPlainRunAtAnyOffset) {
  for (std::size_t before = 0; before < 20; ++before) {
    for (std::size_t after = 0; after < 20; ++after) {
      const std::string left(before, 'x');
      const std::string right(after, '\x80');
      EXPECT_EQ(Parse("\"" + left + right + "\""), Read("\"" + left + right + "\""));
      EXPECT_EQ(Parse("\"" + left + R"(\")" + right + "\""),
                Read("\"" + left + R"(\")" + right + "\""));
      EXPECT_EQ(Parse("\"" + left + R"(\u0041)" + right + R"(\/")"),
                Read("\"" + left + "A" + right + "/\""));
      EXPECT_EQ(Parse("\"" + left + "\x1f" + right + "\""),
                Refused("foo(10, " + std::to_string(1 + before) + ")"));
      EXPECT_EQ(Parse("\"" + left + right),
                Refused("foo(11, " + std::to_string(1 + before + after) + ")"));
    }
  }
}

TEST(JsonDocument, KeepsPlainBytesOfAString) {
  for (int byte = 0x20; byte < 0x100; ++byte) {
    if (byte == '"' || byte == '\\') continue;
    const std::string text = "\"0123456" + std::string(9, static_cast<char>(byte)) + "\"";
    EXPECT_EQ(Parse(text), Read(text)) << byte;
  }
}

/// A valid document of about `size` bytes whose values need `element`'s share of memory each.
std::string Repeated(const std::string& element, std::size_t size) {
  std::string text = "[" + element;
  while (text.size() < size) text += "," + element;
  return text + "]";
}

TEST(JsonDocument, ReadsHeapAndMappedTextsAlike) {
  for (const std::size_t kib : {1U, 127U, 128U, 129U, 511U, 512U, 2048U, 5000U}) {
    const std::string text = Repeated(R"({"foo":"bar baz, and more words"})", kib * 1024);
    EXPECT_TRUE(Parse(text) == Read(text)) << kib;
    EXPECT_EQ(Parse(text + "x"), Refused("foo(2, " + std::to_string(text.size()) + ")")) << kib;
  }
}

TEST(JsonDocument, HoldsMoreValuesThanTheMappingHasRoomFor) {
  const std::string text = Repeated("0", 1'000'000);
  EXPECT_TRUE(Parse(text) == Read(text));
}

TEST(JsonHeap, ReturnsNullForSizeZero) {
  EXPECT_EQ(JsonHeap::Malloc(0), nullptr);
  EXPECT_EQ(JsonHeap::Realloc(JsonHeap::Malloc(8), 8, 0), nullptr);
}

TEST(JsonHeap, KeepsTheContentOfABlockThatGrows) {
  auto* block = static_cast<char*>(JsonHeap::Malloc(3));
  std::string("foo").copy(block, 3);
  block = static_cast<char*>(JsonHeap::Realloc(block, 3, 100'000));
  EXPECT_EQ(std::string(block, 3), "foo");
  JsonHeap::Free(block);
}

TEST(JsonHeap, ThrowsBadAlloc) {
  void* block = JsonHeap::Malloc(8);
  EXPECT_THROW(JsonHeap::Malloc(SIZE_MAX / 2 + 1), std::bad_alloc);
  EXPECT_THROW(JsonHeap::Realloc(block, 8, SIZE_MAX / 2 + 1), std::bad_alloc);
  JsonHeap::Free(block);
}

}  // namespace
}  // namespace Zelk::Provider::Metadata

// The sanitizers end a program that asks for too much memory, unless an option allows it.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the sanitizers' names
extern "C" const char* __asan_default_options() {
  return "allocator_may_return_null=1";
}

extern "C" const char* __tsan_default_options() {
  return "allocator_may_return_null=1";
}

// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
