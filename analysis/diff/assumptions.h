#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "analysis/diff/kind.h"

namespace Zelk::Analysis::Diff {

/// What the formats do not fix, but verdicts depend on.
struct Assumptions {
  enum class Parameters : std::uint8_t { kNamed, kPositional };
  enum class UnknownFields : std::uint8_t { kIgnored, kRefused };
  enum class Enumerations : std::uint8_t { kClosed, kOpen };
  enum class EnumerationForm : std::uint8_t { kOrdinal, kText };
  enum class Schemes : std::uint8_t { kAny, kAll };
  enum class Inheritance : std::uint8_t { kNone, kNearest };

  /// How parameters and fields are told apart on the wire.
  Parameters parameters = Parameters::kNamed;
  UnknownFields unknown_fields = UnknownFields::kIgnored;
  /// Whether callers stop at a value that they do not know.
  Enumerations enumerations = Enumerations::kClosed;
  /// Whether values are sent as their positions, as generated enumerations count them.
  EnumerationForm enumeration_form = EnumerationForm::kOrdinal;
  /// How many of the schemes of a list a caller needs.
  Schemes schemes = Schemes::kAny;
  /// Whether an operation without schemes of its own has those of its service, and a service those
  /// of its package.
  Inheritance inheritance = Inheritance::kNone;
  /// Annotations that say that an element will be removed.
  std::set<std::string, std::less<>> deprecated = {"Deprecated"};
  /// What a change of an annotation means for programs that ask the metadata services, by its name.
  std::map<std::string, Class, std::less<>> annotations = {{"Deprecated", Class::kDocumentation}};
};

}  // namespace Zelk::Analysis::Diff
