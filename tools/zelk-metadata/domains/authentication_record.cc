#include "domains/authentication_record.h"

#include <fmt/format.h>

#include "domains/enum_text.h"

namespace Zelk::Tool {
namespace {

using Render::Page;

void WriteSchemes(Page& page, std::size_t level, const SchemeList& schemes) {
  for (const auto& scheme : schemes) {
    const std::string manager =
        scheme->session_manager ? ", session manager " + *scheme->session_manager : "";
    page.Line(level,
              fmt::format("{} ({}{})", scheme->scheme, EnumText(scheme->scheme_type), manager));
  }
}

// The parts of a record, each with its name.

void WriteParts(Page& page, std::size_t level,
                const Bindings::Authentication::OperationInfo& operation) {
  WriteSchemes(page, level, operation.schemes);
}

void WriteParts(Page& page, std::size_t level,
                const Bindings::Authentication::ServiceInfo& service) {
  WriteSchemes(page, level, service.schemes);
  for (const auto& [name, operation] : service.operations) {
    page.Line(level, "operation " + name);
    WriteParts(page, level + 1, *operation);
  }
}

void WriteParts(Page& page, std::size_t level,
                const Bindings::Authentication::PackageInfo& package) {
  WriteSchemes(page, level, package.schemes);
  for (const auto& [id, service] : package.services) {
    page.Line(level, "service " + id);
    WriteParts(page, level + 1, *service);
  }
}

}  // namespace

static void WriteMembers(RecordWriter& json,
                         const Bindings::Authentication::AuthenticationInfo& scheme) {
  json.Member("scheme_type", EnumText(scheme.scheme_type));
  json.Member("session_manager", scheme.session_manager);
  json.Member("scheme", scheme.scheme);
}

static void WriteMembers(RecordWriter& json,
                         const Bindings::Authentication::ComponentInfo& component) {
  json.Member("packages", component.packages);
}

void WriteMembers(RecordWriter& json, const Bindings::Authentication::OperationInfo& operation) {
  json.Member("schemes", operation.schemes);
}

void WriteMembers(RecordWriter& json, const Bindings::Authentication::ServiceInfo& service) {
  json.Member("schemes", service.schemes);
  json.Member("operations", service.operations);
}

void WriteMembers(RecordWriter& json, const Bindings::Authentication::PackageInfo& package) {
  json.Member("schemes", package.schemes);
  json.Member("services", package.services);
}

void WriteMembers(RecordWriter& json, const Bindings::Authentication::ComponentData& component) {
  json.Member("info", component.info);
  json.Member("fingerprint", component.fingerprint);
}

void WritePage(Page& page, const std::string& title,
               const Bindings::Authentication::ComponentData& component) {
  page.Title(title);
  page.Line(1, "Fingerprint: " + component.fingerprint);
  for (const auto& [name, package] : component.info->packages) {
    page.Line(1, "package " + name);
    WriteParts(page, 2, *package);
  }
}

void WritePage(Page& page, const std::string& title,
               const Bindings::Authentication::PackageInfo& package) {
  page.Title(title);
  WriteParts(page, 1, package);
}

void WritePage(Page& page, const std::string& title,
               const Bindings::Authentication::ServiceInfo& service) {
  page.Title(title);
  WriteParts(page, 1, service);
}

void WritePage(Page& page, const std::string& title,
               const Bindings::Authentication::OperationInfo& operation) {
  page.Title(title);
  WriteParts(page, 1, operation);
}

void WriteLevels(Page& page, const std::vector<LevelSchemes>& levels) {
  page.Heading("Schemes listed:");
  for (const LevelSchemes& level : levels) {
    const bool has_some = level.schemes && !level.schemes->empty();
    page.Line(1, level.title + (has_some ? "" : level.schemes ? ": none" : ": no record"));
    if (has_some) WriteSchemes(page, 2, *level.schemes);
  }
}

void WriteOutline(OutlineWriter& outline, const std::string& name,
                  const Bindings::Authentication::ComponentInfo& component) {
  outline.Kind(0, "component", IdsFrom(name), "");
  for (const auto& [package_name, package] : component.packages) {
    outline.Kind(1, "package", IdsFrom(package_name), "");
    for (const auto& [id, service] : package->services) {
      outline.Kind(2, "service", IdsFrom(id), "");
      for (const auto& [operation, ignored] : service->operations) {
        outline.Kind(3, "operation", IdsFrom(id, operation), "");
      }
    }
  }
}

}  // namespace Zelk::Tool
