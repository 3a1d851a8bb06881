#pragma once

#include <list>
#include <map>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/export.h>
#include <com/orvane/zelk/metadata/authentication/enumerations.h>
#include <com/orvane/zelk/metadata/source_type.h>

// The records that list which authentication schemes a call accepts, at four levels. Each level has
// only the schemes that are listed for it: nothing is inherited or merged. The client decides which
// schemes apply to an operation that has none of its own. Maps are ordered by the bytes of their
// keys. Schemes keep the order of the file, and a repeated one is kept.

namespace Com::Orvane::Zelk::Metadata::Authentication {

/// One scheme.
struct ZELK_STD_BINDINGS_EXPORT AuthenticationInfo {
  AuthenticationInfo(AuthenticationInfoEnumerations::SchemeType scheme_type,
                     boost::optional<std::string> session_manager, std::string scheme);

  AuthenticationInfoEnumerations::SchemeType scheme_type;

  /// The service that opens the session, for SESSION_AWARE; otherwise empty.
  boost::optional<std::string> session_manager;

  /// The identifier of the scheme.
  std::string scheme;
};

/// The schemes of one operation.
struct ZELK_STD_BINDINGS_EXPORT OperationInfo {
  explicit OperationInfo(std::list<std::shared_ptr<const AuthenticationInfo>> schemes);

  std::list<std::shared_ptr<const AuthenticationInfo>> schemes;
};

/// The schemes of one service, and its operations.
struct ZELK_STD_BINDINGS_EXPORT ServiceInfo {
  ServiceInfo(std::list<std::shared_ptr<const AuthenticationInfo>> schemes,
              std::map<std::string, std::shared_ptr<const OperationInfo>> operations);

  std::list<std::shared_ptr<const AuthenticationInfo>> schemes;

  /// The key is the operation's name without that of the service.
  std::map<std::string, std::shared_ptr<const OperationInfo>> operations;
};

/// The schemes of one package, and its services.
struct ZELK_STD_BINDINGS_EXPORT PackageInfo {
  PackageInfo(std::list<std::shared_ptr<const AuthenticationInfo>> schemes,
              std::map<std::string, std::shared_ptr<const ServiceInfo>> services);

  std::list<std::shared_ptr<const AuthenticationInfo>> schemes;

  /// The key is the full service id.
  std::map<std::string, std::shared_ptr<const ServiceInfo>> services;
};

/// The packages of one component.
struct ZELK_STD_BINDINGS_EXPORT ComponentInfo {
  explicit ComponentInfo(std::map<std::string, std::shared_ptr<const PackageInfo>> packages);

  /// The key is the name of the package.
  std::map<std::string, std::shared_ptr<const PackageInfo>> packages;
};

/// A component and its fingerprint.
struct ZELK_STD_BINDINGS_EXPORT ComponentData {
  ComponentData(std::shared_ptr<const ComponentInfo> info, std::string fingerprint);

  std::shared_ptr<const ComponentInfo> info;

  /// 32 lower-case hex digits that change when the file of the component does.
  std::string fingerprint;
};

namespace SourceSvc {

/// What a source is to be created with.
struct ZELK_STD_BINDINGS_EXPORT CreateSpec : SourceDescription {
  using SourceDescription::SourceDescription;
};

/// What a source was created with.
struct ZELK_STD_BINDINGS_EXPORT Info : SourceDescription {
  using SourceDescription::SourceDescription;
};

}  // namespace SourceSvc

}  // namespace Com::Orvane::Zelk::Metadata::Authentication
