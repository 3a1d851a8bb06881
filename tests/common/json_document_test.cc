#include "common/json_document.h"

#include <cstdint>
#include <fstream>
#include <new>
#include <sstream>
#include <string>
#include <sys/mman.h>
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

TEST(ReadAll, ReadsLongAndShortStreamsWhole) {
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

TEST(ReadAll, AStreamThatCannotBeReadIsEmpty) {
  const Testing::TempFolder folder;
  std::ifstream missing(folder.Path("foo"));
  std::ifstream opened_folder(folder.Path(""));
  EXPECT_EQ(ReadAll(missing), "");
  EXPECT_EQ(ReadAll(opened_folder), "");
}

TEST(ParseJson, ATextLongerThanTheParserCanCountIsRefusedBeforeItIsRead) {
  constexpr std::size_t kSize = kMaxTextSize + 1;
  void* unreadable =
      mmap(nullptr, kSize, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(unreadable, MAP_FAILED);
  JsonDocument document;
  Errors errors;
  EXPECT_THROW(ParseJson({static_cast<const char*>(unreadable), kSize}, "foo", document, errors),
               std::bad_alloc);
  EXPECT_TRUE(errors.empty());
  munmap(unreadable, kSize);
}

TEST(ParseJson, GivesTheDocument) {
  JsonDocument document;
  Errors errors;
  EXPECT_TRUE(ParseJson(R"( {"foo": [1, -2.5, true, null, "\u00e4"]} )", "bar", document, errors));
  EXPECT_EQ(JsonText(document), "{\"foo\":[1,-2.5,true,null,\"\xc3\xa4\"]}");
  EXPECT_EQ(MessageTexts(errors), Lines());
}

struct SyntaxErrorRow {
  std::string text;
  const char* message;
};

TEST(ParseJson, ReportsCodeAndOffsetOfASyntaxError) {
  const std::vector<SyntaxErrorRow> rows = {
      {"", "foo(1, 0)"},           {" \t\r\n", "foo(1, 4)"},       {"{} {}", "foo(2, 3)"},
      {"nul", "foo(3, 3)"},        {"foo", "foo(3, 1)"},           {"[1,]", "foo(3, 3)"},
      {"{1:2}", "foo(4, 1)"},      {R"({"bar" 1})", "foo(5, 7)"},  {R"({"bar": 1)", "foo(6, 9)"},
      {"[1 2]", "foo(7, 3)"},      {R"(["\u12g4"])", "foo(8, 2)"}, {R"(["\ud800"])", "foo(9, 2)"},
      {R"(["\x"])", "foo(10, 2)"}, {R"({"bar)", "foo(11, 5)"},     {"[\"\n\"]", "foo(10, 2)"},
      {"1e999", "foo(13, 0)"},     {"[1.]", "foo(14, 3)"},         {"[1e]", "foo(15, 3)"},
  };
  for (const auto& row : rows) {
    JsonDocument document;
    Errors errors;
    EXPECT_FALSE(ParseJson(row.text, "foo", document, errors)) << row.text;
    EXPECT_EQ(MessageTexts(errors), Lines{row.message}) << row.text;
  }
}

TEST(ParseJson, TakesAByteThatBeginsNoValueForAnInvalidOne) {
  for (const std::string begin : {"]", "}", ",", ":", "\xef\xbb\xbf{}", "\xff", "'", "/"}) {
    for (const std::string blanks : {"", " ", "\r\n\t "}) {
      JsonDocument document;
      Errors errors;
      EXPECT_FALSE(ParseJson(blanks + begin, "foo", document, errors)) << begin;
      EXPECT_EQ(MessageTexts(errors), Lines{"foo(3, " + std::to_string(blanks.size()) + ")"})
          << begin;
    }
  }
}

TEST(ParseJson, AZeroByteEndsTheText) {
  JsonDocument document;
  Errors errors;
  EXPECT_TRUE(ParseJson(std::string("{}\0]]", 5), "foo", document, errors));
  EXPECT_FALSE(ParseJson(std::string("\0{}", 3), "foo", document, errors));
  EXPECT_FALSE(ParseJson(std::string("[\0]", 3), "foo", document, errors));
  EXPECT_FALSE(ParseJson(std::string("[\"\0\"]", 5), "foo", document, errors));
  EXPECT_EQ(MessageTexts(errors), (Lines{"foo(1, 0)", "foo(3, 1)", "foo(11, 2)"}));
}

TEST(ParseJson, DoesNotLookIntoStringsForInvalidUtf8) {
  JsonDocument document;
  Errors errors;
  EXPECT_TRUE(ParseJson("\"\xff\xc0\"", "foo", document, errors));
  EXPECT_EQ(std::string(document.GetString()), "\xff\xc0");
}

TEST(ParseJson, IsStrict) {
  for (const auto* text : {"[1,]", "{\"a\":1,}", "[01]", "[+1]", "[.5]", "[NaN]", "[Infinity]",
                           "//\n1", "/**/1", "'a'", "{a:1}", "[1]]", "True"}) {
    JsonDocument document;
    Errors errors;
    EXPECT_FALSE(ParseJson(text, "foo", document, errors)) << text;
    EXPECT_EQ(errors.size(), 1U) << text;
  }
}

TEST(ParseJson, TakesOnlyTheTextAndNotWhatFollowsInMemory) {
  const std::string_view memory = "[1, 2]3";
  JsonDocument document;
  Errors errors;
  EXPECT_TRUE(ParseJson(memory.substr(0, 6), "foo", document, errors));
  EXPECT_FALSE(ParseJson(memory.substr(0, 5), "foo", document, errors));
  EXPECT_EQ(MessageTexts(errors), Lines{"foo(7, 5)"});
}

TEST(ParseJson, AppendsToTheMessages) {
  JsonDocument document;
  Errors errors{CatalogMessage("bar")};
  EXPECT_FALSE(ParseJson("[", "zelk.metadata.metamodel.parse.error", document, errors));
  EXPECT_EQ(MessageTexts(errors), (Lines{"bar()", "zelk.metadata.metamodel.parse.error(3, 1)"}));
}

TEST(JsonHeap, HasNothingToGiveForASizeOfZero) {
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

TEST(JsonHeap, ThrowsWhenThereIsNoSuchMemory) {
  void* block = JsonHeap::Malloc(8);
  EXPECT_THROW(JsonHeap::Malloc(SIZE_MAX / 2), std::bad_alloc);
  EXPECT_THROW(JsonHeap::Realloc(block, 8, SIZE_MAX / 2), std::bad_alloc);
  JsonHeap::Free(block);
}

}  // namespace
}  // namespace Zelk::Provider::Metadata

// The sanitizers end a program that asks for too much memory, unless told that it can bear it.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the sanitizers' names
extern "C" const char* __asan_default_options() {
  return "allocator_may_return_null=1";
}

extern "C" const char* __tsan_default_options() {
  return "allocator_may_return_null=1";
}

// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
