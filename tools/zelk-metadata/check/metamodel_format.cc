#include <vector>

#include <com/orvane/zelk/metadata/metamodel/enumerations.h>

#include "check/formats.h"

namespace Zelk::Tool {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

using BuiltinType = Bindings::Metamodel::TypeEnumerations::BuiltinType;
using Category = Bindings::Metamodel::TypeEnumerations::Category;
using ConstantCategory = Bindings::Metamodel::ConstantValueEnumerations::Category;
using GenericType = Bindings::Metamodel::GenericInstantiationEnumerations::GenericType;
using StructureType = Bindings::Metamodel::StructureInfoEnumerations::Type;

// --- annotations --------------------------------------------------------------------------------

constexpr char kElementValue[] = "ElementValue";

bool AnnotationText(Walk& walk, JsonTree::Id value, const char* /*name*/) {
  return Text(walk, value, kElementValue);
}

/// A string or an array of strings.
bool AnnotationElement(Walk& walk, JsonTree::Id value) {
  if (walk.tree[value].kind == JsonKind::kString) return true;
  return ArrayOf<AnnotationText>(walk, value, kElementValue);
}

bool Annotation(Walk& walk, JsonTree::Id value) {
  if (!walk.IsOf(value, JsonKind::kObject, kElementValue)) return false;
  for (auto id = walk.tree[value].first_child; id != JsonTree::kNone; id = walk.tree[id].next) {
    if (!AnnotationElement(walk, id)) return false;
  }
  return true;
}

bool Annotations(Walk& walk, JsonTree::Id value, const char* name) {
  if (!walk.IsOf(value, JsonKind::kObject, name)) return false;
  for (auto id = walk.tree[value].first_child; id != JsonTree::kNone; id = walk.tree[id].next) {
    if (!Annotation(walk, id)) return false;
  }
  return true;
}

// --- types --------------------------------------------------------------------------------------

constexpr char kPrimitive[] = "PRIMITIVE";
constexpr char kException[] = "EXCEPTION";

constexpr Key kCategory[] = {{"category", Enumeration<Category, kPrimitive>}};
constexpr Key kBuiltin[] = {{"primitive_type", Enumeration<BuiltinType, kException>}};
constexpr Key kUserDefined[] = {{"user_defined_type", Text}, {"user_defined_type_name", Text}};
constexpr Key kGeneric[] = {{"generic_type", Enumeration<GenericType>}};

/// Reads a type and all that nest in it. The parts that are still to be read wait on a stack of
/// their own: files nest deeper than a thread's stack would bear.
class TypeWalk {
 public:
  explicit TypeWalk(Walk& walk) : walk_(walk) {}

  bool Read(JsonTree::Id type, const char* name) {
    waiting_.push_back({type, name, true});
    while (!waiting_.empty()) {
      const Part part = waiting_.back();
      waiting_.pop_back();
      if (!ReadPart(part)) return false;
    }
    return true;
  }

 private:
  struct Part {
    /// The part itself, or the object that must have it.
    JsonTree::Id value;
    const char* name;
    bool is_found;
  };

  bool ReadPart(const Part& part) {
    const JsonTree::Id type = part.is_found ? part.value : walk_.Require(part.value, part.name);
    if (type == JsonTree::kNone || !walk_.IsOf(type, JsonKind::kObject, part.name)) return false;
    if (!ReadKeys(walk_, type, kCategory)) return false;
    switch (EnumeratorOf<Category>(TextOf(type, "category"))) {
      case Category::GENERIC:
        return ReadGeneric(type);
      case Category::USER_DEFINED:
        return ReadKeys(walk_, type, kUserDefined);
      default:
        return ReadKeys(walk_, type, kBuiltin);
    }
  }

  bool ReadGeneric(JsonTree::Id type) {
    if (!ReadKeys(walk_, type, kGeneric)) return false;
    if (EnumeratorOf<GenericType>(TextOf(type, "generic_type")) == GenericType::MAP) {
      waiting_.push_back({type, "map_value_type", false});
      waiting_.push_back({type, "map_key_type", false});
    } else {
      waiting_.push_back({type, "element_type", false});
    }
    return true;
  }

  const std::string& TextOf(JsonTree::Id object, const char* name) const {
    return walk_.tree[walk_.tree.Find(object, name)].text;
  }

  Walk& walk_;
  std::vector<Part> waiting_;
};

bool Type(Walk& walk, JsonTree::Id value, const char* name) {
  return TypeWalk(walk).Read(value, name);
}

// --- constants ----------------------------------------------------------------------------------

constexpr Key kConstantType[] = {
    {"category", Enumeration<ConstantCategory>},
    {"type", Enumeration<BuiltinType>},
};

constexpr Key kConstantKeys[] = {
    {"name", Text},
    {"documentation", Text},
    {"type", Object<kConstantType>},
    {"value", Anything},
};

/// Only the value of a string constant is looked at, and a bad one costs no more than itself.
bool Constant(Walk& walk, JsonTree::Id constant, const char* /*name*/) {
  if (!ReadKeys(walk, constant, kConstantKeys)) return false;
  const JsonTree& tree = walk.tree;
  const JsonTree::Id type = tree.Find(constant, "type");
  const bool is_string =
      EnumeratorOf<ConstantCategory>(tree[tree.Find(type, "category")].text) ==
          ConstantCategory::PRIMITIVE &&
      EnumeratorOf<BuiltinType>(tree[tree.Find(type, "type")].text) == BuiltinType::STRING;
  if (is_string && !Text(walk, tree.Find(constant, "value"), "value")) walk.WentOn();
  return true;
}

// --- the document -------------------------------------------------------------------------------

constexpr Key kEnumerationValue[] = {
    {"name", Text},
    {"documentation", Text},
    {"metadata", Annotations},
};

constexpr Key kEnumeration[] = {
    {"name", Text},
    {"documentation", Text},
    {"metadata", Annotations},
    {"values", kList<kEnumerationValue>},
};

constexpr Key kField[] = {
    {"name", Text},
    {"documentation", Text},
    {"metadata", Annotations},
    {"type", Type},
};

constexpr Key kStructure[] = {
    {"name", Text},
    {"type", Enumeration<StructureType>},
    {"documentation", Text},
    {"metadata", Annotations},
    {"enumerations", kList<kEnumeration>},
    {"constants", ArrayOf<Constant>},
    {"fields", kList<kField>},
};

constexpr Key kResult[] = {
    {"documentation", Text},
    {"metadata", Annotations},
    {"type", Type},
};

constexpr Key kError[] = {
    {"user_defined_type_name", Text},
    {"documentation", Text},
};

constexpr Key kOperation[] = {
    {"name", Text},
    {"documentation", Text},
    {"metadata", Annotations},
    {"params", kList<kField>},
    {"result", Object<kResult>},
    {"errors", kList<kError>},
};

constexpr Key kService[] = {
    {"name", Text},
    {"documentation", Text},
    {"metadata", Annotations},
    {"enumerations", kList<kEnumeration>},
    {"structures", kList<kStructure>},
    {"constants", ArrayOf<Constant>},
    {"operations", kList<kOperation>},
};

constexpr Key kPackage[] = {
    {"name", Text},
    {"documentation", Text},
    {"metadata", Annotations},
    {"enumerations", kList<kEnumeration>},
    {"structures", kList<kStructure>},
    {"services", kList<kService>},
};

constexpr Key kComponent[] = {
    {"name", Text},
    {"documentation", Text},
    {"metadata", Annotations},
    {"packages", kList<kPackage>},
};

constexpr Key kMetamodel[] = {{"component", Object<kComponent>}};
constexpr Key kDocument[] = {{"metamodel", Object<kMetamodel>}};

}  // namespace

bool WalkMetamodel(Walk& walk) {
  return ReadKeys(walk, JsonTree::kRoot, kDocument);
}

}  // namespace Zelk::Tool
