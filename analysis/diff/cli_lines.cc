#include "analysis/diff/cli_lines.h"

#include <string_view>
#include <unordered_set>
#include <vector>

#include "analysis/place.h"

namespace Zelk::Analysis::Diff {
namespace {

/// What the new version does with the option of a line that the old one accepts, or with the name
/// if no option is named. Empty if that is the same.
std::string Difference(const CommandForm& old_form, const CommandForm& new_form,
                       const CommandWords& options, const std::string& about) {
  const bool is_same_call =
      old_form.Service() == new_form.Service() && old_form.Operation() == new_form.Operation();
  if (about.empty() && is_same_call) return "";
  if (about.empty()) {
    return "calls " + Shortened(new_form.Operation()) + " of " + Shortened(new_form.Service());
  }
  const CommandLine before = old_form.Read(options, about);
  const CommandLine after = new_form.Read(options, about);
  if (!after.problem.empty()) return "refused: " + after.problem;
  for (std::size_t i = 0; i < before.values.size(); ++i) {
    if (options[2 * i] != about) continue;
    const BoundValue& old_value = before.values[i];
    const BoundValue& new_value = after.values[i];
    const std::string word = "'" + about + "'";
    if (old_value.field != new_value.field) {
      return word + " fills " + Shortened(new_value.field);
    }
    const bool are_values = old_value.is_enumerated && new_value.is_enumerated;
    if (!are_values && old_value.type != new_value.type)
      return word + " is of type " + Shortened(new_value.type);
  }
  return "";
}

/// A value of the enumeration of the option that the new version does not take; empty if all are
/// taken.
std::string LostValue(const CommandForm& old_form, const CommandForm& new_form,
                      const std::string& option) {
  const std::vector<std::string_view> after = new_form.ValuesOf(option);
  const std::unordered_set<std::string_view> taken(after.begin(), after.end());
  for (const std::string_view value : old_form.ValuesOf(option)) {
    if (taken.count(value) == 0) return std::string(value);
  }
  return "";
}

/// The command that the words call.
std::optional<CommandForm> FormOf(const Workspace& workspace, const CommandWords& name) {
  const ElementId command = FindCommand(workspace.ModelOf(Domain::kCli), name);
  if (command == kNoElement) return std::nullopt;
  return CommandForm(workspace, command);
}

}  // namespace

CommandLines::CommandLines(const Workspace& old_version, const Workspace& new_version,
                           ElementId command)
    : old_(old_version, command),
      new_(FormOf(new_version, old_.Name())),
      is_certain_(old_.IsKnown() && (!new_ || new_->IsKnown()) &&
                  FindCommand(old_version.ModelOf(Domain::kCli), old_.Name()) == command) {}

bool CommandLines::KeepsValues(const std::string& option) const {
  if (!new_ || old_.ValuesOf(option).empty()) return false;
  return !new_->ValuesOf(option).empty() && LostValue(old_, *new_, option).empty();
}

std::string CommandLines::Witness(const std::string& option, std::size_t times,
                                  const std::string& about) const {
  if (!is_certain_) return "";
  const std::string value = new_ ? LostValue(old_, *new_, option) : "";
  const std::optional<CommandWords> options = old_.Shortest(option, times, value);
  if (!options) return "";
  const std::string difference =
      new_ ? Difference(old_, *new_, *options, about) : "refused: there is no such command";
  if (difference.empty()) return "";
  CommandWords words = old_.Name();
  words.insert(words.end(), options->begin(), options->end());
  return Quoted(words) + " (now " + difference + ")";
}

}  // namespace Zelk::Analysis::Diff
