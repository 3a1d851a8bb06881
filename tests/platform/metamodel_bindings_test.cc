#include <list>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <boost/none.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/metamodel/enumerations.h>
#include <com/orvane/zelk/metadata/metamodel/metadata_identifier_svc.h>
#include <com/orvane/zelk/metadata/metamodel/records.h>
#include <com/orvane/zelk/metadata/metamodel/services.h>
#include <com/orvane/zelk/metadata/source_type.h>

#include "support/slot.h"

namespace {

using namespace Com::Orvane::Zelk::Metadata;  // NOLINT(google-build-using-namespace): a test file
using testing::ElementsAre;
using Zelk::Testing::Slot;

// The texts up to the terminating null.
template <typename E>
std::vector<std::string> Texts() {
  std::vector<std::string> texts;
  for (const char* const* text = E::Strings::values; *text != nullptr; ++text) {
    texts.emplace_back(*text);
  }
  return texts;
}

template <typename E>
class GeneratedEnumerations : public testing::Test {};

using AllEnumerations = testing::Types<
    SourceType, Metamodel::TypeEnumerations::Category, Metamodel::TypeEnumerations::BuiltinType,
    Metamodel::GenericInstantiationEnumerations::GenericType,
    Metamodel::StructureInfoEnumerations::Type, Metamodel::ConstantValueEnumerations::Category,
    Metamodel::PrimitiveValueEnumerations::Type, Metamodel::ElementValueEnumerations::Type>;
TYPED_TEST_SUITE(GeneratedEnumerations, AllEnumerations, );

TYPED_TEST(GeneratedEnumerations, HaveOneTextForEachEnumeratorAndUnknownLast) {
  EXPECT_EQ(Texts<TypeParam>().size(), std::size_t{TypeParam::UNKNOWN});
  EXPECT_EQ(TypeParam().Value(), TypeParam::UNKNOWN);
  EXPECT_EQ(TypeParam::Unknown("FOO").Text(), "FOO");
}

TEST(MetamodelEnumerations, KeepTheOrderOfTypes) {
  using Metamodel::TypeEnumerations::BuiltinType;
  using Metamodel::TypeEnumerations::Category;
  EXPECT_THAT(Texts<Category>(), ElementsAre("BUILTIN", "USER_DEFINED", "GENERIC"));
  EXPECT_THAT((std::vector<int>{Category::BUILTIN, Category::USER_DEFINED, Category::GENERIC}),
              ElementsAre(0, 1, 2));
  EXPECT_THAT(Texts<BuiltinType>(),
              ElementsAre("VOID", "BOOLEAN", "LONG", "DOUBLE", "STRING", "BINARY", "SECRET",
                          "DATE_TIME", "ID", "URI", "ANY_ERROR", "DYNAMIC_STRUCTURE", "OPAQUE"));
  const std::vector<int> builtin = {
      BuiltinType::VOID,   BuiltinType::BOOLEAN,   BuiltinType::LONG,
      BuiltinType::DOUBLE, BuiltinType::STRING,    BuiltinType::BINARY,
      BuiltinType::SECRET, BuiltinType::DATE_TIME, BuiltinType::ID,
      BuiltinType::URI,    BuiltinType::ANY_ERROR, BuiltinType::DYNAMIC_STRUCTURE,
      BuiltinType::OPAQUE, BuiltinType::UNKNOWN};
  EXPECT_THAT(builtin, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13));
}

TEST(MetamodelEnumerations, KeepTheOrderOfGenericTypes) {
  using Metamodel::GenericInstantiationEnumerations::GenericType;
  EXPECT_THAT(Texts<GenericType>(), ElementsAre("LIST", "MAP", "OPTIONAL", "SET"));
  EXPECT_THAT((std::vector<int>{GenericType::LIST, GenericType::MAP, GenericType::OPTIONAL,
                                GenericType::SET}),
              ElementsAre(0, 1, 2, 3));
}

TEST(MetamodelEnumerations, KeepTheOrderOfStructures) {
  using Metamodel::StructureInfoEnumerations::Type;
  EXPECT_THAT(Texts<Type>(), ElementsAre("STRUCTURE", "ERROR"));
  EXPECT_THAT((std::vector<int>{Type::STRUCTURE, Type::ERROR}), ElementsAre(0, 1));
}

TEST(MetamodelEnumerations, KeepTheOrderOfConstants) {
  using Metamodel::ConstantValueEnumerations::Category;
  using Metamodel::PrimitiveValueEnumerations::Type;
  EXPECT_THAT(Texts<Category>(), ElementsAre("PRIMITIVE", "LIST"));
  EXPECT_THAT((std::vector<int>{Category::PRIMITIVE, Category::LIST}), ElementsAre(0, 1));
  EXPECT_THAT(Texts<Type>(), ElementsAre("BOOLEAN", "DOUBLE", "LONG", "STRING"));
  EXPECT_THAT((std::vector<int>{Type::BOOLEAN, Type::DOUBLE, Type::LONG, Type::STRING}),
              ElementsAre(0, 1, 2, 3));
}

TEST(MetamodelEnumerations, KeepTheOrderOfElementValues) {
  using Metamodel::ElementValueEnumerations::Type;
  EXPECT_THAT(Texts<Type>(), ElementsAre("LONG", "STRING", "STRING_LIST", "STRUCTURE_REFERENCE",
                                         "STRUCTURE_REFERENCE_LIST"));
  EXPECT_THAT((std::vector<int>{Type::LONG, Type::STRING, Type::STRING_LIST,
                                Type::STRUCTURE_REFERENCE, Type::STRUCTURE_REFERENCE_LIST}),
              ElementsAre(0, 1, 2, 3, 4));
}

TEST(SourceTypes, KeepTheirOrder) {
  EXPECT_THAT(Texts<SourceType>(), ElementsAre("LOCAL_FILE", "REMOTE"));
  EXPECT_THAT((std::vector<int>{SourceType::LOCAL_FILE, SourceType::REMOTE}), ElementsAre(0, 1));
}

TEST(MetadataIdentifiers, NameTheAnnotations) {
  using Metamodel::MetadataIdentifierSvc::Constants;
  EXPECT_EQ(Constants::MODEL, "Model");
  EXPECT_EQ(Constants::RESOURCE, "Resource");
}

TEST(SourceRecords, TakeTheirFieldsInOrderAndDifferInType) {
  using Metamodel::SourceSvc::CreateSpec;
  using Metamodel::SourceSvc::Info;
  const CreateSpec spec("foo", SourceType::REMOTE, std::string("bar"), std::string("baz"));
  const Info info(spec.description, spec.type, boost::none, boost::none);
  EXPECT_EQ(spec.file_path.value_or("(none)"), "bar");
  EXPECT_EQ(spec.address.value_or("(none)"), "baz");
  EXPECT_EQ(info.description, "foo");
  EXPECT_TRUE(info.type == SourceType::REMOTE);
  EXPECT_FALSE(info.file_path.has_value());
  EXPECT_FALSE((std::is_convertible<CreateSpec, Info>::value));
}

TEST(MetamodelRecords, TakeTheirFieldsInOrder) {
  using Metamodel::ElementValueEnumerations::Type;
  const Metamodel::ElementValue value(Type::STRING, std::string("a"), std::list<std::string>{"b"},
                                      std::string("c"), std::list<std::string>{"d"});
  EXPECT_TRUE(value.type == Type::STRING);
  EXPECT_EQ(*value.string_value, "a");
  EXPECT_THAT(*value.list_value, ElementsAre("b"));
  EXPECT_EQ(*value.structure_id, "c");
  EXPECT_THAT(*value.structure_ids, ElementsAre("d"));
}

TEST(MetamodelRecords, ShareTheirChildren) {
  const auto package = std::make_shared<const Metamodel::PackageInfo>(
      "foo", std::map<std::string, std::shared_ptr<const Metamodel::StructureInfo>>(),
      std::map<std::string, std::shared_ptr<const Metamodel::EnumerationInfo>>(),
      std::map<std::string, std::shared_ptr<const Metamodel::ServiceInfo>>(),
      Metamodel::MetadataMap(), "bar");
  const Metamodel::ComponentInfo component("baz", {{"foo", package}}, {}, "qux");
  EXPECT_EQ(component.packages.at("foo"), package);
  EXPECT_EQ(package->documentation, "bar");
}

template <typename Interface>
class MetamodelInterfaces : public testing::Test {};

using AllInterfaces = testing::Types<
    Metamodel::ComponentSvc::AsyncServiceInterface,
    Metamodel::EnumerationSvc::AsyncServiceInterface, Metamodel::PackageSvc::AsyncServiceInterface,
    Metamodel::ResourceSvc::AsyncServiceInterface,
    Metamodel::Resource::ModelSvc::AsyncServiceInterface,
    Metamodel::ServiceSvc::AsyncServiceInterface,
    Metamodel::Service::OperationSvc::AsyncServiceInterface,
    Metamodel::Service::HiddenSvc::AsyncServiceInterface,
    Metamodel::StructureSvc::AsyncServiceInterface, Metamodel::SourceSvc::AsyncServiceInterface>;
TYPED_TEST_SUITE(MetamodelInterfaces, AllInterfaces, );

TYPED_TEST(MetamodelInterfaces, AreAbstractWithVirtualDestructors) {
  EXPECT_TRUE(std::is_abstract<TypeParam>::value);
  EXPECT_TRUE(std::has_virtual_destructor<TypeParam>::value);
}

TEST(QueryInterfaceSlots, KeepTheirOrder) {
  using Components = Metamodel::ComponentSvc::AsyncServiceInterface;
  using Operations = Metamodel::Service::OperationSvc::AsyncServiceInterface;
  EXPECT_EQ(Slot(&Components::List), 0U);
  EXPECT_EQ(Slot(&Components::Get), 1U);
  EXPECT_EQ(Slot(&Components::Fingerprint), 2U);
  EXPECT_EQ(Slot(&Metamodel::EnumerationSvc::AsyncServiceInterface::Get), 1U);
  EXPECT_EQ(Slot(&Metamodel::PackageSvc::AsyncServiceInterface::Get), 1U);
  EXPECT_EQ(Slot(&Metamodel::ServiceSvc::AsyncServiceInterface::Get), 1U);
  EXPECT_EQ(Slot(&Metamodel::StructureSvc::AsyncServiceInterface::Get), 1U);
  EXPECT_EQ(Slot(&Operations::List), 0U);
  EXPECT_EQ(Slot(&Operations::Get), 1U);
}

TEST(SourceInterfaceSlots, KeepTheirOrder) {
  using Sources = Metamodel::SourceSvc::AsyncServiceInterface;
  EXPECT_EQ(Slot(&Sources::Create), 0U);
  EXPECT_EQ(Slot(&Sources::Delete), 1U);
  EXPECT_EQ(Slot(&Sources::Get), 2U);
  EXPECT_EQ(Slot(&Sources::List), 3U);
  EXPECT_EQ(Slot(&Sources::Reload), 4U);
  EXPECT_EQ(Slot(&Sources::Fingerprint), 5U);
}

}  // namespace
