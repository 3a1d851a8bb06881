#include "authentication/source_data.h"

namespace Zelk::Provider::Metadata::Authentication {

void SourceData::RegisterComponentNode(
    const std::string& name,
    const std::shared_ptr<Bindings::Authentication::ComponentInfo>& component) {
  components[name] = component;
}

}  // namespace Zelk::Provider::Metadata::Authentication
