#pragma once

#include <set>
#include <string>

#include "analysis/diff/assumptions.h"
#include "analysis/schemes.h"

// Who may call, by the schemes of a list.

namespace Zelk::Analysis::Diff {

using Schemes = std::set<Scheme>;

/// What people call the scheme.
std::string Shown(const Scheme& scheme);

/// Several of them, as in "a, b or c".
std::string Shown(const Schemes& schemes, const char* between);

/// Whether a list accepts callers that have these schemes. An empty list accepts everybody.
bool Accepts(const Schemes& list, const Schemes& held, Assumptions::Schemes needed);

/// A list in both versions.
class Callers {
 public:
  Callers(const Schemes& before, const Schemes& after, Assumptions::Schemes needed)
      : before_(before), after_(after), needed_(needed) {}

  /// "callers with a could call; now they need b", or an empty text if it is not so.
  std::string TurnedAway(const Schemes& held) const;

  /// "callers with a needed b; now they can call", or an empty text if it is not so.
  std::string LetIn(const Schemes& held) const;

 private:
  const char* Between() const;

  const Schemes& before_;
  const Schemes& after_;
  Assumptions::Schemes needed_;
};

}  // namespace Zelk::Analysis::Diff
