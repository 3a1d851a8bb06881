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

/// Which of the sources that hold a name answers for it.
struct Decision {
  /// Has several elements only for rules that merge names; empty if the deciding source does not
  /// hold the name.
  std::vector<Holder> answering;

  std::vector<Holder> passed_over;
};

/// Empty if no source holds the name. The sources must be in the order in which the services walk
/// them.
Decision Decide(const std::vector<SourceOutline>& sources, const FoundKind& found, const Ids& ids);

/// What FoundKind::NamesOf() returns if all that the sources hold is together.
Names NamesOf(const std::vector<SourceOutline>& sources, const DomainRow& row,
              const std::string& kind, const Ids& before);

/// The parent, as in "package com.acme.inventory"; empty at the top.
std::string PlaceText(const Holder& holder);

}  // namespace Zelk::Tool
