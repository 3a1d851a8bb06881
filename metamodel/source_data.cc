#include "metamodel/source_data.h"

namespace Zelk::Provider::Metadata::Metamodel {

void SourceData::RegisterComponentNode(
    const std::shared_ptr<Bindings::Metamodel::ComponentInfo>& component) {
  components[component->name] = component;
}

void SourceData::RegisterResoure(const std::string& resource_id) {
  resources.try_emplace(resource_id);
}

void SourceData::RegisterModel(const std::string& resource_id, const std::string& model_name) {
  resources[resource_id].insert(model_name);
}

}  // namespace Zelk::Provider::Metadata::Metamodel
