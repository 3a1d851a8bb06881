#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "cli/cli_text.h"
#include "cli/hosted.h"

// The two services that answer questions.

namespace Zelk::Testing {
namespace {

using CommandService = Provider::Metadata::Cli::CommandSvc::AsyncServiceImpl;
using NamespaceService = Provider::Metadata::Cli::NamespaceSvc::AsyncServiceImpl;
using OptionalPath = boost::optional<std::string>;

Lines CommandNotFound(const std::string& full_name) {
  return NotFound("zelk.metada.cli.command.not.found", "Cli command not found: %1%", full_name);
}

Lines NamespaceNotFound(const std::string& full_name) {
  return NotFound("zelk.metada.cli.namespace.not.found", "Cli namespace not found: %1%", full_name);
}

auto ListCommands(const CliHost& host, const OptionalPath& path) {
  CommandService service(host.Container());
  return Ask(service, &CommandService::List, path);
}

auto GetCommand(const CliHost& host, const std::string& path, const std::string& name) {
  CommandService service(host.Container());
  return Ask(service, &CommandService::Get,
             std::make_shared<const Bindings::Cli::CommandSvc::Identity>(path, name));
}

auto GetNamespace(const CliHost& host, const std::string& path, const std::string& name) {
  NamespaceService service(host.Container());
  return Ask(service, &NamespaceService::Get,
             std::make_shared<const Bindings::Cli::NamespaceSvc::Identity>(path, name));
}

template <typename Service>
std::string Fingerprint(const CliHost& host) {
  Service service(host.Container());
  return ValueOf(Ask(service, &Service::Fingerprint));
}

template <typename Service>
Lines ErrorForNull(const CliHost& host) {
  Service service(host.Container());
  return ErrorOf(Ask(service, &Service::Get, nullptr));
}

/// Sources whose namespaces and commands collide.
CliHost::Files Colliding() {
  return {{"2", CliFile({NamespaceNode("", "a", "second"), CommandNode("a", "list", "second"),
                         CommandNode("a.b.c", "list")})},
          {"1", CliFile({NamespaceNode("a", "b"), CommandNode("a", "list", "first"),
                         CommandNode("", "top")})}};
}

// --- commands -----------------------------------------------------------------------------------

TEST(CliCommandService, ListsWhatTheContainerLists) {
  const CliHost host(Colliding());
  const auto commands = ValueOf(ListCommands(host, boost::none));
  EXPECT_EQ(CliTexts(commands), (Lines{":top", "a:list", "a:list", "a.b.c:list"}));
  EXPECT_EQ(commands, host->ListCommands(boost::none));
}

TEST(CliCommandService, ListsTheCommandsOfOneNamespace) {
  const CliHost host(Colliding());
  EXPECT_EQ(CliTexts(ValueOf(ListCommands(host, std::string("a")))), (Lines{"a:list", "a:list"}));
}

TEST(CliCommandService, TakesAnEmptyNamespaceForAFilterLikeAnyOther) {
  EXPECT_EQ(CliTexts(ValueOf(ListCommands(CliHost(Colliding()), std::string()))), Lines{":top"});
  EXPECT_EQ(ErrorOf(ListCommands(CliHost(), std::string())), NamespaceNotFound(""));
}

TEST(CliCommandService, DoesNotFindANamespaceWithoutCommandsOfItsOwn) {
  const CliHost host(Colliding());
  for (const std::string path : {"a.b", "A", "a.", "a.b.c.list", "list", " a", "nowhere"}) {
    EXPECT_EQ(ErrorOf(ListCommands(host, path)), NamespaceNotFound(path)) << path;
  }
}

TEST(CliCommandService, WithoutSourcesListsNothingSuccessfully) {
  EXPECT_EQ(CliTexts(ValueOf(ListCommands(CliHost(), boost::none))), Lines());
}

TEST(CliCommandService, GetsTheRecordOfTheFirstSource) {
  const CliHost host(Colliding());
  const auto command = ValueOf(GetCommand(host, "a", "list"));
  EXPECT_EQ(CliText(*command), R"(command a:list "first" "" "" none)");
  EXPECT_EQ(command, host->CommandInfo(command->identity));
}

TEST(CliCommandService, NamesTheCommandItDoesNotFindInFull) {
  struct Row {
    const char* path;
    const char* name;
    const char* full_name;
  };

  const CliHost host(Colliding());
  const std::vector<Row> rows = {
      {"a.b", "list", "a.b.list"}, {"", "list", "list"},   {"a", "", "a."}, {"", "", ""},
      {"", "a.list", "a.list"},    {"A", "list", "A.list"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ErrorOf(GetCommand(host, row.path, row.name)), CommandNotFound(row.full_name))
        << row.full_name;
  }
}

TEST(CliCommandService, DoesNotFindANullIdentity) {
  EXPECT_EQ(ErrorForNull<CommandService>(CliHost(Colliding())), CommandNotFound(""));
}

TEST(CliCommandService, DeliversTheFingerprintOfAllSourcesOrOfNone) {
  const CliHost host(Colliding());
  EXPECT_EQ(Fingerprint<CommandService>(host), host->CommandFingerprint());
  EXPECT_EQ(Fingerprint<CommandService>(CliHost()), kDigestOfNothing);
}

// --- namespaces ---------------------------------------------------------------------------------

TEST(CliNamespaceService, ListsWhatTheContainerLists) {
  const CliHost host(Colliding());
  NamespaceService service(host.Container());
  const auto namespaces = ValueOf(Ask(service, &NamespaceService::List));
  EXPECT_EQ(CliTexts(namespaces), (Lines{":", ":a", "a:b", ":", ":a"}));
  EXPECT_EQ(namespaces, host->ListNamespaces());
}

TEST(CliNamespaceService, WithoutSourcesListsNothingSuccessfully) {
  NamespaceService service(CliHost().Container());
  EXPECT_EQ(CliTexts(ValueOf(Ask(service, &NamespaceService::List))), Lines());
}

TEST(CliNamespaceService, GetsTheRootThatListsItself) {
  EXPECT_EQ(CliText(*ValueOf(GetNamespace(CliHost(Colliding()), "", ""))),
            R"(namespace : "Root namespace" [:a, :])");
}

TEST(CliNamespaceService, WithoutSourcesDoesNotFindTheRoot) {
  EXPECT_EQ(ErrorOf(GetNamespace(CliHost(), "", "")), NamespaceNotFound(""));
}

TEST(CliNamespaceService, GetsTheRecordOfTheFirstSource) {
  const CliHost host(Colliding());
  const auto info = ValueOf(GetNamespace(host, "", "a"));
  EXPECT_EQ(CliText(*info), R"(namespace :a "a namespace" [a:b])");
  EXPECT_EQ(info, host->NamespaceInfo(info->identity));
}

TEST(CliNamespaceService, NamesTheNamespaceItDoesNotFindInFull) {
  struct Row {
    const char* path;
    const char* name;
    const char* full_name;
  };

  const CliHost host(Colliding());
  const std::vector<Row> rows = {{"", "b", "b"},
                                 {"b", "a", "b.a"},
                                 {"a.b", "c", "a.b.c"},
                                 {"a", "", "a."},
                                 {"", "a.b", "a.b"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ErrorOf(GetNamespace(host, row.path, row.name)), NamespaceNotFound(row.full_name))
        << row.full_name;
  }
}

TEST(CliNamespaceService, DoesNotFindANullIdentity) {
  EXPECT_EQ(ErrorForNull<NamespaceService>(CliHost(Colliding())), NamespaceNotFound(""));
}

TEST(CliNamespaceService, DeliversTheFingerprintOfAllSourcesOrOfNone) {
  const CliHost host(Colliding());
  EXPECT_EQ(Fingerprint<NamespaceService>(host), host->NamespaceFingerprint());
  EXPECT_EQ(Fingerprint<NamespaceService>(CliHost()), kDigestOfNothing);
}

// --- both ---------------------------------------------------------------------------------------

TEST(CliServices, ThrowOnAnEmptyResult) {
  const CliHost host(Colliding());
  CommandService commands(host.Container());
  NamespaceService namespaces(host.Container());
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
