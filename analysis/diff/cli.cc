#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "analysis/diff/cli_comparers.h"
#include "analysis/diff/comparers.h"
#include "analysis/diff/verdicts.h"

// Commands, and what the comparers of their parts share.

namespace Zelk::Analysis::Diff {
namespace {

std::string_view MetadataText(const Model& model, ElementId command, const char* key) {
  const Document& document = model.DocumentOf(command);
  const NodeId metadata = document.Find(model[command].node, "node_metadata");
  return document.String(document.Find(metadata, key));
}

void CompareCalls(CommandPair& command) {
  const ModelPair models = command.Models();
  const Pair pair = command.Command();
  Details details{Called(models.old_model, pair.old_id) + " calls another operation"};
  details.old_value = CallOf(models.old_model, pair.old_id);
  details.new_value = CallOf(models.new_model, pair.new_id);
  if (details.old_value == details.new_value) return;
  details.witness = command.Witness("", 0);
  command.Add("command-operation-changed", pair, kB, std::move(details));
}

void CompareCommand(Changes& changes, Pair pair) {
  CommandPair command(changes, pair);
  CompareCalls(command);
  CompareOptions(command);
  CompareOutputs(command);
  command.CompareDescriptions("command-description-changed", pair);
}

/// Guesses which commands have only another name: those that call the same operation.
class RenamedCommands {
 public:
  RenamedCommands(const ModelPair& models, const std::vector<Pair>& commands) : models_(models) {
    std::multimap<std::string, ElementId> added;
    for (const Pair& pair : commands) {
      if (pair.IsAdded()) added.emplace(CallOf(models.new_model, pair.new_id), pair.new_id);
    }
    for (const Pair& pair : commands) {
      if (!pair.IsRemoved() || added.empty()) continue;
      const auto found = added.find(CallOf(models.old_model, pair.old_id));
      if (found == added.end()) continue;
      old_to_new_.emplace(pair.old_id, found->second);
      new_to_old_.emplace(found->second, pair.old_id);
      added.erase(found);
    }
  }

  /// "possibly renamed to 'a.b'", or an empty text.
  std::string HintOf(Pair pair) const {
    const auto& others = pair.IsAdded() ? new_to_old_ : old_to_new_;
    const auto found = others.find(pair.Id());
    if (found == others.end()) return "";
    const std::string name = models_.WithoutIt(pair).FullName(found->second);
    return std::string("possibly renamed ") + (pair.IsAdded() ? "from '" : "to '") +
           Shortened(name) + "'";
  }

 private:
  ModelPair models_;
  std::unordered_map<ElementId, ElementId> old_to_new_;
  std::unordered_map<ElementId, ElementId> new_to_old_;
};

void AddCommand(Changes& changes, Pair pair, const RenamedCommands& renamed) {
  const ModelPair models = changes.Models(Domain::kCli);
  Details details{Called(models.Of(pair), pair.Id()) +
                  (pair.IsAdded() ? " was added" : " was removed")};
  details.hint = renamed.HintOf(pair);
  if (pair.IsRemoved()) {
    details.witness = CommandLines(changes.Old(), changes.New(), pair.old_id).Witness("", 0, "");
  }
  changes.Add(pair.IsAdded() ? "command-added" : "command-removed", Domain::kCli, pair,
              std::move(details));
}

}  // namespace

Verdicts CliVerdicts(Class verdict) {
  return {kN, kN, verdict, kN, verdict == kT ? kN : kC};
}

std::string CallOf(const Model& model, ElementId command) {
  return std::string(MetadataText(model, command, "operation_id")) + " of " +
         std::string(MetadataText(model, command, "service_id"));
}

NodeId MemberOf(const Model& model, ElementId id, const char* key) {
  return model.DocumentOf(id).Find(model[id].node, key);
}

void CompareTexts(Changes& changes, std::string_view id, Pair pair, std::string_view before,
                  std::string_view after) {
  if (before == after) return;
  const Model& model = changes.Models(Domain::kCli).old_model;
  Details details{"the description of " + Called(model, pair.old_id) + " was changed"};
  details.old_value = before;
  details.new_value = after;
  changes.Add(id, Domain::kCli, pair, std::move(details));
}

void CommandPair::Add(std::string_view id, Pair pair, Class verdict, Details details) {
  details.verdicts = CliVerdicts(verdict);
  changes_.Add(id, Domain::kCli, pair, std::move(details));
}

void CommandPair::CompareDescriptions(std::string_view id, Pair pair) {
  const ModelPair models = Models();
  CompareTexts(changes_, id, pair, TextOf(models.old_model, pair.old_id, "description"),
               TextOf(models.new_model, pair.new_id, "description"));
}

const CommandLines& CommandPair::Lines() {
  if (!lines_) {
    lines_ = std::make_unique<CommandLines>(changes_.Old(), changes_.New(), command_.old_id);
  }
  return *lines_;
}

std::string CommandPair::Witness(const std::string& option, std::size_t times,
                                 const std::string& about) {
  return Lines().Witness(option, times, about.empty() ? option : about);
}

void CompareCli(Changes& changes) {
  const ModelPair models = changes.Models(Domain::kCli);
  const std::vector<Pair> commands = LookupPairs(models, ElementKind::kCommand);
  const RenamedCommands renamed(models, commands);
  for (const Pair& pair : commands) {
    if (!pair.IsMatched()) {
      AddCommand(changes, pair, renamed);
    } else if (!IsSameText(models, pair)) {
      CompareCommand(changes, pair);
    }
  }
  CompareNamespaces(changes);
}

}  // namespace Zelk::Analysis::Diff
