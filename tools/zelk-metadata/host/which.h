#pragma once

#include <string>
#include <vector>

#include "host/host.h"

namespace Zelk::Tool {

/// A source that holds a name.
struct Holder {
  const SourceOutline* source;
  std::size_t index;

  const Entry& Held() const { return source->outline[index]; }
};

/// Who answers for a name that one or more sources hold.
struct Decision {
  /// More than one only where names alone are answered; none where a source passes all others over
  /// that does not hold the name itself.
  std::vector<Holder> answering;

  std::vector<Holder> passed_over;
};

/// Nobody, if none of the sources holds it. The sources must be in the order in which the services
/// walk them.
Decision Decide(const std::vector<SourceOutline>& sources, const FoundKind& found, const Ids& ids);

/// The rule in words. Empty for Rule::kNone.
std::string RuleText(Rule rule);

/// What the thing is in: "package com.acme.inventory"; empty for what is in nothing.
std::string PlaceText(const Holder& holder);

}  // namespace Zelk::Tool
