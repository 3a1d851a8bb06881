#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "authentication/json_metadata_parser.h"
#include "support/as_source.h"
#include "support/authentication_text.h"
#include "support/json_text.h"
#include "support/message_texts.h"

namespace Zelk::Provider::Metadata::Authentication {

using Testing::InvalidEnumValue;
using Testing::InvalidField;
using Testing::Lines;
using Testing::MissingField;

/// What became of a text: the parser's answer, the components in the order in which it handed them
/// over, and its messages.
struct Parsed {
  bool accepted = false;
  std::string components;
  Lines messages;
};

/// A parser's callback that keeps the components' texts.
inline JsonMetadataParser::RegisterCallbacks KeepTexts(std::string& components) {
  return [&components](const std::string& name,
                       const std::shared_ptr<Bindings::Authentication::ComponentInfo>& info) {
    components += Testing::ComponentText(name, *info);
  };
}

/// Reads a whole file.
inline Parsed ParseFile(std::string_view json) {
  Parsed parsed;
  Errors errors;
  parsed.accepted = JsonMetadataParser::LoadMetadata(Testing::AsSource(json),
                                                     KeepTexts(parsed.components), errors);
  parsed.messages = Testing::MessageTexts(errors);
  return parsed;
}

/// Reads one component object.
inline Parsed ParseComponent(std::string_view json) {
  Parsed parsed;
  Errors errors;
  parsed.accepted =
      JsonMetadataParser::ParseComponent(KeepTexts(parsed.components), Testing::Json(json), errors);
  parsed.messages = Testing::MessageTexts(errors);
  return parsed;
}

/// A component "foo" that defines the schemes "x" (sessionless) and "y" (with sessions), and whose
/// further members are `members`.
inline std::string Foo(const std::string& members) {
  return R"({"name": "foo",
             "schemes": {"x": {"authenticationScheme": "ex", "type": "SESSIONLESS"},
                         "y": {"authenticationScheme": "why", "type": "SESSION_AWARE",
                               "sessionManager": "sm"}},)" +
         members + "}";
}

// The parser's own messages, ids spelt out.

inline std::string InvalidOperationId(const std::string& id) {
  return Testing::MessageText("zelk.metadata.authentication.json.invalid.operation.id", {id});
}

inline std::string InvalidServiceId(const std::string& id) {
  return Testing::MessageText("zelk.metadata.authentication.json.invalid.service.id", {id});
}

inline std::string UnknownScheme() {
  return Testing::MessageText("zelk.metadata.authentication.json.unknown.schema.name", {"id"});
}

}  // namespace Zelk::Provider::Metadata::Authentication
