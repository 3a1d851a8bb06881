#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/authentication_under_test.h"

// What is reported of files that are JSON but not Authentication metadata.

namespace Zelk::Testing {
namespace {

using testing::IsEmpty;

std::string UnknownSchemeMessage() {
  return MessageLine("zelk.metadata.authentication.json.unknown.schema.name",
                     "Authentication unknown schema name: %1%", {"id"});
}

TEST(AuthenticationFailures, ReportTheMessagesOfBothParts) {
  const AuthenticationSources sources;
  const std::string part = R"({"name": "foo", "operations": {"a.b.c": ["z"]}})";
  EXPECT_EQ(sources.Create("m", R"({"authentication": {"product": )" + part + R"(, "component": )" +
                                    part + "}}"),
            (Lines{kInvalidArgumentError, MissingFieldMessage("schemes"), UnknownSchemeMessage(),
                   MissingFieldMessage("schemes"), UnknownSchemeMessage()}));
  EXPECT_THAT(sources->ListSources(), IsEmpty());
}

TEST(AuthenticationFailures, ReportAnAbsentProductFirst) {
  const AuthenticationSources sources;
  EXPECT_EQ(sources.Create("m", R"({"authentication": {"component": {"name": "foo", "schemes": {},
                                   "operations": {"a.b.c": ["z"]}}}})"),
            (Lines{kInvalidArgumentError, MissingFieldMessage("product"), UnknownSchemeMessage()}));
  EXPECT_THAT(sources->ListSources(), IsEmpty());
}

TEST(AuthenticationFailures, ReportAbsentMembersFirst) {
  const AuthenticationSources sources;
  EXPECT_EQ(sources.Create("m", R"({"authentication": {"product": 1, "component": {
                "name": "foo", "packages": {"a": "x"}}}})"),
            (Lines{kInvalidArgumentError, InvalidFieldMessage("product"),
                   MissingFieldMessage("schemes"), MissingFieldMessage("operations"),
                   MissingFieldMessage("services"), InvalidFieldMessage("packages")}));
  EXPECT_THAT(sources->ListComponents(), IsEmpty());
}

}  // namespace
}  // namespace Zelk::Testing
