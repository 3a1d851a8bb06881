#include "analysis/document.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/small_stack.h"

using Zelk::Analysis::Document;
using Zelk::Analysis::kNoNode;
using Zelk::Analysis::kRootNode;
using Zelk::Analysis::Node;
using Zelk::Analysis::NodeId;

namespace {

std::string Raw(const Document& document, NodeId id) {
  const Node& node = document[id];
  return std::string(document.Text().substr(node.begin, node.end - node.begin));
}

std::string RawKey(const Document& document, NodeId id) {
  const Node& node = document[id];
  return std::string(document.Text().substr(node.key_begin, node.key_end - node.key_begin));
}

}  // namespace

TEST(Document, NodesCoverTheirValuesAndKeys) {
  const Document document(
      " { \"a\" :\t7 ,\"b\":[ true,null , -1.5e3,\n\"x\\\"\"] ,\"c\":{ } ,\"d\":[[],{}]} ");
  const std::vector<std::string> values{
      R"({ "a" :)"
      "\t7 ,\"b\":[ true,null , -1.5e3,\n\"x\\\"\"] ,\"c\":{ } ,\"d\":[[],{}]}",
      "7",
      "[ true,null , -1.5e3,\n\"x\\\"\"]",
      "true",
      "null",
      "-1.5e3",
      "\"x\\\"\"",
      "{ }",
      "[[],{}]",
      "[]",
      "{}"};
  ASSERT_EQ(document.Size(), values.size());
  for (NodeId id = 0; id < values.size(); ++id) EXPECT_EQ(Raw(document, id), values[id]) << id;
  EXPECT_EQ(RawKey(document, 7), "\"c\"");
  EXPECT_EQ(RawKey(document, 3), "");
  EXPECT_EQ(document.Pointer(6), "/b/3");
}

TEST(Document, TextsAreWhatTheirEscapesMean) {
  const Document document(R"({"k\u0065y": "a\n\ud83d\ude00", "plain": "text", "": 1})");
  const NodeId escaped = document[kRootNode].first_child;
  EXPECT_EQ(document.Key(escaped), "key");
  EXPECT_EQ(document.String(escaped), "a\n\U0001F600");
  const NodeId plain = document[escaped].next;
  EXPECT_EQ(document.Key(plain), "plain");
  EXPECT_EQ(document.String(plain), "text");
  EXPECT_EQ(document.Key(document[plain].next), "");
  EXPECT_EQ(document.String(document[plain].next), "");
  EXPECT_EQ(document.Key(kRootNode), "");
}

TEST(Document, FindReturnsTheFirstMemberUpToAZeroByte) {
  const Document document(R"({"ab": 0, "a\u0000b": 1, "a": 2, "c": [3]})");
  EXPECT_EQ(document.Find(kRootNode, "a"), 2U);
  EXPECT_EQ(document.Find(kRootNode, "ab"), 1U);
  EXPECT_EQ(document.Find(kRootNode, "d"), kNoNode);
  EXPECT_EQ(document.Find(document.Find(kRootNode, "c"), "a"), kNoNode);
}

TEST(Document, PointersEscapeWhatSeparatesTheirSteps) {
  const Document document(R"({"a/b~": {"": 1}})");
  EXPECT_EQ(document.Pointer(0), "");
  EXPECT_EQ(document.Pointer(2), "/a~1b~0/");
}

TEST(Document, TextThatIsNotJsonHasNoNodes) {
  for (const char* text : {"", "{", "[1,]", "{} {}", "tru"}) {
    EXPECT_FALSE(Document(text).IsJson()) << text;
    EXPECT_EQ(Document(text).Size(), 0U) << text;
  }
  EXPECT_TRUE(Document("{}").IsJson());
}

TEST(Document, EmptyLineAndEndHavePositions) {
  const Document document("a\n\nb\n");
  EXPECT_EQ(document.PositionAt(2).line, 2U);
  EXPECT_EQ(document.PositionAt(2).column, 1U);
  EXPECT_EQ(document.PositionAt(5).line, 4U);
  EXPECT_EQ(document.PositionAt(4).column, 2U);
}

TEST(Document, AnyDepthIsParsedAndPointedInto) {
  constexpr std::size_t kLevels = 300000;
  Zelk::Testing::RunOnSmallStack(256 * 1024, [] {
    const Document document(std::string(kLevels, '[') + std::string(kLevels, ']'));
    ASSERT_TRUE(document.IsJson());
    EXPECT_EQ(document.Pointer(kLevels - 1).size(), 2 * (kLevels - 1));
    EXPECT_EQ(document[0].end, 2 * kLevels);
  });
}
