#pragma once

#include <list>
#include <memory>
#include <string>

#include <com/orvane/zelk/metadata/authentication/records.h>

#include "support/record_text.h"

// Authentication records as text: one line a record and two blanks a level, each with the schemes
// that it carries itself.

namespace Zelk::Testing {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

/// "scheme", or "scheme"@"manager" for one with sessions. What does not fit together shows: a
/// session manager of a sessionless scheme after a "!", a type that is neither as itself.
inline std::string SchemeText(const Bindings::Authentication::AuthenticationInfo& scheme) {
  using SchemeType = Bindings::Authentication::AuthenticationInfoEnumerations::SchemeType;
  const std::string text = Quoted(scheme.scheme);
  const std::string manager = Quoted(scheme.session_manager);
  if (scheme.scheme_type == SchemeType::SESSION_AWARE) return text + "@" + manager;
  if (scheme.scheme_type != SchemeType::SESSIONLESS) return EnumText(scheme.scheme_type) + text;
  return scheme.session_manager ? text + "!" + manager : text;
}

inline std::string SchemesText(
    const std::list<std::shared_ptr<const Bindings::Authentication::AuthenticationInfo>>& schemes) {
  std::string text;
  for (const auto& scheme : schemes) text += (text.empty() ? "" : ", ") + SchemeText(*scheme);
  return "[" + text + "]";
}

inline std::string OperationText(const std::string& name,
                                 const Bindings::Authentication::OperationInfo& operation) {
  return "operation " + Quoted(name) + " " + SchemesText(operation.schemes) + "\n";
}

inline std::string ServiceText(const std::string& id,
                               const Bindings::Authentication::ServiceInfo& service,
                               const std::string& indent = "") {
  std::string text = "service " + Quoted(id) + " " + SchemesText(service.schemes) + "\n";
  for (const auto& [name, operation] : service.operations) {
    text += indent + "  " + OperationText(name, *operation);
  }
  return text;
}

inline std::string PackageText(const std::string& name,
                               const Bindings::Authentication::PackageInfo& package,
                               const std::string& indent = "") {
  std::string text = "package " + Quoted(name) + " " + SchemesText(package.schemes) + "\n";
  for (const auto& [id, service] : package.services) {
    text += indent + "  " + ServiceText(id, *service, indent + "  ");
  }
  return text;
}

inline std::string ComponentText(const std::string& name,
                                 const Bindings::Authentication::ComponentInfo& component) {
  std::string text = "component " + Quoted(name) + "\n";
  for (const auto& [package_name, package] : component.packages) {
    text += "  " + PackageText(package_name, *package, "  ");
  }
  return text;
}

}  // namespace Zelk::Testing
