#include "analysis/diff/pairs.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <utility>

#include "analysis/diff/texts.h"
#include "analysis/fates.h"

namespace Zelk::Analysis::Diff {
namespace {

std::vector<ElementId> Parts(const Model& model, ElementId owner, ElementKind kind) {
  std::vector<ElementId> ids;
  for (const ElementId id : model.Children(owner)) {
    if (model[id].kind == kind && IsKept(model[id])) ids.push_back(id);
  }
  return ids;
}

std::string_view TextOf(const Model& model, ElementId id) {
  const Document& document = model.DocumentOf(id);
  const Node& node = document[model[id].node];
  return document.Text().substr(node.begin, node.end - node.begin);
}

bool Has(const Model& model, const Element& element) {
  return model.Find(element.kind, element.name, element.path) != kNoElement;
}

/// Of equal names, the first one is matched with the first one. Those that were added come last.
std::vector<Pair> Matched(const ModelPair& models, const std::vector<ElementId>& old_ids,
                          const std::vector<ElementId>& new_ids) {
  // Those of equal names are in their order.
  std::multimap<std::string_view, std::size_t> by_name;
  for (std::size_t i = 0; i < new_ids.size(); ++i) {
    by_name.emplace(models.new_model[new_ids[i]].name, i);
  }
  std::vector<Pair> pairs;
  for (const ElementId id : old_ids) {
    const auto found = by_name.lower_bound(models.old_model[id].name);
    const bool is_matched = found != by_name.end() && found->first == models.old_model[id].name;
    pairs.push_back({id, is_matched ? new_ids[found->second] : kNoElement});
    if (is_matched) by_name.erase(found);
  }
  std::vector<std::size_t> added;
  for (const auto& [name, index] : by_name) added.push_back(index);
  std::sort(added.begin(), added.end());
  for (const std::size_t index : added) pairs.push_back({kNoElement, new_ids[index]});
  return pairs;
}

using Counts = std::map<ElementKind, std::size_t>;

/// " with 1 service and 12 operations", or an empty text.
std::string CountsText(const Counts& counts) {
  constexpr std::array<ElementKind, 10> kCounted{
      ElementKind::kPackage,       ElementKind::kPackageList, ElementKind::kService,
      ElementKind::kServiceList,   ElementKind::kNamespace,   ElementKind::kOperation,
      ElementKind::kOperationList, ElementKind::kCommand,     ElementKind::kStructure,
      ElementKind::kEnumeration};
  std::vector<std::string> texts;
  for (const ElementKind kind : kCounted) {
    const auto found = counts.find(kind);
    if (found == counts.end()) continue;
    const bool is_one = found->second == 1;
    texts.push_back(std::to_string(found->second) + " " + Word(kind) + (is_one ? "" : "s"));
  }
  std::string text;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const bool is_last = i + 1 == texts.size();
    text += (i == 0 ? " with " : is_last ? " and " : ", ") + texts[i];
  }
  return text;
}

}  // namespace

std::vector<Pair> LookupPairs(const ModelPair& models, ElementKind kind) {
  const ElementIds old_ids = models.old_model.Found(kind);
  const ElementIds new_ids = models.new_model.Found(kind);
  std::vector<Pair> pairs;
  auto next = new_ids.begin();
  for (const ElementId id : old_ids) {
    const LookupKey key = KeyOf(models.old_model[id]);
    for (; next != new_ids.end() && KeyOf(models.new_model[*next]) < key; ++next) {
      pairs.push_back({kNoElement, *next});
    }
    const bool is_matched = next != new_ids.end() && KeyOf(models.new_model[*next]) == key;
    pairs.push_back({id, is_matched ? *next++ : kNoElement});
  }
  for (; next != new_ids.end(); ++next) pairs.push_back({kNoElement, *next});
  return pairs;
}

std::vector<Pair> PartPairs(const ModelPair& models, Pair owners, ElementKind kind) {
  return Matched(models, Parts(models.old_model, owners.old_id, kind),
                 Parts(models.new_model, owners.new_id, kind));
}

std::vector<Pair> PartPairsByText(const ModelPair& models, Pair owners, ElementKind kind) {
  using Key = std::pair<std::string_view, std::string_view>;
  const auto key_of = [](const Model& model, ElementId id) {
    return Key(model[id].name, TextOf(model, id));
  };
  std::multimap<Key, ElementId> by_text;
  for (const ElementId id : Parts(models.new_model, owners.new_id, kind)) {
    by_text.emplace(key_of(models.new_model, id), id);
  }
  std::vector<Pair> pairs;
  std::vector<ElementId> old_left;
  for (const ElementId id : Parts(models.old_model, owners.old_id, kind)) {
    const auto found = by_text.find(key_of(models.old_model, id));
    if (found == by_text.end()) {
      old_left.push_back(id);
      continue;
    }
    pairs.push_back({id, found->second});
    by_text.erase(found);
  }
  std::vector<ElementId> new_left;
  for (const auto& [key, id] : by_text) new_left.push_back(id);
  std::sort(new_left.begin(), new_left.end());
  for (const Pair& pair : Matched(models, old_left, new_left)) pairs.push_back(pair);
  std::stable_sort(pairs.begin(), pairs.end(),
                   [](const Pair& left, const Pair& right) { return left.old_id < right.old_id; });
  return pairs;
}

PartOrder OrderOf(const ModelPair& models, const std::vector<Pair>& parts) {
  std::vector<Pair> matched;
  std::copy_if(parts.begin(), parts.end(), std::back_inserter(matched),
               [](const Pair& pair) { return pair.IsMatched(); });
  const auto is_before = [](const Pair& left, const Pair& right) {
    return left.new_id < right.new_id;
  };
  if (std::is_sorted(matched.begin(), matched.end(), is_before)) return {false, "", ""};
  const auto names = [&] {
    std::string text;
    for (const Pair& pair : matched) {
      text += (text.empty() ? "" : ", ") + Unambiguous(models.old_model[pair.old_id].name);
    }
    return text;
  };
  PartOrder order{true, names(), ""};
  std::sort(matched.begin(), matched.end(), is_before);
  order.new_names = names();
  return order;
}

bool IsSameText(const ModelPair& models, Pair pair) {
  return TextOf(models.old_model, pair.old_id) == TextOf(models.new_model, pair.new_id);
}

bool IsWithinChange(const ModelPair& models, Pair pair) {
  const Model& model = models.Of(pair);
  const ElementId owner = model[pair.Id()].owner;
  // Parts without lookups are looked at only in what both versions have. The root namespace is in
  // itself.
  return owner != kNoElement && owner != pair.Id() && HasLookup(model[owner].kind) &&
         !Has(models.WithoutIt(pair), model[owner]);
}

std::vector<ElementId> PartsWith(const ModelPair& models, Pair pair) {
  const Model& model = models.Of(pair);
  const Model& other = models.WithoutIt(pair);
  std::vector<ElementId> parts;
  std::vector<ElementId> open{pair.Id()};
  while (!open.empty()) {
    const ElementId owner = open.back();
    open.pop_back();
    for (const ElementId id : model.Children(owner)) {
      const Element& element = model[id];
      if (id == owner || !IsKept(element) || (HasLookup(element.kind) && Has(other, element)))
        continue;
      parts.push_back(id);
      open.push_back(id);
    }
  }
  return parts;
}

std::string ContentsOf(const ModelPair& models, Pair pair) {
  const Model& model = models.Of(pair);
  Counts counts;
  for (const ElementId id : PartsWith(models, pair)) ++counts[model[id].kind];
  return CountsText(counts);
}

}  // namespace Zelk::Analysis::Diff
