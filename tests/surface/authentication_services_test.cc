#include <functional>
#include <list>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/domains_under_test.h"

namespace Zelk::Testing {
namespace {

namespace AuthProvider = ::Zelk::Provider::Metadata::Authentication;
using testing::ElementsAre;
using testing::IsEmpty;
using ComponentService = AuthProvider::ComponentSvc::AsyncServiceImpl;
using PackageService = AuthProvider::PackageSvc::AsyncServiceImpl;
using ServiceService = AuthProvider::ServiceSvc::AsyncServiceImpl;
using OperationService = AuthProvider::Service::OperationSvc::AsyncServiceImpl;

std::string FirstFile() {
  return SchemesFile("foo", R"("operations": {"a.b.d": ["x"], "a.b.c": []},
                                 "services": {"a.e": ["y"]}, "packages": {"a": ["x"]})");
}

std::string SecondFile() {
  return SchemesFile("foo", R"("operations": {"a.b.z": ["y"], "a.e.z": []})");
}

class AuthenticationServices : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(sources_.Create("n", SecondFile()), Lines());
    ASSERT_EQ(sources_.Create("m", FirstFile()), Lines());
  }

  AuthenticationSources sources_;
  ComponentService components_{sources_.Shared()};
  PackageService packages_{sources_.Shared()};
  ServiceService services_{sources_.Shared()};
  OperationService operations_{sources_.Shared()};
};

TEST_F(AuthenticationServices, ListRepeatedNames) {
  EXPECT_THAT(ValueOf(Ask(components_, &ComponentService::List)), ElementsAre("foo", "foo"));
  EXPECT_THAT(ValueOf(Ask(packages_, &PackageService::List)), ElementsAre("a", "a"));
  EXPECT_THAT(ValueOf(Ask(services_, &ServiceService::List)),
              ElementsAre("a.b", "a.e", "a.b", "a.e"));
  EXPECT_THAT(ValueOf(Ask(operations_, &OperationService::List, "a.b")), ElementsAre("c", "d"));
}

TEST_F(AuthenticationServices, DeliverRecordsWithoutCopies) {
  const auto component = ValueOf(Ask(components_, &ComponentService::Get, "foo"));
  ASSERT_NE(component, nullptr);
  EXPECT_EQ(component->info, sources_->ComponentInfo("foo")->info);
  EXPECT_EQ(component->fingerprint, Md5(FirstFile()));
  EXPECT_EQ(ValueOf(Ask(packages_, &PackageService::Get, "a")), sources_->PackageInfo("a"));
  EXPECT_EQ(ValueOf(Ask(services_, &ServiceService::Get, "a.e")), sources_->ServiceInfo("a.e"));
  EXPECT_EQ(ValueOf(Ask(operations_, &OperationService::Get, "a.b", "z")),
            sources_->OperationInfo("a.b", "z"));
}

TEST_F(AuthenticationServices, DeliverTheFingerprintOfTheFirstSource) {
  EXPECT_EQ(ValueOf(Ask(components_, &ComponentService::Fingerprint, "foo")), Md5(FirstFile()));
}

TEST_F(AuthenticationServices, ReportAnUnknownComponentWithTheMetamodelMessage) {
  const auto error = NotFound<MetamodelUnderTest>("component", "bar");
  EXPECT_EQ(ErrorOf(Ask(components_, &ComponentService::Get, "bar")), error);
  EXPECT_EQ(ErrorOf(Ask(components_, &ComponentService::Fingerprint, "bar")), error);
}

TEST_F(AuthenticationServices, ReportAnUnknownPackageOrService) {
  EXPECT_EQ(ErrorOf(Ask(packages_, &PackageService::Get, "bar")),
            NotFound<AuthenticationUnderTest>("package", "bar"));
  EXPECT_EQ(ErrorOf(Ask(services_, &ServiceService::Get, "a.bar")),
            NotFound<AuthenticationUnderTest>("service", "a.bar"));
}

TEST_F(AuthenticationServices, DistinguishAnEmptyServiceFromAnUnknownOne) {
  EXPECT_THAT(ValueOf(Ask(operations_, &OperationService::List, "a.e")), IsEmpty());
  EXPECT_EQ(ErrorOf(Ask(operations_, &OperationService::List, "a.bar")),
            NotFound<AuthenticationUnderTest>("service", "a.bar"));
}

TEST_F(AuthenticationServices, ReportAnUnknownOperationWithItsService) {
  for (const std::string service : {"a.b", "a.bar"}) {
    EXPECT_EQ(ErrorOf(Ask(operations_, &OperationService::Get, service, "baz")),
              NotFound<AuthenticationUnderTest>("operation", "%1%[%2%]", {service, "baz"}))
        << service;
  }
}

TEST(EmptyAuthenticationServices, DeliverEmptyLists) {
  const AuthenticationSources sources;
  ComponentService components(sources.Shared());
  PackageService packages(sources.Shared());
  ServiceService services(sources.Shared());
  EXPECT_THAT(ValueOf(Ask(components, &ComponentService::List)), IsEmpty());
  EXPECT_THAT(ValueOf(Ask(packages, &PackageService::List)), IsEmpty());
  EXPECT_THAT(ValueOf(Ask(services, &ServiceService::List)), IsEmpty());
}

TEST(EmptyAuthenticationServices, ThrowOnAnEmptyResult) {
  const AuthenticationSources sources;
  ComponentService components(sources.Shared());
  EXPECT_THROW(components.List(nullptr, {}), std::bad_function_call);
  EXPECT_THROW(components.Fingerprint("foo", nullptr, {}), std::bad_function_call);
}

TEST(EmptyAuthenticationServices, KeepTheContainerAlive) {
  auto container = AuthProvider::MetadataContainer::GetInstance();
  const std::weak_ptr<AuthProvider::MetadataContainer> watched = container;
  {
    ServiceService service(std::move(container));
    EXPECT_FALSE(watched.expired());
    EXPECT_THAT(ValueOf(Ask(service, &ServiceService::List)), IsEmpty());
  }
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace Zelk::Testing
