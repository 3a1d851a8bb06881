#include <com/orvane/zelk/metadata/authentication/services.h>

namespace Com::Orvane::Zelk::Metadata::Authentication {

namespace ComponentSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace ComponentSvc

namespace PackageSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace PackageSvc

namespace ServiceSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace ServiceSvc

namespace Service::OperationSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace Service::OperationSvc

namespace SourceSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace SourceSvc

}  // namespace Com::Orvane::Zelk::Metadata::Authentication
