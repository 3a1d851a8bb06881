#include "common/json/json_lookup.h"

#include <cstring>

namespace Zelk::Provider::Metadata {
namespace {

bool HasType(const JsonValue& value, JsonType type) {
  switch (type) {
    case JsonType::kString:
      return value.IsString();
    case JsonType::kObject:
      return value.IsObject();
    case JsonType::kArray:
      break;
  }
  return value.IsArray();
}

}  // namespace

JsonMembers::JsonMembers(const JsonValue& value) {
  if (value.IsObject()) {
    begin_ = value.MemberBegin();
    end_ = value.MemberEnd();
  }
}

const JsonValue* FindMember(const JsonValue& object, const char* name) {
  for (const auto& member : JsonMembers(object)) {
    const char* const key = member.name.GetString();
    // Most other keys differ in the first byte, which saves the call.
    if (*key == *name && std::strcmp(key, name) == 0) return &member.value;
  }
  return nullptr;
}

const JsonValue* FindMember(const JsonValue& object, const char* name, Errors& errors) {
  const JsonValue* value = FindMember(object, name);
  if (value == nullptr) {
    // Constructed in place: every absent optional member adds one.
    errors.emplace_back(CatalogMessage(MessageId::kMissingField)) % name;
  }
  return value;
}

bool CheckType(const JsonValue& value, JsonType type, const char* name, Errors& errors) {
  if (HasType(value, type)) {
    return true;
  }
  errors.push_back(CatalogMessage(MessageId::kInvalidField) % name);
  return false;
}

JsonLookup LookUp(const JsonValue& object, const char* name, JsonType type, Presence presence,
                  Errors& errors) {
  const JsonValue* value = FindMember(object, name, errors);
  if (value == nullptr) {
    return {presence == Presence::kOptional, nullptr};
  }
  return {CheckType(*value, type, name, errors), value};
}

}  // namespace Zelk::Provider::Metadata
