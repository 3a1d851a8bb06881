#include "cli/metadata_parser.h"

namespace Zelk::Provider::Metadata::Cli {
namespace {

using FormatterType = Bindings::Cli::CommandSvc::FormatterType;
using GenericType = Bindings::Cli::CommandSvc::GenericType;

template <typename Record>
using OptList = JsonOptArrayMember<std::list<std::shared_ptr<const Record>>>;

/// Intended(cli-empty-generic): an empty text means that the type is not generic, while an empty
/// formatter is an unknown one.
GenericType ToGenericType(const std::string& text) {
  return text.empty() ? GenericType(GenericType::NONE) : EnumConverter::Convert<GenericType>(text);
}

}  // namespace

bool MetadataParser::ParseCommandMetadata(const JsonValue& value,
                                          Bindings::Cli::CommandSvc::Info& info, Errors& errors) {
  // Intended(cli-message-words): "path", not "node_metadata".
  if (!value.IsObject()) return Fail(MessageId::kCliInvalidField, "path", errors);
  JsonMember<std::string> service_id(value, "service_id", errors);
  if (!service_id.Ok()) return false;
  info.service_id = service_id.Take();
  JsonMember<std::string> operation_id(value, "operation_id", errors);
  if (!operation_id.Ok()) return false;
  info.operation_id = operation_id.Take();
  JsonOptMember<boost::optional<std::string>> formatter(value, "formatter", errors);
  if (!formatter.Ok()) return false;
  if (formatter.Value()) info.formatter = EnumConverter::Convert<FormatterType>(*formatter.Value());
  OptList<Bindings::Cli::CommandSvc::OptionInfo> options(value, "options", ParseOptionInfo, errors);
  if (!options.Ok()) return false;
  info.options = options.Take();
  OptList<Bindings::Cli::CommandSvc::OutputInfo> outputs(value, "output_field_list", ParseFieldInfo,
                                                         errors);
  if (!outputs.Ok()) return false;
  info.output_field_list = outputs.Take();
  return true;
}

std::shared_ptr<const Bindings::Cli::CommandSvc::OptionInfo> MetadataParser::ParseOptionInfo(
    const JsonValue& value, Errors& errors) {
  if (!value.IsObject()) {
    Fail(MessageId::kCliInvalidField, "options_entry", errors);
    return nullptr;
  }
  JsonMember<std::string> long_option(value, "long_option", errors);
  if (!long_option.Ok()) return nullptr;
  JsonOptMember<boost::optional<std::string>> short_option(value, "short_option", errors);
  if (!short_option.Ok()) return nullptr;
  JsonMember<std::string> field_name(value, "field_name", errors);
  if (!field_name.Ok()) return nullptr;
  JsonMember<std::string> description(value, "description", errors);
  if (!description.Ok()) return nullptr;
  JsonMember<std::string> type(value, "type", errors);
  if (!type.Ok()) return nullptr;
  JsonMember<std::string> generic(value, "generic", errors);
  if (!generic.Ok()) return nullptr;
  return std::make_shared<Bindings::Cli::CommandSvc::OptionInfo>(
      long_option.Take(), short_option.Take(), field_name.Take(), description.Take(), type.Take(),
      ToGenericType(generic.Value()));
}

std::shared_ptr<const Bindings::Cli::CommandSvc::OutputInfo> MetadataParser::ParseFieldInfo(
    const JsonValue& value, Errors& errors) {
  if (!value.IsObject()) {
    // Intended(cli-message-words): the same word as for options.
    Fail(MessageId::kCliInvalidField, "options_entry", errors);
    return nullptr;
  }
  JsonMember<std::string> structure_id(value, "structure_id", errors);
  if (!structure_id.Ok()) return nullptr;
  OptList<Bindings::Cli::CommandSvc::OutputFieldInfo> fields(value, "output_fields",
                                                             ParseMemberInfo, errors);
  if (!fields.Ok()) return nullptr;
  return std::make_shared<Bindings::Cli::CommandSvc::OutputInfo>(structure_id.Take(),
                                                                 fields.Take());
}

std::shared_ptr<const Bindings::Cli::CommandSvc::OutputFieldInfo> MetadataParser::ParseMemberInfo(
    const JsonValue& value, Errors& errors) {
  if (!value.IsObject()) {
    Fail(MessageId::kCliInvalidField, "output_fields", errors);
    return nullptr;
  }
  JsonMember<std::string> field_name(value, "field_name", errors);
  if (!field_name.Ok()) return nullptr;
  JsonMember<std::string> display_name(value, "display_name", errors);
  if (!display_name.Ok()) return nullptr;
  return std::make_shared<Bindings::Cli::CommandSvc::OutputFieldInfo>(field_name.Take(),
                                                                      display_name.Take());
}

bool MetadataParser::Fail(const char* message_id, const char* argument, Errors& errors) {
  errors.push_back(CatalogMessage(message_id) % argument);
  return false;
}

}  // namespace Zelk::Provider::Metadata::Cli
