#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "analysis/format.h"

// What a kind of change is. An area has a file with the table of its kinds, and files with what
// finds them.

namespace Zelk::Analysis::Diff {

/// What a change means for somebody, the worst last.
enum class Class : std::uint8_t {
  kNotConcerned,
  kDocumentation,
  kCompatible,
  /// The files cannot decide whether it breaks somebody, or somebody gains access.
  kDangerous,
  kBreaking,
};

enum class Audience : std::uint8_t {
  /// Programs that were built for the old version and call, or answer, the new one.
  kWire,
  /// Code that is compiled against bindings of the old version.
  kSource,
  /// Command lines, scripts, and what reads printed output.
  kCli,
  /// Who may call.
  kAuth,
  /// Programs that ask the metadata services.
  kMetadata,
};

inline constexpr std::size_t kAudiences = 5;

using AudienceSet = std::uint8_t;

constexpr AudienceSet SetOf(Audience audience) {
  return static_cast<AudienceSet>(1U << static_cast<unsigned>(audience));
}

inline constexpr AudienceSet kAllAudiences = (1U << kAudiences) - 1;

/// By Audience.
using Verdicts = std::array<Class, kAudiences>;

/// The worse of both for each audience.
inline Verdicts Worse(Verdicts left, const Verdicts& right) {
  for (std::size_t i = 0; i < kAudiences; ++i) left.at(i) = std::max(left.at(i), right.at(i));
  return left;
}

/// Which way values of a definition go.
enum class Direction : std::uint8_t {
  /// It does not matter for the change.
  kNone,
  /// From callers: it is reached from parameters.
  kInput,
  /// To callers: it is reached from results and errors.
  kOutput,
  kBoth,
  /// No operation that is loaded reaches it.
  kUnreached,
};

enum class Area : std::uint8_t { kMetamodel, kTypes, kAuthentication, kCli, kSources };

inline constexpr std::uint8_t kAreas = 5;

/// Of a change and of the one in the opposite direction, one is added and the other one removed, or
/// one is loosened and the other one tightened, or both have the same kind.
enum class Action : std::uint8_t { kAdded, kRemoved, kChanged, kLoosened, kTightened };

/// Unused ones are empty.
using ExampleFiles = std::array<std::string_view, 3>;

/// Files of two versions between which there is this change.
struct Example {
  ExampleFiles old_files;
  ExampleFiles new_files;
  /// The path of the element.
  const char* element;
  /// The id of another change that always comes with it; or null.
  const char* also = nullptr;
};

/// The verdicts where callers send what changes, and where they receive it.
struct DirectedVerdicts {
  Verdicts input;
  Verdicts output;
};

/// For both directions, and if none is known, the worse verdicts of each.
inline Verdicts ByDirection(const DirectedVerdicts& verdicts, Direction direction) {
  if (direction == Direction::kInput) return verdicts.input;
  if (direction == Direction::kOutput) return verdicts.output;
  return Worse(verdicts.input, verdicts.output);
}

struct Kind {
  /// Never changes once it is published.
  const char* id;
  Area area;
  /// What is added, removed or changed. A change and its opposite have the same one.
  const char* about;
  Action action;
  /// Unless a change has others, such as by the types that it is about.
  DirectedVerdicts verdicts;
  /// One line, for lists of kinds.
  const char* title;
  /// What callers notice.
  const char* means;
  /// How to avoid it or to soften it.
  const char* advice;
  Example example;
};

const char* Word(Class verdict);
const char* Word(Audience audience);
/// Empty for kNone.
const char* Word(Direction direction);
const char* Word(Area area);
const char* Word(Action action);

// The tables, in the order in which kinds are listed.
extern const Rows<Kind> kMetamodelKinds;
extern const Rows<Kind> kDefinitionKinds;
extern const Rows<Kind> kTypeKinds;
extern const Rows<Kind> kAuthenticationKinds;
extern const Rows<Kind> kCliKinds;
extern const Rows<Kind> kSourceKinds;

/// All kinds of all areas.
const std::vector<const Kind*>& Kinds();

/// Null for an unknown id.
const Kind* FindKind(std::string_view id);

}  // namespace Zelk::Analysis::Diff
