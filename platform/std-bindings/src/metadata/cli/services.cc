#include <com/orvane/zelk/metadata/cli/services.h>

namespace Com::Orvane::Zelk::Metadata::Cli {

namespace CommandSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace CommandSvc

namespace NamespaceSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace NamespaceSvc

namespace SourceSvc {

AsyncServiceInterface::~AsyncServiceInterface() = default;

}  // namespace SourceSvc

}  // namespace Com::Orvane::Zelk::Metadata::Cli
