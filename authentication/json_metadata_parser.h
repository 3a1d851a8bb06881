#pragma once

#include <functional>
#include <istream>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include <com/orvane/zelk/metadata/authentication/records.h>

#include "common/json/json_document.h"

namespace Zelk::Provider::Metadata::Authentication {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

/// Reads Authentication files. Keeps no state; every operation appends its messages to `errors`.
class JsonMetadataParser {
 public:
  /// Called with each component that parsed, the product's before the component's.
  using RegisterCallbacks = std::function<void(
      const std::string& name, const std::shared_ptr<Bindings::Authentication::ComponentInfo>&)>;

  using Scheme = std::shared_ptr<const Bindings::Authentication::AuthenticationInfo>;
  using SchemeList = std::list<Scheme>;
  /// The component's schemes by the names that its lists refer to.
  using SchemeTable = std::map<std::string, Scheme, std::less<>>;

  template <typename Record>
  using Table = std::map<std::string, std::shared_ptr<const Record>>;

  /// The tables of what is not declared itself yet, by its id.
  template <typename Record>
  using Unclaimed = std::map<std::string, Table<Record>>;

  /// Reads one file; true when it is accepted, whatever `errors` holds then.
  static bool LoadMetadata(std::istream& in, const RegisterCallbacks& callbacks, Errors& errors);
  static bool LoadMetadata(TextBuffer text, const RegisterCallbacks& callbacks, Errors& errors);

  static bool ParseAuthentication(const RegisterCallbacks& callbacks, const JsonValue& value,
                                  Errors& errors);
  static bool ParseComponent(const RegisterCallbacks& callbacks, const JsonValue& value,
                             Errors& errors);

  static bool ParseSchemes(const JsonValue& value, SchemeTable& schemes, Errors& errors);
  static Scheme ParseAuthInfo(const JsonValue& value, Errors& errors);
  static bool ParseSchemeTypeEnum(
      const JsonValue& value, const char* name, Errors& errors,
      Bindings::Authentication::AuthenticationInfoEnumerations::SchemeType& result);
  static bool ParseSchemeList(const JsonValue& value, const SchemeTable& schemes, SchemeList& list,
                              Errors& errors);

  /// Operations by their service id.
  static bool ParseOperations(const JsonValue& value, const SchemeTable& schemes,
                              Unclaimed<Bindings::Authentication::OperationInfo>& operations,
                              Errors& errors);
  /// Services by their package, each with its operations, which are taken out of `operations`.
  static bool ParseServices(const JsonValue& value, const SchemeTable& schemes,
                            Unclaimed<Bindings::Authentication::OperationInfo>& operations,
                            Unclaimed<Bindings::Authentication::ServiceInfo>& services,
                            Errors& errors);
  /// Packages, each with its services, which are taken out of `services`.
  static bool ParsePackages(const JsonValue& value, const SchemeTable& schemes,
                            Unclaimed<Bindings::Authentication::ServiceInfo>& services,
                            Table<Bindings::Authentication::PackageInfo>& packages, Errors& errors);
  /// Gives the operations that are left services without schemes. False, with a message, at the
  /// first service id that is none.
  static bool CreateServicesFromOperations(
      Unclaimed<Bindings::Authentication::OperationInfo>& operations,
      Unclaimed<Bindings::Authentication::ServiceInfo>& services, Errors& errors);
  /// Gives the services that are left packages without schemes. Always true.
  static bool CreatePackagesFromServices(Unclaimed<Bindings::Authentication::ServiceInfo>& services,
                                         Table<Bindings::Authentication::PackageInfo>& packages);

  /// What stands before and after the last "."; without one, nothing and the whole.
  static std::pair<std::string, std::string> SplitFqdn(const std::string& fqdn);
};

}  // namespace Zelk::Provider::Metadata::Authentication
