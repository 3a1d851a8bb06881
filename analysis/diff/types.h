#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "analysis/definitions.h"
#include "analysis/diff/kind.h"

// What changes of types mean.

namespace Zelk::Analysis::Diff {

class Shapes;

/// What a change of one level of a type into another means on the wire. The words are those of
/// built-in and generic types, or "structure", "enumeration", "other" or "anything".
struct TypeVerdict {
  const char* old_type;
  const char* new_type;
  Class input;
  Class output;
};

/// The first row for both words decides.
extern const Rows<TypeVerdict> kTypeVerdicts;

/// The type of an element.
struct TypeOf {
  const Document& document;
  NodeId node;
  const Definitions& definitions;
  const Shapes& shapes;
};

/// What the change of a type means.
struct TypeChange {
  enum Form : std::uint8_t {
    kNone,
    /// Nothing else changed than that no value became one of the values.
    kBecameOptional,
    kBecameRequired,
    kOther,
  };

  Form form = kNone;
  Class input = Class::kNotConcerned;
  Class output = Class::kNotConcerned;
  /// Whether it names a definition of another name that is made of the same parts.
  bool is_renamed = false;
};

TypeChange CompareTypes(const TypeOf& old_type, const TypeOf& new_type);

/// What a user-defined type says that its name is: "structure", "enumeration", or as it is written.
std::string_view KindText(const Document& document, const TypeLevel& level);

enum class Names : std::uint8_t { kAlone, kWithKinds };

/// Such as "MAP<STRING, LIST<c.p.spec>>", or with kinds "MAP<STRING, LIST<structure c.p.spec>>".
std::string TypeText(const Document& document, NodeId type, Names names = Names::kAlone);

}  // namespace Zelk::Analysis::Diff
