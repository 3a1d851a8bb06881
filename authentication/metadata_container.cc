#include <zelk/provider/metadata/authentication/metadata_container.h>

#include "authentication/json_metadata_container.h"

namespace Zelk::Provider::Metadata::Authentication {

std::shared_ptr<MetadataContainer> MetadataContainer::GetInstance() {
  return std::make_shared<JsonMetadataContainer>();
}

MetadataContainer::MetadataContainer() = default;

MetadataContainer::~MetadataContainer() = default;

}  // namespace Zelk::Provider::Metadata::Authentication
