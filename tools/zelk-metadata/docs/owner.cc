#include "docs/owner.h"

#include <cstddef>
#include <string_view>

namespace Zelk::Tool::Docs {
namespace {

using Analysis::ElementId;
using Analysis::ElementKind;
using Analysis::Fate;
using Analysis::kNoElement;
using Analysis::Model;

ElementId OwnerOf(const Model& model, ElementId id) {
  if (model[id].kind != ElementKind::kCommand) return model[id].owner;
  const std::string_view path = model[id].path;
  const std::size_t dot = path.rfind('.');
  if (dot == std::string_view::npos) return model.Find(ElementKind::kNamespace, path);
  return model.Find(ElementKind::kNamespace, path.substr(dot + 1), path.substr(0, dot));
}

}  // namespace

ElementId ShownOwner(const Model& model, ElementId id) {
  const ElementId owner = OwnerOf(model, id);
  // The root namespace.
  if (owner == id) return kNoElement;
  if (owner == kNoElement || model[owner].fate == Fate::kFound) return owner;
  return model[id].fate == Fate::kFound ? model[owner].by : owner;
}

}  // namespace Zelk::Tool::Docs
