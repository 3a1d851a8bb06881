#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "analysis/diff/callers.h"
#include "analysis/diff/change.h"
#include "analysis/diff/scheme_table.h"

namespace Zelk::Analysis::Diff {

/// What a list that is added, removed, filled or emptied means for callers.
struct Effect {
  /// Breaking if somebody is turned away. Dangerous if somebody is let in, or if that or the
  /// reverse depends on the host.
  Class access = Class::kNotConcerned;
  /// Whether callers without a scheme may get access.
  bool opens_access = false;
  /// Whether the list came or went with what it is for, so that it concerns no caller.
  bool is_new_or_gone = false;
  /// What callers needed and need, as text for a fingerprint.
  std::string identity = {};
  /// Empty if the files do not prove what happens to callers.
  std::string witness = {};
};

/// Why such a list concerns no caller.
inline constexpr char kConcernsNoCaller[] =
    "concerns no caller: what the list is for is in one version of the Metamodel files only";

/// Who may call what is in both versions.
class Access {
 public:
  /// `table` is that of both versions and must outlive it.
  Access(const Changes& changes, SchemeTable& table);

  /// `list` is one of either version.
  Effect EffectOf(const Element& list);

  /// What an effect depends on, as in the configuration.
  std::string Assumed() const;

 private:
  using Inheritance = Assumptions::Inheritance;

  /// The schemes of the list of that kind and name, or if it has none, what it inherits.
  const ListedSchemes& Nearest(const Model& model, const Element& list, Inheritance inheritance);
  /// Whether the file itself has a list without schemes there.
  bool IsWrittenEmpty(const Model& model, const Element& list);
  /// Whether Metamodel files have what the list is for in one version only.
  bool IsOfOneVersion(const Element& list) const;
  /// Whether the list is for a package of services that both versions have, by their names or by
  /// where Metamodel files have them.
  bool HasOldServices(const Element& list);

  const Workspace& old_version_;
  const Workspace& new_version_;
  const Assumptions& assumptions_;
  ModelPair models_;
  SchemeTable& table_;
  ListedSchemes none_;
  /// The packages of services that both versions have, if they are known.
  std::optional<std::set<std::string_view>> packages_;
};

}  // namespace Zelk::Analysis::Diff
