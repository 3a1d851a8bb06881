#include "analysis/schema/definitions.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace Zelk::Analysis::Schema {
namespace {

/// The pattern of a style; null if it has none.
const char* PatternOf(Style style) {
  switch (style) {
    case Style::kSimpleName:
      return R"(^[^.\s]+$)";
    case Style::kSimpleNameOrEmpty:
      return R"(^[^.\s]*$)";
    case Style::kFullName:
      return R"(^[^.\s]+(\.[^.\s]+)*$)";
    case Style::kPath:
      return R"(^([^.\s]+(\.[^.\s]+)*)?$)";
    case Style::kServiceId:
    case Style::kWordOrFullName:
      return R"(^[^.\s]+(\.[^.\s]+)+$)";
    case Style::kOperationId:
      return R"(^[^.\s]+(\.[^.\s]+){2,}$)";
    case Style::kAny:
    case Style::kNotEmpty:
    case Style::kWord:
    case Style::kExamples:
      break;
  }
  return nullptr;
}

/// The library splits ids at the last full stop, and needs text on both sides.
constexpr char kSplitId[] = R"(^[\s\S]+\.[^.]+$)";

std::vector<std::string_view> TextsOf(const Words& words) {
  std::vector<std::string_view> texts;
  for (const char* const* text = words.texts; *text != nullptr; ++text) texts.emplace_back(*text);
  return texts;
}

/// The texts that the library takes for one of `meanings`.
std::vector<std::string_view> WithAlias(const Words& words,
                                        std::vector<std::string_view> meanings) {
  if (words.alias == nullptr) return meanings;
  if (std::find(meanings.begin(), meanings.end(), words.meaning) != meanings.end()) {
    meanings.emplace_back(words.alias);
  }
  return meanings;
}

/// A pattern of the texts in upper and lower case.
std::string AnyCase(const std::vector<std::string_view>& texts) {
  std::string pattern;
  for (const std::string_view text : texts) {
    pattern += pattern.empty() ? "^(?:" : "|";
    for (const char letter : text) {
      const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
      pattern += lower == letter ? std::string(1, letter) : std::string{'[', letter, lower, ']'};
    }
  }
  return pattern + ")$";
}

/// Whether the library takes no other text under the key than those of the variants.
bool DecidesExactly(const ObjectForm& object, const KeyForm& key) {
  return object.decided_by != nullptr && object.words == nullptr &&
         std::string_view(object.decided_by) == key.name;
}

/// The keys that follow in an object after one of several texts under the deciding key.
struct Choice {
  const ObjectForm* object;
  std::vector<std::string_view> texts;
};

/// Texts after which no key follows have a null.
std::vector<Choice> ChoicesOf(const ObjectForm& object) {
  std::vector<Choice> choices;
  const auto add = [&](const ObjectForm* next, std::string_view text) {
    const auto same = std::find_if(choices.begin(), choices.end(),
                                   [&](const Choice& choice) { return choice.object == next; });
    if (same == choices.end()) {
      choices.push_back({next, {text}});
    } else {
      same->texts.push_back(text);
    }
  };
  for (const auto& variant : object.variants) add(variant.object, variant.text);
  if (object.words == nullptr) return choices;
  for (const std::string_view text : TextsOf(*object.words)) {
    const bool has_variant = std::any_of(object.variants.begin(), object.variants.end(),
                                         [&](const auto& row) { return row.text == text; });
    if (!has_variant) add(nullptr, text);
  }
  return choices;
}

}  // namespace

void Definitions::Refer(const ValueForm& form, const char* format) {
  const bool is_known = std::any_of(
      definitions_.begin(), definitions_.end(),
      [&](const Definition& definition) { return definition.form->object == form.object; });
  if (!is_known) definitions_.push_back({&form, format});
  const std::string folder = draft_ == Draft::k7 ? "#/definitions/" : "#/$defs/";
  json_.Text("$ref", folder + format + "." + form.object->name);
}

void Definitions::Write() {
  json_.Object(draft_ == Draft::k7 ? "definitions" : "$defs", [&] {
    for (std::size_t next = 0; next < definitions_.size(); ++next) {
      const ValueForm& form = *definitions_[next].form;
      format_ = definitions_[next].format;
      json_.Object(std::string(format_) + "." + form.object->name, [&] {
        Members(*form.object, {});
        if (IsStrict() && form.rule == Rule::kConstant) ConstantValues();
      });
    }
  });
}

void Definitions::Members(const ObjectForm& object, const Keys& earlier) {
  json_.Text("type", "object");
  Properties(object, earlier);
  Required(object);
  SeparateParts(object);
  if (object.decided_by != nullptr) {
    Variants(object, earlier);
  } else if (IsStrict()) {
    json_.Object("patternProperties", [&] { json_.Bool("^\\$", true); });
    json_.Bool("additionalProperties", false);
  }
}

void Definitions::Properties(const ObjectForm& object, const Keys& earlier) {
  json_.Object("properties", [&] {
    for (const KeyForm* key : earlier) json_.Bool(key->name, true);
    for (const KeyForm& key : object.keys) {
      json_.Object(key.name, [&] { KeyValue(object, key); });
    }
  });
}

void Definitions::Required(const ObjectForm& object) {
  std::vector<std::string_view> names;
  for (const KeyForm& key : object.keys) {
    const bool is_advised = key.presence == KeyForm::kAdvised && IsStrict();
    if (key.presence == KeyForm::kRequired || is_advised) names.emplace_back(key.name);
  }
  if (!names.empty()) json_.Texts("required", names);
}

void Definitions::Variants(const ObjectForm& object, Keys earlier) {
  static constexpr ObjectForm kNoMoreKeys{};
  for (const KeyForm& key : object.keys) earlier.push_back(&key);
  json_.Array("allOf", [&] {
    for (const Choice& choice : ChoicesOf(object)) {
      const ObjectForm& more = choice.object == nullptr ? kNoMoreKeys : *choice.object;
      json_.Object([&] {
        json_.Object("if", [&] { Condition(object, choice.texts); });
        json_.Object("then", [&] { Members(more, earlier); });
      });
    }
  });
}

void Definitions::Condition(const ObjectForm& object, const std::vector<std::string_view>& texts) {
  json_.Object("properties", [&] {
    json_.Object(object.decided_by, [&] {
      if (IsStrict() || object.words == nullptr) {
        json_.Texts("enum", texts);
      } else {
        json_.Text("pattern", AnyCase(WithAlias(*object.words, texts)));
      }
    });
  });
  json_.Texts("required", {object.decided_by});
}

/// A file needs one good part. If the last part is absent, that is as good.
void Definitions::SeparateParts(const ObjectForm& object) {
  Keys parts;
  for (const KeyForm& key : object.keys) {
    if (key.presence == KeyForm::kSeparate) parts.push_back(&key);
  }
  if (parts.empty()) return;
  json_.Array("anyOf", [&] {
    for (const KeyForm* part : parts) {
      json_.Object([&] {
        if (IsStrict() || part != parts.back()) json_.Texts("required", {part->name});
        if (IsStrict()) return;
        json_.Object("properties",
                     [&] { json_.Object(part->name, [&] { Refer(part->value, format_); }); });
      });
    }
  });
}

void Definitions::ConstantValues() {
  json_.Array("allOf", [&] {
    ConstantValue("PRIMITIVE", "STRING", "string");
    ConstantValue("PRIMITIVE", "BOOLEAN", "boolean");
    ConstantValue("PRIMITIVE", "LONG", "integer");
    ConstantValue("PRIMITIVE", "DOUBLE", "number");
    ConstantValue("LIST", nullptr, "array");
  });
}

void Definitions::ConstantValue(const char* category, const char* type, const char* value_type) {
  const auto properties = [&](const auto& write) { json_.Object("properties", write); };
  const auto property = [&](const char* key, const char* keyword, const char* text) {
    json_.Object(key, [&] { json_.Text(keyword, text); });
  };
  const auto type_is = [&] {
    property("category", "const", category);
    if (type != nullptr) property("type", "const", type);
  };
  json_.Object([&] {
    json_.Object("if",
                 [&] { properties([&] { json_.Object("type", [&] { properties(type_is); }); }); });
    json_.Object("then", [&] { properties([&] { property("value", "type", value_type); }); });
  });
}

void Definitions::KeyValue(const ObjectForm& object, const KeyForm& key) {
  json_.Text("description", key.documentation);
  // What the library takes of these depends on the other parts.
  if (key.presence == KeyForm::kSeparate && !IsStrict()) return;
  if (DecidesExactly(object, key)) return Constants(*key.value.words);
  if (key.value.object == nullptr) return Value(key.value);
  // Draft 7 ignores what is beside a reference.
  json_.Array("allOf", [&] { json_.Object([&] { Refer(key.value, format_); }); });
}

void Definitions::Value(const ValueForm& form) {
  switch (form.form) {
    case Form::kText:
      return AnyText(form);
    case Form::kWord:
      return Word(*form.words);
    case Form::kSchemeName:
      return json_.Text("type", "string");
    case Form::kTextOrList:
      json_.Texts("type", {"string", "array"});
      return Each("items", form);
    case Form::kList:
      json_.Text("type", "array");
      return Each("items", form);
    case Form::kMembers:
      json_.Text("type", "object");
      NamesOf(form);
      return Each("additionalProperties", form);
    case Form::kObject:
    case Form::kElement:
      return Refer(form, format_);
    case Form::kAnything:
      // The only words that are not texts are true and false.
      if (form.words != nullptr) json_.Text("type", "boolean");
      break;
  }
}

void Definitions::Each(const char* key, const ValueForm& form) {
  json_.Object(key, [&] { Value(*form.each); });
}

void Definitions::NamesOf(const ValueForm& map) {
  const Rule rule = map.each->rule;
  const bool is_id = rule == Rule::kOperationId || rule == Rule::kServiceId;
  if (IsStrict()) {
    json_.Object("propertyNames", [&] { StyleOf(map); });
  } else if (is_id) {
    json_.Object("propertyNames", [&] { json_.Text("pattern", kSplitId); });
  }
  if (map.words == nullptr) return;
  json_.Object("properties", [&] {
    for (std::size_t i = 0; map.words->texts[i] != nullptr; ++i) {
      json_.Object(map.words->texts[i], [&] {
        json_.Text("description", map.words->documentation[i]);
        Value(*map.each);
      });
    }
  });
}

void Definitions::Word(const Words& words) {
  if (IsStrict()) return Constants(words);
  const std::vector<std::string_view> texts = TextsOf(words);
  json_.Text("type", "string");
  json_.Texts("examples", texts);
  json_.Text("pattern", AnyCase(WithAlias(words, texts)));
}

/// The library takes any text; authors should not write every one.
void Definitions::AnyText(const ValueForm& form) {
  if (IsStrict() && form.style == Style::kWord) return Constants(*form.words);
  json_.Text("type", "string");
  if (form.words != nullptr) json_.Texts("examples", TextsOf(*form.words));
  if (IsStrict()) StyleOf(form);
}

void Definitions::StyleOf(const ValueForm& form) {
  const char* const pattern = PatternOf(form.style);
  if (form.style == Style::kWordOrFullName) {
    json_.Array("anyOf", [&] {
      json_.Object([&] { Constants(*form.words); });
      json_.Object([&] { json_.Text("pattern", pattern); });
    });
  } else if (pattern != nullptr) {
    json_.Text("pattern", pattern);
  } else if (form.style != Style::kAny) {
    json_.Number("minLength", 1);
  }
}

void Definitions::Constants(const Words& words) {
  json_.Array("oneOf", [&] {
    for (std::size_t i = 0; words.texts[i] != nullptr; ++i) {
      json_.Object([&] {
        json_.Text("const", words.texts[i]);
        json_.Text("description", words.documentation[i]);
      });
    }
  });
}

}  // namespace Zelk::Analysis::Schema
