#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "analysis/diff/cli_comparers.h"
#include "analysis/diff/texts.h"
#include "analysis/diff/verdicts.h"

// Namespaces: what trees of commands and their help are made of.

namespace Zelk::Analysis::Diff {
namespace {

std::string DescriptionOf(const Model& model, ElementId id) {
  const Element& element = model[id];
  if (!element.is_implied) return std::string(TextOf(model, id, "description"));
  return element.name.empty() ? "Root namespace" : std::string(element.name) + " namespace";
}

using Identity = std::pair<std::string_view, std::string_view>;

/// What the namespace lists, in its order, of what the other version has, too.
std::vector<Identity> ListedBy(const Model& model, ElementId id, const Model& other) {
  std::vector<Identity> listed;
  for (const ElementId child : model.Children(id)) {
    const Element& element = model[child];
    if (other.Find(element.kind, element.name, element.path) == kNoElement) continue;
    listed.emplace_back(element.path, element.name);
  }
  return listed;
}

std::vector<Identity> Unique(std::vector<Identity> identities) {
  std::sort(identities.begin(), identities.end());
  identities.erase(std::unique(identities.begin(), identities.end()), identities.end());
  return identities;
}

std::string ListText(const std::vector<Identity>& listed) {
  std::string text;
  for (const auto& [path, name] : listed) {
    text += text.empty() ? "" : ", ";
    text +=
        Unambiguous(path.empty() ? std::string(name) : std::string(path).append(".").append(name));
  }
  return text;
}

void CompareLists(Changes& changes, Pair pair) {
  const ModelPair models = changes.Models(Domain::kCli);
  std::vector<Identity> before = ListedBy(models.old_model, pair.old_id, models.new_model);
  std::vector<Identity> after = ListedBy(models.new_model, pair.new_id, models.old_model);
  if (before == after) return;
  Details details;
  details.old_value = ListText(before);
  details.new_value = ListText(after);
  before = Unique(std::move(before));
  after = Unique(std::move(after));
  const std::string called = Called(models.old_model, pair.old_id);
  details.message = called + " lists its namespaces in another order";
  details.verdicts = CliVerdicts(kT);
  if (before != after) {
    details.message = called + " lists other namespaces than before";
    details.verdicts = CliVerdicts(kD);
  }
  changes.Add("namespace-list-changed", Domain::kCli, pair, std::move(details));
}

}  // namespace

void CompareNamespaces(Changes& changes) {
  const ModelPair models = changes.Models(Domain::kCli);
  for (const Pair& pair : LookupPairs(models, ElementKind::kNamespace)) {
    if (pair.IsMatched()) {
      CompareTexts(changes, "namespace-description-changed", pair,
                   DescriptionOf(models.old_model, pair.old_id),
                   DescriptionOf(models.new_model, pair.new_id));
      CompareLists(changes, pair);
    } else if (!IsWithinChange(models, pair)) {
      const std::string called = Called(models.Of(pair), pair.Id());
      changes.Add(
          pair.IsAdded() ? "namespace-added" : "namespace-removed", Domain::kCli, pair,
          {called + ContentsOf(models, pair) + (pair.IsAdded() ? " was added" : " was removed")});
    }
  }
}

}  // namespace Zelk::Analysis::Diff
