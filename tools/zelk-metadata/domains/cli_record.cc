#include "domains/cli_record.h"

#include <fmt/format.h>

#include "domains/enum_text.h"

namespace Zelk::Tool {

using Render::Page;

static void WriteMembers(RecordWriter& json, const Bindings::Cli::TreeIdentity& identity) {
  json.Member("path", identity.path);
  json.Member("name", identity.name);
}

static void WriteMembers(RecordWriter& json, const Bindings::Cli::CommandSvc::OptionInfo& option) {
  json.Member("long_option", option.long_option);
  json.Member("short_option", option.short_option);
  json.Member("field_name", option.field_name);
  json.Member("description", option.description);
  json.Member("type", option.type);
  json.Member("generic", EnumText(option.generic));
}

static void WriteMembers(RecordWriter& json,
                         const Bindings::Cli::CommandSvc::OutputFieldInfo& field) {
  json.Member("field_name", field.field_name);
  json.Member("display_name", field.display_name);
}

static void WriteMembers(RecordWriter& json, const Bindings::Cli::CommandSvc::OutputInfo& output) {
  json.Member("structure_id", output.structure_id);
  json.Member("output_fields", output.output_fields);
}

void WriteMembers(RecordWriter& json, const Bindings::Cli::NamespaceSvc::Info& info) {
  json.Member("identity", info.identity);
  json.Member("description", info.description);
  json.Member("children", info.children);
}

void WriteMembers(RecordWriter& json, const Bindings::Cli::CommandSvc::Info& info) {
  json.Member("identity", info.identity);
  json.Member("description", info.description);
  json.Member("service_id", info.service_id);
  json.Member("operation_id", info.operation_id);
  json.Member("options", info.options);
  json.Member("formatter", info.formatter ? boost::make_optional(EnumText(*info.formatter))
                                          : boost::optional<std::string>());
  json.Member("output_field_list", info.output_field_list);
}

std::string FullName(const Bindings::Cli::TreeIdentity& identity) {
  if (identity.path.empty() && identity.name.empty()) return ".";
  return identity.path.empty() ? identity.name : identity.path + '.' + identity.name;
}

void WritePage(Page& page, const Bindings::Cli::NamespaceSvc::Info& info) {
  page.Title("namespace " + FullName(*info.identity));
  page.Paragraph(1, info.description);
  if (info.children.empty()) return;
  page.Heading("Namespaces:");
  for (const auto& child : info.children) page.Line(1, FullName(*child));
}

namespace {

std::string OptionText(const Bindings::Cli::CommandSvc::OptionInfo& option) {
  const bool plain = option.generic == Bindings::Cli::CommandSvc::GenericType::NONE;
  return fmt::format("--{}{}: {}", option.long_option,
                     option.short_option ? ", -" + *option.short_option : "",
                     plain ? option.type : EnumText(option.generic) + '<' + option.type + '>');
}

void WriteOptions(
    Page& page,
    const std::list<std::shared_ptr<const Bindings::Cli::CommandSvc::OptionInfo>>& options) {
  if (options.empty()) return;
  page.Heading("Options:");
  for (const auto& option : options) {
    page.Line(1, OptionText(*option));
    page.Paragraph(2, option->description);
    page.Line(2, "Fills " + option->field_name);
  }
}

void WriteOutputs(Page& page, const Bindings::Cli::CommandSvc::Info& info) {
  for (const auto& output : info.output_field_list) {
    page.Heading(fmt::format("Output of {}:", output->structure_id));
    for (const auto& field : output->output_fields) {
      page.Line(1, fmt::format("{}: {}", field->display_name, field->field_name));
    }
  }
}

}  // namespace

void WritePage(Page& page, const Bindings::Cli::CommandSvc::Info& info) {
  page.Title("command " + FullName(*info.identity));
  page.Paragraph(1, info.description);
  page.Line(1, fmt::format("Calls {} of {}", info.operation_id, info.service_id));
  if (info.formatter) page.Line(1, "Shown as " + EnumText(*info.formatter));
  WriteOptions(page, info.options);
  WriteOutputs(page, info);
}

void WriteUsagePage(Page& page, const std::string& title,
                    const Bindings::Cli::CommandSvc::Info& info) {
  page.Title(title);
  page.Paragraph(1, info.description);
  WriteOptions(page, info.options);
  WriteOutputs(page, info);
  page.Heading("Calls:");
  page.Line(1, fmt::format("{} of {}", info.operation_id, info.service_id));
  if (info.formatter) page.Line(1, "shown as " + EnumText(*info.formatter));
}

}  // namespace Zelk::Tool
