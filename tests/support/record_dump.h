#pragma once

#include <list>
#include <map>
#include <memory>
#include <string>

#include <com/orvane/zelk/metadata/metamodel/records.h>

#include "support/record_text.h"

// Metamodel records as text, one line a record and two blanks a level, so that a test compares
// everything that was read at once. For tests only: what the programs print is made elsewhere, and
// an error there cannot hide one here.

namespace Zelk::Testing {

class RecordDump {
 public:
  const std::string& Text() const { return text_; }

  void Add(const Bindings::Metamodel::ComponentInfo& component) {
    Open("component", component.name, component.documentation);
    AddAll(component.metadata);
    AddAll(component.packages);
    Close();
  }

  void Add(const Bindings::Metamodel::PackageInfo& package) {
    Open("package", package.name, package.documentation);
    AddAll(package.metadata);
    AddAll(package.enumerations);
    AddAll(package.structures);
    AddAll(package.services);
    Close();
  }

  void Add(const Bindings::Metamodel::ServiceInfo& service) {
    Open("service", service.name, service.documentation);
    AddAll(service.metadata);
    AddAll(service.enumerations);
    AddAll(service.structures);
    AddAll(service.constants);
    AddAll(service.operations);
    Close();
  }

  void Add(const Bindings::Metamodel::OperationInfo& operation) {
    Open("operation", operation.name, operation.documentation);
    AddAll(operation.metadata);
    AddAll(operation.params);
    AddPointer(operation.output);
    AddAll(operation.errors);
    Close();
  }

  void Add(const Bindings::Metamodel::OperationResultInfo& result) {
    Line("result " + Quoted(result.documentation) + " : " + TypeText(result.type));
    AddNested(result.metadata);
  }

  void Add(const Bindings::Metamodel::ErrorInfo& error) {
    Line("error " + Quoted(error.structure_name) + " " + Quoted(error.documentation));
  }

  void Add(const Bindings::Metamodel::FieldInfo& field) {
    Line("field " + Quoted(field.name) + " " + Quoted(field.documentation) + " : " +
         TypeText(field.type));
    AddNested(field.metadata);
  }

  void Add(const Bindings::Metamodel::StructureInfo& structure) {
    Open("structure " + EnumText(structure.type), structure.name, structure.documentation);
    AddAll(structure.metadata);
    AddAll(structure.enumerations);
    AddAll(structure.constants);
    AddAll(structure.fields);
    Close();
  }

  void Add(const Bindings::Metamodel::EnumerationInfo& enumeration) {
    Open("enumeration", enumeration.name, enumeration.documentation);
    AddAll(enumeration.metadata);
    AddAll(enumeration.values);
    Close();
  }

  void Add(const Bindings::Metamodel::EnumerationValueInfo& value) {
    Open("value", value.value, value.documentation);
    AddAll(value.metadata);
    Close();
  }

  void Add(const Bindings::Metamodel::ConstantInfo& constant) {
    Line("constant " + Quoted(constant.documentation) + " : " + TypeText(constant.type) + " = " +
         (constant.value ? ValueText(*constant.value) : "null"));
  }

  void Add(const Bindings::Metamodel::ElementMap& annotation) {
    std::string text;
    for (const auto& [name, value] : annotation.elements) {
      text += (text.empty() ? "" : " ") + Quoted(name) + "=" + ElementText(*value);
    }
    Line("{" + text + "}");
  }

  /// Every child under its key.
  template <typename Record>
  void AddAll(const std::map<std::string, std::shared_ptr<const Record>>& records) {
    for (const auto& [key, record] : records) {
      prefix_ = Quoted(key) + " -> ";
      AddPointer(record);
    }
  }

  template <typename Record>
  void AddAll(const std::list<std::shared_ptr<const Record>>& records) {
    for (const auto& record : records) AddPointer(record);
  }

 private:
  static std::string ValueText(const Bindings::Metamodel::ConstantValue& value) {
    const auto& primitive = value.primitive_value;
    return EnumText(value.category) +
           (primitive ? " " + EnumText(primitive->type) + " " + Quoted(primitive->string_value)
                      : " none");
  }

  template <typename Record>
  void AddPointer(const std::shared_ptr<const Record>& record) {
    record ? Add(*record) : Line("null");
  }

  void AddNested(const Bindings::Metamodel::MetadataMap& metadata) {
    ++depth_;
    AddAll(metadata);
    --depth_;
  }

  void Open(const std::string& kind, const std::string& name, const std::string& documentation) {
    Line(kind + " " + Quoted(name) + " " + Quoted(documentation));
    ++depth_;
  }

  void Close() { --depth_; }

  void Line(const std::string& text) {
    text_ += std::string(2 * depth_, ' ') + prefix_ + text + "\n";
    prefix_.clear();
  }

  std::string text_;
  std::string prefix_;
  std::size_t depth_ = 0;
};

/// The text of one record.
template <typename Record>
std::string Dump(const Record& record) {
  RecordDump dump;
  dump.Add(record);
  return dump.Text();
}

/// The text of a map or list of records.
template <typename Records>
std::string DumpAll(const Records& records) {
  RecordDump dump;
  dump.AddAll(records);
  return dump.Text();
}

}  // namespace Zelk::Testing
