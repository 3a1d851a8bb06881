#include "stateful/model_reader.h"

#include <cstddef>

#include "stateful/model_messages.h"

namespace Zelk::Fuzzing {
namespace {

std::string UpToZero(const std::string& text) {
  return text.substr(0, text.find('\0'));
}

}  // namespace

void ModelReader::Say(const std::string& id, const std::list<std::string>& arguments) {
  messages_.push_back(Message(id, arguments));
}

void ModelReader::GiveUp(const std::string& id, const std::list<std::string>& arguments) {
  Say(id, arguments);
  throw GivenUp();
}

const Json* ModelReader::Find(const Json& object, const std::string& key) {
  if (object.kind != Json::Kind::kObject) return nullptr;
  for (std::size_t index = 0; index < object.keys.size(); ++index) {
    if (UpToZero(object.keys[index]) == key) return &object.elements[index];
  }
  return nullptr;
}

const Json* ModelReader::FindAloud(const Json& object, const std::string& key) {
  const Json* value = Find(object, key);
  if (value == nullptr) Say("zelk.metadata.json.missing.field", {key});
  return value;
}

const Json& ModelReader::Required(const Json& object, const std::string& key, Json::Kind kind) {
  const Json* value = Optional(object, key, kind);
  if (value == nullptr) throw GivenUp();
  return *value;
}

const Json* ModelReader::Optional(const Json& object, const std::string& key, Json::Kind kind) {
  const Json* value = FindAloud(object, key);
  if (value != nullptr && value->kind != kind) {
    GiveUp("zelk.metadata.json.invalid.field", {key});
  }
  return value;
}

std::string ModelReader::Text(const Json& object, const std::string& key) {
  return Required(object, key, Json::Kind::kString).text;
}

boost::optional<std::string> ModelReader::OptionalText(const Json& object, const std::string& key) {
  const Json* value = Optional(object, key, Json::Kind::kString);
  if (value == nullptr) return boost::none;
  return value->text;
}

const std::vector<Json>& ModelReader::Elements(const Json& object, const std::string& key) {
  return Required(object, key, Json::Kind::kArray).elements;
}

std::string ModelReader::Enumerator(const Json& object, const std::string& key,
                                    const Enumerators& known, const std::string& alias,
                                    const std::string& alias_of) {
  const std::string text = Upper(Text(object, key));
  if (!alias.empty() && text == alias) return alias_of;
  if (!Contains(known, text)) GiveUp("zelk.metadata.json.invalid.enum.value", {key});
  return text;
}

std::string Upper(std::string text) {
  for (auto& character : text) {
    if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 'a' + 'A');
  }
  return text;
}

bool Contains(const Enumerators& texts, const std::string& text) {
  for (const auto& known : texts) {
    if (known == text) return true;
  }
  return false;
}

}  // namespace Zelk::Fuzzing
