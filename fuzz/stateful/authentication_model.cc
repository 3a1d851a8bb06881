#include <algorithm>
#include <cstddef>

#include "stateful/model_sources.h"

namespace Zelk::Fuzzing {
namespace {

constexpr char kInvalidOperation[] = "zelk.metadata.authentication.json.invalid.operation.id";
constexpr char kInvalidService[] = "zelk.metadata.authentication.json.invalid.service.id";

struct OperationRecord {
  std::string service;  // the full id
  std::string name;
  std::string schemes;
};

struct ServiceRecord {
  std::string package;
  std::string id;
  std::string schemes;
  std::vector<OperationRecord> operations;
};

struct PackageRecord {
  std::string name;
  std::string schemes;
  std::vector<ServiceRecord> services;
};

struct ComponentRecord {
  std::string name;
  std::vector<PackageRecord> packages;
};

struct SchemeRecord {
  std::string name;
  std::string text;
};

/// The part before the last full stop and the part after it; gives up when one is empty.
std::pair<std::string, std::string> Split(const std::string& id, const char* message,
                                          ModelReader& reader) {
  const auto stop = id.rfind('.');
  if (stop == std::string::npos || stop == 0 || stop + 1 == id.size()) {
    reader.GiveUp(message, {id});
  }
  return {id.substr(0, stop), id.substr(stop + 1)};
}

std::string SchemeText(const Json& scheme, ModelReader& reader) {
  const std::string text = Testing::Quoted(reader.Text(scheme, "authenticationScheme"));
  const std::string type = reader.Enumerator(scheme, "type", {"SESSIONLESS", "SESSION_AWARE"},
                                             "SESSIONAWARE", "SESSION_AWARE");
  if (type == "SESSIONLESS") return text;
  return text + "@" + Testing::Quoted(reader.Text(scheme, "sessionManager"));
}

/// An absent object is an empty one.
Json ObjectOrNone(const Json& object, const std::string& key, ModelReader& reader) {
  const Json* value = reader.Optional(object, key, Json::Kind::kObject);
  return value == nullptr ? Json() : *value;
}

/// One component of a document, read key by key.
class ComponentReading {
 public:
  ComponentReading(const Json& component, ModelReader& reader) : reader_(reader) {
    component_.name = reader_.Text(component, "name");
    ReadSchemes(ObjectOrNone(component, "schemes", reader_));
    ReadOperations(ObjectOrNone(component, "operations", reader_));
    ReadServices(ObjectOrNone(component, "services", reader_));
    try {
      MakeServices();
    } catch (const GivenUp&) {
      // The services made until then count.
    }
    ReadPackages(ObjectOrNone(component, "packages", reader_));
    MakePackages();
  }

  const ComponentRecord& Component() const { return component_; }

 private:
  void ReadSchemes(const Json& schemes) {
    for (std::size_t index = 0; index < schemes.keys.size(); ++index) {
      schemes_.push_back({schemes.keys[index], SchemeText(schemes.elements[index], reader_)});
    }
  }

  /// The text of the last scheme of that name.
  std::string Scheme(const std::string& name) {
    for (auto index = schemes_.size(); index-- > 0;) {
      if (schemes_[index].name == name) return schemes_[index].text;
    }
    reader_.GiveUp("zelk.metadata.authentication.json.unknown.schema.name", {"id"});
  }

  std::string SchemesOf(const Json& names) {
    constexpr char kInvalid[] = "zelk.metadata.json.invalid.field";
    if (names.kind != Json::Kind::kArray) reader_.GiveUp(kInvalid, {"packages"});
    std::string text;
    for (const auto& name : names.elements) {
      if (name.kind != Json::Kind::kString) reader_.GiveUp(kInvalid, {"packages"});
      text += (text.empty() ? "" : ", ") + Scheme(name.text);
    }
    return "[" + text + "]";
  }

  void ReadOperations(const Json& operations) {
    for (std::size_t index = 0; index < operations.keys.size(); ++index) {
      const std::string schemes = SchemesOf(operations.elements[index]);
      const auto [service, name] = Split(operations.keys[index], kInvalidOperation, reader_);
      operations_.push_back({service, name, schemes});
    }
  }

  /// Takes the operations of a service away from those that have none yet; the first of a name
  /// stays.
  std::vector<OperationRecord> TakeOperations(const std::string& service) {
    std::vector<OperationRecord> taken;
    std::vector<OperationRecord> left;
    for (const auto& operation : operations_) {
      if (operation.service != service) left.push_back(operation);
      if (operation.service == service) AddByName(operation, &OperationRecord::name, taken);
    }
    operations_ = left;
    return taken;
  }

  void ReadServices(const Json& services) {
    for (std::size_t index = 0; index < services.keys.size(); ++index) {
      const auto& id = services.keys[index];
      const std::string schemes = SchemesOf(services.elements[index]);
      const auto package = Split(id, kInvalidService, reader_).first;
      services_.push_back({package, id, schemes, TakeOperations(id)});
    }
  }

  void MakeServices() {
    while (!operations_.empty()) {
      std::string id = operations_[0].service;
      for (const auto& operation : operations_) id = std::min(id, operation.service);
      const auto operations = TakeOperations(id);
      const auto package = Split(id, kInvalidService, reader_).first;
      services_.push_back({package, id, "[]", operations});
    }
  }

  std::vector<ServiceRecord> TakeServices(const std::string& package) {
    std::vector<ServiceRecord> taken;
    std::vector<ServiceRecord> left;
    for (const auto& service : services_) {
      if (service.package != package) left.push_back(service);
      if (service.package == package) AddByName(service, &ServiceRecord::id, taken);
    }
    services_ = left;
    return taken;
  }

  void ReadPackages(const Json& packages) {
    for (std::size_t index = 0; index < packages.keys.size(); ++index) {
      const std::string schemes = SchemesOf(packages.elements[index]);
      StorePackage({packages.keys[index], schemes, TakeServices(packages.keys[index])});
    }
  }

  void MakePackages() {
    while (!services_.empty()) {
      const std::string name = services_[0].package;
      StorePackage({name, "[]", TakeServices(name)});
    }
  }

  /// The last package of a name stays.
  void StorePackage(const PackageRecord& package) {
    auto& packages = component_.packages;
    for (auto& known : packages) {
      if (known.name == package.name) {
        known = package;
        return;
      }
    }
    AddByName(package, &PackageRecord::name, packages);
  }

  /// Adds to records that are in the order of their names, unless the name is there.
  template <typename Record>
  static void AddByName(const Record& record, std::string Record::*name,
                        std::vector<Record>& records) {
    auto place = records.begin();
    while (place != records.end() && (*place).*name < record.*name) ++place;
    if (place != records.end() && (*place).*name == record.*name) return;
    records.insert(place, record);
  }

  ModelReader& reader_;
  ComponentRecord component_;
  std::vector<SchemeRecord> schemes_;
  std::vector<OperationRecord> operations_;
  std::vector<ServiceRecord> services_;
};

std::string Text(const OperationRecord& operation, const std::string& name) {
  return "operation " + Testing::Quoted(name) + " " + operation.schemes + "\n";
}

std::string Text(const ServiceRecord& service, const std::string& id, const std::string& indent) {
  std::string text = "service " + Testing::Quoted(id) + " " + service.schemes + "\n";
  for (const auto& operation : service.operations) {
    text += indent + "  " + Text(operation, operation.name);
  }
  return text;
}

std::string Text(const PackageRecord& package, const std::string& name, const std::string& indent) {
  std::string text = "package " + Testing::Quoted(name) + " " + package.schemes + "\n";
  for (const auto& service : package.services) {
    text += indent + "  " + Text(service, service.id, indent + "  ");
  }
  return text;
}

std::string Text(const ComponentRecord& component) {
  std::string text = "component \"\"\n";
  for (const auto& package : component.packages) text += "  " + Text(package, package.name, "  ");
  return text;
}

struct Authentication {
  static constexpr char kWord[] = "authentication";
  static constexpr bool kDeliversSuccess = false;

  using Content = std::vector<ComponentRecord>;
  using Sources = std::vector<ModelSource<Content>>;

  static Content Read(const Json& document, ModelReader& reader) {
    const Json& body = reader.Required(document, "authentication", Json::Kind::kObject);
    Content components;
    const Part product = ReadPart(body, "product", reader, components);
    const Part component = ReadPart(body, "component", reader, components);
    if (component == Part::kBroken && product != Part::kGood) throw GivenUp();
    return components;
  }

  static std::string Ask(const Sources& sources, const Question& question);

 private:
  enum class Part { kAbsent, kGood, kBroken };

  static Part ReadPart(const Json& body, const std::string& key, ModelReader& reader,
                       Content& components) {
    try {
      const Json* part = reader.Optional(body, key, Json::Kind::kObject);
      if (part == nullptr) return Part::kAbsent;
      Store(ComponentReading(*part, reader).Component(), components);
    } catch (const GivenUp&) {
      return Part::kBroken;
    }
    return Part::kGood;
  }

  /// There are two at most; the later one of a name stays.
  static void Store(const ComponentRecord& component, Content& components) {
    if (!components.empty() && components[0].name == component.name) components.clear();
    const bool first = !components.empty() && component.name < components[0].name;
    components.insert(first ? components.begin() : components.end(), component);
  }
};

/// What a walk comes by, in its order.
struct Found {
  std::vector<std::string> components;
  std::vector<const PackageRecord*> packages;
  std::vector<const ServiceRecord*> services;
};

Found Walk(const Authentication::Sources& sources) {
  Found found;
  for (const auto& source : sources) {
    for (const auto& component : source.content) {
      found.components.push_back(component.name);
      for (const auto& package : component.packages) {
        found.packages.push_back(&package);
        for (const auto& service : package.services) found.services.push_back(&service);
      }
    }
  }
  return found;
}

std::string AskComponent(const Authentication::Sources& sources, const Question& question) {
  for (const auto& source : sources) {
    for (const auto& component : source.content) {
      if (component.name != question.key) continue;
      return question.operation == Operation::kGetComponent ? Text(component) + source.digest
                                                            : Testing::Quoted(source.digest);
    }
  }
  // Components are not found under the other domain's id.
  return NotFound("zelk.metada.metamodel.component.not.found", {question.key});
}

std::string GetOperation(const Found& found, const Question& question) {
  for (const auto* service : found.services) {
    if (service->id != question.key) continue;
    for (const auto& operation : service->operations) {
      if (operation.name == question.second_key) return Text(operation, "");
    }
  }
  return NotFound("zelk.metada.authentication.operation.not.found",
                  {question.key, question.second_key});
}

std::string AskService(const Found& found, const Question& question) {
  for (const auto* service : found.services) {
    if (service->id != question.key) continue;
    if (question.operation == Operation::kGetService) return Text(*service, "", "");
    std::vector<std::string> names;
    for (const auto& operation : service->operations) names.push_back(operation.name);
    return NamesText(names);
  }
  return NotFound("zelk.metada.authentication.service.not.found", {question.key});
}

std::string GetPackage(const Found& found, const Question& question) {
  for (const auto* package : found.packages) {
    if (package->name == question.key) return Text(*package, "", "");
  }
  return NotFound("zelk.metada.authentication.package.not.found", {question.key});
}

template <typename Record>
std::string Names(const std::vector<const Record*>& records, std::string Record::*name) {
  std::vector<std::string> names;
  for (const auto* record : records) names.push_back(record->*name);
  return NamesText(names);
}

std::string Authentication::Ask(const Sources& sources, const Question& question) {
  const Found found = Walk(sources);
  switch (question.operation) {
    case Operation::kListComponents:
      return NamesText(found.components);
    case Operation::kGetComponent:
    case Operation::kFingerprintOfComponent:
      return AskComponent(sources, question);
    case Operation::kListPackages:
      return Names(found.packages, &PackageRecord::name);
    case Operation::kGetPackage:
      return GetPackage(found, question);
    case Operation::kListServices:
      return Names(found.services, &ServiceRecord::id);
    case Operation::kGetService:
    case Operation::kListOperations:
      return AskService(found, question);
    case Operation::kGetOperation:
      return GetOperation(found, question);
    default:
      return "no such question";
  }
}

}  // namespace

std::unique_ptr<Services> AuthenticationModel(const Disk& disk) {
  return std::make_unique<ModelSources<Authentication>>(disk);
}

}  // namespace Zelk::Fuzzing
