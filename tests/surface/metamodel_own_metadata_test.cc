#include <map>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/authentication/enumerations.h>
#include <com/orvane/zelk/metadata/cli/enumerations.h>
#include <com/orvane/zelk/metadata/metamodel/enumerations.h>
#include <com/orvane/zelk/metadata/source_type.h>
#include <zelk/provider/metadata/metamodel/metadata_container.h>

#include "support/source_dir.h"
#include "surface/bindings_scan.h"

namespace Zelk::Testing {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
namespace Metamodel = ::Zelk::Provider::Metadata::Metamodel;

const std::string kComponent = "com.orvane.zelk.metadata";

/// The file that ships, loaded; and the ids that it gives to what the bindings declare.
class MetamodelOwnMetadata : public testing::Test {
 protected:
  void SetUp() override {
    const auto spec = std::make_shared<const Bindings::Metamodel::SourceSvc::CreateSpec>(
        "", Bindings::SourceType::LOCAL_FILE,
        std::string(ZELK_SOURCE_DIR "/metadata/metamodel/zelk-metadata.json"), boost::none);
    ASSERT_EQ(container_->CreateSource("own", spec), nullptr);
  }

  /// "SourceSvc::CreateSpec" of domain "cli" to "com.orvane.zelk.metadata.cli.source.create_spec".
  static std::string Id(const std::string& domain, const std::string& name) {
    std::string id = kComponent + '.' + domain;
    for (std::size_t begin = 0; begin < name.size();) {
      const auto end = std::min(name.find("::", begin), name.size());
      std::string part = name.substr(begin, end - begin);
      const bool service = part.size() > 3 && part.compare(part.size() - 3, 3, "Svc") == 0;
      if (service) part.resize(part.size() - 3);
      id += '.' + ToSnakeCase(part);
      begin = end + 2;
    }
    return id;
  }

  static const std::vector<std::string>& DomainNames() {
    static const std::vector<std::string> names{"metamodel", "authentication", "cli"};
    return names;
  }

  const std::shared_ptr<Metamodel::MetadataContainer> container_ =
      Metamodel::MetadataContainer::GetInstance();
};

TEST_F(MetamodelOwnMetadata, HasAPackageForEachDomain) {
  EXPECT_THAT(container_->ListComponents(), testing::ElementsAre(kComponent));
  for (const auto& domain : DomainNames()) {
    EXPECT_NE(container_->PackageInfo(kComponent + '.' + domain), nullptr) << domain;
  }
}

TEST_F(MetamodelOwnMetadata, HasExactlyTheServicesOfTheBindings) {
  std::set<std::string> expected;
  for (const auto& domain : DomainNames()) {
    for (const auto& [name, operations] : ScanBindings(domain).services) {
      expected.insert(Id(domain, name));
    }
  }
  EXPECT_EQ(expected.size(), 18U);
  EXPECT_THAT(container_->ListServices(), testing::UnorderedElementsAreArray(expected));
}

TEST_F(MetamodelOwnMetadata, HasEveryOperationWithItsParametersInOrder) {
  for (const auto& domain : DomainNames()) {
    for (const auto& [name, operations] : ScanBindings(domain).services) {
      const std::string service_id = Id(domain, name);
      const auto service = container_->ServiceInfo(service_id);
      ASSERT_NE(service, nullptr) << service_id;
      EXPECT_EQ(service->operations.size(), operations.size()) << service_id;
      for (const auto& [operation_id, parameters] : operations) {
        const auto operation = container_->OperationInfo(service_id, operation_id);
        ASSERT_NE(operation, nullptr) << service_id << ' ' << operation_id;
        Lines described;
        for (const auto& field : operation->params) described.push_back(field->name);
        EXPECT_EQ(described, parameters) << service_id << ' ' << operation_id;
      }
    }
  }
}

TEST_F(MetamodelOwnMetadata, HasExactlyTheRecordsOfTheBindings) {
  std::set<std::string> expected;
  for (const auto& domain : DomainNames()) {
    for (const auto& [name, members] : ScanBindings(domain).records) {
      if (name == "SourceDescription" || name == "TreeIdentity") continue;  // only derived from
      const std::string id = Id(domain, name);
      expected.insert(id);
      const auto structure = container_->StructureInfo(id);
      ASSERT_NE(structure, nullptr) << id;
      Lines described;
      for (const auto& field : structure->fields) described.push_back(field->name);
      EXPECT_EQ(described, members) << id;
    }
  }
  EXPECT_THAT(container_->ListStructures(), testing::UnorderedElementsAreArray(expected));
}

/// Each enumeration of the bindings, below the component, and its texts.
std::map<std::string, const char* const*> BoundEnumerations() {
  return {
      {"source_type", Bindings::SourceType::Strings::values},
      {"metamodel.type.category", Bindings::Metamodel::TypeEnumerations::Category::Strings::values},
      {"metamodel.type.builtin_type",
       Bindings::Metamodel::TypeEnumerations::BuiltinType::Strings::values},
      {"metamodel.generic_instantiation.generic_type",
       Bindings::Metamodel::GenericInstantiationEnumerations::GenericType::Strings::values},
      {"metamodel.structure_info.type",
       Bindings::Metamodel::StructureInfoEnumerations::Type::Strings::values},
      {"metamodel.constant_value.category",
       Bindings::Metamodel::ConstantValueEnumerations::Category::Strings::values},
      {"metamodel.primitive_value.type",
       Bindings::Metamodel::PrimitiveValueEnumerations::Type::Strings::values},
      {"metamodel.element_value.type",
       Bindings::Metamodel::ElementValueEnumerations::Type::Strings::values},
      {"authentication.authentication_info.scheme_type",
       Bindings::Authentication::AuthenticationInfoEnumerations::SchemeType::Strings::values},
      {"cli.command.formatter_type", Bindings::Cli::CommandSvc::FormatterType::Strings::values},
      {"cli.command.generic_type", Bindings::Cli::CommandSvc::GenericType::Strings::values},
  };
}

TEST_F(MetamodelOwnMetadata, HasExactlyTheEnumerationsOfTheBindings) {
  const auto expected = BoundEnumerations();
  EXPECT_EQ(container_->ListEnumerations().size(), expected.size());
  for (const auto& [name, texts] : expected) {
    const auto enumeration = container_->EnumerationInfo(kComponent + '.' + name);
    ASSERT_NE(enumeration, nullptr) << name;
    const char* const* text = texts;
    for (const auto& value : enumeration->values) {
      ASSERT_NE(*text, nullptr) << name;
      EXPECT_EQ(value->value, *text++) << name;
    }
    EXPECT_EQ(*text, nullptr) << name;
  }
}

TEST_F(MetamodelOwnMetadata, DocumentsEveryOperationAndField) {
  for (const auto& service_id : container_->ListServices()) {
    for (const auto& [name, operation] : container_->ServiceInfo(service_id)->operations) {
      EXPECT_FALSE(operation->documentation.empty()) << service_id << ' ' << name;
      EXPECT_FALSE(operation->output->documentation.empty()) << service_id << ' ' << name;
      for (const auto& field : operation->params) {
        EXPECT_FALSE(field->documentation.empty()) << service_id << ' ' << name;
      }
    }
  }
  for (const auto& structure_id : container_->ListStructures()) {
    const auto structure = container_->StructureInfo(structure_id);
    EXPECT_FALSE(structure->documentation.empty()) << structure_id;
    for (const auto& field : structure->fields) {
      EXPECT_FALSE(field->documentation.empty()) << structure_id << ' ' << field->name;
    }
  }
}

TEST_F(MetamodelOwnMetadata, NamesTheModelsOfItsResources) {
  const auto models = container_->ListModels(kComponent + ".metamodel.component");
  ASSERT_TRUE(models);
  EXPECT_THAT(*models, testing::ElementsAre(kComponent + ".metamodel.component_info"));
}

}  // namespace
}  // namespace Zelk::Testing
