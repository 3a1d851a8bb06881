#pragma once

#include <cstdint>
#include <string>

#include "analysis/diff/assumptions.h"
#include "analysis/diff/scheme_table.h"

// Who may call, by the schemes of a list.

namespace Zelk::Analysis::Diff {

/// What people call the scheme.
std::string Shown(const Scheme& scheme);

/// A list in both versions. An empty one accepts everybody.
class Callers {
 public:
  Callers(const SchemeTable& table, const Schemes& before, const Schemes& after,
          Assumptions::Schemes needed)
      : table_(table), before_(before), after_(after), needed_(needed) {}

  /// Whether there are schemes with which callers could call and cannot now.
  bool IsAnyTurnedAway() const { return AcceptsMore(before_, after_); }

  bool IsAnyLetIn() const { return AcceptsMore(after_, before_); }

  /// "callers with a could call; now they need b", or an empty text if it is not so or if the lists
  /// are very long.
  std::string TurnedAway(const Schemes& held) const;

  /// The same for some who are turned away.
  std::string TurnedAway() const;

  /// "callers with a needed b; now they can call", or an empty text as above.
  std::string LetIn(const Schemes& held) const;

  std::string LetIn() const;

 private:
  bool IsLong() const;
  bool Accepts(const Schemes& list, const Schemes& held) const;
  /// Whether the list accepts somebody whom the other one refuses.
  bool AcceptsMore(const Schemes& list, const Schemes& other) const;
  /// The schemes of somebody like that, if there is any.
  Schemes AcceptedOnlyBy(const Schemes& list, const Schemes& other) const;
  std::string Shown(const Schemes& schemes, const char* last) const;
  std::string With(const Schemes& held) const;
  const char* Between() const;

  const SchemeTable& table_;
  const Schemes& before_;
  const Schemes& after_;
  Assumptions::Schemes needed_;
};

}  // namespace Zelk::Analysis::Diff
