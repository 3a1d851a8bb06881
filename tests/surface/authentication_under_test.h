#pragma once

#include <memory>
#include <string>

#include <zelk/provider/metadata/authentication/metadata_container.h>
#include <zelk/provider/metadata/authentication/services.h>

#include "support/surface_recorder.h"
#include "surface/sources.h"

namespace Zelk::Testing {

/// The Authentication domain for the tests of what all domains do alike. Its record is a component.
struct AuthenticationUnderTest {
  using Container = ::Zelk::Provider::Metadata::Authentication::MetadataContainer;
  using SourceService = ::Zelk::Provider::Metadata::Authentication::SourceSvc::AsyncServiceImpl;
  using CreateSpec = ::Com::Orvane::Zelk::Metadata::Authentication::SourceSvc::CreateSpec;
  using Record = ::Com::Orvane::Zelk::Metadata::Authentication::ComponentData;

  static constexpr char kName[] = "Authentication";
  static constexpr char kRootKey[] = "authentication";
  static constexpr char kExists[] = "zelk.metada.authentication.source.exists";
  static constexpr char kNotFound[] = "zelk.metada.authentication.source.not.found";
  static constexpr char kFileNotFound[] = "zelk.metada.authentication.source.file.not.found";
  static constexpr char kParseError[] = "zelk.metadata.authentication.parse.error";
  static constexpr bool kDeliversSuccess = false;

  static std::string File(const std::string& name) {
    return R"({"authentication": {"component": {"name": ")" + name + R"(",
        "schemes": {"x": {"authenticationScheme": "foo", "type": "SESSIONLESS"}},
        "packages": {"p": ["x"]}}}})";
  }

  /// What a root key of the wrong type gives.
  static Lines InvalidRoot() { return InvalidFieldError(kRootKey); }

  static Lines Names(const Container& container) {
    const auto names = container.ListComponents();
    return {names.begin(), names.end()};
  }

  static std::shared_ptr<const Record> Find(const Container& container, const std::string& name) {
    return container.ComponentInfo(name);
  }

  static std::string Text(const Record& record) {
    std::string text = record.fingerprint;
    for (const auto& [name, package] : record.info->packages) {
      text += "\n" + name;
      for (const auto& scheme : package->schemes) text += " " + scheme->scheme;
    }
    return text;
  }
};

using AuthenticationSources = Sources<AuthenticationUnderTest>;

/// A file with one component; the schemes "x" and "y" are there to be named.
inline std::string SchemesFile(const std::string& component, const std::string& members) {
  return R"({"authentication": {"component": {"name": ")" + component + R"(", "schemes": {
      "x": {"authenticationScheme": "ex", "type": "SESSIONLESS"},
      "y": {"authenticationScheme": "why", "type": "SESSION_AWARE", "sessionManager": "sm"}},)" +
         members + "}}}";
}

}  // namespace Zelk::Testing
