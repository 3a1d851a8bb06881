#pragma once

#include <list>
#include <map>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/export.h>
#include <com/orvane/zelk/metadata/authentication/enumerations.h>
#include <com/orvane/zelk/metadata/source_type.h>

// The records that say which authentication schemes a call needs, at four levels. Each level
// carries the schemes listed for it and no others: nothing is inherited or merged, and what counts
// for an operation without schemes of its own is for the client to decide. Maps are ordered by the
// bytes of their keys; schemes keep the order of the definition, repeated ones included.

namespace Com::Orvane::Zelk::Metadata::Authentication {

/// One scheme.
struct ZELK_STD_BINDINGS_EXPORT AuthenticationInfo {
  AuthenticationInfo(AuthenticationInfoEnumerations::SchemeType scheme_type,
                     boost::optional<std::string> session_manager, std::string scheme);

  AuthenticationInfoEnumerations::SchemeType scheme_type;

  /// Who opens the session, for SESSION_AWARE, else empty.
  boost::optional<std::string> session_manager;

  /// The identifier of the scheme.
  std::string scheme;
};

struct ZELK_STD_BINDINGS_EXPORT OperationInfo {
  explicit OperationInfo(std::list<std::shared_ptr<const AuthenticationInfo>> schemes);

  std::list<std::shared_ptr<const AuthenticationInfo>> schemes;
};

struct ZELK_STD_BINDINGS_EXPORT ServiceInfo {
  ServiceInfo(std::list<std::shared_ptr<const AuthenticationInfo>> schemes,
              std::map<std::string, std::shared_ptr<const OperationInfo>> operations);

  std::list<std::shared_ptr<const AuthenticationInfo>> schemes;

  /// By the operation's name without that of the service.
  std::map<std::string, std::shared_ptr<const OperationInfo>> operations;
};

struct ZELK_STD_BINDINGS_EXPORT PackageInfo {
  PackageInfo(std::list<std::shared_ptr<const AuthenticationInfo>> schemes,
              std::map<std::string, std::shared_ptr<const ServiceInfo>> services);

  std::list<std::shared_ptr<const AuthenticationInfo>> schemes;

  /// By the full service id.
  std::map<std::string, std::shared_ptr<const ServiceInfo>> services;
};

struct ZELK_STD_BINDINGS_EXPORT ComponentInfo {
  explicit ComponentInfo(std::map<std::string, std::shared_ptr<const PackageInfo>> packages);

  std::map<std::string, std::shared_ptr<const PackageInfo>> packages;
};

/// A component as its service answers it.
struct ZELK_STD_BINDINGS_EXPORT ComponentData {
  ComponentData(std::shared_ptr<const ComponentInfo> info, std::string fingerprint);

  std::shared_ptr<const ComponentInfo> info;

  /// 32 lower-case hex digits that change whenever the source of the component does.
  std::string fingerprint;
};

namespace SourceSvc {

/// What a client gives to register a source.
struct ZELK_STD_BINDINGS_EXPORT CreateSpec : SourceDescription {
  using SourceDescription::SourceDescription;
};

/// What a registered source was made from.
struct ZELK_STD_BINDINGS_EXPORT Info : SourceDescription {
  using SourceDescription::SourceDescription;
};

}  // namespace SourceSvc

}  // namespace Com::Orvane::Zelk::Metadata::Authentication
