#include <memory>
#include <string>

#include <boost/none.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/domains_under_test.h"

// Creating, listing, describing and deleting sources.

namespace Zelk::Testing {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

template <typename Domain>
class SourceRegistry : public testing::Test {};

TYPED_TEST_SUITE(SourceRegistry, DomainsUnderTest, DomainName);

TYPED_TEST(SourceRegistry, CreateLoadsTheFile) {
  const Sources<TypeParam> sources;
  EXPECT_EQ(sources.Create("m", TypeParam::File("foo")), Lines());
  EXPECT_THAT(sources->ListSources(), ElementsAre("m"));
  EXPECT_THAT(sources.Names(), ElementsAre("foo"));
}

TYPED_TEST(SourceRegistry, NewContainerIsEmpty) {
  const auto container = TypeParam::Container::GetInstance();
  EXPECT_THAT(container->ListSources(), IsEmpty());
  EXPECT_THAT(TypeParam::Names(*container), IsEmpty());
  EXPECT_EQ(container->SourcesInfo(""), nullptr);
}

TYPED_TEST(SourceRegistry, ContainersShareNothing) {
  const Sources<TypeParam> first{{"m", TypeParam::File("foo")}};
  const Sources<TypeParam> second;
  EXPECT_NE(first.Shared(), second.Shared());
  EXPECT_THAT(second->ListSources(), IsEmpty());
  EXPECT_EQ(second.Create("m", TypeParam::File("bar")), Lines());
  EXPECT_EQ(second->DeleteSource("m"), nullptr);
  EXPECT_THAT(first.Names(), ElementsAre("foo"));
}

TYPED_TEST(SourceRegistry, NewContainerHasOneOwner) {
  const auto container = TypeParam::Container::GetInstance();
  EXPECT_EQ(container.use_count(), 1);
}

TYPED_TEST(SourceRegistry, CreateOfAKnownIdIsRefused) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  const auto info = sources->SourcesInfo("m");
  const auto fingerprint = sources->SourceFingerprint(Some("m"));
  EXPECT_EQ(sources.Create("m", TypeParam::File("bar")), AlreadyExists<TypeParam>("m"));
  EXPECT_THAT(sources->ListSources(), ElementsAre("m"));
  EXPECT_THAT(sources.Names(), ElementsAre("foo"));
  EXPECT_EQ(sources->SourcesInfo("m"), info);
  EXPECT_EQ(sources->SourceFingerprint(Some("m")), fingerprint);
}

TYPED_TEST(SourceRegistry, CreateChecksTheIdFirst) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  const auto remote = std::make_shared<const typename TypeParam::CreateSpec>(
      "foo", SourceType::REMOTE, boost::none, std::string("bar"));
  EXPECT_EQ(ErrorLines(sources->CreateSource("m", remote)), AlreadyExists<TypeParam>("m"));
  EXPECT_EQ(ErrorLines(sources->CreateSource("m", nullptr)), AlreadyExists<TypeParam>("m"));
  EXPECT_EQ(sources.CreateAt("m", sources.Path("missing")), AlreadyExists<TypeParam>("m"));
}

TYPED_TEST(SourceRegistry, FailedCreateLeavesTheIdFree) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  EXPECT_NE(sources.Create("n", "{"), Lines());
  EXPECT_NE(sources.Create("n", "{}"), Lines());
  EXPECT_NE(sources.CreateAt("n", sources.Path("missing")), Lines());
  EXPECT_THAT(sources->ListSources(), ElementsAre("m"));
  EXPECT_THAT(sources.Names(), ElementsAre("foo"));
  EXPECT_EQ(sources->SourcesInfo("n"), nullptr);
  EXPECT_EQ(sources->SourceFingerprint(Some("n")), "");
  EXPECT_EQ(sources.Create("n", TypeParam::File("bar")), Lines());
  EXPECT_THAT(sources.Names(), ElementsAre("foo", "bar"));
}

TYPED_TEST(SourceRegistry, RemoteSourceIsUnsupportedWithoutAMessage) {
  const Sources<TypeParam> sources;
  const auto remote = std::make_shared<const typename TypeParam::CreateSpec>(
      "foo", SourceType::REMOTE, sources.WriteRecord("m", "foo"), std::string("bar"));
  EXPECT_EQ(ErrorLines(sources->CreateSource("m", remote)), Lines{kUnsupportedError});
  EXPECT_THAT(sources->ListSources(), IsEmpty());
}

TYPED_TEST(SourceRegistry, UnknownSourceTypeIsInvalidWithoutAMessage) {
  const Sources<TypeParam> sources;
  const std::string path = sources.WriteRecord("m", "foo");
  for (const auto& type : {SourceType(), SourceType(SourceType::UNKNOWN),
                           SourceType::Unknown("BAR"), SourceType::Unknown("LOCAL_FILE")}) {
    const auto spec =
        std::make_shared<const typename TypeParam::CreateSpec>("foo", type, path, boost::none);
    EXPECT_EQ(ErrorLines(sources->CreateSource("m", spec)), Lines{kInvalidArgumentError})
        << type.Text();
    EXPECT_THAT(sources->ListSources(), IsEmpty()) << type.Text();
  }
}

TYPED_TEST(SourceRegistry, NullSpecIsInvalidWithoutAMessage) {
  const Sources<TypeParam> sources;
  EXPECT_EQ(ErrorLines(sources->CreateSource("m", nullptr)), Lines{kInvalidArgumentError});
  EXPECT_THAT(sources->ListSources(), IsEmpty());
}

TYPED_TEST(SourceRegistry, ErrorHasANameMessagesAndNoData) {
  const auto container = TypeParam::Container::GetInstance();
  const auto error = container->DeleteSource("m");
  ASSERT_NE(error, nullptr);
  EXPECT_EQ(error->Name(), kNotFoundError);
  EXPECT_EQ(As<Data::OptionalValue>(error->Field("data")).Value(), nullptr);
  EXPECT_EQ(error->Field("message"), nullptr);
  const auto& messages = As<Data::ListValue>(error->Field("messages")).Elements();
  ASSERT_EQ(messages.size(), 1U);
  const auto& message = As<Data::StructValue>(messages.front());
  EXPECT_EQ(message.Name(), "com.orvane.zelk.std.message");
  EXPECT_EQ(As<Data::StringValue>(message.Field("id")).Value(), TypeParam::kNotFound);
  EXPECT_NE(As<Data::StringValue>(message.Field("default_text")).Value(), "Unknown message.");
  const auto& arguments = As<Data::ListValue>(message.Field("arguments")).Elements();
  ASSERT_EQ(arguments.size(), 1U);
  EXPECT_EQ(As<Data::StringValue>(arguments.front()).Value(), "m");
}

TYPED_TEST(SourceRegistry, ErrorMayHaveAnEmptyListOfMessages) {
  const auto error = TypeParam::Container::GetInstance()->CreateSource("m", nullptr);
  ASSERT_NE(error, nullptr);
  EXPECT_EQ(error->Name(), kInvalidArgumentError);
  EXPECT_THAT(As<Data::ListValue>(error->Field("messages")).Elements(), IsEmpty());
  EXPECT_EQ(As<Data::OptionalValue>(error->Field("data")).Value(), nullptr);
}

TYPED_TEST(SourceRegistry, DeleteRemovesAllRecordsOfTheSource) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}, {"n", TypeParam::File("bar")}};
  EXPECT_EQ(sources->DeleteSource("m"), nullptr);
  EXPECT_THAT(sources->ListSources(), ElementsAre("n"));
  EXPECT_THAT(sources.Names(), ElementsAre("bar"));
  EXPECT_EQ(sources->SourcesInfo("m"), nullptr);
  EXPECT_EQ(sources->SourceFingerprint(Some("m")), "");
  EXPECT_EQ(TypeParam::Find(*sources.Shared(), "foo"), nullptr);
}

TYPED_TEST(SourceRegistry, DeletedIdCanBeCreatedAgain) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  EXPECT_EQ(sources->DeleteSource("m"), nullptr);
  EXPECT_EQ(sources.Create("m", TypeParam::File("bar")), Lines());
  EXPECT_THAT(sources.Names(), ElementsAre("bar"));
}

TYPED_TEST(SourceRegistry, DeleteOfAnUnknownIdIsNotFound) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  for (const std::string id : {"", "M", "m ", "n"}) {
    EXPECT_EQ(ErrorLines(sources->DeleteSource(id)), SourceNotFound<TypeParam>(id)) << id;
  }
  EXPECT_THAT(sources->ListSources(), ElementsAre("m"));
  EXPECT_EQ(sources->DeleteSource("m"), nullptr);
  EXPECT_EQ(ErrorLines(sources->DeleteSource("m")), SourceNotFound<TypeParam>("m"));
}

TYPED_TEST(SourceRegistry, SourcesAreListedByTheBytesOfTheirIds) {
  const Sources<TypeParam> sources;
  const std::string path = sources.WriteRecord("m", "foo");
  const std::string with_zero("a\0b", 3);
  for (const auto& id : {std::string("b"), std::string("\xff"), with_zero, std::string("a"),
                         std::string("aa"), std::string("\xc3\xa9"), std::string("B"),
                         std::string("10"), std::string(""), std::string("9")}) {
    ASSERT_EQ(sources.CreateAt(id, path), Lines()) << id;
  }
  EXPECT_THAT(sources->ListSources(),
              ElementsAre("", "10", "9", "B", "a", with_zero, "aa", "b", "\xc3\xa9", "\xff"));
}

TYPED_TEST(SourceRegistry, RecordsAreListedInTheOrderOfTheirSources) {
  const Sources<TypeParam> sources{
      {"n", TypeParam::File("bar")}, {"", TypeParam::File("qux")}, {"M", TypeParam::File("foo")}};
  EXPECT_THAT(sources.Names(), ElementsAre("qux", "foo", "bar"));
}

TYPED_TEST(SourceRegistry, IdsAreComparedPastZeroBytes) {
  const Sources<TypeParam> sources;
  const std::string id("m\0n", 3);
  const std::string path = sources.WriteRecord("m", "foo");
  ASSERT_EQ(sources.CreateAt("m", path), Lines());
  ASSERT_EQ(sources.CreateAt(id, path), Lines());
  EXPECT_EQ(sources.CreateAt(id, path), AlreadyExists<TypeParam>(id));
  EXPECT_EQ(sources->DeleteSource(id), nullptr);
  EXPECT_THAT(sources->ListSources(), ElementsAre("m"));
  EXPECT_EQ(ErrorLines(sources->DeleteSource(id)), SourceNotFound<TypeParam>(id));
}

TYPED_TEST(SourceRegistry, InfoHoldsTheSpec) {
  const Sources<TypeParam> sources;
  const std::string path = sources.WriteRecord("m", "foo");
  const std::string description("An \xff \0 odd one", 14);
  const auto spec = std::make_shared<const typename TypeParam::CreateSpec>(
      description, SourceType::LOCAL_FILE, path, std::string("bar"));
  ASSERT_EQ(sources->CreateSource("m", spec), nullptr);
  const auto info = sources->SourcesInfo("m");
  ASSERT_NE(info, nullptr);
  EXPECT_EQ(info->description, description);
  EXPECT_EQ(info->type, SourceType(SourceType::LOCAL_FILE));
  EXPECT_TRUE(info->file_path == Some(path));
  EXPECT_TRUE(info->address == Some("bar"));
}

TYPED_TEST(SourceRegistry, InfoHasNoAddressIfTheSpecHasNone) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  EXPECT_FALSE(sources->SourcesInfo("m")->address.has_value());
  EXPECT_EQ(sources->SourcesInfo("m"), sources->SourcesInfo("m"));
}

TYPED_TEST(SourceRegistry, InfoNeedsTheExactId) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  for (const std::string id : {"", "M", " m", "mm", "n"}) {
    EXPECT_EQ(sources->SourcesInfo(id), nullptr) << id;
  }
}

TYPED_TEST(SourceRegistry, RecordsDoNotChangeOnReloadOrDelete) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  const auto info = sources->SourcesInfo("m");
  const auto record = TypeParam::Find(*sources.Shared(), "foo");
  ASSERT_NE(record, nullptr);
  const std::string before = TypeParam::Text(*record);
  sources.WriteRecord("m", "bar");
  ASSERT_EQ(sources->ReloadSource(Some("m")), nullptr);
  EXPECT_EQ(TypeParam::Find(*sources.Shared(), "foo"), nullptr);
  EXPECT_EQ(TypeParam::Text(*record), before);
  ASSERT_EQ(sources->DeleteSource("m"), nullptr);
  EXPECT_EQ(TypeParam::Text(*record), before);
  EXPECT_EQ(info->description, "foo");
  EXPECT_TRUE(info->file_path == Some(sources.Path("m")));
}

TYPED_TEST(SourceRegistry, RecordsOutliveTheirContainer) {
  auto sources = std::make_unique<Sources<TypeParam>>();
  ASSERT_EQ(sources->Create("m", TypeParam::File("foo")), Lines());
  const auto info = (*sources)->SourcesInfo("m");
  const auto record = TypeParam::Find(*sources->Shared(), "foo");
  ASSERT_NE(record, nullptr);
  const std::string before = TypeParam::Text(*record);
  sources.reset();
  EXPECT_EQ(TypeParam::Text(*record), before);
  EXPECT_EQ(info->description, "foo");
}

// Which domain is under test shows in what it says.
template <typename Domain>
Lines MessageIds() {
  return {Domain::kExists, Domain::kNotFound, Domain::kFileNotFound, Domain::kParseError};
}

template <typename Domain>
std::string MessageOfAnUnknownSource() {
  return ErrorLines(Domain::Container::GetInstance()->DeleteSource("m")).back();
}

TEST(MetamodelUnderTest, HasItsOwnMessages) {
  EXPECT_THAT(MessageIds<MetamodelUnderTest>(), Each(HasSubstr(".metamodel.")));
  EXPECT_THAT(MessageOfAnUnknownSource<MetamodelUnderTest>(), HasSubstr(".metamodel."));
  EXPECT_EQ(MetamodelSources().Create("m", "{}"), MissingFieldError("metamodel"));
}

TEST(AuthenticationUnderTest, HasItsOwnMessages) {
  EXPECT_THAT(MessageIds<AuthenticationUnderTest>(), Each(HasSubstr(".authentication.")));
  EXPECT_THAT(MessageOfAnUnknownSource<AuthenticationUnderTest>(), HasSubstr(".authentication."));
  EXPECT_EQ(Sources<AuthenticationUnderTest>().Create("m", "{}"),
            MissingFieldError("authentication"));
}

TEST(CliUnderTest, HasItsOwnMessages) {
  EXPECT_THAT(MessageIds<CliUnderTest>(), Each(HasSubstr(".cli.")));
  EXPECT_THAT(MessageOfAnUnknownSource<CliUnderTest>(), HasSubstr(".cli."));
  EXPECT_EQ(Sources<CliUnderTest>().Create("m", "{}"), MissingFieldError("cli"));
}

}  // namespace
}  // namespace Zelk::Testing
