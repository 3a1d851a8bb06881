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

/// Reads Authentication files. Has no state. Every operation appends its messages to `errors`.
class JsonMetadataParser {
 public:
  /// Called with each component that was parsed; the one of "product" comes first.
  using RegisterCallbacks = std::function<void(
      const std::string& name, const std::shared_ptr<Bindings::Authentication::ComponentInfo>&)>;

  using Scheme = std::shared_ptr<const Bindings::Authentication::AuthenticationInfo>;
  using SchemeList = std::list<Scheme>;
  /// The schemes of a component. The key is the name that its lists use.
  using SchemeTable = std::map<std::string, Scheme, std::less<>>;

  template <typename Record>
  using Table = std::map<std::string, std::shared_ptr<const Record>>;

  /// Records that wait for their owner to be parsed. The key is the id of the owner.
  template <typename Record>
  using Unclaimed = std::map<std::string, Table<Record>, std::less<>>;

  /// Reads one file. Returns true if the file is accepted; `errors` may hold messages all the same.
  static bool LoadMetadata(std::istream& in, const RegisterCallbacks& callbacks, Errors& errors);
  static bool LoadMetadata(TextBuffer text, const RegisterCallbacks& callbacks, Errors& errors);

  static bool ParseAuthentication(const RegisterCallbacks& callbacks, const JsonValue& value,
                                  Errors& errors);
  static bool ParseComponent(const RegisterCallbacks& callbacks, const JsonValue& value,
                             Errors& errors);

  static bool ParseSchemes(const JsonValue& value, SchemeTable& schemes, Errors& errors);
  static Scheme ParseAuthInfo(const JsonValue& value, Errors& errors);
  static bool ParseSchemeTypeEnum(
      const JsonValue& value, const char* name,
      Bindings::Authentication::AuthenticationInfoEnumerations::SchemeType& result, Errors& errors);
  static bool ParseSchemeList(const JsonValue& value, const SchemeTable& schemes, SchemeList& list,
                              Errors& errors);

  /// Reads the operations into tables by service id.
  static bool ParseOperations(const JsonValue& value, const SchemeTable& schemes,
                              Unclaimed<Bindings::Authentication::OperationInfo>& operations,
                              Errors& errors);
  /// Reads the services into tables by package. Moves the operations of each service from
  /// `operations` into it.
  static bool ParseServices(const JsonValue& value, const SchemeTable& schemes,
                            Unclaimed<Bindings::Authentication::OperationInfo>& operations,
                            Unclaimed<Bindings::Authentication::ServiceInfo>& services,
                            Errors& errors);
  /// Reads the packages. Moves the services of each package from `services` into it.
  static bool ParsePackages(const JsonValue& value, const SchemeTable& schemes,
                            Unclaimed<Bindings::Authentication::ServiceInfo>& services,
                            Table<Bindings::Authentication::PackageInfo>& packages, Errors& errors);
  /// Makes services without schemes for the operations that are left. Stops at the first id that is
  /// not a service id: appends a message and returns false.
  static bool CreateServicesFromOperations(
      Unclaimed<Bindings::Authentication::OperationInfo>& operations,
      Unclaimed<Bindings::Authentication::ServiceInfo>& services, Errors& errors);
  /// Makes packages without schemes for the services that are left. Always returns true.
  static bool CreatePackagesFromServices(Unclaimed<Bindings::Authentication::ServiceInfo>& services,
                                         Table<Bindings::Authentication::PackageInfo>& packages);

  /// Returns the parts before and after the last full stop. Without one, the first part is empty.
  static std::pair<std::string, std::string> SplitFqdn(const std::string& fqdn);
};

}  // namespace Zelk::Provider::Metadata::Authentication
