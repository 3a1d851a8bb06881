#include "analysis/diff/cli_lines.h"

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
    if (old_value.type != new_value.type) return word + " is of type " + Shortened(new_value.type);
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

std::string CommandLines::Witness(const std::string& option, std::size_t times,
                                  const std::string& about) const {
  if (!is_certain_) return "";
  const std::optional<CommandWords> options = old_.Shortest(option, times);
  if (!options) return "";
  const std::string difference =
      new_ ? Difference(old_, *new_, *options, about) : "refused: there is no such command";
  if (difference.empty()) return "";
  CommandWords words = old_.Name();
  words.insert(words.end(), options->begin(), options->end());
  return Quoted(words) + " (now " + difference + ")";
}

}  // namespace Zelk::Analysis::Diff
