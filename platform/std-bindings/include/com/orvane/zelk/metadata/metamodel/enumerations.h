#pragma once

#include <com/orvane/zelk/export.h>
#include <zelk/enum.h>

namespace Com::Orvane::Zelk::Metadata::Metamodel {

namespace TypeEnumerations {

/// The category of a Type; it decides which of its members is set.
class ZELK_STD_BINDINGS_EXPORT Category : public ::Zelk::GeneratedEnum<Category> {
 public:
  enum Enumerator { BUILTIN, USER_DEFINED, GENERIC, UNKNOWN };

  struct ZELK_STD_BINDINGS_EXPORT Strings {
    static const char* const values[];
  };

  Category() : GeneratedEnum(UNKNOWN) {}

  Category(Enumerator value) : GeneratedEnum(value) {}  // NOLINT(google-explicit-constructor)
};

/// The types that need no definition.
class ZELK_STD_BINDINGS_EXPORT BuiltinType : public ::Zelk::GeneratedEnum<BuiltinType> {
 public:
  enum Enumerator {
    VOID,
    BOOLEAN,
    LONG,
    DOUBLE,
    STRING,
    BINARY,
    SECRET,
    DATE_TIME,
    ID,
    URI,
    ANY_ERROR,
    DYNAMIC_STRUCTURE,
    OPAQUE,
    UNKNOWN
  };

  struct ZELK_STD_BINDINGS_EXPORT Strings {
    static const char* const values[];
  };

  BuiltinType() : GeneratedEnum(UNKNOWN) {}

  BuiltinType(Enumerator value) : GeneratedEnum(value) {}  // NOLINT(google-explicit-constructor)
};

}  // namespace TypeEnumerations

namespace GenericInstantiationEnumerations {

/// The generic types. MAP has a key and a value type, the others have one element type.
class ZELK_STD_BINDINGS_EXPORT GenericType : public ::Zelk::GeneratedEnum<GenericType> {
 public:
  enum Enumerator { LIST, MAP, OPTIONAL, SET, UNKNOWN };

  struct ZELK_STD_BINDINGS_EXPORT Strings {
    static const char* const values[];
  };

  GenericType() : GeneratedEnum(UNKNOWN) {}

  GenericType(Enumerator value) : GeneratedEnum(value) {}  // NOLINT(google-explicit-constructor)
};

}  // namespace GenericInstantiationEnumerations

namespace StructureInfoEnumerations {

/// Whether a structure is data or an error that operations report.
class ZELK_STD_BINDINGS_EXPORT Type : public ::Zelk::GeneratedEnum<Type> {
 public:
  enum Enumerator { STRUCTURE, ERROR, UNKNOWN };

  struct ZELK_STD_BINDINGS_EXPORT Strings {
    static const char* const values[];
  };

  Type() : GeneratedEnum(UNKNOWN) {}

  Type(Enumerator value) : GeneratedEnum(value) {}  // NOLINT(google-explicit-constructor)
};

}  // namespace StructureInfoEnumerations

namespace ConstantValueEnumerations {

/// Whether a constant is one value or a list of values.
class ZELK_STD_BINDINGS_EXPORT Category : public ::Zelk::GeneratedEnum<Category> {
 public:
  enum Enumerator { PRIMITIVE, LIST, UNKNOWN };

  struct ZELK_STD_BINDINGS_EXPORT Strings {
    static const char* const values[];
  };

  Category() : GeneratedEnum(UNKNOWN) {}

  Category(Enumerator value) : GeneratedEnum(value) {}  // NOLINT(google-explicit-constructor)
};

}  // namespace ConstantValueEnumerations

namespace PrimitiveValueEnumerations {

/// The types that a single constant value can have.
class ZELK_STD_BINDINGS_EXPORT Type : public ::Zelk::GeneratedEnum<Type> {
 public:
  enum Enumerator { BOOLEAN, DOUBLE, LONG, STRING, UNKNOWN };

  struct ZELK_STD_BINDINGS_EXPORT Strings {
    static const char* const values[];
  };

  Type() : GeneratedEnum(UNKNOWN) {}

  Type(Enumerator value) : GeneratedEnum(value) {}  // NOLINT(google-explicit-constructor)
};

}  // namespace PrimitiveValueEnumerations

namespace ElementValueEnumerations {

/// The type of an ElementValue; it decides which of its members is set.
class ZELK_STD_BINDINGS_EXPORT Type : public ::Zelk::GeneratedEnum<Type> {
 public:
  enum Enumerator {
    LONG,
    STRING,
    STRING_LIST,
    STRUCTURE_REFERENCE,
    STRUCTURE_REFERENCE_LIST,
    UNKNOWN
  };

  struct ZELK_STD_BINDINGS_EXPORT Strings {
    static const char* const values[];
  };

  Type() : GeneratedEnum(UNKNOWN) {}

  Type(Enumerator value) : GeneratedEnum(value) {}  // NOLINT(google-explicit-constructor)
};

}  // namespace ElementValueEnumerations

}  // namespace Com::Orvane::Zelk::Metadata::Metamodel
