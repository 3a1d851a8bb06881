#include <functional>
#include <list>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "authentication/provider.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Zelk::Testing::Call;
using Zelk::Testing::ComponentFile;
using Zelk::Testing::Delivery;
using Zelk::Testing::Lines;
using Zelk::Testing::Md5;
using Zelk::Testing::NotFound;
using Zelk::Testing::Sources;
namespace Bindings = ::Com::Orvane::Zelk::Metadata;
namespace AuthProvider = Zelk::Testing::AuthProvider;

using Names = std::list<std::string>;
using ComponentService = AuthProvider::ComponentSvc::AsyncServiceImpl;
using PackageService = AuthProvider::PackageSvc::AsyncServiceImpl;
using ServiceService = AuthProvider::ServiceSvc::AsyncServiceImpl;
using OperationService = AuthProvider::Service::OperationSvc::AsyncServiceImpl;

std::string FirstFile() {
  return ComponentFile("foo", R"("operations": {"a.b.d": ["x"], "a.b.c": []},
                                 "services": {"a.e": ["y"]}, "packages": {"a": ["x"]})");
}

std::string SecondFile() {
  return ComponentFile("foo", R"("operations": {"a.b.z": ["y"], "a.e.z": []})");
}

/// What was delivered is one value; it is that value.
template <typename T>
T Value(const Delivery<T>& delivery) {
  EXPECT_EQ(delivery.values, 1);
  EXPECT_EQ(delivery.errors, 0);
  return delivery.value ? *delivery.value : T();
}

/// What was delivered is one error; it is that error.
template <typename T>
Lines Error(const Delivery<T>& delivery) {
  EXPECT_EQ(delivery.values, 0);
  EXPECT_EQ(delivery.errors, 1);
  EXPECT_FALSE(delivery.value.has_value());
  return delivery.error;
}

class QueryServices : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(sources_.Create("n", SecondFile()), Lines());
    ASSERT_EQ(sources_.Create("m", FirstFile()), Lines());
  }

  Sources sources_;
  ComponentService components_{sources_.Container()};
  PackageService packages_{sources_.Container()};
  ServiceService services_{sources_.Container()};
  OperationService operations_{sources_.Container()};
};

TEST_F(QueryServices, PassListsOnInWalkOrderWithRepetitions) {
  EXPECT_THAT(Value(Call<Names>(components_, &ComponentService::List)), ElementsAre("foo", "foo"));
  EXPECT_THAT(Value(Call<Names>(packages_, &PackageService::List)), ElementsAre("a", "a"));
  EXPECT_THAT(Value(Call<Names>(services_, &ServiceService::List)),
              ElementsAre("a.b", "a.e", "a.b", "a.e"));
  EXPECT_THAT(Value(Call<Names>(operations_, &OperationService::List, std::string("a.b"))),
              ElementsAre("c", "d"));
}

TEST_F(QueryServices, DeliverTheRecordsThatTheContainerFinds) {
  const auto component = Value(Call<std::shared_ptr<const Bindings::Authentication::ComponentData>>(
      components_, &ComponentService::Get, std::string("foo")));
  ASSERT_NE(component, nullptr);
  EXPECT_EQ(component->info, sources_->ComponentInfo("foo")->info);
  EXPECT_EQ(component->fingerprint, Md5(FirstFile()));
  EXPECT_EQ(Value(Call<std::shared_ptr<const Bindings::Authentication::PackageInfo>>(
                packages_, &PackageService::Get, std::string("a"))),
            sources_->PackageInfo("a"));
  EXPECT_EQ(Value(Call<std::shared_ptr<const Bindings::Authentication::ServiceInfo>>(
                services_, &ServiceService::Get, std::string("a.e"))),
            sources_->ServiceInfo("a.e"));
  EXPECT_EQ(Value(Call<std::shared_ptr<const Bindings::Authentication::OperationInfo>>(
                operations_, &OperationService::Get, std::string("a.b"), std::string("z"))),
            sources_->OperationInfo("a.b", "z"));
}

TEST_F(QueryServices, DeliverTheDigestOfTheFirstSourcesFileAsAComponentsFingerprint) {
  EXPECT_EQ(
      Value(Call<std::string>(components_, &ComponentService::Fingerprint, std::string("foo"))),
      Md5(FirstFile()));
}

TEST_F(QueryServices, ReportAnUnknownComponentUnderTheMetamodelId) {
  const auto error = NotFound("zelk.metada.metamodel.component.not.found", {"bar"});
  EXPECT_EQ(Error(Call<std::shared_ptr<const Bindings::Authentication::ComponentData>>(
                components_, &ComponentService::Get, std::string("bar"))),
            error);
  EXPECT_EQ(
      Error(Call<std::string>(components_, &ComponentService::Fingerprint, std::string("bar"))),
      error);
}

TEST_F(QueryServices, ReportAnUnknownPackageOrService) {
  EXPECT_EQ(Error(Call<std::shared_ptr<const Bindings::Authentication::PackageInfo>>(
                packages_, &PackageService::Get, std::string("bar"))),
            NotFound("zelk.metada.authentication.package.not.found", {"bar"}));
  EXPECT_EQ(Error(Call<std::shared_ptr<const Bindings::Authentication::ServiceInfo>>(
                services_, &ServiceService::Get, std::string("a.bar"))),
            NotFound("zelk.metada.authentication.service.not.found", {"a.bar"}));
}

TEST_F(QueryServices, TellAnUnknownServiceFromOneWithoutOperations) {
  EXPECT_THAT(Value(Call<Names>(operations_, &OperationService::List, std::string("a.e"))),
              IsEmpty());
  EXPECT_EQ(Error(Call<Names>(operations_, &OperationService::List, std::string("a.bar"))),
            NotFound("zelk.metada.authentication.service.not.found", {"a.bar"}));
}

TEST_F(QueryServices, ReportAnUnknownOperationWithTheServiceFirst) {
  for (const std::string service : {"a.b", "a.bar"}) {
    EXPECT_EQ(Error(Call<std::shared_ptr<const Bindings::Authentication::OperationInfo>>(
                  operations_, &OperationService::Get, service, std::string("baz"))),
              NotFound("zelk.metada.authentication.operation.not.found", {service, "baz"}))
        << service;
  }
}

TEST(QueryServicesOfAnEmptyContainer, DeliverEmptyLists) {
  const Sources sources;
  ComponentService components(sources.Container());
  PackageService packages(sources.Container());
  ServiceService services(sources.Container());
  EXPECT_THAT(Value(Call<Names>(components, &ComponentService::List)), IsEmpty());
  EXPECT_THAT(Value(Call<Names>(packages, &PackageService::List)), IsEmpty());
  EXPECT_THAT(Value(Call<Names>(services, &ServiceService::List)), IsEmpty());
}

TEST(QueryServicesOfAnEmptyContainer, ThrowThroughAnEmptyResult) {
  const Sources sources;
  ComponentService components(sources.Container());
  EXPECT_THROW(components.List(nullptr, Zelk::AsyncResult<Names>()), std::bad_function_call);
  EXPECT_THROW(components.Fingerprint("foo", nullptr, Zelk::AsyncResult<std::string>()),
               std::bad_function_call);
}

TEST(QueryServicesOfAnEmptyContainer, KeepTheContainerAlive) {
  auto container = AuthProvider::MetadataContainer::GetInstance();
  const std::weak_ptr<AuthProvider::MetadataContainer> watched = container;
  {
    ServiceService service(std::move(container));
    EXPECT_FALSE(watched.expired());
    EXPECT_THAT(Value(Call<Names>(service, &ServiceService::List)), IsEmpty());
  }
  EXPECT_TRUE(watched.expired());
}

}  // namespace
