#pragma once

#include <string>
#include <vector>

#include "analysis/format.h"
#include "analysis/schema/json.h"
#include "analysis/schema/schema.h"

namespace Zelk::Analysis::Schema {

/// The objects of the tables as definitions, which refer to each other. So nothing recurses deeper
/// than the variants of one object.
class Definitions {
 public:
  Definitions(Json& json, Kind kind, Draft draft) : json_(json), kind_(kind), draft_(draft) {}

  /// Writes "$ref" to the definition of the object of `form`. `format` begins its name.
  void Refer(const ValueForm& form, const char* format);

  /// Writes all definitions that were referred to, as a member.
  void Write();

 private:
  struct Definition {
    const ValueForm* form;
    const char* format;
  };

  /// Keys that were read earlier in an object with variants.
  using Keys = std::vector<const KeyForm*>;

  bool IsStrict() const { return kind_ == Kind::kStrict; }

  void Members(const ObjectForm& object, const Keys& earlier);
  void Properties(const ObjectForm& object, const Keys& earlier);
  void Required(const ObjectForm& object);
  void Variants(const ObjectForm& object, Keys earlier);
  void Condition(const ObjectForm& object, const std::vector<std::string_view>& texts);
  void SeparateParts(const ObjectForm& object);
  void ConstantValues();
  void ConstantValue(const char* category, const char* type, const char* value_type);

  void KeyValue(const ObjectForm& object, const KeyForm& key);
  void Value(const ValueForm& form);
  void Each(const char* key, const ValueForm& form);
  void AnyText(const ValueForm& form);
  void StyleOf(const ValueForm& form);
  void NamesOf(const ValueForm& map);
  void Word(const Words& words);
  void Constants(const Words& words);

  Json& json_;
  const Kind kind_;
  const Draft draft_;
  std::vector<Definition> definitions_;
  /// Of the definition that is being written.
  const char* format_ = nullptr;
};

}  // namespace Zelk::Analysis::Schema
