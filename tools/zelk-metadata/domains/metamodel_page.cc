#include <fmt/format.h>

#include "domains/enum_text.h"
#include "domains/metamodel_shapes.h"
#include "render/text.h"

namespace Zelk::Tool {
namespace {

using Render::Page;

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + '"';
}

std::string Bracketed(const std::list<std::string>& texts) {
  std::string bracketed;
  for (const std::string& text : texts) {
    bracketed += (bracketed.empty() ? "" : ", ") + Quoted(text);
  }
  return '[' + bracketed + ']';
}

std::string ElementText(const Bindings::Metamodel::ElementValue& element) {
  if (element.string_value) return Quoted(*element.string_value);
  if (element.list_value) return Bracketed(*element.list_value);
  if (element.structure_id) return Quoted(*element.structure_id);
  if (element.structure_ids) return Bracketed(*element.structure_ids);
  return EnumText(element.type);
}

/// One line an annotation: "@Name element="value" other=["a", "b"]".
void WriteAnnotations(Page& page, std::size_t level,
                      const Bindings::Metamodel::MetadataMap& annotations) {
  for (const auto& [name, annotation] : annotations) {
    std::string line = '@' + name;
    for (const auto& [element, value] : annotation->elements) {
      line += fmt::format(" {}={}", element, ElementText(*value));
    }
    page.Line(level, line);
  }
}

template <typename Described>
void WriteDescription(Page& page, std::size_t level, const Described& record) {
  page.Paragraph(level, record.documentation);
  WriteAnnotations(page, level, record.metadata);
}

template <typename Described>
void WriteTitle(Page& page, const std::string& title, const Described& record) {
  page.Title(title);
  WriteDescription(page, 1, record);
}

std::string Signature(const Bindings::Metamodel::OperationInfo& operation) {
  std::string params;
  for (const auto& param : operation.params) {
    params +=
        fmt::format("{}{}: {}", params.empty() ? "" : ", ", param->name, TypeText(*param->type));
  }
  return fmt::format("{}({}) -> {}", operation.name, params, TypeText(*operation.output->type));
}

/// What one part of a record is called in the list of parts.
template <typename Part>
std::string PartText(const std::string& name, const Part& /*part*/) {
  return name;
}

std::string PartText(const std::string& /*name*/,
                     const Bindings::Metamodel::OperationInfo& operation) {
  return Signature(operation);
}

/// Only strings are kept of a constant's value.
std::string PartText(const std::string& name, const Bindings::Metamodel::ConstantInfo& constant) {
  const auto& primitive = constant.value->primitive_value;
  const std::string value =
      primitive && primitive->string_value ? " = " + Quoted(*primitive->string_value) : "";
  return fmt::format("{}: {}{}", name, TypeText(*constant.type), value);
}

template <typename Map>
void WriteParts(Page& page, const char* heading, const Map& parts) {
  if (parts.empty()) return;
  page.Heading(heading);
  for (const auto& [name, part] : parts) {
    page.Line(1, PartText(name, *part));
    page.Paragraph(2, Render::FirstLine(part->documentation));
  }
}

void WriteFields(Page& page, const char* heading,
                 const std::list<std::shared_ptr<const Bindings::Metamodel::FieldInfo>>& fields) {
  if (fields.empty()) return;
  page.Heading(heading);
  for (const auto& field : fields) {
    page.Line(1, fmt::format("{}: {}", field->name, TypeText(*field->type)));
    WriteDescription(page, 2, *field);
  }
}

void WriteErrors(Page& page,
                 const std::list<std::shared_ptr<const Bindings::Metamodel::ErrorInfo>>& errors) {
  if (errors.empty()) return;
  page.Heading("Errors:");
  for (const auto& error : errors) {
    page.Line(1, error->structure_name);
    page.Paragraph(2, error->documentation);
  }
}

}  // namespace

void WritePage(Page& page, const Bindings::Metamodel::ComponentData& component) {
  WriteTitle(page, "component " + component.info->name, *component.info);
  page.Heading("Fingerprint:");
  page.Line(1, component.fingerprint);
  WriteParts(page, "Packages:", component.info->packages);
}

void WritePage(Page& page, const Bindings::Metamodel::PackageInfo& package) {
  WriteTitle(page, "package " + package.name, package);
  WriteParts(page, "Services:", package.services);
  WriteParts(page, "Structures:", package.structures);
  WriteParts(page, "Enumerations:", package.enumerations);
}

void WritePage(Page& page, const Bindings::Metamodel::ServiceInfo& service) {
  WriteTitle(page, "service " + service.name, service);
  WriteParts(page, "Operations:", service.operations);
  WriteParts(page, "Structures:", service.structures);
  WriteParts(page, "Enumerations:", service.enumerations);
  WriteParts(page, "Constants:", service.constants);
}

void WritePage(Page& page, const Bindings::Metamodel::OperationInfo& operation) {
  WriteTitle(page, Signature(operation), operation);
  WriteFields(page, "Parameters:", operation.params);
  page.Heading("Result:");
  page.Line(1, TypeText(*operation.output->type));
  WriteDescription(page, 2, *operation.output);
  WriteErrors(page, operation.errors);
}

void WriteSummary(Page& page, const Bindings::Metamodel::OperationInfo& operation) {
  page.Line(1, Signature(operation));
  page.Paragraph(2, Render::FirstLine(operation.documentation));
}

void WritePage(Page& page, const Bindings::Metamodel::StructureInfo& structure) {
  const bool is_error =
      structure.type == Bindings::Metamodel::StructureInfoEnumerations::Type::ERROR;
  WriteTitle(page, "structure " + structure.name + (is_error ? " (error)" : ""), structure);
  WriteFields(page, "Fields:", structure.fields);
  WriteParts(page, "Enumerations:", structure.enumerations);
  WriteParts(page, "Constants:", structure.constants);
}

void WritePage(Page& page, const Bindings::Metamodel::EnumerationInfo& enumeration) {
  WriteTitle(page, "enumeration " + enumeration.name, enumeration);
  if (enumeration.values.empty()) return;
  page.Heading("Values:");
  for (const auto& value : enumeration.values) {
    page.Line(1, value->value);
    WriteDescription(page, 2, *value);
  }
}

}  // namespace Zelk::Tool
