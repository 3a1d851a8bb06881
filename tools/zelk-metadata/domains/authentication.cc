#include <fmt/format.h>
#include <fmt/ranges.h>

#include <zelk/provider/metadata/authentication/metadata_container.h>
#include <zelk/provider/metadata/authentication/services.h>

#include "domains/authentication_record.h"
#include "domains/source_domain.h"
#include "domains/table.h"

namespace Zelk::Tool {
namespace {

namespace Provider = ::Zelk::Provider::Metadata::Authentication;
using Container = std::shared_ptr<Provider::MetadataContainer>;
using ComponentSvc = Provider::ComponentSvc::AsyncServiceImpl;
using OperationSvc = Provider::Service::OperationSvc::AsyncServiceImpl;
using PackageSvc = Provider::PackageSvc::AsyncServiceImpl;
using ServiceSvc = Provider::ServiceSvc::AsyncServiceImpl;
using SourceSvc = Provider::SourceSvc::AsyncServiceImpl;

/// Records of this domain do not know their names, so their pages are given the names.
template <typename Service, typename... Parameters>
Query<Record> TitledQuery(const std::string& kind, Service& service,
                          void (Service::*operation)(Parameters...)) {
  return MakeQuery<Record>(service, operation, [kind](const Ids& ids, const auto& record) {
    const std::string title = fmt::format("{} {}", kind, fmt::join(ids, "."));
    return Record{[title, record](Render::Page& page) { WritePage(page, title, *record); },
                  [record](Render::JsonWriter& json) { WriteRecord(json, *record); }};
  });
}

/// The services of the domain over one container.
class Authentication final
    : public SourceDomain<SourceSvc, Bindings::Authentication::SourceSvc::CreateSpec> {
 public:
  Authentication() : Authentication(Provider::MetadataContainer::GetInstance()) {}

  Outline MakeOutline() override;
  std::vector<Section> About(const std::vector<Subject>& levels) override;

 private:
  /// The schemes listed for one level. Empty when there is no record of it.
  std::optional<SchemeList> SchemesOf(const Subject& subject);

  explicit Authentication(const Container& container);

  ComponentSvc component_;
  PackageSvc package_;
  ServiceSvc service_;
  OperationSvc operation_;
};

Authentication::Authentication(const Container& container)
    : SourceDomain(container),
      component_(container),
      package_(container),
      service_(container),
      operation_(container) {
  kinds_ = {
      {"component",
       {"component"},
       ListQuery(component_, &ComponentSvc::List),
       TitledQuery("component", component_, &ComponentSvc::Get),
       FingerprintQuery(component_, &ComponentSvc::Fingerprint),
       kFirstSource,
       true},
      {"package",
       {"package"},
       ListQuery(package_, &PackageSvc::List),
       TitledQuery("package", package_, &PackageSvc::Get),
       {},
       kFirstSource,
       true,
       {"component"}},
      {"service",
       {"service"},
       ListQuery(service_, &ServiceSvc::List),
       TitledQuery("service", service_, &ServiceSvc::Get),
       {},
       kFirstSource,
       true,
       {"package", "component"}},
      {"operation",
       {"service", "operation"},
       ListQuery(operation_, &OperationSvc::List),
       TitledQuery("operation", operation_, &OperationSvc::Get),
       {},
       kFirstSource,
       true,
       {"service", "package", "component"}},
      SourceKind(source_),
  };
}

Outline Authentication::MakeOutline() {
  OutlineWriter outline;
  const auto components = Call(component_, &ComponentSvc::List);
  for (const std::string& name : *components.answer) {
    const auto component = Call(component_, &ComponentSvc::Get, name);
    if (component.answer) WriteOutline(outline, name, *(*component.answer)->info);
  }
  return outline.Take();
}

std::optional<SchemeList> Authentication::SchemesOf(const Subject& subject) {
  const auto schemes_of = [](const auto& outcome) -> std::optional<SchemeList> {
    if (!outcome.answer) return std::nullopt;
    return (*outcome.answer)->schemes;
  };
  const Ids& ids = subject.ids;
  if (subject.kind == "package") return schemes_of(Call(package_, &PackageSvc::Get, ids[0]));
  if (subject.kind == "service") return schemes_of(Call(service_, &ServiceSvc::Get, ids[0]));
  return schemes_of(Call(operation_, &OperationSvc::Get, ids[0], ids[1]));
}

std::vector<Section> Authentication::About(const std::vector<Subject>& levels) {
  const std::string& kind = levels.back().kind;
  if (kind != "package" && kind != "service" && kind != "operation") return {};
  std::vector<LevelSchemes> listed;
  listed.reserve(levels.size());
  for (const Subject& level : levels) {
    listed.push_back({level.kind + ' ' + level.ids.back(), SchemesOf(level)});
  }
  return {[listed](Render::Page& page) { WriteLevels(page, listed); }};
}

}  // namespace

DomainRow AuthenticationDomain() {
  return {"authentication", "authentication", "zelk.metadata.authentication.parse.error",
          "zelk.metada.authentication.source.exists",
          []() -> std::unique_ptr<Domain> { return std::make_unique<Authentication>(); }};
}

}  // namespace Zelk::Tool
