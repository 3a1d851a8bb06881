#include <com/orvane/zelk/metadata/metamodel/services.h>

namespace Com::Orvane::Zelk::Metadata::Metamodel {

namespace ComponentSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace ComponentSvc

namespace EnumerationSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace EnumerationSvc

namespace PackageSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace PackageSvc

namespace ResourceSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace ResourceSvc

namespace Resource::ModelSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace Resource::ModelSvc

namespace ServiceSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace ServiceSvc

namespace Service::OperationSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace Service::OperationSvc

namespace Service::HiddenSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace Service::HiddenSvc

namespace StructureSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace StructureSvc

namespace SourceSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace SourceSvc

}  // namespace Com::Orvane::Zelk::Metadata::Metamodel
