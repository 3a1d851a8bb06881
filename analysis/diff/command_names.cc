#include "analysis/diff/command_names.h"

#include <iterator>

#include "analysis/fingerprint.h"
#include "analysis/place.h"

namespace Zelk::Analysis::Diff {

const NamesOfCommands::Name& NamesOfCommands::NameOf(ElementId command) {
  const auto [known, is_new] = names_.try_emplace(command);
  if (is_new) {
    const std::string name = cli_.FullName(command);
    known->second = {"'" + Shortened(name) + "'", FingerprintOf(name)};
  }
  return known->second;
}

void NamesOfCommands::AddOrCount(Commands& commands, ElementId command) {
  if (commands.IsFull()) {
    commands.AddMore(NumberOf(command));
  } else {
    commands.Add(command);
  }
}

CommandNames NamesOfCommands::Of(const Commands& commands) {
  const std::set<ElementId>& ids = commands.Ids();
  if (ids.empty()) return {};
  std::uint64_t sum = commands.More();
  for (const ElementId id : ids) sum += NumberOf(id);
  const std::string& first = NameOf(*ids.begin()).shown;
  if (ids.size() == 1) return {"the command " + first, sum};
  const std::string& second = NameOf(*std::next(ids.begin())).shown;
  if (!commands.IsFull()) return {"the commands " + first + " and " + second, sum};
  return {"the commands " + first + ", " + second + " and others", sum};
}

}  // namespace Zelk::Analysis::Diff
