#include <com/orvane/zelk/metadata/metamodel/services.h>

namespace Com {
namespace Orvane {
namespace Zelk {
namespace Metadata {
namespace Metamodel {

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

namespace Resource {
namespace ModelSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace ModelSvc
}  // namespace Resource

namespace ServiceSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace ServiceSvc

namespace Service {
namespace OperationSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace OperationSvc
}  // namespace Service

namespace Service {
namespace HiddenSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace HiddenSvc
}  // namespace Service

namespace StructureSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace StructureSvc

namespace SourceSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace SourceSvc

}  // namespace Metamodel
}  // namespace Metadata
}  // namespace Zelk
}  // namespace Orvane
}  // namespace Com
