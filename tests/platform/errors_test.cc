#include <list>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <com/orvane/zelk/std/errors.h>
#include <zelk/data/error_factory.h>
#include <zelk/data/values.h>
#include <zelk/message.h>

namespace {

namespace StdErrors = Com::Orvane::Zelk::Std::Errors;
using Zelk::Data::ErrorFactory;
using Zelk::Data::ErrorValue;
using Zelk::Data::ListValue;
using Zelk::Data::OptionalValue;
using Zelk::Data::StringValue;

std::size_t MessageCount(const ErrorValue& error) {
  return std::dynamic_pointer_cast<const ListValue>(error.Field("messages"))->Elements().size();
}

std::shared_ptr<const Zelk::Data::DataValue> Data(const ErrorValue& error) {
  return std::dynamic_pointer_cast<const OptionalValue>(error.Field("data"))->Value();
}

template <typename E>
class StandardErrors : public testing::Test {};

using AllErrors = testing::Types<StdErrors::Error, StdErrors::NotFound, StdErrors::AlreadyExists,
                                 StdErrors::InvalidArgument, StdErrors::Unsupported>;
TYPED_TEST_SUITE(StandardErrors, AllErrors, );

TYPED_TEST(StandardErrors, AreEmptyByDefault) {
  const TypeParam error;
  EXPECT_TRUE(error.Messages().empty());
  EXPECT_EQ(error.Data(), nullptr);
}

TYPED_TEST(StandardErrors, BecomeErrorValuesWithoutMessagesAndData) {
  const auto error = ErrorFactory::GetError<TypeParam>();
  EXPECT_EQ(error->Name(), TypeParam().TypeName());
  EXPECT_EQ(MessageCount(*error), 0U);
  EXPECT_EQ(Data(*error), nullptr);
}

TYPED_TEST(StandardErrors, BecomeErrorValuesWithTheGivenMessages) {
  const std::list<Zelk::BaseMessage> messages = {{"foo.id", "Foo"}, {"bar.id", "Bar"}};
  const auto error = ErrorFactory::GetError<TypeParam>(messages);
  EXPECT_EQ(error->Name(), TypeParam().TypeName());
  EXPECT_EQ(MessageCount(*error), 2U);
  EXPECT_EQ(Data(*error), nullptr);
}

TYPED_TEST(StandardErrors, KeepTheirOwnMessagesAndData) {
  TypeParam error;
  error.SetMessages({{"foo.id", "Foo"}});
  error.SetData(std::make_shared<StringValue>("bar"));
  const auto value = ErrorFactory::GetError<TypeParam>(error);
  EXPECT_EQ(MessageCount(*value), 1U);
  EXPECT_EQ(Data(*value), error.Data());
  EXPECT_EQ(error.Messages().front().Id(), "foo.id");
}

TYPED_TEST(StandardErrors, AreCopiedWithTheirMessagesAndData) {
  TypeParam error;
  error.SetMessages({{"foo.id", "Foo"}});
  error.SetData(std::make_shared<StringValue>("bar"));
  const TypeParam copy(error);
  TypeParam assigned;
  assigned = error;
  error.SetMessages({});
  for (const TypeParam* same : {&copy, &std::as_const(assigned)}) {
    ASSERT_EQ(same->Messages().size(), 1U);
    EXPECT_EQ(same->Messages().front().Id(), "foo.id");
    EXPECT_EQ(same->Data(), error.Data());
  }
}

TEST(StandardErrorNames, AreDottedLowerCase) {
  EXPECT_EQ(StdErrors::Error().TypeName(), "com.orvane.zelk.std.errors.error");
  EXPECT_EQ(StdErrors::NotFound().TypeName(), "com.orvane.zelk.std.errors.not_found");
  EXPECT_EQ(StdErrors::AlreadyExists().TypeName(), "com.orvane.zelk.std.errors.already_exists");
  EXPECT_EQ(StdErrors::InvalidArgument().TypeName(), "com.orvane.zelk.std.errors.invalid_argument");
  EXPECT_EQ(StdErrors::Unsupported().TypeName(), "com.orvane.zelk.std.errors.unsupported");
}

}  // namespace
