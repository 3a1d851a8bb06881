#include <list>
#include <memory>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zelk/provider/metadata/authentication/metadata_container.h>
#include <zelk/provider/metadata/metamodel/metadata_container.h>

#include "support/authentication_text.h"
#include "support/source_dir.h"
#include "support/surface_recorder.h"

// The definitions of the library's own services: what their schemes file says fits what their
// metamodel file says.

namespace Zelk::Testing {
namespace {

namespace Metadata = ::Zelk::Provider::Metadata;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using Names = std::list<std::string>;
using NameSet = std::set<std::string>;

/// Registers the domain's file of the repository; the error, nothing for success.
template <typename CreateSpec, typename Container>
Lines Load(Container& container, const std::string& domain) {
  const auto spec = std::make_shared<const CreateSpec>(
      "own services", ::Com::Orvane::Zelk::Metadata::SourceType::LOCAL_FILE,
      ZELK_SOURCE_DIR "/metadata/" + domain + "/zelk-metadata.json", boost::none);
  return ErrorLines(container.CreateSource(domain, spec));
}

NameSet Set(const Names& names) {
  return {names.begin(), names.end()};
}

class AuthenticationOwnMetadata : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(Load<Bindings::Metamodel::SourceSvc::CreateSpec>(*metamodel_, "metamodel"), Lines());
    ASSERT_EQ(Load<Bindings::Authentication::SourceSvc::CreateSpec>(*schemes_, "authentication"),
              Lines());
    ASSERT_THAT(metamodel_->ListPackages(), Not(IsEmpty()));
    ASSERT_THAT(metamodel_->ListServices(), Not(IsEmpty()));
  }

  NameSet Operations(const std::string& service_id) const {
    const auto operations = metamodel_->ListOperations(service_id);
    return operations ? Set(*operations) : NameSet();
  }

  /// The schemes that an operation has itself or else gets from its service or else its package.
  std::string Effective(const std::string& service_id, const std::string& operation_id) const {
    const auto operation = schemes_->OperationInfo(service_id, operation_id);
    if (operation && !operation->schemes.empty()) return SchemesText(operation->schemes);
    const auto service = schemes_->ServiceInfo(service_id);
    if (service && !service->schemes.empty()) return SchemesText(service->schemes);
    const auto package = schemes_->PackageInfo(service_id.substr(0, service_id.rfind('.')));
    return package ? SchemesText(package->schemes) : "no such package";
  }

  std::shared_ptr<Metadata::Metamodel::MetadataContainer> metamodel_ =
      Metadata::Metamodel::MetadataContainer::GetInstance();
  std::shared_ptr<Metadata::Authentication::MetadataContainer> schemes_ =
      Metadata::Authentication::MetadataContainer::GetInstance();
};

TEST_F(AuthenticationOwnMetadata, HasTheComponentOfTheMetamodel) {
  EXPECT_EQ(schemes_->ListComponents(), metamodel_->ListComponents());
  EXPECT_THAT(schemes_->ListComponents(), ElementsAre("com.orvane.zelk.metadata"));
}

TEST_F(AuthenticationOwnMetadata, HasSchemesForEveryPackage) {
  for (const auto& name : metamodel_->ListPackages()) {
    const auto package = schemes_->PackageInfo(name);
    ASSERT_NE(package, nullptr) << name;
    EXPECT_THAT(package->schemes, Not(IsEmpty())) << name;
  }
}

TEST_F(AuthenticationOwnMetadata, HasSchemesForEveryOperationAtSomeLevel) {
  for (const auto& service : metamodel_->ListServices()) {
    EXPECT_THAT(Operations(service), Not(IsEmpty())) << service;
    for (const auto& operation : Operations(service)) {
      const auto schemes = Effective(service, operation);
      EXPECT_NE(schemes, "[]") << service << " " << operation;
      EXPECT_NE(schemes, "no such package") << service << " " << operation;
    }
  }
}

TEST_F(AuthenticationOwnMetadata, HasNoSchemesForUnknownServicesAndOperations) {
  const auto known = Set(metamodel_->ListServices());
  for (const auto& service : schemes_->ListServices()) {
    EXPECT_EQ(known.count(service), 1U) << service;
    const auto operations = schemes_->ListOperations(service);
    ASSERT_TRUE(operations.has_value()) << service;
    for (const auto& operation : *operations) {
      EXPECT_EQ(Operations(service).count(operation), 1U) << service << " " << operation;
    }
  }
}

// A service inside another one has that one's id in the place of a package.
TEST_F(AuthenticationOwnMetadata, HasNoSchemesForUnknownPackages) {
  const auto packages = Set(metamodel_->ListPackages());
  const auto services = Set(metamodel_->ListServices());
  for (const auto& name : schemes_->ListPackages()) {
    if (packages.count(name) != 0) continue;
    EXPECT_EQ(services.count(name), 1U) << name;
    EXPECT_THAT(schemes_->PackageInfo(name)->schemes, IsEmpty()) << name;
  }
}

TEST_F(AuthenticationOwnMetadata, NeedsAnAdministratorToChangeSources) {
  const std::string administrator =
      R"("com.orvane.zelk.authentication.administrator"@"com.orvane.zelk.session.administrator")";
  for (const auto& service : metamodel_->ListServices()) {
    for (const auto& operation : Operations(service)) {
      const bool changes = operation == "create" || operation == "delete" || operation == "reload";
      const auto schemes = Effective(service, operation);
      EXPECT_EQ(schemes == "[" + administrator + "]", changes) << service << " " << operation;
      EXPECT_EQ(schemes.find(administrator) != std::string::npos, changes)
          << service << " " << operation;
    }
  }
}

TEST_F(AuthenticationOwnMetadata, ListsSchemesWithoutASession) {
  const std::string domain = "com.orvane.zelk.metadata.authentication.";
  for (const std::string service : {"component", "package", "service", "service.operation"}) {
    ASSERT_THAT(Operations(domain + service), Not(IsEmpty())) << service;
    for (const auto& operation : Operations(domain + service)) {
      EXPECT_THAT(Effective(domain + service, operation),
                  testing::StartsWith(R"(["com.orvane.zelk.authentication.anonymous")"))
          << service << " " << operation;
    }
  }
}

TEST_F(AuthenticationOwnMetadata, NeedsNoAdministratorForAWholePackage) {
  NameSet schemes;
  for (const auto& name : schemes_->ListPackages()) {
    for (const auto& scheme : schemes_->PackageInfo(name)->schemes) {
      schemes.insert(SchemeText(*scheme));
    }
  }
  EXPECT_THAT(schemes,
              ElementsAre(R"("com.orvane.zelk.authentication.anonymous")",
                          R"("com.orvane.zelk.authentication.password")",
                          R"("com.orvane.zelk.authentication.session"@"com.orvane.zelk.session")"));
}

}  // namespace
}  // namespace Zelk::Testing
