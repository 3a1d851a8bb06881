#include <cstdint>
#include <iterator>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/metamodel/enumerations.h>

#include "common/json/json_member.h"
#include "fuzz/support/check.h"
#include "fuzz/support/default_json.h"
#include "fuzz/support/json_member_oracle.h"
#include "support/json_text.h"
#include "support/message_texts.h"
#include "support/record_text.h"

// The first byte selects a helper, the rest is the JSON text of a document. The helper binds the
// member "a" of it, whose objects and elements hold the string "b" and, for maps, the key "c".

namespace Zelk::Provider::Metadata {
namespace {

using ::Com::Orvane::Zelk::Metadata::Metamodel::GenericInstantiationEnumerations::GenericType;
using Fuzzing::Oracle;
using Testing::Quoted;

using TextPtr = std::shared_ptr<const std::string>;
using TextList = std::list<TextPtr>;
using TextMap = std::map<std::string, TextPtr>;

bool ParseAliased(const JsonValue& value, const char* name, GenericType& result, Errors& errors) {
  return ParseAliasedEnum(value, name, "ALIAS", GenericType::SET, result, errors);
}

// The parsers that the helpers are given, each in the form that its helper calls.

bool ParseInner(const JsonValue& value, std::string& result, Errors& errors) {
  JsonMember<std::string> member(value, "b", errors);
  result = member.Take();
  return member.Ok();
}

bool CheckInner(const JsonValue& value, Errors& errors) {
  std::string ignored;
  return ParseInner(value, ignored, errors);
}

TextPtr ParseElement(const JsonValue& value, Errors& errors) {
  std::string text;
  return ParseInner(value, text, errors) ? std::make_shared<const std::string>(text) : nullptr;
}

std::pair<std::string, TextPtr> ParseEntry(const JsonValue& value, Errors& errors) {
  auto text = ParseElement(value, errors);
  if (!text) return {};
  JsonMember<std::string> key(value, "c", errors);
  if (!key.Ok()) return {};
  return {key.Take(), std::move(text)};
}

std::string ValueText(const std::string& value) {
  return Quoted(value);
}

std::string ValueText(const boost::optional<std::string>& value) {
  return Quoted(value);
}

std::string ValueText(const GenericType& value) {
  return Testing::EnumText(value);
}

std::string ValueText(const TextList& values) {
  std::string text;
  for (const auto& value : values) text += Quoted(*value) + ";";
  return text;
}

std::string ValueText(const TextMap& values) {
  std::string text;
  for (const auto& [key, value] : values) text += Quoted(key) + "=" + Quoted(*value) + ";";
  return text;
}

/// What a helper returns, in the oracle's words.
std::string Text(bool ok, const std::string& value, const Errors& errors) {
  return Fuzzing::OutcomeText(ok, value, Testing::MessageTexts(errors));
}

template <typename Member, typename... Parse>
std::string Bind(const JsonValue& document, const Parse&... parse) {
  Errors errors;
  const Member member(document, "a", parse..., errors);
  return Text(member.Ok(), ValueText(member.Value()), errors);
}

/// The same for the helpers that keep no value.
template <typename Member>
std::string BindNothing(const JsonValue& document) {
  Errors errors;
  const Member member(document, "a", CheckInner, errors);
  return Text(member.Ok(), "", errors);
}

struct Helper {
  const char* name;
  std::string (*bind)(const JsonValue&);
  std::string (*expect)(const rapidjson::Value&);
};

constexpr auto kRequired = true;
constexpr auto kOptional = false;

const Helper kHelpers[] = {
    {"JsonMember<std::string>",
     [](const JsonValue& document) { return Bind<JsonMember<std::string>>(document); },
     Oracle::String},
    {"JsonMember<GenericType>",
     [](const JsonValue& document) { return Bind<JsonMember<GenericType>>(document); },
     Oracle::Enum},
    {"JsonMember<GenericType, ParseAliased>",
     [](const JsonValue& document) {
       return Bind<JsonMember<GenericType, ParseAliased>>(document);
     },
     Oracle::AliasedEnum},
    {"JsonOptMember<boost::optional<std::string>>",
     [](const JsonValue& document) {
       return Bind<JsonOptMember<boost::optional<std::string>>>(document);
     },
     Oracle::OptString},
    {"JsonObjectMember<std::string>",
     [](const JsonValue& document) {
       return Bind<JsonObjectMember<std::string>>(document, ParseInner);
     },
     Oracle::Object<kRequired>},
    {"JsonOptObjectMember<std::string>",
     [](const JsonValue& document) {
       return Bind<JsonOptObjectMember<std::string>>(document, ParseInner);
     },
     Oracle::Object<kOptional>},
    {"JsonObjectMember<void>",
     [](const JsonValue& document) { return BindNothing<JsonObjectMember<void>>(document); },
     Oracle::VoidObject<kRequired>},
    {"JsonOptObjectMember<void>",
     [](const JsonValue& document) { return BindNothing<JsonOptObjectMember<void>>(document); },
     Oracle::VoidObject<kOptional>},
    {"JsonArrayMember<TextList>",
     [](const JsonValue& document) {
       return Bind<JsonArrayMember<TextList>>(document, ParseElement);
     },
     Oracle::List<kRequired>},
    {"JsonOptArrayMember<TextList>",
     [](const JsonValue& document) {
       return Bind<JsonOptArrayMember<TextList>>(document, ParseElement);
     },
     Oracle::List<kOptional>},
    {"JsonArrayMember<TextMap>",
     [](const JsonValue& document) { return Bind<JsonArrayMember<TextMap>>(document, ParseEntry); },
     Oracle::Map<kRequired>},
    {"JsonOptArrayMember<TextMap>",
     [](const JsonValue& document) {
       return Bind<JsonOptArrayMember<TextMap>>(document, ParseEntry);
     },
     Oracle::Map<kOptional>},
};

/// The document as the library parses it and as RapidJSON does by default are one.
void CheckDocuments(const JsonValue& ours, const rapidjson::Document& default_mode,
                    const Testing::Lines& messages) {
  if (default_mode.HasParseError()) {
    Fuzzing::CheckSame(
        Fuzzing::OutcomeText(false, "", messages),
        Fuzzing::OutcomeText(
            false, "",
            {Testing::MessageText("id", {std::to_string(default_mode.GetParseError()),
                                         std::to_string(default_mode.GetErrorOffset())})}),
        "a syntax error is reported as it is");
  } else {
    Fuzzing::CheckSame(Fuzzing::OutcomeText(true, "", messages), Fuzzing::OutcomeText(true, "", {}),
                       "good syntax is not refused");
    Fuzzing::CheckSame(Testing::JsonText(ours), Testing::JsonText(default_mode),
                       "both ways to parse see one document");
  }
}

void CheckHelper(const Helper& helper, std::string_view text) {
  JsonDocument document{TextBuffer(text)};
  Errors errors;
  const bool parsed = document.Parse("id", errors);
  Fuzzing::Check(parsed == errors.empty(), "a text is refused with a message, or read without");
  const std::string bound = parsed ? helper.bind(document.Root()) : "";
  if (!Fuzzing::CanAskDefaultMode(text)) return;
  rapidjson::Document default_mode;
  Fuzzing::ParseInDefaultMode(text, default_mode);
  CheckDocuments(document.Root(), default_mode, Testing::MessageTexts(errors));
  if (parsed) Fuzzing::CheckSame(bound, helper.expect(default_mode), helper.name);
}

}  // namespace
}  // namespace Zelk::Provider::Metadata

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using Zelk::Provider::Metadata::kHelpers;
  if (size == 0) return 0;
  const auto selected = static_cast<std::uint8_t>(data[0] - 'A') % std::size(kHelpers);
  Zelk::Provider::Metadata::CheckHelper(kHelpers[selected],
                                        Zelk::Fuzzing::TextOf(data + 1, size - 1));
  return 0;
}
