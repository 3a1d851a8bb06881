#include <string>
#include <utility>

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

void AddCommand(Changes& changes, Pair pair) {
  const ModelPair models = changes.Models(Domain::kCli);
  if (pair.IsAdded()) {
    return changes.Add("command-added", Domain::kCli, pair,
                       {Called(models.new_model, pair.new_id) + " was added"});
  }
  Details details{Called(models.old_model, pair.old_id) + " was removed"};
  details.witness = CommandLines(changes.Old(), changes.New(), pair.old_id).Witness("", 0, "");
  changes.Add("command-removed", Domain::kCli, pair, std::move(details));
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

std::string CommandPair::Witness(const std::string& option, std::size_t times,
                                 const std::string& about) {
  if (!lines_) {
    lines_ = std::make_unique<CommandLines>(changes_.Old(), changes_.New(), command_.old_id);
  }
  return lines_->Witness(option, times, about.empty() ? option : about);
}

void CompareCli(Changes& changes) {
  const ModelPair models = changes.Models(Domain::kCli);
  for (const Pair& pair : LookupPairs(models, ElementKind::kCommand)) {
    if (!pair.IsMatched()) {
      AddCommand(changes, pair);
    } else if (!IsSameText(models, pair)) {
      CompareCommand(changes, pair);
    }
  }
  CompareNamespaces(changes);
}

}  // namespace Zelk::Analysis::Diff
