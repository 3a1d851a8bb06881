#include <zelk/provider/metadata/metamodel/metadata_container.h>
#include <zelk/provider/metadata/metamodel/services.h>

#include "domains/metamodel_json.h"
#include "domains/metamodel_page.h"
#include "domains/source_record.h"
#include "domains/table.h"

namespace Zelk::Tool {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata::Metamodel;
namespace Provider = ::Zelk::Provider::Metadata::Metamodel;
using Container = std::shared_ptr<Provider::MetadataContainer>;
using ComponentSvc = Provider::ComponentSvc::AsyncServiceImpl;
using EnumerationSvc = Provider::EnumerationSvc::AsyncServiceImpl;
using HiddenSvc = Provider::Service::HiddenSvc::AsyncServiceImpl;
using ModelSvc = Provider::Resource::ModelSvc::AsyncServiceImpl;
using OperationSvc = Provider::Service::OperationSvc::AsyncServiceImpl;
using PackageSvc = Provider::PackageSvc::AsyncServiceImpl;
using ResourceSvc = Provider::ResourceSvc::AsyncServiceImpl;
using ServiceSvc = Provider::ServiceSvc::AsyncServiceImpl;
using SourceSvc = Provider::SourceSvc::AsyncServiceImpl;
using StructureSvc = Provider::StructureSvc::AsyncServiceImpl;

/// The services of the domain over one container.
class Metamodel final : public Domain {
 public:
  Metamodel() : Metamodel(Provider::MetadataContainer::GetInstance()) {}

  std::optional<ServiceError> CreateSource(const std::string& id,
                                           const std::string& path) override {
    return CreateLocalSource<Bindings::SourceSvc::CreateSpec>(source_, id, path);
  }

  const std::vector<Kind>& Kinds() const override { return kinds_; }

 private:
  explicit Metamodel(const Container& container);

  ComponentSvc component_;
  PackageSvc package_;
  ServiceSvc service_;
  OperationSvc operation_;
  StructureSvc structure_;
  EnumerationSvc enumeration_;
  ResourceSvc resource_;
  ModelSvc model_;
  HiddenSvc hidden_;
  SourceSvc source_;
  std::vector<Kind> kinds_;
};

Metamodel::Metamodel(const Container& container)
    : component_(container),
      package_(container),
      service_(container),
      operation_(container),
      structure_(container),
      enumeration_(container),
      resource_(container),
      model_(container),
      hidden_(container),
      source_(container) {
  kinds_ = {
      {"component",
       {"COMPONENT"},
       ListQuery(component_, &ComponentSvc::List),
       GetQuery(component_, &ComponentSvc::Get),
       FingerprintQuery(component_, &ComponentSvc::Fingerprint)},
      {"package",
       {"PACKAGE"},
       ListQuery(package_, &PackageSvc::List),
       GetQuery(package_, &PackageSvc::Get),
       {}},
      {"service",
       {"SERVICE"},
       ListQuery(service_, &ServiceSvc::List),
       GetQuery(service_, &ServiceSvc::Get),
       {}},
      {"operation",
       {"SERVICE", "OPERATION"},
       ListQuery(operation_, &OperationSvc::List),
       GetQuery(operation_, &OperationSvc::Get),
       {}},
      {"structure",
       {"STRUCTURE"},
       ListQuery(structure_, &StructureSvc::List),
       GetQuery(structure_, &StructureSvc::Get),
       {}},
      {"enumeration",
       {"ENUMERATION"},
       ListQuery(enumeration_, &EnumerationSvc::List),
       GetQuery(enumeration_, &EnumerationSvc::Get),
       {}},
      {"resource", {}, ListQuery(resource_, &ResourceSvc::List), {}, {}},
      {"model", {"RESOURCE"}, ListQuery(model_, &ModelSvc::List), {}, {}},
      {"hidden", {}, ListQuery(hidden_, &HiddenSvc::List), {}, {}},
      SourceKind(source_),
  };
}

}  // namespace

DomainRow MetamodelDomain() {
  return {"metamodel", "metamodel", "zelk.metadata.metamodel.parse.error",
          []() -> std::unique_ptr<Domain> { return std::make_unique<Metamodel>(); }};
}

}  // namespace Zelk::Tool
