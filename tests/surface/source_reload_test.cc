#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <boost/none.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/domains_under_test.h"

namespace Zelk::Testing {
namespace {

using testing::ElementsAre;

template <typename Domain>
class SourceReload : public testing::Test {};

TYPED_TEST_SUITE(SourceReload, DomainsUnderTest, DomainName);

TYPED_TEST(SourceReload, ReadsOneFileAgain) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}, {"n", TypeParam::File("bar")}};
  sources.WriteRecord("m", "new-foo");
  sources.WriteRecord("n", "new-bar");
  EXPECT_EQ(sources->ReloadSource(Some("n")), nullptr);
  EXPECT_THAT(sources.Names(), ElementsAre("foo", "new-bar"));
  EXPECT_EQ(sources->ReloadSource(Some("m")), nullptr);
  EXPECT_THAT(sources.Names(), ElementsAre("new-foo", "new-bar"));
  EXPECT_THAT(sources->ListSources(), ElementsAre("m", "n"));
}

TYPED_TEST(SourceReload, ReadsEveryFileAgainWithoutAnId) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}, {"n", TypeParam::File("bar")}};
  sources.WriteRecord("m", "new-foo");
  sources.WriteRecord("n", "new-bar");
  EXPECT_EQ(sources->ReloadSource(boost::none), nullptr);
  EXPECT_THAT(sources.Names(), ElementsAre("new-foo", "new-bar"));
}

TYPED_TEST(SourceReload, SucceedsWithoutSources) {
  const Sources<TypeParam> sources;
  EXPECT_EQ(sources->ReloadSource(boost::none), nullptr);
}

TYPED_TEST(SourceReload, ReadsOneFileForTheEmptyId) {
  const Sources<TypeParam> sources{{"", TypeParam::File("foo")}, {"m", TypeParam::File("bar")}};
  sources.WriteRecord("", "new-foo");
  sources.WriteRecord("m", "new-bar");
  EXPECT_EQ(sources->ReloadSource(Some("")), nullptr);
  EXPECT_THAT(sources.Names(), ElementsAre("new-foo", "bar"));
}

TYPED_TEST(SourceReload, ReportsAnUnknownIdWithTheExistsMessage) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  sources.WriteRecord("m", "bar");
  for (const std::string id : {"x", "", "M", "--"}) {
    EXPECT_EQ(ErrorLines(sources->ReloadSource(Some(id))), CannotReload<TypeParam>(id)) << id;
  }
  EXPECT_THAT(sources.Names(), ElementsAre("foo"));
}

TYPED_TEST(SourceReload, UpdatesTheFingerprintAndKeepsTheInfo) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  sources.WriteRecord("m", "bar");
  EXPECT_EQ(sources->SourceFingerprint(Some("m")), Md5(Md5(TypeParam::File("foo"))));
  ASSERT_EQ(sources->ReloadSource(Some("m")), nullptr);
  EXPECT_EQ(sources->SourceFingerprint(Some("m")), Md5(Md5(TypeParam::File("bar"))));
  ASSERT_NE(sources->SourcesInfo("m"), nullptr);
  EXPECT_EQ(sources->SourcesInfo("m")->description, "foo");
  EXPECT_TRUE(sources->SourcesInfo("m")->file_path == Some(sources.Path("m")));
}

/// Ways in which the file of a source goes bad.
struct Damage {
  const char* what;
  void (*apply)(const std::string& path);
};

void WriteAt(const std::string& path, const std::string& text) {
  const std::filesystem::path place(path);
  std::filesystem::remove_all(place);
  std::ofstream(place) << text;
}

const std::vector<Damage> kDamages = {
    {"emptied", [](const std::string& path) { WriteAt(path, ""); }},
    {"cut off", [](const std::string& path) { WriteAt(path, R"({"metamodel": )"); }},
    {"no metadata", [](const std::string& path) { WriteAt(path, "[]"); }},
    {"removed", [](const std::string& path) { std::filesystem::remove(path); }},
    {"a folder",
     [](const std::string& path) {
       std::filesystem::remove(path);
       std::filesystem::create_directory(path);
     }},
};

TYPED_TEST(SourceReload, KeepsTheOldDataIfTheFileIsBad) {
  for (const auto& damage : kDamages) {
    const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}, {"n", TypeParam::File("bar")}};
    const auto info = sources->SourcesInfo("m");
    damage.apply(sources.Path("m"));
    EXPECT_EQ(sources->ReloadSource(Some("m")), nullptr) << damage.what;
    EXPECT_THAT(sources.Names(), ElementsAre("foo", "bar")) << damage.what;
    EXPECT_EQ(sources->SourceFingerprint(Some("m")), Md5(Md5(TypeParam::File("foo"))))
        << damage.what;
    EXPECT_EQ(sources->SourcesInfo("m"), info) << damage.what;
  }
}

TYPED_TEST(SourceReload, RefreshesOnlySourcesBeforeTheFirstBadOne) {
  for (const auto& damage : kDamages) {
    const Sources<TypeParam> sources;
    for (const std::string id : {"d", "b", "a", "c", "e"}) {
      ASSERT_EQ(sources.Create(id, TypeParam::File("old-" + id)), Lines()) << id;
      sources.WriteRecord(id, "new-" + id);
    }
    damage.apply(sources.Path("c"));
    damage.apply(sources.Path("d"));
    EXPECT_EQ(sources->ReloadSource(boost::none), nullptr) << damage.what;
    EXPECT_THAT(sources.Names(), ElementsAre("new-a", "new-b", "old-c", "old-d", "old-e"))
        << damage.what;
    EXPECT_EQ(sources->SourceFingerprint(Some("e")), Md5(Md5(TypeParam::File("old-e"))))
        << damage.what;
  }
}

TYPED_TEST(SourceReload, RefreshesNothingIfTheFirstSourceIsBad) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}, {"n", TypeParam::File("bar")}};
  sources.Write("m", "{}");
  sources.WriteRecord("n", "new-bar");
  EXPECT_EQ(sources->ReloadSource(boost::none), nullptr);
  EXPECT_THAT(sources.Names(), ElementsAre("foo", "bar"));
}

TYPED_TEST(SourceReload, StartsAnewWithEachCall) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}, {"n", TypeParam::File("bar")}};
  sources.Write("m", "{}");
  sources.WriteRecord("n", "new-bar");
  ASSERT_EQ(sources->ReloadSource(boost::none), nullptr);
  ASSERT_EQ(sources->ReloadSource(Some("m")), nullptr);
  EXPECT_EQ(sources->ReloadSource(Some("n")), nullptr);
  EXPECT_THAT(sources.Names(), ElementsAre("foo", "new-bar"));
  sources.WriteRecord("m", "new-foo");
  EXPECT_EQ(sources->ReloadSource(boost::none), nullptr);
  EXPECT_THAT(sources.Names(), ElementsAre("new-foo", "new-bar"));
}

TYPED_TEST(SourceReload, RefreshesTheRestAfterTheBadSourceIsDeleted) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}, {"n", TypeParam::File("bar")}};
  sources.Write("m", "{}");
  sources.WriteRecord("n", "new-bar");
  ASSERT_EQ(sources->DeleteSource("m"), nullptr);
  EXPECT_EQ(sources->ReloadSource(boost::none), nullptr);
  EXPECT_THAT(sources.Names(), ElementsAre("new-bar"));
}

TYPED_TEST(SourceReload, IsNotNeededAfterTheFileIsRemoved) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  std::filesystem::remove(sources.Path("m"));
  EXPECT_THAT(sources.Names(), ElementsAre("foo"));
  EXPECT_EQ(sources->SourceFingerprint(Some("m")), Md5(Md5(TypeParam::File("foo"))));
  EXPECT_NE(TypeParam::Find(*sources.Shared(), "foo"), nullptr);
  EXPECT_EQ(sources->DeleteSource("m"), nullptr);
  EXPECT_TRUE(sources.Names().empty());
}

TYPED_TEST(SourceReload, IsNeededToSeeAChangedFile) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  sources.WriteRecord("m", "bar");
  EXPECT_THAT(sources.Names(), ElementsAre("foo"));
  EXPECT_EQ(sources->SourceFingerprint(boost::none), Md5(Md5(TypeParam::File("foo"))));
}

}  // namespace
}  // namespace Zelk::Testing
