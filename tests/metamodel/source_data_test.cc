#include "metamodel/source_data.h"

#include <map>
#include <memory>
#include <set>
#include <string>

#include <boost/optional.hpp>
#include <boost/optional/optional_io.hpp>
#include <gtest/gtest.h>

namespace Zelk::Provider::Metadata::Metamodel {
namespace {

using ::Com::Orvane::Zelk::Metadata::SourceType;
using Models = std::map<std::string, std::set<std::string>>;

std::shared_ptr<const Bindings::Metamodel::SourceSvc::CreateSpec> Spec() {
  return std::make_shared<const Bindings::Metamodel::SourceSvc::CreateSpec>(
      "foo", SourceType::LOCAL_FILE, std::string("bar"), std::string("baz"));
}

std::shared_ptr<Bindings::Metamodel::ComponentInfo> Component(const std::string& name) {
  return std::make_shared<Bindings::Metamodel::ComponentInfo>(
      name, std::map<std::string, std::shared_ptr<const Bindings::Metamodel::PackageInfo>>(),
      Bindings::Metamodel::MetadataMap(), "");
}

TEST(SourceData, IsDescribedByItsSpec) {
  const auto spec = Spec();
  const SourceData source(spec);
  EXPECT_EQ(source.spec, spec);
  EXPECT_EQ(source.info->description, "foo");
  EXPECT_EQ(source.info->type, SourceType::LOCAL_FILE);
  EXPECT_EQ(source.info->file_path, boost::optional<std::string>("bar"));
  EXPECT_EQ(source.info->address, boost::optional<std::string>("baz"));
}

TEST(SourceData, IsDescribedWithoutAbsentMembers) {
  const SourceData source(std::make_shared<const Bindings::Metamodel::SourceSvc::CreateSpec>(
      "", SourceType::REMOTE, boost::none, boost::none));
  EXPECT_EQ(source.info->description, "");
  EXPECT_EQ(source.info->type, SourceType::REMOTE);
  EXPECT_EQ(source.info->file_path, boost::none);
  EXPECT_EQ(source.info->address, boost::none);
}

TEST(SourceData, IsEmptyByDefault) {
  const SourceData source(Spec());
  EXPECT_TRUE(source.components.empty());
  EXPECT_TRUE(source.resources.empty());
  EXPECT_EQ(source.fingerprint, "");
  EXPECT_EQ(source.component_fingerprint, "");
}

TEST(RegisterComponentNode, StoresTheComponentUnderItsName) {
  SourceData source(Spec());
  const auto foo = Component("foo");
  const auto bar = Component(std::string("bar\0", 4));
  source.RegisterComponentNode(foo);
  source.RegisterComponentNode(bar);
  ASSERT_EQ(source.components.size(), 2U);
  EXPECT_EQ(source.components["foo"], foo);
  EXPECT_EQ(source.components[std::string("bar\0", 4)], bar);
}

TEST(RegisterComponentNode, ReplacesTheComponentOfThatName) {
  SourceData source(Spec());
  const auto second = Component("foo");
  source.RegisterComponentNode(Component("foo"));
  source.RegisterComponentNode(second);
  ASSERT_EQ(source.components.size(), 1U);
  EXPECT_EQ(source.components["foo"], second);
}

TEST(RegisterResoure, AddsAResourceWithoutModels) {
  SourceData source(Spec());
  source.RegisterResoure("foo");
  source.RegisterResoure("bar");
  source.RegisterResoure("foo");
  EXPECT_EQ(source.resources, (Models{{"bar", {}}, {"foo", {}}}));
}

TEST(RegisterResoure, KeepsTheModelsOfAKnownResource) {
  SourceData source(Spec());
  source.RegisterModel("foo", "a");
  source.RegisterResoure("foo");
  EXPECT_EQ(source.resources, (Models{{"foo", {"a"}}}));
}

TEST(RegisterModel, AddsAnUnknownResource) {
  SourceData source(Spec());
  source.RegisterModel("foo", "a");
  EXPECT_EQ(source.resources, (Models{{"foo", {"a"}}}));
}

TEST(RegisterModel, AddsEachModelOnceToItsResource) {
  SourceData source(Spec());
  source.RegisterResoure("foo");
  source.RegisterModel("foo", "b");
  source.RegisterModel("foo", "a");
  source.RegisterModel("bar", "a");
  source.RegisterModel("foo", "b");
  EXPECT_EQ(source.resources, (Models{{"bar", {"a"}}, {"foo", {"a", "b"}}}));
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Metamodel
