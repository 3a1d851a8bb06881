#include "descriptors.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>
#include <vector>

namespace Zelk::Benchmarks {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
namespace Proto = ::google::protobuf;
using Location = Proto::SourceCodeInfo::Location;
using Path = std::vector<int>;

/// The kind of definition that is not a structure.
constexpr char kEnumeration[] = "com.orvane.zelk.enumeration";

Path Joined(Path path, std::initializer_list<int> more) {
  path.insert(path.end(), more);
  return path;
}

/// Where the component's name and its full stop end in an id.
std::size_t ComponentEnd(const std::string& id) {
  std::size_t end = 0;
  for (int parts = 0; parts < 3; ++parts) end = id.find('.', end) + 1;
  return end;
}

std::string LocalName(const std::string& id) {
  std::string name = id.substr(ComponentEnd(id));
  std::replace(name.begin(), name.end(), '.', '_');
  return name;
}

/// The name that protobuf demands of the message of a map's entries.
std::string EntryName(const std::string& field) {
  std::string name;
  bool is_start = true;
  for (const char character : field) {
    if (character != '_') {
      name += is_start ? static_cast<char>(std::toupper(character)) : character;
    }
    is_start = character == '_';
  }
  return name + "Entry";
}

class DescriptorsMaker {
 public:
  Proto::FileDescriptorProto Make(const Bindings::Metamodel::ComponentInfo& component) {
    file_.set_name(component.name);
    file_.set_package(component.name);
    Location* const location = Describe({2}, component.documentation, component.metadata);
    for (const auto& package : component.packages) {
      location->add_leading_detached_comments(package.second->documentation);
      AddEnumerations(package.second->enumerations);
      AddStructures(package.second->structures);
      for (const auto& service : package.second->services) AddService(*service.second);
    }
    return std::move(file_);
  }

 private:
  using Constants = std::map<std::string, std::shared_ptr<const Bindings::Metamodel::ConstantInfo>>;

  Location* Describe(const Path& path, const std::string& documentation,
                     const Bindings::Metamodel::MetadataMap& annotations) {
    Location* const location = file_.mutable_source_code_info()->add_location();
    for (const int step : path) location->add_path(step);
    // The place in a file is not used, but must be set.
    for (int number = 0; number < 3; ++number) location->add_span(0);
    location->set_leading_comments(documentation);
    for (const auto& annotation : annotations) {
      *location->mutable_trailing_comments() += annotation.first;
      for (const auto& element : annotation.second->elements) {
        *location->mutable_trailing_comments() +=
            " " + element.first + "=" + element.second->string_value.value_or("");
      }
    }
    return location;
  }

  static void AddConstants(const Constants& constants, Location& location) {
    for (const auto& constant : constants) {
      const auto& value = constant.second->value->primitive_value;
      location.add_leading_detached_comments(constant.first + "=" +
                                             (value ? value->string_value.value_or("") : "") +
                                             ": " + constant.second->documentation);
    }
  }

  void AddEnumerations(
      const std::map<std::string, std::shared_ptr<const Bindings::Metamodel::EnumerationInfo>>&
          enumerations) {
    for (const auto& entry : enumerations) {
      const Bindings::Metamodel::EnumerationInfo& enumeration = *entry.second;
      const Path path = {Proto::FileDescriptorProto::kEnumTypeFieldNumber, file_.enum_type_size()};
      Proto::EnumDescriptorProto* const made = file_.add_enum_type();
      made->set_name(LocalName(enumeration.name));
      Describe(path, enumeration.documentation, enumeration.metadata);
      for (const auto& value : enumeration.values) {
        const int number = made->value_size();
        Proto::EnumValueDescriptorProto* const made_value = made->add_value();
        // The values of all enumerations of a file share one scope.
        made_value->set_name(made->name() + "_" + value->value);
        made_value->set_number(number);
        Describe(Joined(path, {Proto::EnumDescriptorProto::kValueFieldNumber, number}),
                 value->documentation, value->metadata);
      }
    }
  }

  void AddStructures(
      const std::map<std::string, std::shared_ptr<const Bindings::Metamodel::StructureInfo>>&
          structures) {
    for (const auto& entry : structures) {
      const Bindings::Metamodel::StructureInfo& structure = *entry.second;
      AddEnumerations(structure.enumerations);
      Location* const location = AddMessage(LocalName(structure.name), structure.documentation,
                                            structure.metadata, structure.fields);
      AddConstants(structure.constants, *location);
    }
  }

  Location* AddMessage(
      const std::string& name, const std::string& documentation,
      const Bindings::Metamodel::MetadataMap& annotations,
      const std::list<std::shared_ptr<const Bindings::Metamodel::FieldInfo>>& fields) {
    const Path path = {Proto::FileDescriptorProto::kMessageTypeFieldNumber,
                       file_.message_type_size()};
    Location* const location = Describe(path, documentation, annotations);
    Proto::DescriptorProto* const message = file_.add_message_type();
    message->set_name(name);
    for (const auto& field : fields) {
      const int number = message->field_size();
      AddField(*message, field->name, *field->type);
      Describe(Joined(path, {Proto::DescriptorProto::kFieldFieldNumber, number}),
               field->documentation, field->metadata);
    }
    return location;
  }

  std::string FullName(const std::string& name) const { return "." + file_.package() + "." + name; }

  void AddField(Proto::DescriptorProto& message, const std::string& name,
                const Bindings::Metamodel::Type& type) {
    Proto::FieldDescriptorProto* const field = message.add_field();
    field->set_name(name);
    field->set_number(message.field_size());
    field->set_label(Proto::FieldDescriptorProto::LABEL_OPTIONAL);
    SetType(message, *field, type);
  }

  /// Of types in each other the outermost that protobuf has counts.
  void SetType(Proto::DescriptorProto& message, Proto::FieldDescriptorProto& field,
               const Bindings::Metamodel::Type& type) {
    using Generic = Bindings::Metamodel::GenericInstantiationEnumerations::GenericType;
    if (type.user_defined_type) {
      field.set_type(type.user_defined_type->resource_type == kEnumeration
                         ? Proto::FieldDescriptorProto::TYPE_ENUM
                         : Proto::FieldDescriptorProto::TYPE_MESSAGE);
      field.set_type_name("." + DescriptorName(type.user_defined_type->resource_id));
    } else if (!type.generic_instantiation) {
      field.set_type(BuiltinType(*type.builtin_type));
    } else if (type.generic_instantiation->generic_type == Generic(Generic::MAP)) {
      SetMap(message, field, *type.generic_instantiation);
    } else {
      if (!(type.generic_instantiation->generic_type == Generic(Generic::OPTIONAL))) {
        field.set_label(Proto::FieldDescriptorProto::LABEL_REPEATED);
      }
      SetType(message, field, *type.generic_instantiation->element_type);
    }
  }

  void SetMap(Proto::DescriptorProto& message, Proto::FieldDescriptorProto& field,
              const Bindings::Metamodel::GenericInstantiation& map) {
    // A map in a map has no place; its text is one value.
    if (message.options().map_entry()) {
      field.set_type(Proto::FieldDescriptorProto::TYPE_STRING);
      return;
    }
    Proto::DescriptorProto* const entry = message.add_nested_type();
    entry->set_name(EntryName(field.name()));
    entry->mutable_options()->set_map_entry(true);
    AddField(*entry, "key", *map.map_key_type);
    AddField(*entry, "value", *map.map_value_type);
    for (auto& member : *entry->mutable_field()) {
      member.set_label(Proto::FieldDescriptorProto::LABEL_OPTIONAL);
    }
    field.set_label(Proto::FieldDescriptorProto::LABEL_REPEATED);
    field.set_type(Proto::FieldDescriptorProto::TYPE_MESSAGE);
    field.set_type_name(FullName(message.name() + "." + entry->name()));
  }

  static Proto::FieldDescriptorProto::Type BuiltinType(
      const Bindings::Metamodel::TypeEnumerations::BuiltinType& type) {
    using Builtin = Bindings::Metamodel::TypeEnumerations::BuiltinType;
    switch (type.Value()) {
      case Builtin::BOOLEAN:
        return Proto::FieldDescriptorProto::TYPE_BOOL;
      case Builtin::LONG:
        return Proto::FieldDescriptorProto::TYPE_INT64;
      case Builtin::DOUBLE:
        return Proto::FieldDescriptorProto::TYPE_DOUBLE;
      case Builtin::BINARY:
      case Builtin::OPAQUE:
        return Proto::FieldDescriptorProto::TYPE_BYTES;
      default:
        return Proto::FieldDescriptorProto::TYPE_STRING;
    }
  }

  void AddService(const Bindings::Metamodel::ServiceInfo& service) {
    AddEnumerations(service.enumerations);
    const Path path = {Proto::FileDescriptorProto::kServiceFieldNumber, file_.service_size()};
    AddConstants(service.constants, *Describe(path, service.documentation, service.metadata));
    AddStructures(service.structures);
    Proto::ServiceDescriptorProto* const made = file_.add_service();
    made->set_name(LocalName(service.name));
    for (const auto& operation : service.operations) AddMethod(*made, path, *operation.second);
  }

  void AddMethod(Proto::ServiceDescriptorProto& service, const Path& service_path,
                 const Bindings::Metamodel::OperationInfo& operation) {
    const std::string prefix = service.name() + "_" + operation.name;
    const Path path = Joined(
        service_path, {Proto::ServiceDescriptorProto::kMethodFieldNumber, service.method_size()});
    Proto::MethodDescriptorProto* const method = service.add_method();
    method->set_name(operation.name);
    Location* const location = Describe(path, operation.documentation, operation.metadata);
    for (const auto& error : operation.errors) {
      location->add_leading_detached_comments(error->structure_name + ": " + error->documentation);
    }
    AddMessage(prefix + "_params", "", {}, operation.params);
    method->set_input_type(FullName(prefix + "_params"));
    AddMessage(prefix + "_result", "", {},
               {std::make_shared<const Bindings::Metamodel::FieldInfo>(
                   "result", operation.output->type, operation.output->metadata,
                   operation.output->documentation)});
    method->set_output_type(FullName(prefix + "_result"));
  }

  Proto::FileDescriptorProto file_;
};

}  // namespace

Proto::FileDescriptorProto DescriptorsOf(const Bindings::Metamodel::ComponentInfo& component) {
  return DescriptorsMaker().Make(component);
}

std::string DescriptorName(const std::string& id) {
  return id.substr(0, ComponentEnd(id)) + LocalName(id);
}

}  // namespace Zelk::Benchmarks
