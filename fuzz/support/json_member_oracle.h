#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include <rapidjson/document.h>

#include "support/message_texts.h"
#include "support/record_text.h"

// The expected results of the member helpers, computed independently: plain loops over RapidJSON's
// values, none of the library's binding code, and texts in place of values.

namespace Zelk::Fuzzing {

using Testing::Lines;

inline std::string OutcomeText(bool ok, const std::string& value, const Lines& messages) {
  std::string text = (ok ? "ok " : "failed ") + value;
  for (const auto& message : messages) text += "\n" + Testing::Quoted(message);
  return text;
}

class Oracle {
 public:
  static std::string String(const rapidjson::Value& document) {
    Lines messages;
    std::string text;
    const bool ok = ReadString(document, "a", text, messages);
    return OutcomeText(ok, Testing::Quoted(text), messages);
  }

  static std::string OptString(const rapidjson::Value& document) {
    if (Member(document, "a") == nullptr) {
      return OutcomeText(true, "none", {Testing::MissingField("a")});
    }
    Lines messages;
    std::string text;
    const bool ok = ReadString(document, "a", text, messages);
    return OutcomeText(ok, ok ? Testing::Quoted(text) : "none", messages);
  }

  static std::string Enum(const rapidjson::Value& document) { return EnumOr(document, ""); }

  static std::string AliasedEnum(const rapidjson::Value& document) {
    return EnumOr(document, "ALIAS");
  }

  template <bool kRequired>
  static std::string Object(const rapidjson::Value& document) {
    Lines messages;
    std::string text;
    const bool ok = ReadObject(document, kRequired, text, messages);
    return OutcomeText(ok, Testing::Quoted(text), messages);
  }

  template <bool kRequired>
  static std::string VoidObject(const rapidjson::Value& document) {
    Lines messages;
    std::string text;
    const bool ok = ReadObject(document, kRequired, text, messages);
    return OutcomeText(ok, "", messages);
  }

  template <bool kRequired>
  static std::string List(const rapidjson::Value& document) {
    const rapidjson::Value* array = Member(document, "a");
    if (array == nullptr) return OutcomeText(!kRequired, "", {Testing::MissingField("a")});
    if (!array->IsArray()) return OutcomeText(false, "", {Testing::InvalidField("a")});
    Lines messages;
    std::string texts;
    for (rapidjson::SizeType i = 0; i < array->Size(); ++i) {
      std::string text;
      if (!ReadString((*array)[i], "b", text, messages)) return OutcomeText(false, texts, messages);
      texts += Testing::Quoted(text) + ";";
    }
    return OutcomeText(true, texts, messages);
  }

  template <bool kRequired>
  static std::string Map(const rapidjson::Value& document) {
    const rapidjson::Value* array = Member(document, "a");
    if (array == nullptr) return OutcomeText(!kRequired, "", {Testing::MissingField("a")});
    if (!array->IsArray()) return OutcomeText(false, "", {Testing::InvalidField("a")});
    Lines messages;
    std::map<std::string, std::string> first_texts;
    bool ok = true;
    for (rapidjson::SizeType i = 0; i < array->Size() && ok; ++i) {
      std::string text;
      std::string key;
      ok = ReadString((*array)[i], "b", text, messages) &&
           ReadString((*array)[i], "c", key, messages);
      if (ok && first_texts.count(key) == 0) first_texts[key] = text;
    }
    std::string texts;
    for (const auto& [key, text] : first_texts) {
      texts += Testing::Quoted(key) + "=" + Testing::Quoted(text) + ";";
    }
    return OutcomeText(ok, texts, messages);
  }

 private:
  /// The first member whose name, up to a zero byte in it, is `name`.
  static const rapidjson::Value* Member(const rapidjson::Value& object, const std::string& name) {
    if (!object.IsObject()) return nullptr;
    for (auto member = object.MemberBegin(); member != object.MemberEnd(); ++member) {
      const std::string whole(member->name.GetString(), member->name.GetStringLength());
      if (whole.substr(0, whole.find('\0')) == name) return &member->value;
    }
    return nullptr;
  }

  static bool ReadString(const rapidjson::Value& object, const std::string& name, std::string& text,
                         Lines& messages) {
    const rapidjson::Value* value = Member(object, name);
    if (value == nullptr) {
      messages.push_back(Testing::MissingField(name));
      return false;
    }
    if (!value->IsString()) {
      messages.push_back(Testing::InvalidField(name));
      return false;
    }
    text = std::string(value->GetString(), value->GetStringLength());
    return true;
  }

  static bool ReadObject(const rapidjson::Value& document, bool required, std::string& text,
                         Lines& messages) {
    const rapidjson::Value* object = Member(document, "a");
    if (object == nullptr) {
      messages.push_back(Testing::MissingField("a"));
      return !required;
    }
    if (!object->IsObject()) {
      messages.push_back(Testing::InvalidField("a"));
      return false;
    }
    return ReadString(*object, "b", text, messages);
  }

  /// The alias means SET; none when it is empty.
  static std::string EnumOr(const rapidjson::Value& document, const std::string& alias) {
    Lines messages;
    std::string text;
    if (!ReadString(document, "a", text, messages)) {
      return OutcomeText(false, "UNKNOWN \"\"", messages);
    }
    for (char& character : text) {
      if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 32);
    }
    for (const std::string known : {"LIST", "MAP", "OPTIONAL", "SET"}) {
      if (text == known) return OutcomeText(true, known, messages);
    }
    if (!alias.empty() && text == alias) return OutcomeText(true, "SET", messages);
    messages.push_back(Testing::InvalidEnumValue("a"));
    return OutcomeText(false, "UNKNOWN " + Testing::Quoted(text), messages);
  }
};

}  // namespace Zelk::Fuzzing
