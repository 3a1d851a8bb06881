#include <list>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/metamodel_under_test.h"

// The services of the domain with the container that a host gives them.

namespace Zelk::Testing {
namespace {

namespace Provider = MetamodelProvider;
using testing::ElementsAre;
using testing::IsEmpty;
using ComponentService = Provider::ComponentSvc::AsyncServiceImpl;
using EnumerationService = Provider::EnumerationSvc::AsyncServiceImpl;
using HiddenService = Provider::Service::HiddenSvc::AsyncServiceImpl;
using ModelService = Provider::Resource::ModelSvc::AsyncServiceImpl;
using OperationService = Provider::Service::OperationSvc::AsyncServiceImpl;
using PackageService = Provider::PackageSvc::AsyncServiceImpl;
using ResourceService = Provider::ResourceSvc::AsyncServiceImpl;
using ServiceService = Provider::ServiceSvc::AsyncServiceImpl;
using SourceService = Provider::SourceSvc::AsyncServiceImpl;
using StructureService = Provider::StructureSvc::AsyncServiceImpl;

Part FirstComponent() {
  return Component("c", {Package("p", {Service("s", {Operation("o"), Operation("n")}),
                                       Structure("t"), Enumeration("e"), ModelOf("m", "r")})})
      .Doc("first");
}

/// Two sources; the second defines everything of the first again, and more.
class MetamodelServices : public testing::Test {
 protected:
  const ComponentSources sources_{
      {"b", Component("c", {Package("p", {Service("s", {Operation("x")}), Structure("t"),
                                          Service("u"), Enumeration("e"), ModelOf("l", "q")})})
                .Doc("second")},
      {"a", FirstComponent()}};
  ComponentService components_{sources_.Shared()};
  EnumerationService enumerations_{sources_.Shared()};
  HiddenService hidden_{sources_.Shared()};
  ModelService models_{sources_.Shared()};
  OperationService operations_{sources_.Shared()};
  PackageService packages_{sources_.Shared()};
  ResourceService resources_{sources_.Shared()};
  ServiceService services_{sources_.Shared()};
  StructureService structures_{sources_.Shared()};
};

TEST_F(MetamodelServices, ListRepeatedNames) {
  EXPECT_THAT(ValueOf(Ask(components_, &ComponentService::List)), ElementsAre("c", "c"));
  EXPECT_THAT(ValueOf(Ask(packages_, &PackageService::List)), ElementsAre("p", "p"));
  EXPECT_THAT(ValueOf(Ask(services_, &ServiceService::List)), ElementsAre("s", "s", "u"));
  EXPECT_THAT(ValueOf(Ask(structures_, &StructureService::List)), ElementsAre("m", "t", "l", "t"));
  EXPECT_THAT(ValueOf(Ask(enumerations_, &EnumerationService::List)), ElementsAre("e", "e"));
  EXPECT_THAT(ValueOf(Ask(resources_, &ResourceService::List)), ElementsAre("q", "r"));
  EXPECT_THAT(ValueOf(Ask(models_, &ModelService::List, "r")), ElementsAre("m"));
  EXPECT_THAT(ValueOf(Ask(operations_, &OperationService::List, "s")), ElementsAre("n", "o"));
}

TEST_F(MetamodelServices, DeliverRecordsWithoutCopies) {
  EXPECT_EQ(ValueOf(Ask(components_, &ComponentService::Get, "c"))->info,
            sources_->ComponentInfo("c")->info);
  EXPECT_EQ(ValueOf(Ask(packages_, &PackageService::Get, "p")), sources_->PackageInfo("p"));
  EXPECT_EQ(ValueOf(Ask(services_, &ServiceService::Get, "s")), sources_->ServiceInfo("s"));
  EXPECT_EQ(ValueOf(Ask(operations_, &OperationService::Get, "s", "o")),
            sources_->OperationInfo("s", "o"));
  EXPECT_EQ(ValueOf(Ask(structures_, &StructureService::Get, "t")), sources_->StructureInfo("t"));
  EXPECT_EQ(ValueOf(Ask(enumerations_, &EnumerationService::Get, "e")),
            sources_->EnumerationInfo("e"));
}

TEST_F(MetamodelServices, DeliverTheComponentOfTheFirstSource) {
  const std::string digest = Md5(MetamodelFile(FirstComponent()));
  const auto component = ValueOf(Ask(components_, &ComponentService::Get, "c"));
  EXPECT_EQ(DocOf(component), "first");
  EXPECT_EQ(component->fingerprint, digest);
  EXPECT_EQ(ValueOf(Ask(components_, &ComponentService::Fingerprint, "c")), digest);
}

TEST_F(MetamodelServices, ReportUnknownKeys) {
  for (const std::string key : {"x", "", "C", "a b", "%1%"}) {
    const std::string& id = key;
    EXPECT_EQ(ErrorOf(Ask(components_, &ComponentService::Get, id)),
              NotFound<MetamodelUnderTest>("component", id));
    EXPECT_EQ(ErrorOf(Ask(components_, &ComponentService::Fingerprint, id)),
              NotFound<MetamodelUnderTest>("component", id));
    EXPECT_EQ(ErrorOf(Ask(packages_, &PackageService::Get, id)),
              NotFound<MetamodelUnderTest>("package", id));
    EXPECT_EQ(ErrorOf(Ask(services_, &ServiceService::Get, id)),
              NotFound<MetamodelUnderTest>("service", id));
    EXPECT_EQ(ErrorOf(Ask(structures_, &StructureService::Get, id)),
              NotFound<MetamodelUnderTest>("structure", id));
    EXPECT_EQ(ErrorOf(Ask(enumerations_, &EnumerationService::Get, id)),
              NotFound<MetamodelUnderTest>("enumeration", id));
    EXPECT_EQ(ErrorOf(Ask(models_, &ModelService::List, id)),
              NotFound<MetamodelUnderTest>("resource", id));
    EXPECT_EQ(ErrorOf(Ask(operations_, &OperationService::List, id)),
              NotFound<MetamodelUnderTest>("service", id));
  }
}

TEST_F(MetamodelServices, ReportAnUnknownOperationWithItsService) {
  for (const std::string service : {"s", "u", "unknown", ""}) {
    EXPECT_EQ(ErrorOf(Ask(operations_, &OperationService::Get, service, "y")),
              NotFound<MetamodelUnderTest>("operation", "%1%[%2%]", {service, "y"}));
  }
  EXPECT_EQ(ErrorOf(Ask(operations_, &OperationService::Get, "unknown", "o")),
            NotFound<MetamodelUnderTest>("operation", "%1%[%2%]", {"unknown", "o"}));
  EXPECT_EQ(ErrorOf(Ask(operations_, &OperationService::Get, "s", "x")),
            NotFound<MetamodelUnderTest>("operation", "%1%[%2%]", {"s", "x"}));
}

TEST_F(MetamodelServices, DistinguishAnEmptyServiceFromAnUnknownOne) {
  EXPECT_THAT(ValueOf(Ask(operations_, &OperationService::List, "u")), IsEmpty());
  EXPECT_EQ(ErrorOf(Ask(operations_, &OperationService::List, "v")),
            NotFound<MetamodelUnderTest>("service", "v"));
}

TEST_F(MetamodelServices, HideNothing) {
  EXPECT_THAT(ValueOf(Ask(hidden_, &HiddenService::List)), IsEmpty());
}

TEST_F(MetamodelServices, SeeChangesOfTheSources) {
  SourceService service(sources_.Shared());
  EXPECT_EQ(Ask(service, &SourceService::Delete, "a").calls, 0);
  EXPECT_EQ(DocOf(ValueOf(Ask(components_, &ComponentService::Get, "c"))), "second");
  sources_.Write("b", MetamodelFile(Component("d")));
  EXPECT_EQ(Ask(service, &SourceService::Reload, Some("b")).calls, 0);
  EXPECT_THAT(ValueOf(Ask(components_, &ComponentService::List)), ElementsAre("d"));
  EXPECT_EQ(Ask(service, &SourceService::Delete, "b").calls, 0);
  EXPECT_THAT(ValueOf(Ask(components_, &ComponentService::List)), IsEmpty());
}

TEST_F(MetamodelServices, DeliverRecordsThatOutliveTheContainer) {
  std::shared_ptr<const Bindings::Metamodel::ServiceInfo> answer;
  {
    const ComponentSources sources{{"a", FirstComponent()}};
    ServiceService service(sources.Shared());
    answer = ValueOf(Ask(service, &ServiceService::Get, "s"));
  }
  EXPECT_EQ(Dump(*answer), Dump(*sources_->ServiceInfo("s")));
}

TEST(EmptyMetamodelServices, ListNothingAndReportEveryKey) {
  const auto container = Provider::MetadataContainer::GetInstance();
  ComponentService components(container);
  ResourceService resources(container);
  ModelService models(container);
  OperationService operations(container);
  EXPECT_THAT(ValueOf(Ask(components, &ComponentService::List)), IsEmpty());
  EXPECT_THAT(ValueOf(Ask(resources, &ResourceService::List)), IsEmpty());
  EXPECT_EQ(ErrorOf(Ask(components, &ComponentService::Get, "")),
            NotFound<MetamodelUnderTest>("component", ""));
  EXPECT_EQ(ErrorOf(Ask(models, &ModelService::List, "")),
            NotFound<MetamodelUnderTest>("resource", ""));
  EXPECT_EQ(ErrorOf(Ask(operations, &OperationService::List, "")),
            NotFound<MetamodelUnderTest>("service", ""));
}

}  // namespace
}  // namespace Zelk::Testing
