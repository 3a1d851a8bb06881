#include <zelk/provider/metadata/metamodel/metadata_container.h>
#include <zelk/provider/metadata/metamodel/services.h>

#include "domains/metamodel_shapes.h"
#include "domains/metamodel_types.h"
#include "domains/source_domain.h"
#include "domains/table.h"

namespace Zelk::Tool {
namespace {

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

constexpr Precedence kServiceFirst{Rule::kFirstParent,
                                   "The first source in the order of the ids that has the service "
                                   "answers for all its operations."};
constexpr Precedence kByPlace{
    Rule::kPlace,
    "Definitions in packages come before those in services, and both before those in structures, "
    "whichever source they are in; in equal places the first source in the order of the ids "
    "answers."};
constexpr Precedence kLastSource{
    Rule::kLastSource,
    "The last source in the order of the ids answers; the sets of the others are not added to its "
    "own."};
constexpr Precedence kTogether{Rule::kAll, "All sources answer together, each name once."};

template <typename Service, typename... Parameters>
Query<Record> GetQuery(Service& service, void (Service::*operation)(Parameters...)) {
  return MakeQuery<Record>(service, operation, [](const Ids& /*ids*/, const auto& record) {
    return Record{[record](Render::Page& page) { WritePage(page, *record); },
                  [record](Render::JsonWriter& json) { WriteRecord(json, *record); }};
  });
}

/// The services of the domain over one container.
class Metamodel final : public SourceDomain<SourceSvc, Bindings::Metamodel::SourceSvc::CreateSpec> {
 public:
  Metamodel() : Metamodel(Provider::MetadataContainer::GetInstance()) {}

  Outline MakeOutline() override;
  Record TypesIn(const Subject& subject, std::size_t levels) override;
  std::vector<Subject> Levels(const Subject& subject) override;
  std::vector<Section> About(const std::vector<Subject>& levels) override;

 private:
  /// The first package that has the service, in the order of the packages; empty for none.
  std::string PackageOf(const std::string& service_id);

  explicit Metamodel(const Container& container);

  Kind StructureKind();
  Kind EnumerationKind();

  ComponentSvc component_;
  PackageSvc package_;
  ServiceSvc service_;
  OperationSvc operation_;
  StructureSvc structure_;
  EnumerationSvc enumeration_;
  ResourceSvc resource_;
  ModelSvc model_;
  HiddenSvc hidden_;
};

Metamodel::Metamodel(const Container& container)
    : SourceDomain(container),
      component_(container),
      package_(container),
      service_(container),
      operation_(container),
      structure_(container),
      enumeration_(container),
      resource_(container),
      model_(container),
      hidden_(container) {
  kinds_ = {
      {"component",
       {"component"},
       ListQuery(component_, &ComponentSvc::List),
       GetQuery(component_, &ComponentSvc::Get),
       FingerprintQuery(component_, &ComponentSvc::Fingerprint),
       kFirstSource,
       true},
      {"package",
       {"package"},
       ListQuery(package_, &PackageSvc::List),
       GetQuery(package_, &PackageSvc::Get),
       {},
       kFirstSource,
       true,
       {"component"}},
      {"service",
       {"service"},
       ListQuery(service_, &ServiceSvc::List),
       GetQuery(service_, &ServiceSvc::Get),
       {},
       kFirstSource,
       true,
       {"package", "component"},
       {"constant"}},
      {"operation",
       {"service", "operation"},
       ListQuery(operation_, &OperationSvc::List),
       GetQuery(operation_, &OperationSvc::Get),
       {},
       kServiceFirst,
       true,
       {"service", "package", "component"},
       {"parameter"}},
      StructureKind(),
      EnumerationKind(),
      {"resource", {"resource"}, ListQuery(resource_, &ResourceSvc::List), {}, {}, kTogether},
      {"model",
       {"resource"},
       ListQuery(model_, &ModelSvc::List),
       {},
       {},
       kLastSource,
       false,
       {"resource"}},
      {"hidden", {}, ListQuery(hidden_, &HiddenSvc::List), {}, {}},
      SourceKind(source_),
  };
}

Kind Metamodel::StructureKind() {
  return {"structure",
          {"structure"},
          ListQuery(structure_, &StructureSvc::List),
          GetQuery(structure_, &StructureSvc::Get),
          {},
          kByPlace,
          false,
          {"service", "package", "component"},
          {"field", "constant"},
          true};
}

Kind Metamodel::EnumerationKind() {
  return {"enumeration",
          {"enumeration"},
          ListQuery(enumeration_, &EnumerationSvc::List),
          GetQuery(enumeration_, &EnumerationSvc::Get),
          {},
          kByPlace,
          false,
          {"structure", "service", "package", "component"},
          {"value"}};
}

Outline Metamodel::MakeOutline() {
  OutlineWriter outline;
  const auto components = Call(component_, &ComponentSvc::List);
  for (const std::string& name : *components.answer) {
    const auto component = Call(component_, &ComponentSvc::Get, name);
    if (component.answer) WriteOutline(outline, *(*component.answer)->info);
  }
  const auto resources = Call(resource_, &ResourceSvc::List);
  for (const std::string& name : *resources.answer) {
    outline.Kind(0, "resource", IdsFrom(name), "");
    // One entry for the set of them, which is what sources answer.
    outline.Kind(1, "model", IdsFrom(name), "");
  }
  return outline.Take();
}

Record Metamodel::TypesIn(const Subject& subject, std::size_t levels) {
  const TypeLookups lookups{
      [this](const std::string& name) {
        return Call(structure_, &StructureSvc::Get, name).answer.value_or(nullptr);
      },
      [this](const std::string& name) {
        return Call(enumeration_, &EnumerationSvc::Get, name).answer.value_or(nullptr);
      }};
  return TypesInStructure(subject.ids.front(), lookups, levels);
}

std::string Metamodel::PackageOf(const std::string& service_id) {
  const auto packages = Call(package_, &PackageSvc::List);
  for (const std::string& name : *packages.answer) {
    const auto package = Call(package_, &PackageSvc::Get, name);
    if (package.answer && (*package.answer)->services.count(service_id) != 0) return name;
  }
  return "";
}

std::vector<Subject> Metamodel::Levels(const Subject& subject) {
  if (subject.kind != "service" && subject.kind != "operation") return {subject};
  std::vector<Subject> levels;
  const std::string& service_id = subject.ids.front();
  const std::string package = PackageOf(service_id);
  if (!package.empty()) levels.push_back({"package", {package}});
  if (subject.kind == "operation") levels.push_back({"service", {service_id}});
  levels.push_back(subject);
  return levels;
}

std::vector<Section> Metamodel::About(const std::vector<Subject>& levels) {
  const Subject& subject = levels.back();
  if (subject.kind != "operation") return {};
  const auto operation = Call(operation_, &OperationSvc::Get, subject.ids[0], subject.ids[1]);
  if (!operation.answer) return {};
  const auto info = *operation.answer;
  return {[info](Render::Page& page) {
    page.Heading("Operation:");
    WriteSummary(page, *info);
  }};
}

}  // namespace

DomainRow MetamodelDomain() {
  return {"metamodel", "metamodel", "zelk.metadata.metamodel.parse.error",
          "zelk.metada.metamodel.source.exists",
          []() -> std::unique_ptr<Domain> { return std::make_unique<Metamodel>(); }};
}

}  // namespace Zelk::Tool
