#include <list>
#include <memory>
#include <string>

#include <boost/optional/optional_io.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "authentication/provider.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Zelk::Testing::Call;
using Zelk::Testing::ComponentFile;
using Zelk::Testing::Delivery;
using Zelk::Testing::ErrorTexts;
using Zelk::Testing::FileSpec;
using Zelk::Testing::InvalidField;
using Zelk::Testing::Lines;
using Zelk::Testing::Md5;
using Zelk::Testing::MessageText;
using Zelk::Testing::MissingField;
using Zelk::Testing::NotFound;
using Zelk::Testing::Sources;
using Zelk::Testing::SourceType;
using Zelk::Testing::SpecPtr;
namespace Bindings = ::Com::Orvane::Zelk::Metadata;
namespace AuthProvider = Zelk::Testing::AuthProvider;

using SourceService = AuthProvider::SourceSvc::AsyncServiceImpl;
using OptionalId = boost::optional<std::string>;

constexpr char kInvalidArgument[] = "com.orvane.zelk.std.errors.invalid_argument";

std::string Component(const std::string& name) {
  return ComponentFile(name, R"("packages": {"a": ["x"]})");
}

Lines Texts(const std::shared_ptr<const Zelk::Data::ErrorValue>& error) {
  return error ? ErrorTexts(*error) : Lines();
}

Lines Exists(const std::string& id) {
  return {"com.orvane.zelk.std.errors.already_exists",
          MessageText("zelk.metada.authentication.source.exists", {id})};
}

TEST(AuthenticationSources, OfOneIdAreCreatedOnce) {
  const Sources sources;
  ASSERT_EQ(sources.Create("m", Component("foo")), Lines());
  const auto info = sources->SourcesInfo("m");
  EXPECT_EQ(sources.Create("m", Component("bar")), Exists("m"));
  EXPECT_EQ(sources->SourcesInfo("m"), info);
  EXPECT_THAT(sources->ListComponents(), ElementsAre("foo"));
}

TEST(AuthenticationSources, WhoseFileCannotBeOpenedAreNotFoundByTheirPath) {
  const Sources sources;
  const auto path = sources.Path("missing");
  EXPECT_EQ(Texts(sources->CreateSource("m", FileSpec(path))),
            NotFound("zelk.metada.authentication.source.file.not.found", {path}));
  const auto no_path = std::make_shared<const Bindings::Authentication::SourceSvc::CreateSpec>(
      "foo", SourceType::LOCAL_FILE, boost::none, std::string("bar"));
  EXPECT_EQ(Texts(sources->CreateSource("m", no_path)),
            NotFound("zelk.metada.authentication.source.file.not.found", {""}));
  EXPECT_THAT(sources->ListSources(), IsEmpty());
}

TEST(AuthenticationSources, OfOtherTypesAreRefusedWithoutMessages) {
  const Sources sources;
  sources.Write("m", Component("foo"));
  for (const auto& [type, error] : std::list<std::pair<SourceType, std::string>>{
           {SourceType::REMOTE, "com.orvane.zelk.std.errors.unsupported"},
           {SourceType::UNKNOWN, kInvalidArgument},
           {SourceType::Unknown("BAR"), kInvalidArgument}}) {
    const auto spec = std::make_shared<const Bindings::Authentication::SourceSvc::CreateSpec>(
        "foo", type, sources.Path("m"), boost::none);
    EXPECT_EQ(Texts(sources->CreateSource("m", spec)), Lines{error}) << type.Value();
  }
  EXPECT_THAT(sources->ListSources(), IsEmpty());
}

TEST(AuthenticationSources, WithoutASpecAreRefusedWithoutMessages) {
  const Sources sources;
  EXPECT_EQ(Texts(sources->CreateSource("m", nullptr)), Lines{kInvalidArgument});
  EXPECT_THAT(sources->ListSources(), IsEmpty());
}

TEST(AuthenticationSources, AreOrderedByTheBytesOfTheirIds) {
  const Sources sources;
  for (const std::string id : {"\xc3\xa4", "b", "a", "B", "ab", "1"}) {
    ASSERT_EQ(sources.Create(id, Component("of-" + id)), Lines()) << id;
  }
  EXPECT_THAT(sources->ListSources(), ElementsAre("1", "B", "a", "ab", "b", "\xc3\xa4"));
  EXPECT_THAT(sources->ListComponents(),
              ElementsAre("of-1", "of-B", "of-a", "of-ab", "of-b", "of-\xc3\xa4"));
}

TEST(AuthenticationSources, WithASyntaxErrorAreInvalidArguments) {
  const Sources sources;
  EXPECT_EQ(sources.Create("m", R"({"a": 1)"),
            (Lines{kInvalidArgument,
                   MessageText("zelk.metadata.authentication.parse.error", {"6", "7"})}));
  EXPECT_THAT(sources->ListSources(), IsEmpty());
}

TEST(AuthenticationSources, WithAnUndefinedSchemeInBothPartsAreInvalidArguments) {
  const Sources sources;
  const std::string part = R"({"name": "foo", "operations": {"a.b.c": ["z"]}})";
  const auto unknown = MessageText("zelk.metadata.authentication.json.unknown.schema.name", {"id"});
  EXPECT_EQ(sources.Create("m", R"({"authentication": {"product": )" + part + R"(, "component": )" +
                                    part + "}}"),
            (Lines{kInvalidArgument, MissingField("schemes"), unknown, MissingField("schemes"),
                   unknown}));
  EXPECT_THAT(sources->ListSources(), IsEmpty());
}

TEST(AuthenticationSources, WithABrokenComponentOnlyAreInvalidArguments) {
  const Sources sources;
  EXPECT_EQ(sources.Create("m", R"({"authentication": {"component": {"name": "foo", "schemes": {},
                                   "operations": {"a.b.c": ["z"]}}}})"),
            (Lines{kInvalidArgument, MissingField("product"),
                   MessageText("zelk.metadata.authentication.json.unknown.schema.name", {"id"})}));
  EXPECT_THAT(sources->ListSources(), IsEmpty());
}

TEST(AuthenticationSources, CarryTheMessagesOfAbsentMembersBeforeTheRealFailure) {
  const Sources sources;
  EXPECT_EQ(
      sources.Create("m", R"({"authentication": {"product": 1, "component": {
                "name": "foo", "packages": {"a": "x"}}}})"),
      (Lines{kInvalidArgument, InvalidField("product"), MissingField("schemes"),
             MissingField("operations"), MissingField("services"), InvalidField("packages")}));
  EXPECT_THAT(sources->ListComponents(), IsEmpty());
}

TEST(AuthenticationSources, KeepWhatTheyWereCreatedWith) {
  const Sources sources;
  sources.Write("m", Component("foo"));
  const auto spec = std::make_shared<const Bindings::Authentication::SourceSvc::CreateSpec>(
      "foo", SourceType::LOCAL_FILE, sources.Path("m"), std::string("bar"));
  ASSERT_EQ(sources->CreateSource("m", spec), nullptr);
  const auto info = sources->SourcesInfo("m");
  ASSERT_NE(info, nullptr);
  EXPECT_EQ(info->description, "foo");
  EXPECT_EQ(info->type, SourceType::LOCAL_FILE);
  EXPECT_EQ(info->file_path, OptionalId(sources.Path("m")));
  EXPECT_EQ(info->address, OptionalId("bar"));
}

TEST(AuthenticationSources, HaveTheDigestOfTheirFilesDigestAsFingerprint) {
  const Sources sources;
  EXPECT_EQ(sources->SourceFingerprint(boost::none), "d41d8cd98f00b204e9800998ecf8427e");
  ASSERT_EQ(sources.Create("n", Component("bar")), Lines());
  ASSERT_EQ(sources.Create("m", Component("foo")), Lines());
  const auto foo = Md5(Component("foo"));
  const auto bar = Md5(Component("bar"));
  EXPECT_EQ(sources->SourceFingerprint(OptionalId("m")), Md5(foo));
  EXPECT_EQ(sources->SourceFingerprint(OptionalId("n")), Md5(bar));
  EXPECT_EQ(sources->SourceFingerprint(boost::none), Md5(foo + bar));
  EXPECT_EQ(sources->SourceFingerprint(OptionalId("o")), "");
}

TEST(AuthenticationSources, AreReadAgainOneByOne) {
  const Sources sources;
  ASSERT_EQ(sources.Create("m", Component("foo")), Lines());
  ASSERT_EQ(sources.Create("n", Component("foo")), Lines());
  sources.Write("m", Component("bar"));
  sources.Write("n", Component("baz"));
  EXPECT_EQ(sources->ReloadSource(OptionalId("n")), nullptr);
  EXPECT_THAT(sources->ListComponents(), ElementsAre("foo", "baz"));
  EXPECT_EQ(sources->ComponentFingerprint("baz"), Md5(Component("baz")));
}

TEST(AuthenticationSources, KeepTheirOldDataWhenAReloadFails) {
  const Sources sources;
  ASSERT_EQ(sources.Create("m", Component("foo")), Lines());
  sources.Write("m", "{");
  EXPECT_EQ(sources->ReloadSource(OptionalId("m")), nullptr);
  EXPECT_THAT(sources->ListComponents(), ElementsAre("foo"));
  EXPECT_EQ(sources->ComponentFingerprint("foo"), Md5(Component("foo")));
}

TEST(AuthenticationSources, FromTheFirstBrokenOneOnKeepTheirOldDataWhenAllAreReloaded) {
  const Sources sources;
  for (const auto* id : {"m", "n", "o", "p"}) {
    ASSERT_EQ(sources.Create(id, Component(std::string("old-") + id)), Lines()) << id;
    sources.Write(id, Component(std::string("new-") + id));
  }
  sources.Write("n", "{}");
  sources.Write("o", "{}");
  EXPECT_EQ(sources->ReloadSource(boost::none), nullptr);
  EXPECT_THAT(sources->ListComponents(), ElementsAre("new-m", "old-n", "old-o", "old-p"));
}

TEST(AuthenticationSources, ThatAreUnknownAreNotFound) {
  const Sources sources;
  EXPECT_EQ(Texts(sources->DeleteSource("m")),
            NotFound("zelk.metada.authentication.source.not.found", {"m"}));
  EXPECT_EQ(Texts(sources->ReloadSource(OptionalId("m"))),
            NotFound("zelk.metada.authentication.source.exists", {" m"}));
  EXPECT_EQ(sources->SourcesInfo("m"), nullptr);
}

TEST(AuthenticationContainers, ShareNothing) {
  const Sources first;
  const Sources second;
  ASSERT_EQ(first.Create("m", Component("foo")), Lines());
  EXPECT_THAT(second->ListSources(), IsEmpty());
  EXPECT_NE(first.Container(), second.Container());
}

// --- through the service ------------------------------------------------------------------------

class AuthenticationSourceService : public testing::Test {
 protected:
  Delivery<Zelk::Void> Create(const std::string& id) {
    return Call<Zelk::Void>(service_, &SourceService::Create, id, FileSpec(sources_.Path(id)));
  }

  Delivery<Zelk::Void> Delete(const std::string& id) {
    return Call<Zelk::Void>(service_, &SourceService::Delete, id);
  }

  Delivery<Zelk::Void> Reload(const OptionalId& id) {
    return Call<Zelk::Void>(service_, &SourceService::Reload, id);
  }

  Delivery<std::string> Fingerprint(const OptionalId& id) {
    return Call<std::string>(service_, &SourceService::Fingerprint, id);
  }

  Delivery<std::shared_ptr<const Bindings::Authentication::SourceSvc::Info>> Get(
      const std::string& id) {
    return Call<std::shared_ptr<const Bindings::Authentication::SourceSvc::Info>>(
        service_, &SourceService::Get, id);
  }

  Delivery<std::list<std::string>> List() {
    return Call<std::list<std::string>>(service_, &SourceService::List);
  }

  Sources sources_;
  SourceService service_{sources_.Container()};
};

/// What stands in the place of a list that was not delivered.
std::list<std::string> Unknown() {
  return {"(nothing)"};
}

template <typename T>
void ExpectSilence(const Delivery<T>& delivery) {
  EXPECT_EQ(delivery.values, 0);
  EXPECT_EQ(delivery.errors, 0);
}

template <typename T>
void ExpectError(const Delivery<T>& delivery, const Lines& error) {
  EXPECT_EQ(delivery.values, 0);
  EXPECT_EQ(delivery.errors, 1);
  EXPECT_EQ(delivery.error, error);
}

TEST_F(AuthenticationSourceService, SaysNothingWhenAChangeSucceeds) {
  sources_.Write("m", Component("foo"));
  ExpectSilence(Create("m"));
  EXPECT_THAT(sources_->ListComponents(), ElementsAre("foo"));
  sources_.Write("m", Component("bar"));
  ExpectSilence(Reload(OptionalId("m")));
  EXPECT_THAT(sources_->ListComponents(), ElementsAre("bar"));
  sources_.Write("m", Component("baz"));
  ExpectSilence(Reload(boost::none));
  EXPECT_THAT(sources_->ListComponents(), ElementsAre("baz"));
  ExpectSilence(Delete("m"));
  EXPECT_THAT(sources_->ListSources(), IsEmpty());
}

TEST_F(AuthenticationSourceService, NeedsNoResultWhenAChangeSucceeds) {
  sources_.Write("m", Component("foo"));
  const Zelk::AsyncResult<Zelk::Void> nobody;
  EXPECT_NO_THROW(service_.Create("m", FileSpec(sources_.Path("m")), nullptr, nobody));
  EXPECT_NO_THROW(service_.Reload(boost::none, nullptr, nobody));
  EXPECT_NO_THROW(service_.Delete("m", nullptr, nobody));
}

TEST_F(AuthenticationSourceService, SaysNothingOfAReloadThatFailed) {
  sources_.Write("m", Component("foo"));
  ExpectSilence(Create("m"));
  sources_.Write("m", "{");
  ExpectSilence(Reload(OptionalId("m")));
  ExpectSilence(Reload(boost::none));
}

TEST_F(AuthenticationSourceService, DeliversTheContainersErrors) {
  ExpectError(Create("m"),
              NotFound("zelk.metada.authentication.source.file.not.found", {sources_.Path("m")}));
  sources_.Write("m", "{}");
  ExpectError(Create("m"), {kInvalidArgument, MissingField("authentication")});
  sources_.Write("m", Component("foo"));
  ExpectSilence(Create("m"));
  ExpectError(Create("m"), Exists("m"));
  ExpectError(Delete("n"), NotFound("zelk.metada.authentication.source.not.found", {"n"}));
  ExpectError(Reload(OptionalId("n")),
              NotFound("zelk.metada.authentication.source.exists", {" n"}));
}

TEST_F(AuthenticationSourceService, DeliversWhatIsThere) {
  ASSERT_EQ(sources_.Create("n", Component("foo")), Lines());
  ASSERT_EQ(sources_.Create("m", Component("foo")), Lines());
  EXPECT_THAT(List().value.value_or(Unknown()), ElementsAre("m", "n"));
  EXPECT_EQ(Get("m").value.value_or(nullptr), sources_->SourcesInfo("m"));
  EXPECT_EQ(Get("m").values, 1);
  const auto digest = Md5(Component("foo"));
  EXPECT_EQ(Fingerprint(OptionalId("m")).value, OptionalId(Md5(digest)));
  EXPECT_EQ(Fingerprint(boost::none).value, OptionalId(Md5(digest + digest)));
}

TEST_F(AuthenticationSourceService, DeliversAListAndAFingerprintOfNoSources) {
  EXPECT_EQ(List().values, 1);
  EXPECT_THAT(List().value.value_or(Unknown()), IsEmpty());
  EXPECT_EQ(Fingerprint(boost::none).value, OptionalId("d41d8cd98f00b204e9800998ecf8427e"));
}

TEST_F(AuthenticationSourceService, ReportsUnknownSources) {
  ExpectError(Get("m"), NotFound("zelk.metada.authentication.source.not.found", {"m"}));
  ExpectError(Fingerprint(OptionalId("m")),
              NotFound("zelk.metada.authentication.source.not.found", {" m"}));
  ExpectError(Fingerprint(OptionalId("")),
              NotFound("zelk.metada.authentication.source.not.found", {" "}));
}

}  // namespace
