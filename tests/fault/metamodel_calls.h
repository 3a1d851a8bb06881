#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fault/tree_calls.h"
#include "surface/metamodel_under_test.h"

namespace Zelk::Testing {

/// The Metamodel domain where memory runs out.
struct MetamodelWithoutMemory : MetamodelUnderTest {
  static constexpr char kDataFile[] = "metamodel.json";

  static constexpr const char* kKeys[] = {"component.of.the.first.source",
                                          "package.of.the.first.source",
                                          "service.of.the.first.source",
                                          "structure.of.the.package",
                                          "structure.of.the.service",
                                          "enumeration.of.the.package",
                                          "deepest.enumeration.there.is",
                                          "resource.of.the.first.source",
                                          kUnknownKey};

  /// What refuses a file after much of it was read, as texts to replace in the whole one.
  static std::vector<std::pair<std::string, std::string>> Mistakes() {
    return {{R"("documentation": "Error before.")", R"("unread": "Error before.")"},
            {R"("Error before.")", "{}"},
            {R"("EXCEPTION")", R"("none there is")"}};
  }

  template <typename Visit>
  static void EachQuery(const Container& container, const Visit& visit) {
    EachSourceQuery(container, visit);
    EachTreeQuery(container, kKeys, visit);
    visit("ListHiddens", [&] { return container.ListHiddens(); });
    visit("ListEnumerations", [&] { return container.ListEnumerations(); });
    visit("ListStructures", [&] { return container.ListStructures(); });
    visit("ListResources", [&] { return container.ListResources(); });
    for (const std::string key : kKeys) {
      visit("EnumerationInfo of " + key, [&] { return container.EnumerationInfo(key); });
      visit("StructureInfo of " + key, [&] { return container.StructureInfo(key); });
      visit("ListModels of " + key, [&] { return container.ListModels(key); });
    }
  }

  template <typename Visit>
  static void EachOperation(const std::shared_ptr<Container>& container, const Visit& visit) {
    namespace Provider = MetamodelProvider;
    SourceService sources(container);
    EachSourceOperation(sources, visit);
    EachTreeOperation<
        Provider::ComponentSvc::AsyncServiceImpl, Provider::PackageSvc::AsyncServiceImpl,
        Provider::ServiceSvc::AsyncServiceImpl, Provider::Service::OperationSvc::AsyncServiceImpl>(
        container, kKeys, visit);
    Provider::EnumerationSvc::AsyncServiceImpl enumerations(container);
    Provider::StructureSvc::AsyncServiceImpl structures(container);
    EachListAndGet("EnumerationSvc", enumerations, kKeys, visit);
    EachListAndGet("StructureSvc", structures, kKeys, visit);
    using Hidden = Provider::Service::HiddenSvc::AsyncServiceImpl;
    using Resources = Provider::ResourceSvc::AsyncServiceImpl;
    using Models = Provider::Resource::ModelSvc::AsyncServiceImpl;
    Hidden hidden(container);
    Resources resources(container);
    Models models(container);
    visit("HiddenSvc::List", hidden, &Hidden::List);
    visit("ResourceSvc::List", resources, &Resources::List);
    for (const std::string key : kKeys) {
      visit("ModelSvc::List of " + key, models, &Models::List, key);
    }
  }
};

}  // namespace Zelk::Testing
