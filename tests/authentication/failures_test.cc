#include <list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "authentication/parsed.h"
#include "support/as_source.h"

namespace Zelk::Provider::Metadata::Authentication {
namespace {

/// Everything about a message.
struct FullMessage {
  std::string id;
  std::string default_text;
  std::list<std::string> arguments;

  bool operator==(const FullMessage& other) const {
    return id == other.id && default_text == other.default_text && arguments == other.arguments;
  }

  friend std::ostream& operator<<(std::ostream& out, const FullMessage& message) {
    return out << Testing::MessageText(message.id, message.arguments) << " "
               << message.default_text;
  }
};

std::vector<FullMessage> MessagesOfFile(const std::string& json) {
  Errors errors;
  std::string components;
  JsonMetadataParser::LoadMetadata(Testing::AsSource(json), KeepTexts(components), errors);
  std::vector<FullMessage> messages;
  for (const auto& error : errors) {
    messages.push_back({error.Id(), error.DefaultText(), error.Arguments()});
  }
  return messages;
}

FullMessage Missing(const std::string& name) {
  return {"zelk.metadata.json.missing.field", "Json parse missing field: %1%", {name}};
}

FullMessage Invalid(const std::string& name) {
  return {"zelk.metadata.json.invalid.field", "Json parse invalid field: %1%", {name}};
}

struct FailureRow {
  std::string component;
  std::vector<FullMessage> messages;
};

const FullMessage kUnknownScheme = {"zelk.metadata.authentication.json.unknown.schema.name",
                                    "Authentication unknown schema name: %1%",
                                    {"id"}};
const FullMessage kBadEnum = {
    "zelk.metadata.json.invalid.enum.value", "Json parse invalid enum value: %1%", {"type"}};
const FullMessage kBadOperation = {
    "zelk.metadata.authentication.json.invalid.operation.id", "Unknown message.", {"start"}};
const FullMessage kBadService = {
    "zelk.metadata.authentication.json.invalid.service.id", "Unknown message.", {"power"}};

const FailureRow kFailures[] = {
    {"{}", {Missing("name")}},
    {R"({"name": 1})", {Invalid("name")}},
    {R"({"name": null})", {Invalid("name")}},
    {R"({"name": "foo", "schemes": []})", {Invalid("schemes")}},
    {R"({"name": "foo", "schemes": {"x": 1}})", {Missing("authenticationScheme")}},
    {R"({"name": "foo", "schemes": {"x": {"authenticationScheme": 1}}})",
     {Invalid("authenticationScheme")}},
    {R"({"name": "foo", "schemes": {"x": {"authenticationScheme": "ex"}}})", {Missing("type")}},
    {R"({"name": "foo", "schemes": {"x": {"authenticationScheme": "ex", "type": []}}})",
     {Invalid("type")}},
    {R"({"name": "foo", "schemes": {"x": {"authenticationScheme": "ex", "type": "bar"}}})",
     {kBadEnum}},
    {R"({"name": "foo", "schemes": {"x": {"authenticationScheme": "ex",
                                          "type": "SessionAware"}}})",
     {Missing("sessionManager")}},
    {R"({"name": "foo", "operations": null})", {Missing("schemes"), Invalid("operations")}},
    {Foo(R"("operations": {"start": []})"), {kBadOperation}},
    {Foo(R"("operations": {"a.b.c": "x"})"), {Invalid("packages")}},
    {Foo(R"("operations": {"a.b.c": ["z"]})"), {kUnknownScheme}},
    {R"({"name": "foo", "services": 1})",
     {Missing("schemes"), Missing("operations"), Invalid("services")}},
    {Foo(R"("services": {"power": []})"), {Missing("operations"), kBadService}},
    {Foo(R"("services": {"a.b": ["z"]})"), {Missing("operations"), kUnknownScheme}},
    {R"({"name": "foo", "packages": "bar"})",
     {Missing("schemes"), Missing("operations"), Missing("services"), Invalid("packages")}},
    {Foo(R"("operations": {}, "packages": {"a": [1]})"),
     {Missing("services"), Invalid("packages")}},
    // The service that could not be made up is reported too, in front of the failure.
    {Foo(R"("operations": {"power.start": []}, "services": {}, "packages": {"a": ["z"]})"),
     {kBadService, kUnknownScheme}},
};

TEST(ComponentFailure, FailsTheFileWithoutAProduct) {
  for (const auto& row : kFailures) {
    const std::string json = R"({"authentication": {"component": )" + row.component + "}}";
    auto messages = row.messages;
    messages.insert(messages.begin(), Missing("product"));
    EXPECT_EQ(MessagesOfFile(json), messages) << row.component;
    const auto parsed = ParseFile(json);
    EXPECT_FALSE(parsed.accepted) << row.component;
    EXPECT_EQ(parsed.components, "") << row.component;
  }
}

TEST(ComponentFailure, IsAcceptedWithAGoodProduct) {
  for (const auto& row : kFailures) {
    const auto parsed = ParseFile(R"({"authentication": {"component": )" + row.component +
                                  R"(, "product": {"name": "bar"}}})");
    EXPECT_TRUE(parsed.accepted) << row.component;
    EXPECT_EQ(parsed.components, "component \"bar\"\n") << row.component;
  }
}

TEST(BothPartsFailure, ReportsTheMessagesOfBoth) {
  for (const auto& row : kFailures) {
    const std::string json = R"({"authentication": {"component": )" + row.component +
                             R"(, "product": )" + row.component + "}}";
    auto messages = row.messages;
    messages.insert(messages.end(), row.messages.begin(), row.messages.end());
    EXPECT_EQ(MessagesOfFile(json), messages) << json;
    const auto parsed = ParseFile(json);
    EXPECT_FALSE(parsed.accepted) << json;
    EXPECT_EQ(parsed.components, "") << json;
  }
}

TEST(RootFailure, ReportsExactlyTheseMessages) {
  EXPECT_EQ(MessagesOfFile("{}"), std::vector{Missing("authentication")});
  EXPECT_EQ(MessagesOfFile(R"({"authentication": 1})"), std::vector{Invalid("authentication")});
  const FullMessage syntax = {"zelk.metadata.authentication.parse.error",
                              "Authentication source file parse error : %1% at %2%",
                              {"6", "7"}};
  EXPECT_EQ(MessagesOfFile(R"({"a": 1)"), std::vector{syntax});
}

TEST(OperationId, NeedsBothParts) {
  for (const std::string id : {"", ".", "start", ".start", "power.", "a.b."}) {
    const auto parsed = ParseComponent(Foo(R"("operations": {")" + id + R"(": []})"));
    EXPECT_FALSE(parsed.accepted) << id;
    EXPECT_EQ(parsed.components, "") << id;
    EXPECT_EQ(parsed.messages, Lines{InvalidOperationId(id)}) << id;
  }
}

TEST(ServiceId, NeedsBothParts) {
  for (const std::string id : {"", ".", "power", ".power", "vm.", "a.b."}) {
    const auto parsed = ParseComponent(Foo(R"("services": {")" + id + R"(": []})"));
    EXPECT_FALSE(parsed.accepted) << id;
    EXPECT_EQ(parsed.components, "") << id;
    EXPECT_EQ(parsed.messages, (Lines{MissingField("operations"), InvalidServiceId(id)})) << id;
  }
}

TEST(OperationAndServiceIds, AreCheckedAfterTheirLists) {
  const auto operations = ParseComponent(Foo(R"("operations": {"start": ["z"]})"));
  EXPECT_EQ(operations.messages, Lines{UnknownScheme()});
  const auto services = ParseComponent(Foo(R"("operations": {}, "services": {"power": 1})"));
  EXPECT_EQ(services.messages, Lines{InvalidField("packages")});
}

TEST(OperationAndServiceIds, KeepZeroBytesInMessages) {
  const auto operations = ParseComponent(Foo(R"("operations": {"st\u0000art": []})"));
  EXPECT_EQ(operations.messages, Lines{InvalidOperationId(std::string("st\0art", 6))});
  const auto services = ParseComponent(Foo(R"("operations": {}, "services": {"po\u0000wer": []})"));
  EXPECT_EQ(services.messages, Lines{InvalidServiceId(std::string("po\0wer", 6))});
}

TEST(ComponentFailure, StopsAtTheFirstFailure) {
  const auto parsed = ParseComponent(R"({"name": "foo", "schemes": {"x": {}}, "operations": 1,
                                        "services": 1, "packages": 1})");
  EXPECT_FALSE(parsed.accepted);
  EXPECT_EQ(parsed.messages, Lines{MissingField("authenticationScheme")});
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Authentication
