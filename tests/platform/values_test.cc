#include <list>
#include <memory>
#include <string>
#include <vector>

#include <boost/none.hpp>
#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zelk/data/error_factory.h>
#include <zelk/data/native_to_value_adapter.h>
#include <zelk/data/values.h>
#include <zelk/message.h>
#include <zelk/specializable.h>

namespace {

using namespace Zelk::Data;  // NOLINT(google-build-using-namespace): a test file
using Zelk::BaseMessage;
using ValuePtr = std::shared_ptr<const DataValue>;

// An error that a library other than the bindings might have.
class FooError : public Zelk::Specializable {
 public:
  std::string TypeName() const override { return "foo.error"; }
};

class BarError : public FooError {
 public:
  std::string TypeName() const override { return "bar.error"; }

  void SetFields(CompoundValue& value) const override {
    value.SetField("bar", NativeToValueAdapter::Adapt("baz"));
  }
};

std::string Text(const ValuePtr& value) {
  const auto string = std::dynamic_pointer_cast<const StringValue>(value);
  return string ? string->Value() : "(no string)";
}

std::vector<std::string> Texts(const ValuePtr& value) {
  const auto list = std::dynamic_pointer_cast<const ListValue>(value);
  if (!list) return {"(no list)"};
  std::vector<std::string> texts;
  for (const ValuePtr& element : list->Elements()) texts.push_back(Text(element));
  return texts;
}

// The ids of the messages that an error carries.
std::vector<std::string> MessageIds(const CompoundValue& error) {
  const auto list = std::dynamic_pointer_cast<const ListValue>(error.Field("messages"));
  if (!list) return {"(no list)"};
  std::vector<std::string> ids;
  for (const ValuePtr& element : list->Elements()) {
    const auto message = std::dynamic_pointer_cast<const StructValue>(element);
    ids.push_back(message ? Text(message->Field("id")) : "(no struct)");
  }
  return ids;
}

bool HasAbsentData(const CompoundValue& error) {
  const auto data = std::dynamic_pointer_cast<const OptionalValue>(error.Field("data"));
  return data && !data->Value();
}

TEST(OptionalValue, IsAbsentWithoutAValue) {
  EXPECT_EQ(OptionalValue().Value(), nullptr);
  EXPECT_EQ(OptionalValue(nullptr).Value(), nullptr);
  EXPECT_EQ(Text(OptionalValue(std::make_shared<StringValue>("foo")).Value()), "foo");
}

TEST(ListValue, KeepsTheOrderOfItsElements) {
  const auto list = std::make_shared<ListValue>();
  EXPECT_TRUE(list->Elements().empty());
  list->Add(std::make_shared<StringValue>("foo"));
  list->Add(std::make_shared<StringValue>("bar"));
  EXPECT_THAT(Texts(list), testing::ElementsAre("foo", "bar"));
}

TEST(StructValue, ReturnsNullForUnknownFields) {
  StructValue value("foo");
  EXPECT_EQ(value.Name(), "foo");
  EXPECT_EQ(value.Field("bar"), nullptr);
  value.SetField("bar", std::make_shared<StringValue>("baz"));
  EXPECT_EQ(Text(value.Field("bar")), "baz");
  EXPECT_EQ(value.Field("Bar"), nullptr);
}

TEST(StructValue, ReplacesAFieldSetAgain) {
  StructValue value("foo");
  value.SetField("bar", std::make_shared<StringValue>("old"));
  value.SetField("bar", std::make_shared<StringValue>("new"));
  EXPECT_EQ(Text(value.Field("bar")), "new");
}

TEST(ErrorValue, HasNoMessagesAndNoDataByDefault) {
  const ErrorValue error("foo");
  EXPECT_THAT(MessageIds(error), testing::IsEmpty());
  EXPECT_TRUE(HasAbsentData(error));
}

TEST(Values, HaveDistinctTypes) {
  const ValuePtr error = std::make_shared<ErrorValue>("foo");
  EXPECT_NE(std::dynamic_pointer_cast<const CompoundValue>(error), nullptr);
  EXPECT_EQ(std::dynamic_pointer_cast<const StructValue>(error), nullptr);
  EXPECT_EQ(std::dynamic_pointer_cast<const ListValue>(error), nullptr);
}

TEST(NativeToValueAdapter, AdaptsStringsAndLiterals) {
  const std::string odd("a\0 b", 4);
  EXPECT_EQ(NativeToValueAdapter::Adapt(odd)->Value(), odd);
  EXPECT_EQ(NativeToValueAdapter::Adapt("foo")->Value(), "foo");
}

TEST(NativeToValueAdapter, AdaptsOptionals) {
  const boost::optional<std::string> engaged("foo");
  EXPECT_EQ(Text(NativeToValueAdapter::Adapt(engaged)->Value()), "foo");
  EXPECT_EQ(NativeToValueAdapter::Adapt(boost::optional<std::string>())->Value(), nullptr);
}

TEST(NativeToValueAdapter, AdaptsListsElementByElement) {
  const std::list<std::string> empty;
  const std::list<std::string> strings = {"foo", "bar", "foo"};
  EXPECT_THAT(Texts(NativeToValueAdapter::Adapt(empty)), testing::IsEmpty());
  EXPECT_THAT(Texts(NativeToValueAdapter::Adapt(strings)),
              testing::ElementsAre("foo", "bar", "foo"));
}

TEST(NativeToValueAdapter, AdaptsListsOfOptionalsOfLists) {
  const std::list<boost::optional<std::list<std::string>>> nested = {std::list<std::string>{"foo"},
                                                                     boost::none};
  const auto value = NativeToValueAdapter::Adapt(nested);
  ASSERT_EQ(value->Elements().size(), 2U);
  const auto first = std::dynamic_pointer_cast<const OptionalValue>(value->Elements()[0]);
  const auto second = std::dynamic_pointer_cast<const OptionalValue>(value->Elements()[1]);
  EXPECT_THAT(Texts(first->Value()), testing::ElementsAre("foo"));
  EXPECT_EQ(second->Value(), nullptr);
}

TEST(NativeToValueAdapter, AdaptsAMessageWithItsThreeFields) {
  BaseMessage message("foo.id", "Foo %1%");
  message % "a" % "b";
  const auto value = NativeToValueAdapter::Adapt(message);
  EXPECT_EQ(value->Name(), "com.orvane.zelk.std.message");
  EXPECT_EQ(Text(value->Field("id")), "foo.id");
  EXPECT_EQ(Text(value->Field("default_text")), "Foo %1%");
  EXPECT_THAT(Texts(value->Field("arguments")), testing::ElementsAre("a", "b"));
}

TEST(NativeToValueAdapter, AdaptsAnErrorWithItsNameAndFields) {
  const auto value = NativeToValueAdapter::Adapt(BarError());
  EXPECT_EQ(value->Name(), "bar.error");
  EXPECT_EQ(Text(value->Field("bar")), "baz");
  EXPECT_THAT(MessageIds(*value), testing::IsEmpty());
  EXPECT_TRUE(HasAbsentData(*value));
}

TEST(ErrorFactory, MakesAnErrorWithoutMessages) {
  const std::shared_ptr<const ErrorValue> error = ErrorFactory::GetError<FooError>();
  EXPECT_EQ(error->Name(), "foo.error");
  EXPECT_THAT(MessageIds(*error), testing::IsEmpty());
  EXPECT_TRUE(HasAbsentData(*error));
}

TEST(ErrorFactory, MakesAnErrorFromAnObject) {
  const auto error = ErrorFactory::GetError<BarError>(BarError());
  EXPECT_EQ(error->Name(), "bar.error");
  EXPECT_EQ(Text(error->Field("bar")), "baz");
}

TEST(ErrorFactory, KeepsTheOrderOfMessages) {
  const std::list<BaseMessage> messages = {{"foo.id", "Foo"}, {"bar.id", "Bar"}};
  const auto error = ErrorFactory::GetError<BarError>(messages);
  EXPECT_EQ(error->Name(), "bar.error");
  EXPECT_THAT(MessageIds(*error), testing::ElementsAre("foo.id", "bar.id"));
  EXPECT_EQ(Text(error->Field("bar")), "baz");
  EXPECT_TRUE(HasAbsentData(*error));
}

}  // namespace
