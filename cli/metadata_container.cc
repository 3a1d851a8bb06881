#include <zelk/provider/metadata/cli/metadata_container.h>

#include "cli/json_metadata_container.h"

namespace Zelk::Provider::Metadata::Cli {

std::shared_ptr<MetadataContainer> MetadataContainer::GetInstance() {
  return std::make_shared<JsonMetadataContainer>();
}

MetadataContainer::MetadataContainer() = default;

MetadataContainer::~MetadataContainer() = default;

}  // namespace Zelk::Provider::Metadata::Cli
