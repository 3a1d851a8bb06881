#include <map>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <zelk/md5.h>

#include "authentication/json_metadata_container.h"
#include "authentication/parsed.h"
#include "support/temp_folder.h"

namespace Zelk::Provider::Metadata::Authentication {
namespace {

using ::Com::Orvane::Zelk::Metadata::SourceType;
using Testing::ErrorTexts;
using Testing::TempFolder;
using SpecPtr = std::shared_ptr<const Bindings::Authentication::SourceSvc::CreateSpec>;

SpecPtr FileSpec(const std::string& path) {
  return std::make_shared<const Bindings::Authentication::SourceSvc::CreateSpec>(
      "foo", SourceType::LOCAL_FILE, path, std::string("bar"));
}

std::string FileOf(const std::string& component) {
  return R"({"authentication": {"component": {"name": ")" + component + R"("}}})";
}

std::shared_ptr<Bindings::Authentication::ComponentInfo> EmptyComponent() {
  return std::make_shared<Bindings::Authentication::ComponentInfo>(
      std::map<std::string, std::shared_ptr<const Bindings::Authentication::PackageInfo>>());
}

TEST(SourceData, IsEmptyButForItsSpec) {
  const auto spec = FileSpec("baz");
  const SourceData source(spec);
  EXPECT_EQ(source.spec, spec);
  EXPECT_EQ(source.info->description, "foo");
  EXPECT_EQ(source.info->type, SourceType::LOCAL_FILE);
  EXPECT_EQ(source.info->file_path.value_or("none"), "baz");
  EXPECT_EQ(source.info->address.value_or("none"), "bar");
  EXPECT_TRUE(source.components.empty());
  EXPECT_EQ(source.fingerprint, "");
  EXPECT_EQ(source.component_fingerprint, "");
}

TEST(SourceData, KeepsTheLastOfARepeatedComponent) {
  SourceData source(FileSpec("baz"));
  const auto later = EmptyComponent();
  source.RegisterComponentNode("foo", EmptyComponent());
  source.RegisterComponentNode("bar", EmptyComponent());
  source.RegisterComponentNode("foo", later);
  EXPECT_EQ(source.components.size(), 2U);
  EXPECT_EQ(source.components.at("foo"), later);
}

TEST(LoadSource, SetsBothFingerprintsToTheDigestOfTheFile) {
  const TempFolder folder;
  const auto text = FileOf("foo") + "\n";
  ErrorPtr error;
  const auto source = LoadSource<SourceDomain>(FileSpec(folder.Write("m", text)), error);
  ASSERT_NE(source, nullptr);
  EXPECT_EQ(error, nullptr);
  ::Zelk::MD5 digest;
  digest.Update(text);
  EXPECT_EQ(source->fingerprint, digest.hexdigest());
  EXPECT_EQ(source->component_fingerprint, digest.hexdigest());
  EXPECT_EQ(source->components.count("foo"), 1U);
}

TEST(LoadSource, ReturnsAnErrorAndNoSourceIfItFails) {
  const TempFolder folder;
  ErrorPtr error;
  EXPECT_EQ(LoadSource<SourceDomain>(FileSpec(folder.Write("m", "[]")), error), nullptr);
  ASSERT_NE(error, nullptr);
  EXPECT_EQ(ErrorTexts(*error),
            (Lines{"com.orvane.zelk.std.errors.invalid_argument", MissingField("authentication")}));
  EXPECT_EQ(LoadSource<SourceDomain>(FileSpec(folder.Path("n")), error), nullptr);
  ASSERT_NE(error, nullptr);
  EXPECT_EQ(ErrorTexts(*error),
            (Lines{"com.orvane.zelk.std.errors.not_found",
                   Testing::MessageText("zelk.metada.authentication.source.file.not.found",
                                        {folder.Path("n")})}));
}

/// A table entry whose file held `component` when it was loaded.
std::pair<const std::string, std::shared_ptr<const SourceData>> Entry(
    const TempFolder& folder, const std::string& component) {
  ErrorPtr error;
  const auto spec = FileSpec(folder.Write(component, FileOf(component)));
  return {component, LoadSource<SourceDomain>(spec, error)};
}

TEST(Reload, ReplacesEntriesUntilItsFirstFailure) {
  const TempFolder folder;
  auto first = Entry(folder, "a");
  auto broken = Entry(folder, "b");
  auto last = Entry(folder, "c");
  folder.Write("a", FileOf("new"));
  folder.Write("b", "{}");
  folder.Write("c", FileOf("new"));
  reload one_after_the_other;
  for (auto* entry : {&first, &broken, &last}) one_after_the_other(*entry);
  EXPECT_EQ(first.second->components.count("new"), 1U);
  EXPECT_EQ(broken.second->components.count("b"), 1U);
  EXPECT_EQ(last.second->components.count("c"), 1U);
  reload by_itself;
  by_itself(last);
  EXPECT_EQ(last.second->components.count("new"), 1U);
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Authentication
