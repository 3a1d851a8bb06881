#include <zelk/provider/metadata/metamodel/metadata_container.h>

#include "metamodel/json_metadata_container.h"

namespace Zelk::Provider::Metadata::Metamodel {

std::shared_ptr<MetadataContainer> MetadataContainer::GetInstance() {
  return std::make_shared<JsonMetadataContainer>();
}

MetadataContainer::MetadataContainer() = default;

MetadataContainer::~MetadataContainer() = default;

}  // namespace Zelk::Provider::Metadata::Metamodel
