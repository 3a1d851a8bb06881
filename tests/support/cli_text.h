#pragma once

#include <string>

#include <com/orvane/zelk/metadata/cli/records.h>

#include "support/lines.h"
#include "support/record_text.h"

// CLI records as text, so that a test compares everything that was read at once. For tests only:
// what the programs print is made elsewhere, and an error there cannot hide one here.

namespace Zelk::Testing {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

/// The path and the name; ":" is the root.
inline std::string CliText(const Bindings::Cli::TreeIdentity& identity) {
  return identity.path + ":" + identity.name;
}

/// One namespace in one line, its children in brackets.
inline std::string CliText(const Bindings::Cli::NamespaceSvc::Info& info) {
  std::string children;
  for (const auto& child : info.children) {
    children += (children.empty() ? "" : ", ") + CliText(*child);
  }
  return "namespace " + CliText(*info.identity) + " " + Quoted(info.description) + " [" + children +
         "]";
}

inline std::string CliText(const Bindings::Cli::CommandSvc::OptionInfo& option) {
  return "option " + Quoted(option.long_option) + " " + Quoted(option.short_option) + " " +
         Quoted(option.field_name) + " " + Quoted(option.description) + " " + Quoted(option.type) +
         " " + EnumText(option.generic);
}

inline std::string CliText(const Bindings::Cli::CommandSvc::OutputInfo& output) {
  std::string fields;
  for (const auto& field : output.output_fields) {
    fields += (fields.empty() ? "" : ", ") + Quoted(field->field_name) + " as " +
              Quoted(field->display_name);
  }
  return "output " + Quoted(output.structure_id) + " [" + fields + "]";
}

/// A command in one line, and one line for each of its options and outputs.
inline std::string CliText(const Bindings::Cli::CommandSvc::Info& info) {
  std::string text = "command " + CliText(*info.identity) + " " + Quoted(info.description) + " " +
                     Quoted(info.service_id) + " " + Quoted(info.operation_id) + " " +
                     (info.formatter ? EnumText(*info.formatter) : "none");
  for (const auto& option : info.options) text += "\n  " + CliText(*option);
  for (const auto& output : info.output_field_list) text += "\n  " + CliText(*output);
  return text;
}

/// One line each of what the pointers of a list point to.
template <typename Pointers>
Lines CliTexts(const Pointers& pointers) {
  Lines lines;
  for (const auto& pointer : pointers) lines.push_back(CliText(*pointer));
  return lines;
}

}  // namespace Zelk::Testing
