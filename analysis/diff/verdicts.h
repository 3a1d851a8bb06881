#pragma once

#include "analysis/diff/kind.h"

// Short ways to write the tables of kinds.

namespace Zelk::Analysis::Diff {

inline constexpr Class kB = Class::kBreaking;
inline constexpr Class kD = Class::kDangerous;
inline constexpr Class kC = Class::kCompatible;
inline constexpr Class kT = Class::kDocumentation;
inline constexpr Class kN = Class::kNotConcerned;

/// The same in both directions.
constexpr DirectedVerdicts Always(Class wire, Class source, Class cli, Class auth,
                                  Class metadata) {  // coverage: runs in the compiler
  const Verdicts verdicts{wire, source, cli, auth, metadata};
  return {verdicts, verdicts};
}

/// Different on the wire only.
constexpr DirectedVerdicts Directed(Class input, Class output, Class source, Class cli,
                                    Class metadata) {  // coverage: runs in the compiler
  return {{input, source, cli, kN, metadata}, {output, source, cli, kN, metadata}};
}

}  // namespace Zelk::Analysis::Diff
