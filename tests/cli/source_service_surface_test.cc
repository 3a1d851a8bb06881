#include <functional>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cli/cli_text.h"
#include "cli/hosted.h"
#include "cli/parser_messages.h"

// The life cycle of sources, through the service and the container under it.

namespace Zelk::Testing {
namespace {

using Service = Provider::Metadata::Cli::SourceSvc::AsyncServiceImpl;
using OptionalId = boost::optional<std::string>;
using SpecPtr = std::shared_ptr<const CliCreateSpec>;

const Lines kSuccess;

Lines Exists(const std::string& class_name, const std::string& argument) {
  return {class_name, MessageLine("zelk.metada.cli.source.exists", "Cli source already exists: %1%",
                                  {argument})};
}

Lines SourceNotFound(const std::string& argument) {
  return NotFound("zelk.metada.cli.source.not.found", "Cli source not found: %1%", argument);
}

Lines FileNotFound(const std::string& path) {
  return NotFound("zelk.metada.cli.source.file.not.found", "Cli source file not found: %1%", path);
}

/// Calls an operation of the source service.
template <typename... Parameters, typename... Arguments>
auto AskSource(const CliHost& host, void (Service::*operation)(Parameters...),
               const Arguments&... arguments) {
  Service service(host.Container());
  return Ask(service, operation, arguments...);
}

auto Create(const CliHost& host, const std::string& id, const SpecPtr& spec) {
  return AskSource(host, &Service::Create, id, spec);
}

auto Delete(const CliHost& host, const std::string& id) {
  return AskSource(host, &Service::Delete, id);
}

auto Reload(const CliHost& host, const OptionalId& id) {
  return AskSource(host, &Service::Reload, id);
}

auto List(const CliHost& host) {
  return ValueOf(AskSource(host, &Service::List));
}

auto Get(const CliHost& host, const std::string& id) {
  return AskSource(host, &Service::Get, id);
}

auto Fingerprint(const CliHost& host, const OptionalId& id) {
  return AskSource(host, &Service::Fingerprint, id);
}

/// Exactly one delivery: success without `error`, otherwise that error.
void ExpectOne(const Delivery<Void>& delivery, const Lines& error) {
  EXPECT_EQ(delivery.calls, 1);
  EXPECT_EQ(delivery.value.has_value(), error.empty());
  EXPECT_EQ(ErrorLines(delivery.error), error);
}

/// A file with one namespace, whose description tells its version.
std::string Version(const std::string& version) {
  return CliFile({NamespaceNode("", "foo", version)});
}

/// The version that each source serves, in id order.
Lines Versions(const CliHost& host) {
  Lines versions;
  for (const auto& identity : host->ListNamespaces()) {
    if (identity->name.empty()) continue;
    versions.push_back(CliText(*identity));
  }
  return versions;
}

std::string VersionOf(const CliHost& host) {
  return host
      ->NamespaceInfo(std::make_shared<const Bindings::Cli::NamespaceSvc::Identity>("", "foo"))
      ->description;
}

// --- create -------------------------------------------------------------------------------------

TEST(CliSourceCreate, LoadsTheFileAndDeliversSuccessOnce) {
  const CliHost host;
  ExpectOne(Create(host, "foo", FileSpec(host.Write("foo", Version("1")))), kSuccess);
  EXPECT_EQ(List(host), std::list<std::string>{"foo"});
  EXPECT_EQ(VersionOf(host), "1");
}

TEST(CliSourceCreate, RefusesAnIdTwiceAndKeepsTheFirstSource) {
  const CliHost host({{"foo", Version("1")}});
  const auto before = ValueOf(Fingerprint(host, std::string("foo")));
  const auto spec = FileSpec(host.Write("bar", Version("2")));
  ExpectOne(Create(host, "foo", spec), Exists(kAlreadyExistsError, "foo"));
  EXPECT_EQ(VersionOf(host), "1");
  EXPECT_EQ(ValueOf(Fingerprint(host, std::string("foo"))), before);
}

TEST(CliSourceCreate, DoesNotFindAFileThatCannotBeOpened) {
  const CliHost host;
  const auto no_path = std::make_shared<const CliCreateSpec>("", SourceTypeValue::LOCAL_FILE,
                                                             boost::none, boost::none);
  for (const std::string path : {"/nowhere/foo.json", "", "foo\nbar"}) {
    ExpectOne(Create(host, "foo", FileSpec(path)), FileNotFound(path));
  }
  ExpectOne(Create(host, "foo", no_path), FileNotFound(""));
  EXPECT_TRUE(List(host).empty());
}

TEST(CliSourceCreate, CarriesTheParsersMessagesInTheirOrder) {
  struct Row {
    std::string file;
    Lines messages;
  };

  const std::vector<Row> rows = {
      {"", {CliParseError("1", "0")}},
      {"{]", {CliParseError("4", "1")}},
      {"{}", {MissingField("cli")}},
      {R"({"cli": 1})", {CliInvalidField("cli")}},
      {CliFile({NamespaceNode("", "foo"), R"({"type": "foo"})"}), {CliInvalidNodeType()}},
      {CliFile({CommandNode("", "foo"), "1"}),
       {MissingField("formatter"), MissingField("options"), MissingField("output_field_list"),
        MissingField("type")}},
  };
  const CliHost host;
  for (const auto& row : rows) {
    auto expected = row.messages;
    expected.insert(expected.begin(), kInvalidArgumentError);
    const auto delivery = Create(host, "foo", FileSpec(host.Write("foo", row.file)));
    ASSERT_TRUE(delivery.calls == 1 && delivery.error) << row.file;
    EXPECT_EQ(ErrorTexts(*delivery.error), expected) << row.file;
    EXPECT_TRUE(host->ListSources().empty()) << row.file;
    EXPECT_TRUE(host->ListNamespaces().empty()) << row.file;
  }
}

TEST(CliSourceCreate, RefusesWhatIsNoLocalFileWithoutAMessage) {
  struct Row {
    SourceTypeValue type;
    const char* error;
  };

  const CliHost host;
  const std::string path = host.Write("foo", Version("1"));
  for (const auto& row : {Row{SourceTypeValue::REMOTE, kUnsupportedError},
                          Row{SourceTypeValue(), kInvalidArgumentError},
                          Row{SourceTypeValue::Unknown("FOO"), kInvalidArgumentError}}) {
    ExpectOne(
        Create(host, "foo", std::make_shared<const CliCreateSpec>("", row.type, path, boost::none)),
        {row.error});
  }
  EXPECT_TRUE(host->ListSources().empty());
}

TEST(CliSourceCreate, TakesTheIdAgainAfterAFailure) {
  const CliHost host;
  ExpectOne(Create(host, "foo", FileSpec("/nowhere")), FileNotFound("/nowhere"));
  ExpectOne(Create(host, "foo", FileSpec(host.Write("foo", Version("1")))), kSuccess);
}

// --- delete -------------------------------------------------------------------------------------

TEST(CliSourceDelete, RemovesAllOfTheSourceAndDeliversSuccessOnce) {
  const CliHost host({{"1", Version("1")}, {"2", CliFile({NamespaceNode("", "bar")})}});
  ExpectOne(Delete(host, "1"), kSuccess);
  EXPECT_EQ(List(host), std::list<std::string>{"2"});
  EXPECT_EQ(Versions(host), Lines{":bar"});
}

TEST(CliSourceDelete, DoesNotFindAnUnknownId) {
  const CliHost host({{"foo", Version("1")}});
  for (const std::string id : {"", "Foo", "foo ", "bar"}) {
    ExpectOne(Delete(host, id), SourceNotFound(id));
  }
  ExpectOne(Delete(host, "foo"), kSuccess);
  ExpectOne(Delete(host, "foo"), SourceNotFound("foo"));
}

// --- reload -------------------------------------------------------------------------------------

TEST(CliSourceReload, ReadsTheFileAgainAndDeliversSuccessOnce) {
  const CliHost host({{"foo", Version("1")}});
  host.Write("foo", Version("2"));
  EXPECT_EQ(VersionOf(host), "1");
  ExpectOne(Reload(host, std::string("foo")), kSuccess);
  EXPECT_EQ(VersionOf(host), "2");
}

TEST(CliSourceReload, OfOneSourceLeavesTheOthers) {
  const CliHost host({{"1", Version("1")}, {"2", CliFile({NamespaceNode("", "bar")})}});
  host.Write("1", Version("2"));
  host.Write("2", CliFile({NamespaceNode("", "baz")}));
  ExpectOne(Reload(host, std::string("2")), kSuccess);
  EXPECT_EQ(VersionOf(host), "1");
  EXPECT_EQ(Versions(host), (Lines{":foo", ":baz"}));
}

TEST(CliSourceReload, KeepsTheOldDataOfABrokenFileAndSucceeds) {
  const CliHost host({{"foo", Version("1")}});
  const auto before = ValueOf(Fingerprint(host, boost::none));
  for (const std::string text : {"", "{}", R"({"cli": [1]})"}) {
    host.Write("foo", text);
    ExpectOne(Reload(host, std::string("foo")), kSuccess);
    EXPECT_EQ(VersionOf(host), "1") << text;
    EXPECT_EQ(ValueOf(Fingerprint(host, boost::none)), before) << text;
  }
}

TEST(CliSourceReload, OfAllKeepsEverySourceFromTheFirstBrokenOneOn) {
  const CliHost host({{"a", CliFile({NamespaceNode("", "a")})},
                      {"b", CliFile({NamespaceNode("", "b")})},
                      {"c", CliFile({NamespaceNode("", "c")})}});
  host.Write("a", CliFile({NamespaceNode("", "a2")}));
  host.Write("b", "{");
  host.Write("c", CliFile({NamespaceNode("", "c2")}));
  ExpectOne(Reload(host, boost::none), kSuccess);
  EXPECT_EQ(Versions(host), (Lines{":a2", ":b", ":c"}));
}

TEST(CliSourceReload, OfAllKeepsEverySourceWhenTheFirstIsBroken) {
  const CliHost host(
      {{"a", CliFile({NamespaceNode("", "a")})}, {"b", CliFile({NamespaceNode("", "b")})}});
  host.Write("a", "{");
  host.Write("b", CliFile({NamespaceNode("", "b2")}));
  ExpectOne(Reload(host, boost::none), kSuccess);
  EXPECT_EQ(Versions(host), (Lines{":a", ":b"}));
}

TEST(CliSourceReload, OfAllRefreshesThemWhenNoneIsBroken) {
  const CliHost host(
      {{"a", CliFile({NamespaceNode("", "a")})}, {"b", CliFile({NamespaceNode("", "b")})}});
  host.Write("a", CliFile({NamespaceNode("", "a2")}));
  host.Write("b", CliFile({NamespaceNode("", "b2")}));
  ExpectOne(Reload(host, boost::none), kSuccess);
  EXPECT_EQ(Versions(host), (Lines{":a2", ":b2"}));
}

TEST(CliSourceReload, OfAnUnknownIdIsNotFoundWithTheExistsMessageAndABlank) {
  const CliHost host({{"foo", Version("1")}});
  ExpectOne(Reload(host, std::string("x")), Exists(kNotFoundError, " x"));
  ExpectOne(Reload(host, std::string()), Exists(kNotFoundError, " "));
}

TEST(CliSourceReload, OfAllWithoutSourcesSucceeds) {
  ExpectOne(Reload(CliHost(), boost::none), kSuccess);
}

// --- list, get, fingerprint ---------------------------------------------------------------------

TEST(CliSourceList, IsInTheOrderOfTheBytes) {
  const CliHost host(
      {{"b", Version("1")}, {"B", Version("1")}, {"a\xc3\xa9", Version("1")}, {"a", Version("1")}});
  EXPECT_EQ(List(host), (std::list<std::string>{"B", "a", "a\xc3\xa9", "b"}));
}

TEST(CliSourceGet, AnswersWhatTheSourceWasCreatedWith) {
  const CliHost host;
  const std::string path = host.Write("foo", Version("1"));
  const auto spec = std::make_shared<const CliCreateSpec>("bar", SourceTypeValue::LOCAL_FILE, path,
                                                          std::string("baz"));
  ExpectOne(Create(host, "foo", spec), kSuccess);
  const auto info = ValueOf(Get(host, "foo"));
  EXPECT_EQ(info->description, "bar");
  EXPECT_EQ(info->type, SourceTypeValue::LOCAL_FILE);
  EXPECT_EQ(Quoted(info->file_path), Quoted(path));
  EXPECT_EQ(Quoted(info->address), Quoted(std::string("baz")));
}

TEST(CliSourceGet, DoesNotFindAnUnknownId) {
  EXPECT_EQ(ErrorOf(Get(CliHost({{"foo", Version("1")}}), "bar")), SourceNotFound("bar"));
}

TEST(CliSourceFingerprint, IsTheContainers) {
  const CliHost host({{"1", Version("1")}, {"2", Version("2")}});
  for (const OptionalId& id : {OptionalId(), OptionalId("1"), OptionalId("2")}) {
    EXPECT_EQ(ValueOf(Fingerprint(host, id)), host->SourceFingerprint(id)) << Quoted(id);
  }
}

TEST(CliSourceFingerprint, WithoutSourcesIsTheDigestOfNothing) {
  EXPECT_EQ(ValueOf(Fingerprint(CliHost(), boost::none)), kDigestOfNothing);
}

TEST(CliSourceFingerprint, DoesNotFindAnUnknownIdAndPutsABlankBeforeIt) {
  EXPECT_EQ(ErrorOf(Fingerprint(CliHost({{"foo", Version("1")}}), std::string("id"))),
            SourceNotFound(" id"));
}

// --- all of them --------------------------------------------------------------------------------

TEST(CliSourceService, ThrowsOnAnEmptyResultEvenForSuccess) {
  const CliHost host;
  Service service(host.Container());
  const auto spec = FileSpec(host.Write("foo", Version("1")));
  EXPECT_THROW(service.Create("foo", spec, nullptr, {}), std::bad_function_call);
  EXPECT_THROW(service.Reload(boost::none, nullptr, {}), std::bad_function_call);
  EXPECT_THROW(service.Get("foo", nullptr, {}), std::bad_function_call);
  EXPECT_THROW(service.List(nullptr, {}), std::bad_function_call);
  EXPECT_THROW(service.Fingerprint(boost::none, nullptr, {}), std::bad_function_call);
  EXPECT_THROW(service.Delete("foo", nullptr, {}), std::bad_function_call);
}

}  // namespace
}  // namespace Zelk::Testing
