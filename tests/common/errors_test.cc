#include "common/messages/errors.h"

#include <string>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include "support/message_texts.h"

namespace Zelk::Provider::Metadata {
namespace {

using Testing::ErrorTexts;
using Testing::Lines;

constexpr char kOperation[] = "zelk.metada.metamodel.operation.not.found";

TEST(MakeError, HasTheErrorNameAndOneMessage) {
  EXPECT_EQ(
      ErrorTexts(*MakeError<StdErrors::NotFound>(kOperation, "foo", "bar")),
      (Lines{"com.orvane.zelk.std.errors.not_found", std::string(kOperation) + "(foo, bar)"}));
  EXPECT_EQ(ErrorTexts(*MakeError<StdErrors::AlreadyExists>("foo", std::string("bar"))),
            (Lines{"com.orvane.zelk.std.errors.already_exists", "foo(bar)"}));
  EXPECT_EQ(ErrorTexts(*MakeError<StdErrors::InvalidArgument>("foo", 7U)),
            (Lines{"com.orvane.zelk.std.errors.invalid_argument", "foo(7)"}));
}

TEST(MakeError, WritesAnOptionalAfterASpaceOrAsTwoDashes) {
  const boost::optional<std::string> none;
  const boost::optional<std::string> some("foo");
  EXPECT_EQ(ErrorTexts(*MakeError<StdErrors::NotFound>("bar", some, none)).back(), "bar( foo, --)");
}

TEST(MakeError, KeepsThePlaceholdersOfTheText) {
  const auto error = MakeError<StdErrors::NotFound>(kOperation, "foo", "bar");
  const auto messages =
      std::dynamic_pointer_cast<const ::Zelk::Data::ListValue>(error->Field("messages"));
  const auto message =
      std::dynamic_pointer_cast<const ::Zelk::Data::StructValue>(messages->Elements().front());
  EXPECT_EQ(Testing::StringOf(*message->Field("default_text")),
            "Metamodel operation not found: %1%[%2%]");
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
