#include <algorithm>

#include "stateful/metamodel_content.h"
#include "stateful/model_sources.h"

namespace Zelk::Fuzzing {
namespace {

using Sources = std::vector<ModelSource<MetamodelContent>>;
using Definitions = std::vector<const Definition*>;

// What a walk over all sources comes by, in its order.

void Append(const std::vector<Definition>& more, Definitions& all) {
  for (const auto& definition : more) all.push_back(&definition);
}

Definitions Packages(const Sources& sources) {
  Definitions packages;
  for (const auto& source : sources) Append(source.content.packages, packages);
  return packages;
}

Definitions ServicesOf(const Sources& sources) {
  Definitions services;
  for (const auto* package : Packages(sources)) Append(package->services, services);
  return services;
}

/// Those of packages, then those of services.
Definitions Structures(const Sources& sources) {
  Definitions structures;
  for (const auto* package : Packages(sources)) Append(package->structures, structures);
  for (const auto* service : ServicesOf(sources)) Append(service->structures, structures);
  return structures;
}

/// Those of packages, of services, of packages' structures and of services' structures.
Definitions Enumerations(const Sources& sources) {
  Definitions enumerations;
  for (const auto* package : Packages(sources)) Append(package->enumerations, enumerations);
  for (const auto* service : ServicesOf(sources)) Append(service->enumerations, enumerations);
  for (const auto* structure : Structures(sources)) Append(structure->enumerations, enumerations);
  return enumerations;
}

std::string Names(const Definitions& definitions) {
  std::vector<std::string> names;
  for (const auto* definition : definitions) names.push_back(definition->name);
  return NamesText(names);
}

const Definition* First(const Definitions& definitions, const std::string& name) {
  for (const auto* definition : definitions) {
    if (definition->name == name) return definition;
  }
  return nullptr;
}

std::string Get(const Definitions& definitions, const std::string& name, const char* message) {
  const Definition* definition = First(definitions, name);
  return definition == nullptr ? NotFound(message, {name}) : definition->text;
}

std::string ListComponents(const Sources& sources) {
  std::vector<std::string> names;
  for (const auto& source : sources) names.push_back(source.content.component);
  return NamesText(names);
}

std::string AskComponent(const Sources& sources, const Question& question) {
  for (const auto& source : sources) {
    if (source.content.component != question.key) continue;
    return question.operation == Operation::kGetComponent ? source.content.text + source.digest
                                                          : Testing::Quoted(source.digest);
  }
  return NotFound("zelk.metada.metamodel.component.not.found", {question.key});
}

std::string ListOperations(const Sources& sources, const std::string& service_id) {
  const Definition* service = First(ServicesOf(sources), service_id);
  if (service == nullptr) {
    return NotFound("zelk.metada.metamodel.service.not.found", {service_id});
  }
  Definitions operations;
  Append(service->operations, operations);
  return Names(operations);
}

/// Looked for in the first service of that id only.
std::string GetOperation(const Sources& sources, const Question& question) {
  Definitions operations;
  if (const Definition* service = First(ServicesOf(sources), question.key)) {
    Append(service->operations, operations);
  }
  const Definition* operation = First(operations, question.second_key);
  if (operation != nullptr) return operation->text;
  return NotFound("zelk.metada.metamodel.operation.not.found", {question.key, question.second_key});
}

std::string ListResources(const Sources& sources) {
  std::vector<std::string> names;
  for (const auto& source : sources) {
    for (const auto& resource : source.content.resources) {
      const auto& name = resource.resource;
      if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end());
  return NamesText(names);
}

/// Those of the last source that knows the resource.
std::string ListModels(const Sources& sources, const std::string& name) {
  for (auto index = sources.size(); index-- > 0;) {
    for (const auto& resource : sources[index].content.resources) {
      if (resource.resource == name) return NamesText(resource.models);
    }
  }
  return NotFound("zelk.metada.metamodel.resource.not.found", {name});
}

std::string AskTypes(const Sources& sources, const Question& question) {
  switch (question.operation) {
    case Operation::kListEnumerations:
      return Names(Enumerations(sources));
    case Operation::kGetEnumeration:
      return Get(Enumerations(sources), question.key,
                 "zelk.metada.metamodel.enumeration.not.found");
    case Operation::kListStructures:
      return Names(Structures(sources));
    case Operation::kGetStructure:
      return Get(Structures(sources), question.key, "zelk.metada.metamodel.structure.not.found");
    case Operation::kListResources:
      return ListResources(sources);
    case Operation::kListModels:
      return ListModels(sources, question.key);
    case Operation::kListHiddens:
      return NamesText(std::vector<std::string>());
    default:
      return "no such question";
  }
}

struct Metamodel {
  static constexpr char kWord[] = "metamodel";
  static constexpr bool kDeliversSuccess = false;

  using Content = MetamodelContent;

  static Content Read(const Json& document, ModelReader& reader) {
    return ReadMetamodel(document, reader);
  }

  static std::string Ask(const Sources& sources, const Question& question) {
    switch (question.operation) {
      case Operation::kListComponents:
        return ListComponents(sources);
      case Operation::kGetComponent:
      case Operation::kFingerprintOfComponent:
        return AskComponent(sources, question);
      case Operation::kListPackages:
        return Names(Packages(sources));
      case Operation::kGetPackage:
        return Get(Packages(sources), question.key, "zelk.metada.metamodel.package.not.found");
      case Operation::kListServices:
        return Names(ServicesOf(sources));
      case Operation::kGetService:
        return Get(ServicesOf(sources), question.key, "zelk.metada.metamodel.service.not.found");
      case Operation::kListOperations:
        return ListOperations(sources, question.key);
      case Operation::kGetOperation:
        return GetOperation(sources, question);
      default:
        return AskTypes(sources, question);
    }
  }
};

}  // namespace

std::unique_ptr<Services> MetamodelModel(const Disk& disk) {
  return std::make_unique<ModelSources<Metamodel>>(disk);
}

}  // namespace Zelk::Fuzzing
