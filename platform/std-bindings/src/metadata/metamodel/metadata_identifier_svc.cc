#include <com/orvane/zelk/metadata/metamodel/metadata_identifier_svc.h>

namespace Com {
namespace Orvane {
namespace Zelk {
namespace Metadata {
namespace Metamodel {
namespace MetadataIdentifierSvc {

const std::string Constants::MODEL = "Model";

const std::string Constants::RESOURCE = "Resource";

}  // namespace MetadataIdentifierSvc
}  // namespace Metamodel
}  // namespace Metadata
}  // namespace Zelk
}  // namespace Orvane
}  // namespace Com
