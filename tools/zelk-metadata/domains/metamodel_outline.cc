#include "domains/metamodel_shapes.h"

namespace Zelk::Tool {
namespace {

// The place of a definition decides which of several with one name is returned.
constexpr int kInPackage = 0;
constexpr int kInService = 1;
constexpr int kInStructure = 2;

template <typename Constants>
void WriteConstants(OutlineWriter& outline, std::size_t depth, const std::string& around,
                    const Constants& constants) {
  for (const auto& [name, constant] : constants) {
    outline.Part(depth, "constant", IdsFrom(around, name), constant->documentation);
  }
}

template <typename Enumerations>
void WriteEnumerations(OutlineWriter& outline, std::size_t depth, int place,
                       const Enumerations& enumerations) {
  for (const auto& [name, enumeration] : enumerations) {
    outline.Kind(depth, "enumeration", IdsFrom(name), enumeration->documentation, place);
    for (const auto& value : enumeration->values) {
      outline.Part(depth + 1, "value", IdsFrom(name, value->value), value->documentation);
    }
  }
}

template <typename Structures>
void WriteStructures(OutlineWriter& outline, std::size_t depth, int place,
                     const Structures& structures) {
  for (const auto& [name, structure] : structures) {
    outline.Kind(depth, "structure", IdsFrom(name), structure->documentation, place);
    for (const auto& field : structure->fields) {
      outline.Part(depth + 1, "field", IdsFrom(name, field->name), field->documentation);
    }
    WriteEnumerations(outline, depth + 1, place + kInStructure, structure->enumerations);
    WriteConstants(outline, depth + 1, name, structure->constants);
  }
}

void WriteService(OutlineWriter& outline, std::size_t depth, const std::string& id,
                  const Bindings::Metamodel::ServiceInfo& service) {
  outline.Kind(depth, "service", IdsFrom(id), service.documentation);
  for (const auto& [name, operation] : service.operations) {
    outline.Part(depth + 1, "operation", IdsFrom(id, name), operation->documentation);
    for (const auto& param : operation->params) {
      outline.Part(depth + 2, "parameter", IdsFrom(id, name, param->name), param->documentation);
    }
  }
  WriteStructures(outline, depth + 1, kInService, service.structures);
  WriteEnumerations(outline, depth + 1, kInService, service.enumerations);
  WriteConstants(outline, depth + 1, id, service.constants);
}

}  // namespace

void WriteOutline(OutlineWriter& outline, const Bindings::Metamodel::ComponentInfo& component) {
  outline.Kind(0, "component", IdsFrom(component.name), component.documentation);
  for (const auto& [name, package] : component.packages) {
    outline.Kind(1, "package", IdsFrom(name), package->documentation);
    WriteStructures(outline, 2, kInPackage, package->structures);
    WriteEnumerations(outline, 2, kInPackage, package->enumerations);
    for (const auto& [id, service] : package->services) WriteService(outline, 2, id, *service);
  }
}

}  // namespace Zelk::Tool
