#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <tuple>

#include "analysis/document.h"

namespace Zelk::Analysis {

enum class Domain : std::uint8_t { kMetamodel, kAuthentication, kCli };

inline constexpr std::array<Domain, 3> kDomains{Domain::kMetamodel, Domain::kAuthentication,
                                                Domain::kCli};

/// A set of domains.
using DomainSet = std::uint8_t;

constexpr DomainSet SetOf(Domain domain) {
  return static_cast<DomainSet>(1U << static_cast<unsigned>(domain));
}

/// What the formats are made of. Metamodel and Authentication share kComponent.
enum class ElementKind : std::uint8_t {
  kNone,
  kComponent,
  kPackage,
  kService,
  kOperation,
  kParameter,
  kResult,
  kError,
  kStructure,
  kField,
  kEnumeration,
  kValue,
  kConstant,
  kAnnotation,
  // Authentication
  kScheme,
  kPackageList,
  kServiceList,
  kOperationList,
  kEntry,
  // CLI
  kNamespace,
  kCommand,
  kOption,
  kOutput,
  kOutputField,
};

using ElementId = std::uint32_t;

inline constexpr ElementId kNoElement = 0xffffffff;

/// Whether and how the library answers an element.
enum class Fate : std::uint8_t {
  /// It is in the answers: in those to a lookup of its name if its kind can be looked up, otherwise
  /// in those of the element that it is a part of.
  kFound,
  /// An earlier element of the same name is kept in its place: `by`.
  kDropped,
  /// A later element of the same name is kept in its place: `by`.
  kOverridden,
  /// It is kept and listed, but lookups of its name, or of that of the element that it is a part
  /// of, return `by`.
  kShadowed,
  /// The library leaves it out: its part of the file is broken, or its id leads to no package.
  kIgnored,
  /// The element that it is a part of is not answered: `by` is that element.
  kLost,
};

/// One element of one source.
struct Element {
  ElementKind kind;
  Fate fate = Fate::kFound;
  /// Not written in the file but made by the library. `node` is then that of the first element that
  /// it was made for.
  bool is_implied = false;
  /// The position of its source in the model.
  std::uint32_t source = 0;
  NodeId node = kNoNode;
  /// The element in whose text it is; kNoElement for the outermost ones.
  ElementId parent = kNoElement;
  /// The element in whose record the library answers it. Mostly the parent; in Authentication the
  /// package of a service and the service of an operation, in CLI the parent namespace.
  ElementId owner = kNoElement;
  /// See Fate.
  ElementId by = kNoElement;
  /// Of an entry of a list, its scheme.
  ElementId target = kNoElement;
  /// As written in the file. The name of a result is "result".
  std::string_view name;
  /// Of namespaces and commands, what their full name begins with.
  std::string_view path;
};

/// Whether the library answers the element, or keeps it where another one is answered first.
inline bool IsKept(const Element& element) {
  return element.fate == Fate::kFound || element.fate == Fate::kShadowed;
}

/// What lookups find an element by.
using LookupKey = std::tuple<ElementKind, std::string_view, std::string_view>;

inline LookupKey KeyOf(const Element& element) {
  return {element.kind, element.path, element.name};
}

/// What people call the kind, in one word.
const char* Word(ElementKind kind);

/// The key under which elements of the kind have their name; null for those that are named by the
/// key of a member, by their own text, or not at all.
const char* NameKey(ElementKind kind);

}  // namespace Zelk::Analysis
