#include <utility>

#include <com/orvane/zelk/metadata/authentication/records.h>

// A parameter has the suffix _arg if it would hide the member of the same name.

namespace Com::Orvane::Zelk::Metadata::Authentication {

AuthenticationInfo::AuthenticationInfo(AuthenticationInfoEnumerations::SchemeType scheme_type_arg,
                                       boost::optional<std::string> session_manager_arg,
                                       std::string scheme_arg)
    : scheme_type(std::move(scheme_type_arg)),
      session_manager(std::move(session_manager_arg)),
      scheme(std::move(scheme_arg)) {}

OperationInfo::OperationInfo(std::list<std::shared_ptr<const AuthenticationInfo>> schemes_arg)
    : schemes(std::move(schemes_arg)) {}

ServiceInfo::ServiceInfo(std::list<std::shared_ptr<const AuthenticationInfo>> schemes_arg,
                         std::map<std::string, std::shared_ptr<const OperationInfo>> operations_arg)
    : schemes(std::move(schemes_arg)), operations(std::move(operations_arg)) {}

PackageInfo::PackageInfo(std::list<std::shared_ptr<const AuthenticationInfo>> schemes_arg,
                         std::map<std::string, std::shared_ptr<const ServiceInfo>> services_arg)
    : schemes(std::move(schemes_arg)), services(std::move(services_arg)) {}

ComponentInfo::ComponentInfo(std::map<std::string, std::shared_ptr<const PackageInfo>> packages_arg)
    : packages(std::move(packages_arg)) {}

ComponentData::ComponentData(std::shared_ptr<const ComponentInfo> info_arg,
                             std::string fingerprint_arg)
    : info(std::move(info_arg)), fingerprint(std::move(fingerprint_arg)) {}

}  // namespace Com::Orvane::Zelk::Metadata::Authentication
