#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include "analysis/element.h"
#include "analysis/format.h"
#include "analysis/reader.h"

// What a rule is. A group of rules is a file of its own with their functions and their table.

namespace Zelk::Analysis::Lint {

class Findings;
class Workspace;
struct OpenFile;

enum class Group : std::uint8_t {
  kLoader,
  kReferences,
  kNames,
  kDocumentation,
  kAuthentication,
  kCli,
  kSources,
};

inline constexpr std::uint8_t kGroups = 7;

/// What must be known for a finding of the rule to be true.
enum class DecidedBy : std::uint8_t {
  kFile,
  /// All sources of the domain.
  kSources,
  /// The sources of several domains.
  kDomains,
  /// A convention, which others may not share.
  kConvention,
};

inline constexpr DomainSet kMetamodelOnly = SetOf(Domain::kMetamodel);
inline constexpr DomainSet kAuthenticationOnly = SetOf(Domain::kAuthentication);
inline constexpr DomainSet kCliOnly = SetOf(Domain::kCli);
inline constexpr DomainSet kAllDomains = kMetamodelOnly | kAuthenticationOnly | kCliOnly;

/// Files that together raise the rule once, and no other rule. Unused ones are empty.
struct Example {
  std::array<std::string_view, 3> files;

  /// Element path of the finding.
  const char* element;
};

struct Rule {
  /// Never changes once it is published.
  const char* id;
  Group group;
  /// Unless a finding has another one.
  Severity severity;
  DecidedBy decided_by;
  /// The domains whose files the rule looks at.
  DomainSet about;
  /// The domains that it needs in addition. Without one of them the rule is skipped.
  DomainSet needs;
  /// One line, for lists of rules.
  const char* title;
  const char* means;
  const char* cause;
  const char* fix;
  Example example;
  /// What looks at all files together, or at each file that loads.
  std::variant<void (*)(const Workspace&, Findings&), void (*)(const OpenFile&, Findings&)> run;
  /// Whether it runs only if it is asked for by its id.
  bool is_off = false;
};

const char* Word(Group group);
const char* Word(DecidedBy decided_by);

/// "error", "warning" or "note".
const char* Word(Severity severity);

// The tables, in the order in which rules are listed.
extern const Rows<Rule> kLoaderRules;
extern const Rows<Rule> kReferencesRules;
extern const Rows<Rule> kNamesRules;
extern const Rows<Rule> kDocumentationRules;
extern const Rows<Rule> kAuthenticationRules;
extern const Rows<Rule> kCliRules;
extern const Rows<Rule> kSourcesRules;
extern const Rows<Rule> kSuppressionRules;

/// All rules of all groups.
const std::vector<const Rule*>& Rules();

/// Null for an unknown id.
const Rule* FindRule(std::string_view id);

}  // namespace Zelk::Analysis::Lint
