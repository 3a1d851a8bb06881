#include <cstdint>
#include <list>
#include <locale>
#include <string>

#include <boost/none.hpp>
#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zelk/message.h>

namespace {

using Zelk::BaseMessage;
using OptionalString = boost::optional<std::string>;

class FooSvc;

// Stands for a parse-error code of a JSON library: an enumeration without a class.
enum FooError { kFooNone, kFooBroken = 3 };

BaseMessage Foo() {
  return {"foo.id", "Foo %1% and %2%"};
}

TEST(BaseMessage, StartsWithoutArguments) {
  const BaseMessage message = Foo();
  EXPECT_EQ(message.Id(), "foo.id");
  EXPECT_EQ(message.DefaultText(), "Foo %1% and %2%");
  EXPECT_TRUE(message.Arguments().empty());
}

TEST(BaseMessage, KeepsTheOrderOfItsArguments) {
  BaseMessage message = Foo();
  message % std::string("a") % std::uint64_t{7};
  EXPECT_THAT(message.Arguments(), testing::ElementsAre("a", "7"));
  EXPECT_EQ(message.DefaultText(), "Foo %1% and %2%");
}

TEST(BaseMessage, ReturnsItselfForEachArgument) {
  BaseMessage message = Foo();
  EXPECT_EQ(&(message % "bar"), &message);
}

TEST(BaseMessage, KeepsEveryByteOfLiteralsAndPointers) {
  const char* const pointer = " b\tar ";
  BaseMessage message = Foo();
  message % "" % "name" % pointer;
  EXPECT_THAT(message.Arguments(), testing::ElementsAre("", "name", " b\tar "));
}

TEST(BaseMessage, WritesNumbersAsPlainDecimalDigits) {
  BaseMessage message = Foo();
  message % std::uint64_t{0} % std::uint64_t{1234567} % UINT64_MAX;
  EXPECT_THAT(message.Arguments(), testing::ElementsAre("0", "1234567", "18446744073709551615"));
}

TEST(BaseMessage, WritesNumbersWithoutLocaleGrouping) {
  class Thousands : public std::numpunct<char> {
    char do_thousands_sep() const override { return ','; }

    std::string do_grouping() const override { return "\3"; }
  };

  const std::locale before = std::locale::global(std::locale(std::locale(), new Thousands));
  Zelk::BaseMessage message("foo", "%1%");
  message % std::uint64_t{1234567};
  std::locale::global(before);
  EXPECT_THAT(message.Arguments(), testing::ElementsAre("1234567"));
}

TEST(BaseMessage, WritesSizesAndEnumeratorsAsNumbers) {
  BaseMessage message = Foo();
  message % kFooBroken % std::size_t{42};
  EXPECT_THAT(message.Arguments(), testing::ElementsAre("3", "42"));
}

TEST(BaseMessage, WritesAnOptionalAfterASpaceOrAsTwoDashes) {
  BaseMessage message = Foo();
  message % OptionalString("x") % OptionalString() % OptionalString("") % boost::none;
  EXPECT_THAT(message.Arguments(), testing::ElementsAre(" x", "--", " ", "--"));
}

TEST(BaseMessage, KeepsSpacesAndZeroBytes) {
  const std::string odd("\0 a \0\n", 6);
  BaseMessage message = Foo();
  message % odd % OptionalString(odd);
  EXPECT_THAT(message.Arguments(), testing::ElementsAre(odd, " " + odd));
}

TEST(BaseMessage, CopiesItsArguments) {
  BaseMessage original = Foo();
  original % "a";
  BaseMessage copy = original;
  copy % "b";
  EXPECT_THAT(original.Arguments(), testing::ElementsAre("a"));
  EXPECT_THAT(copy.Arguments(), testing::ElementsAre("a", "b"));
  EXPECT_EQ(copy.Id(), "foo.id");
}

TEST(BaseMessage, AcceptsItsOwnArguments) {
  BaseMessage message = Foo();
  message % "a";
  message % message.Arguments().front();
  EXPECT_THAT(message.Arguments(), testing::ElementsAre("a", "a"));
}

}  // namespace

namespace Zelk {

template <>
std::string Message<FooSvc>::DefaultMessageForId(const std::string& id) {
  return "text of " + id;
}

}  // namespace Zelk

namespace {

TEST(Message, FindsItsTextInTheCatalogOfItsService) {
  const Zelk::Message<FooSvc> message("foo.id");
  EXPECT_EQ(message.Id(), "foo.id");
  EXPECT_EQ(message.DefaultText(), "text of foo.id");
}

TEST(Message, KeepsItsStateAsABaseMessage) {
  std::list<BaseMessage> messages;
  Zelk::Message<FooSvc> message("foo.id");
  messages.push_back(message % "a");
  EXPECT_EQ(messages.front().Id(), "foo.id");
  EXPECT_EQ(messages.front().DefaultText(), "text of foo.id");
  EXPECT_THAT(messages.front().Arguments(), testing::ElementsAre("a"));
}

}  // namespace
