#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/cli_files.h"
#include "support/cli_text.h"
#include "surface/cli_under_test.h"

// The two services that answer questions.

namespace Zelk::Testing {
namespace {

using CommandService = Provider::Metadata::Cli::CommandSvc::AsyncServiceImpl;
using NamespaceService = Provider::Metadata::Cli::NamespaceSvc::AsyncServiceImpl;

Lines CommandNotFound(const std::string& full_name) {
  return NotFound<CliUnderTest>("command", full_name);
}

Lines NamespaceNotFound(const std::string& full_name) {
  return NotFound<CliUnderTest>("namespace", full_name);
}

auto ListCommands(const CliSources& sources, const OptionalText& path) {
  CommandService service(sources.Shared());
  return Ask(service, &CommandService::List, path);
}

auto GetCommand(const CliSources& sources, const std::string& path, const std::string& name) {
  CommandService service(sources.Shared());
  return Ask(service, &CommandService::Get,
             std::make_shared<const Bindings::Cli::CommandSvc::Identity>(path, name));
}

auto GetNamespace(const CliSources& sources, const std::string& path, const std::string& name) {
  NamespaceService service(sources.Shared());
  return Ask(service, &NamespaceService::Get,
             std::make_shared<const Bindings::Cli::NamespaceSvc::Identity>(path, name));
}

template <typename Service>
std::string Fingerprint(const CliSources& sources) {
  Service service(sources.Shared());
  return ValueOf(Ask(service, &Service::Fingerprint));
}

template <typename Service>
Lines ErrorForNull(const CliSources& sources) {
  Service service(sources.Shared());
  return ErrorOf(Ask(service, &Service::Get, nullptr));
}

/// Sources whose namespaces and commands collide.
CliSources Colliding() {
  return {{"2", CliFile({NamespaceNode("", "a", "second"), CommandNode("a", "list", "second"),
                         CommandNode("a.b.c", "list")})},
          {"1", CliFile({NamespaceNode("a", "b"), CommandNode("a", "list", "first"),
                         CommandNode("", "top")})}};
}

TEST(CliCommandService, ListsWhatTheContainerLists) {
  const CliSources sources = Colliding();
  const auto commands = ValueOf(ListCommands(sources, boost::none));
  EXPECT_EQ(CliTexts(commands), (Lines{":top", "a:list", "a:list", "a.b.c:list"}));
  EXPECT_EQ(commands, sources->ListCommands(boost::none));
}

TEST(CliCommandService, ListsTheCommandsOfOneNamespace) {
  const CliSources sources = Colliding();
  EXPECT_EQ(CliTexts(ValueOf(ListCommands(sources, std::string("a")))),
            (Lines{"a:list", "a:list"}));
}

TEST(CliCommandService, AcceptsAnEmptyNamespaceAsAFilter) {
  EXPECT_EQ(CliTexts(ValueOf(ListCommands(Colliding(), std::string()))), Lines{":top"});
  EXPECT_EQ(ErrorOf(ListCommands(CliSources(), std::string())), NamespaceNotFound(""));
}

TEST(CliCommandService, ReportsANamespaceWithoutCommands) {
  const CliSources sources = Colliding();
  for (const std::string path : {"a.b", "A", "a.", "a.b.c.list", "list", " a", "nowhere"}) {
    EXPECT_EQ(ErrorOf(ListCommands(sources, path)), NamespaceNotFound(path)) << path;
  }
}

TEST(CliCommandService, ListsNothingWithoutSources) {
  EXPECT_EQ(CliTexts(ValueOf(ListCommands(CliSources(), boost::none))), Lines());
}

TEST(CliCommandService, DeliversTheRecordOfTheFirstSource) {
  const CliSources sources = Colliding();
  const auto command = ValueOf(GetCommand(sources, "a", "list"));
  EXPECT_EQ(CliText(*command), R"(command a:list "first" "" "" none)");
  EXPECT_EQ(command, sources->CommandInfo(command->identity));
}

TEST(CliCommandService, ReportsAnUnknownCommandByItsFullName) {
  struct Row {
    const char* path;
    const char* name;
    const char* full_name;
  };

  const CliSources sources = Colliding();
  const std::vector<Row> rows = {
      {"a.b", "list", "a.b.list"}, {"", "list", "list"},   {"a", "", "a."}, {"", "", ""},
      {"", "a.list", "a.list"},    {"A", "list", "A.list"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ErrorOf(GetCommand(sources, row.path, row.name)), CommandNotFound(row.full_name))
        << row.full_name;
  }
}

TEST(CliCommandService, ReportsANullIdentity) {
  EXPECT_EQ(ErrorForNull<CommandService>(Colliding()), CommandNotFound(""));
}

TEST(CliCommandService, DeliversTheFingerprintOfAllSources) {
  const CliSources sources = Colliding();
  EXPECT_EQ(Fingerprint<CommandService>(sources), sources->CommandFingerprint());
  EXPECT_EQ(Fingerprint<CommandService>(CliSources()), kDigestOfNothing);
}

TEST(CliNamespaceService, ListsWhatTheContainerLists) {
  const CliSources sources = Colliding();
  NamespaceService service(sources.Shared());
  const auto namespaces = ValueOf(Ask(service, &NamespaceService::List));
  EXPECT_EQ(CliTexts(namespaces), (Lines{":", ":a", "a:b", ":", ":a"}));
  EXPECT_EQ(namespaces, sources->ListNamespaces());
}

TEST(CliNamespaceService, ListsNothingWithoutSources) {
  NamespaceService service(CliSources().Shared());
  EXPECT_EQ(CliTexts(ValueOf(Ask(service, &NamespaceService::List))), Lines());
}

TEST(CliNamespaceService, DeliversTheRoot) {
  EXPECT_EQ(CliText(*ValueOf(GetNamespace(Colliding(), "", ""))),
            R"(namespace : "Root namespace" [:a, :])");
}

TEST(CliNamespaceService, HasNoRootWithoutSources) {
  EXPECT_EQ(ErrorOf(GetNamespace(CliSources(), "", "")), NamespaceNotFound(""));
}

TEST(CliNamespaceService, DeliversTheRecordOfTheFirstSource) {
  const CliSources sources = Colliding();
  const auto info = ValueOf(GetNamespace(sources, "", "a"));
  EXPECT_EQ(CliText(*info), R"(namespace :a "a namespace" [a:b])");
  EXPECT_EQ(info, sources->NamespaceInfo(info->identity));
}

TEST(CliNamespaceService, ReportsAnUnknownNamespaceByItsFullName) {
  struct Row {
    const char* path;
    const char* name;
    const char* full_name;
  };

  const CliSources sources = Colliding();
  const std::vector<Row> rows = {{"", "b", "b"},
                                 {"b", "a", "b.a"},
                                 {"a.b", "c", "a.b.c"},
                                 {"a", "", "a."},
                                 {"", "a.b", "a.b"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ErrorOf(GetNamespace(sources, row.path, row.name)), NamespaceNotFound(row.full_name))
        << row.full_name;
  }
}

TEST(CliNamespaceService, ReportsANullIdentity) {
  EXPECT_EQ(ErrorForNull<NamespaceService>(Colliding()), NamespaceNotFound(""));
}

TEST(CliNamespaceService, DeliversTheFingerprintOfAllSources) {
  const CliSources sources = Colliding();
  EXPECT_EQ(Fingerprint<NamespaceService>(sources), sources->NamespaceFingerprint());
  EXPECT_EQ(Fingerprint<NamespaceService>(CliSources()), kDigestOfNothing);
}

TEST(CliServices, ThrowOnAnEmptyResult) {
  const CliSources sources = Colliding();
  CommandService commands(sources.Shared());
  NamespaceService namespaces(sources.Shared());
  EXPECT_THROW(commands.List(boost::none, nullptr, {}), std::bad_function_call);
  EXPECT_THROW(commands.List(std::string("nowhere"), nullptr, {}), std::bad_function_call);
  EXPECT_THROW(commands.Get(nullptr, nullptr, {}), std::bad_function_call);
  EXPECT_THROW(commands.Fingerprint(nullptr, {}), std::bad_function_call);
  EXPECT_THROW(namespaces.List(nullptr, {}), std::bad_function_call);
  EXPECT_THROW(namespaces.Get(nullptr, nullptr, {}), std::bad_function_call);
  EXPECT_THROW(namespaces.Fingerprint(nullptr, {}), std::bad_function_call);
}

TEST(CliServices, KeepTheContainerAlive) {
  auto shared = Provider::Metadata::Cli::MetadataContainer::GetInstance();
  const std::weak_ptr<Provider::Metadata::Cli::MetadataContainer> container = shared;
  {
    const CommandService service(std::move(shared));
    EXPECT_FALSE(container.expired());
  }
  EXPECT_TRUE(container.expired());
}

}  // namespace
}  // namespace Zelk::Testing
