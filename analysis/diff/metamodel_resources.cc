#include <map>
#include <string>
#include <utility>
#include <vector>

#include "analysis/diff/metamodel.h"
#include "analysis/diff/mixed.h"
#include "analysis/resources.h"

namespace Zelk::Analysis::Diff {
namespace {

/// Where a structure is made a model of a resource.
struct ModelUse {
  /// The structure, and the field that has the resource.
  ElementId structure;
  ElementId key;
};

struct Resource {
  ElementId first_use = kNoElement;
  std::uint32_t last_source = 0;
  /// The same if the same elements name it.
  std::uint64_t places = 0;
  /// By the names of structures.
  std::map<std::string_view, ModelUse> models;
};

using Resources = std::map<std::string_view, Resource>;

/// Numbers that are the same for elements of the same names in the same elements.
std::vector<std::uint64_t> NumbersOf(const Model& model) {
  std::vector<std::uint64_t> numbers(model.Size());
  // Elements are after what they are in.
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    const std::uint64_t owner = element.owner == kNoElement ? 0 : numbers[element.owner];
    numbers[id] = Mixed(Mixed(owner, static_cast<std::uint64_t>(element.kind)), element.name);
  }
  return numbers;
}

Resources ResourcesOf(const Model& model) {
  Resources resources;
  const std::vector<ResourceUse> uses = ResourceUses(model);
  const std::vector<std::uint64_t> numbers = NumbersOf(model);
  for (const ResourceUse& use : uses) {
    Resource& resource = resources[use.resource];
    if (resource.first_use == kNoElement) resource.first_use = use.annotation;
    resource.last_source = use.source;
    resource.places += numbers[use.annotation];
  }
  for (const ResourceUse& use : uses) {
    Resource& resource = resources[use.resource];
    if (use.model == kNoElement || use.source != resource.last_source) continue;
    resource.models.emplace(model[use.model].name,
                            ModelUse{use.model, model[use.annotation].owner});
  }
  return resources;
}

class ResourceComparer {
 public:
  explicit ResourceComparer(Metamodel& metamodel)
      : metamodel_(metamodel), models_(metamodel.models) {}

  void Compare() {
    const Resources old_resources = ResourcesOf(models_.old_model);
    const Resources new_resources = ResourcesOf(models_.new_model);
    FindRenamed(old_resources, new_resources);
    for (const auto& [name, resource] : old_resources) {
      const auto found = new_resources.find(name);
      if (found == new_resources.end()) {
        AddResource("resource-removed", name, {resource.first_use, kNoElement});
      } else {
        CompareModels(name, resource, found->second);
      }
    }
    for (const auto& [name, resource] : new_resources) {
      if (old_resources.count(name) != 0) continue;
      AddResource("resource-added", name, {kNoElement, resource.first_use});
    }
  }

 private:
  /// Finds those of which all uses have another name now.
  void FindRenamed(const Resources& old_resources, const Resources& new_resources) {
    std::map<std::uint64_t, std::string_view> added;
    for (const auto& [name, resource] : new_resources) {
      if (old_resources.count(name) == 0) added.emplace(resource.places, name);
    }
    for (const auto& [name, resource] : old_resources) {
      const auto found = added.find(resource.places);
      if (new_resources.count(name) != 0 || found == added.end()) continue;
      metamodel_.renamed_resources.emplace(name, found->second);
      old_names_.emplace(found->second, name);
      added.erase(found);
    }
  }

  void AddResource(const char* id, std::string_view name, Pair use) {
    Details details{"the resource '" + Shortened(name) +
                    (use.IsAdded() ? "' is named for the first time" : "' is no longer named")};
    details.element = "metamodel/resource:" + std::string(name);
    const auto& others = use.IsAdded() ? old_names_ : metamodel_.renamed_resources;
    const auto other = others.find(name);
    if (other != others.end()) {
      details.identity = other->second;
      details.hint = std::string("possibly renamed ") + (use.IsAdded() ? "from '" : "to '") +
                     Shortened(other->second) + "'";
    }
    metamodel_.Add(id, use, std::move(details));
  }

  void CompareModels(std::string_view resource, const Resource& old_resource,
                     const Resource& new_resource) {
    for (const auto& [name, use] : old_resource.models) {
      const auto found = new_resource.models.find(name);
      const ElementId now = models_.new_model.Find(ElementKind::kStructure, name);
      if (found == new_resource.models.end()) {
        if (now != kNoElement) AddModel("model-removed", resource, name, {use.structure, now});
        continue;
      }
      const std::string old_key(models_.old_model[use.key].name);
      const std::string new_key(models_.new_model[found->second.key].name);
      if (old_key == new_key) continue;
      AddModel("model-key-changed", resource, name, {use.structure, found->second.structure},
               old_key, new_key);
    }
    for (const auto& [name, use] : new_resource.models) {
      const ElementId before = models_.old_model.Find(ElementKind::kStructure, name);
      if (old_resource.models.count(name) != 0 || before == kNoElement) continue;
      AddModel("model-added", resource, name, {before, use.structure});
    }
  }

  void AddModel(const char* id, std::string_view resource, std::string_view name, Pair structure,
                std::string old_key = "", std::string new_key = "") {
    metamodel_.changed_models.insert(name);
    if (metamodel_.changes.IsFull()) return metamodel_.Add(id, structure, {});
    const std::string of = "the resource '" + Shortened(resource) + "'";
    const std::string called = metamodel_.CalledIn(structure);
    Details details{called + " became a model of " + of};
    if (!old_key.empty() || !new_key.empty()) {
      details.message = "the key of " + called + " as a model of " + of + " changed from '" +
                        Shortened(old_key) + "' to '" + Shortened(new_key) + "'";
    } else if (id == std::string_view("model-removed")) {
      details.message = called + " is no longer a model of " + of;
    }
    details.old_value = std::move(old_key);
    details.new_value = std::move(new_key);
    details.element =
        models_.old_model.Path(structure.old_id) + "/resource:" + std::string(resource);
    metamodel_.Add(id, structure, std::move(details));
  }

  Metamodel& metamodel_;
  const ModelPair& models_;
  /// By the new names of resources.
  std::map<std::string_view, std::string_view> old_names_;
};

}  // namespace

void CompareResources(Metamodel& metamodel) {
  ResourceComparer(metamodel).Compare();
}

}  // namespace Zelk::Analysis::Diff
