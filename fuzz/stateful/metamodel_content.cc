#include "stateful/metamodel_content.h"

#include <cstddef>

#include "stateful/answer_text.h"

namespace Zelk::Fuzzing {
namespace {

using Testing::Quoted;

const Enumerators kBuiltinTypes = {"VOID",   "BOOLEAN", "LONG",      "DOUBLE",
                                   "STRING", "BINARY",  "SECRET",    "DATE_TIME",
                                   "ID",     "URI",     "ANY_ERROR", "DYNAMIC_STRUCTURE",
                                   "OPAQUE"};

/// One element of an annotation: its text in dumps, and its value when that is one string.
struct Element {
  std::string name;
  std::string text;
  std::vector<std::string> values;
  bool is_string = false;
};

struct Annotation {
  std::string name;
  std::vector<Element> elements;
};

struct Field {
  std::string text;
  std::vector<Annotation> annotations;
};

/// Moves all lines of a text two blanks to the right.
std::string Indented(const std::string& text) {
  std::string indented;
  bool at_start = true;
  for (const char character : text) {
    if (at_start) indented += "  ";
    indented += character;
    at_start = character == '\n';
  }
  return indented;
}

std::string Keyed(const std::string& key, const std::string& text) {
  return Indented(Quoted(key) + " -> " + text);
}

template <typename Named>
const Named* FindNamed(const std::vector<Named>& records, const std::string& name) {
  for (const auto& record : records) {
    if (record.name == name) return &record;
  }
  return nullptr;
}

/// Adds a record at its place by name, unless there is one of that name.
template <typename Named>
void KeepFirst(const Named& record, std::vector<Named>& records) {
  auto place = records.begin();
  while (place != records.end() && place->name < record.name) ++place;
  if (place == records.end() || place->name != record.name) records.insert(place, record);
}

template <typename Named>
void KeepLast(const Named& record, std::vector<Named>& records) {
  for (auto& known : records) {
    if (known.name == record.name) {
      known = record;
      return;
    }
  }
  KeepFirst(record, records);
}

std::string Text(const std::vector<Definition>& definitions) {
  std::string text;
  for (const auto& definition : definitions) text += Keyed(definition.name, definition.text);
  return text;
}

std::string Text(const std::vector<Annotation>& annotations) {
  std::string text;
  for (const auto& annotation : annotations) {
    std::string elements;
    for (const auto& element : annotation.elements) {
      elements += (elements.empty() ? "" : " ") + Quoted(element.name) + "=" + element.text;
    }
    text += Keyed(annotation.name, "{" + elements + "}\n");
  }
  return text;
}

/// Reads one document in the order in which the format is read.
class MetamodelReading {
 public:
  explicit MetamodelReading(ModelReader& reader) : reader_(reader) {}

  MetamodelContent Read(const Json& document) {
    const Json& metamodel = reader_.Required(document, "metamodel", Json::Kind::kObject);
    const Json& component = reader_.Required(metamodel, "component", Json::Kind::kObject);
    const Heading heading = ReadHeading(component);
    content_.packages = ReadAll(component, "packages", &MetamodelReading::ReadPackage);
    content_.component = heading.name;
    content_.text = "component " + heading.text + Text(content_.packages);
    return content_;
  }

 private:
  using Read_ = Definition (MetamodelReading::*)(const Json&);

  struct Heading {
    std::string name;
    std::string text;  // with the annotations
  };

  Heading ReadHeading(const Json& json) {
    const std::string name = reader_.Text(json, "name");
    const std::string documentation = reader_.Text(json, "documentation");
    return {name, Quoted(name) + " " + Quoted(documentation) + "\n" + Text(ReadMetadata(json))};
  }

  /// A map of records: the first of a name counts, but all are read.
  std::vector<Definition> ReadAll(const Json& json, const char* key, Read_ read) {
    std::vector<Definition> definitions;
    for (const auto& element : reader_.Elements(json, key)) {
      KeepFirst((this->*read)(element), definitions);
    }
    return definitions;
  }

  Definition ReadPackage(const Json& json) {
    const Heading heading = ReadHeading(json);
    Definition package;
    package.name = heading.name;
    package.enumerations = ReadAll(json, "enumerations", &MetamodelReading::ReadEnumeration);
    package.structures = ReadAll(json, "structures", &MetamodelReading::ReadStructure);
    package.services = ReadAll(json, "services", &MetamodelReading::ReadService);
    package.text = "package " + heading.text + Text(package.enumerations) +
                   Text(package.structures) + Text(package.services);
    return package;
  }

  Definition ReadService(const Json& json) {
    const Heading heading = ReadHeading(json);
    Definition service;
    service.name = heading.name;
    service.enumerations = ReadAll(json, "enumerations", &MetamodelReading::ReadEnumeration);
    service.structures = ReadAll(json, "structures", &MetamodelReading::ReadStructure);
    const auto constants = ReadAll(json, "constants", &MetamodelReading::ReadConstant);
    service.operations = ReadAll(json, "operations", &MetamodelReading::ReadOperation);
    service.text = "service " + heading.text + Text(service.enumerations) +
                   Text(service.structures) + Text(constants) + Text(service.operations);
    return service;
  }

  Definition ReadOperation(const Json& json) {
    const Heading heading = ReadHeading(json);
    Definition operation;
    operation.name = heading.name;
    operation.text = "operation " + heading.text;
    for (const auto& param : reader_.Elements(json, "params")) {
      operation.text += Indented(ReadField(param).text);
    }
    operation.text += Indented(ReadResult(reader_.Required(json, "result", Json::Kind::kObject)));
    for (const auto& error : reader_.Elements(json, "errors")) {
      const std::string structure = reader_.Text(error, "user_defined_type_name");
      operation.text += "  error " + Quoted(structure) + " " +
                        Quoted(reader_.Text(error, "documentation")) + "\n";
    }
    return operation;
  }

  std::string ReadResult(const Json& json) {
    const std::string documentation = reader_.Text(json, "documentation");
    const auto annotations = ReadMetadata(json);
    const std::string type = ReadType(reader_.Required(json, "type", Json::Kind::kObject));
    return "result " + Quoted(documentation) + " : " + type + "\n" + Text(annotations);
  }

  Field ReadField(const Json& json) {
    const std::string name = reader_.Text(json, "name");
    const std::string documentation = reader_.Text(json, "documentation");
    const auto annotations = ReadMetadata(json);
    const std::string type = ReadType(reader_.Required(json, "type", Json::Kind::kObject));
    return {"field " + Quoted(name) + " " + Quoted(documentation) + " : " + type + "\n" +
                Text(annotations),
            annotations};
  }

  Definition ReadStructure(const Json& json) {
    Definition structure;
    structure.name = reader_.Text(json, "name");
    const std::string type = reader_.Enumerator(json, "type", {"STRUCTURE", "ERROR"});
    const std::string documentation = reader_.Text(json, "documentation");
    const auto annotations = ReadMetadata(json);
    structure.enumerations = ReadAll(json, "enumerations", &MetamodelReading::ReadEnumeration);
    const auto constants = ReadAll(json, "constants", &MetamodelReading::ReadConstant);
    std::vector<Field> fields;
    for (const auto& field : reader_.Elements(json, "fields")) fields.push_back(ReadField(field));
    structure.text = "structure " + type + " " + Quoted(structure.name) + " " +
                     Quoted(documentation) + "\n" + Text(annotations) +
                     Text(structure.enumerations) + Text(constants);
    for (const auto& field : fields) structure.text += Indented(field.text);
    if (FindNamed(annotations, "Model") != nullptr) RegisterModels(structure.name, fields);
    return structure;
  }

  Definition ReadEnumeration(const Json& json) {
    const Heading heading = ReadHeading(json);
    Definition enumeration;
    enumeration.name = heading.name;
    enumeration.text = "enumeration " + heading.text;
    for (const auto& value : reader_.Elements(json, "values")) {
      enumeration.text += Indented("value " + ReadHeading(value).text);
    }
    return enumeration;
  }

  Definition ReadConstant(const Json& json) {
    Definition constant;
    constant.name = reader_.Text(json, "name");
    const std::string documentation = reader_.Text(json, "documentation");
    const Json& type_object = reader_.Required(json, "type", Json::Kind::kObject);
    const std::string category = reader_.Enumerator(type_object, "category", {"PRIMITIVE", "LIST"});
    const std::string type = reader_.Enumerator(type_object, "type", kBuiltinTypes);
    const Json* value = reader_.FindAloud(json, "value");
    if (value == nullptr) throw GivenUp();
    constant.text = "constant " + Quoted(documentation) + " : " +
                    (category == "LIST" ? "LIST<" + type + ">" : type) + " = " + category + " " +
                    (category == "PRIMITIVE" && type == "STRING" ? ConstantValue(*value) : "none") +
                    "\n";
    return constant;
  }

  /// A string constant without a string is kept without a value, and that is said.
  std::string ConstantValue(const Json& value) {
    if (value.kind == Json::Kind::kString) return "STRING " + Quoted(value.text);
    reader_.Say("zelk.metadata.json.invalid.field", {"value"});
    return "none";
  }

  std::string ReadType(const Json& json) {
    const std::string category = reader_.Enumerator(
        json, "category", {"BUILTIN", "USER_DEFINED", "GENERIC"}, "PRIMITIVE", "BUILTIN");
    if (category == "BUILTIN") {
      return reader_.Enumerator(json, "primitive_type", kBuiltinTypes, "EXCEPTION", "ANY_ERROR");
    }
    if (category == "USER_DEFINED") return ReadUserType(json);
    const std::string generic =
        reader_.Enumerator(json, "generic_type", {"LIST", "MAP", "OPTIONAL", "SET"});
    if (generic != "MAP") return generic + "<" + ReadPart(json, "element_type") + ">";
    const std::string key = ReadPart(json, "map_key_type");
    return "MAP<" + key + ", " + ReadPart(json, "map_value_type") + ">";
  }

  std::string ReadPart(const Json& json, const char* key) {
    return ReadType(reader_.Required(json, key, Json::Kind::kObject));
  }

  std::string ReadUserType(const Json& json) {
    std::string kind = reader_.Text(json, "user_defined_type");
    const std::string name = reader_.Text(json, "user_defined_type_name");
    if (kind == "Structure") kind = "com.orvane.zelk.structure";
    if (kind == "Enumeration") kind = "com.orvane.zelk.enumeration";
    return Quoted(kind) + ":" + Quoted(name);
  }

  /// Annotations and their elements: the last of a name counts, but each names its resources.
  std::vector<Annotation> ReadMetadata(const Json& json) {
    const Json& metadata = reader_.Required(json, "metadata", Json::Kind::kObject);
    std::vector<Annotation> annotations;
    for (std::size_t index = 0; index < metadata.keys.size(); ++index) {
      const Annotation annotation = {metadata.keys[index], ReadElements(metadata.elements[index])};
      KeepLast(annotation, annotations);
      if (annotation.name == "Resource") RegisterResources(annotation);
    }
    return annotations;
  }

  std::vector<Element> ReadElements(const Json& json) {
    if (json.kind != Json::Kind::kObject) RefuseElement();
    std::vector<Element> elements;
    for (std::size_t index = 0; index < json.keys.size(); ++index) {
      KeepLast(ReadElement(json.keys[index], json.elements[index]), elements);
    }
    return elements;
  }

  Element ReadElement(const std::string& name, const Json& json) {
    if (json.kind == Json::Kind::kString) return {name, Quoted(json.text), {json.text}, true};
    if (json.kind != Json::Kind::kArray) RefuseElement();
    Element element{name, "", {}, false};
    for (const auto& value : json.elements) {
      if (value.kind != Json::Kind::kString) RefuseElement();
      element.text += (element.text.empty() ? "" : ", ") + Quoted(value.text);
      element.values.push_back(value.text);
    }
    element.text = "[" + element.text + "]";
    return element;
  }

  [[noreturn]] void RefuseElement() {
    reader_.GiveUp("zelk.metadata.json.invalid.field", {"ElementValue"});
  }

  void RegisterResources(const Annotation& annotation) {
    const Element* value = FindNamed(annotation.elements, "value");
    if (value == nullptr) return;
    for (const auto& resource : value->values) ModelsOf(resource);
  }

  /// Each key field makes the structure a model of its resource, up to one that is not of one.
  void RegisterModels(const std::string& structure, const std::vector<Field>& fields) {
    for (const auto& field : fields) {
      const Annotation* resource = FindNamed(field.annotations, "Resource");
      if (resource == nullptr || FindNamed(field.annotations, "ModelKey") == nullptr) continue;
      const Element* value = FindNamed(resource->elements, "value");
      if (value == nullptr || !value->is_string) return;
      AddAscending(structure, ModelsOf(value->values[0]));
    }
  }

  std::vector<std::string>& ModelsOf(const std::string& resource) {
    for (auto& known : content_.resources) {
      if (known.resource == resource) return known.models;
    }
    content_.resources.push_back({resource, {}});
    return content_.resources.back().models;
  }

  static void AddAscending(const std::string& name, std::vector<std::string>& names) {
    auto place = names.begin();
    while (place != names.end() && *place < name) ++place;
    if (place == names.end() || *place != name) names.insert(place, name);
  }

  ModelReader& reader_;
  MetamodelContent content_;
};

}  // namespace

MetamodelContent ReadMetamodel(const Json& document, ModelReader& reader) {
  return MetamodelReading(reader).Read(document);
}

}  // namespace Zelk::Fuzzing
