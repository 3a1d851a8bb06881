#include "language/operands.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "domains/table.h"

namespace Zelk::Tool {

OperandDescription KindOperand(bool required) {
  return {"KIND", Word::kKind, required, "One of the kinds below, alone or as DOMAIN:KIND",
          &Arguments::kind};
}

OperandDescription IdsOperand() {
  return {"ID", Word::kId, false, "As many ids as the kind takes", &Arguments::ids};
}

OperandDescription SourceIdsOperand(bool required) {
  return {"ID", Word::kSourceId, required, "A source, in all domains or as DOMAIN:ID",
          &Arguments::ids};
}

std::vector<std::string> TableOutputs() {
  return {"table", "plain", "json"};
}

std::string KindsText(IdsOf ids_of) {
  const Host host(Domains());
  Names usages;
  for (const std::string& name : host.KindNames()) {
    for (const FoundKind& found : host.FindKinds(name, ids_of)) {
      const std::string usage = name + found.IdsText();
      if (usages.empty() || usages.back() != usage) usages.push_back(usage);
    }
  }
  return fmt::format("Kinds, which may also be written in the plural:\n  {}\n",
                     fmt::join(usages, "\n  "));
}

Names KindNames(IdsOf ids_of) {
  const Host host(Domains());
  Names names;
  for (const std::string& name : host.KindNames()) {
    if (!host.FindKinds(name, ids_of).empty()) names.push_back(name);
  }
  return names;
}

}  // namespace Zelk::Tool
