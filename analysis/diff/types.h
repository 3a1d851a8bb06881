#pragma once

#include <string>

#include "analysis/definitions.h"
#include "analysis/diff/kind.h"

// What changes of types mean.

namespace Zelk::Analysis::Diff {

class Shapes;

/// What a change of one level of a type into another means on the wire. The words are those of
/// built-in and generic types, or "structure", "enumeration" or "anything".
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

/// Such as "MAP<STRING, LIST<c.p.spec>>".
std::string TypeText(const Document& document, NodeId type);

}  // namespace Zelk::Analysis::Diff
