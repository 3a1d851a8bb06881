#include "analysis/diff/scheme_table.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "analysis/fingerprint.h"

namespace Zelk::Analysis::Diff {
namespace {

/// Those of a component that is left out may have unknown types, for example.
bool IsOfAnsweredComponent(const Element& element) {
  return element.fate != Fate::kIgnored && element.fate != Fate::kLost;
}

template <typename Take>
void ForEachScheme(const Model& model, const Take& take) {
  for (ElementId id = 0; id < model.Size(); ++id) {
    const bool is_scheme = model[id].kind == ElementKind::kScheme;
    if (is_scheme && IsOfAnsweredComponent(model[id])) take(id, SchemeOf(model, id));
  }
}

std::uint64_t FingerprintOfScheme(const Scheme& scheme) {
  std::string identity;
  for (const std::string_view part : {scheme.id, scheme.type, scheme.session_manager}) {
    identity.append(part) += '\0';
  }
  return FingerprintOf(identity);
}

}  // namespace

Schemes SetOf(const SchemeList& list) {
  Schemes schemes = list.schemes;
  std::sort(schemes.begin(), schemes.end());
  schemes.erase(std::unique(schemes.begin(), schemes.end()), schemes.end());
  return schemes;
}

SchemeTable::SchemeTable(const ModelPair& models) : models_(models) {
  for (const Model* model : {&models.old_model, &models.new_model}) {
    ForEachScheme(*model, [&](ElementId, const Scheme& scheme) { schemes_.push_back(scheme); });
  }
  std::sort(schemes_.begin(), schemes_.end());
  schemes_.erase(std::unique(schemes_.begin(), schemes_.end()), schemes_.end());
  for (const Scheme& scheme : schemes_) {
    const bool is_first = ids_.empty();
    const bool is_same = !is_first && schemes_[ids_.size() - 1].id == scheme.id;
    ids_.push_back(is_first ? 0 : ids_.back() + (is_same ? 0 : 1));
  }
  fingerprints_.resize(schemes_.size());
  std::transform(schemes_.begin(), schemes_.end(), fingerprints_.begin(), &FingerprintOfScheme);
  const auto number = [&](Numbers& numbers) {
    return [&](ElementId id, const Scheme& scheme) {
      const auto found = std::lower_bound(schemes_.begin(), schemes_.end(), scheme);
      numbers.emplace(id, static_cast<SchemeNumber>(found - schemes_.begin()));
    };
  };
  ForEachScheme(models.old_model, number(old_numbers_));
  ForEachScheme(models.new_model, number(new_numbers_));
}

std::string SchemeTable::IdentityOf(SchemeNumber scheme) const {
  return std::to_string(fingerprints_[scheme]) + ' ';
}

std::string SchemeTable::IdentityOf(const SchemeList& list) const {
  std::string identity;
  for (const SchemeNumber scheme : list.schemes) identity += IdentityOf(scheme);
  return identity;
}

SchemeList SchemeTable::ListOf(const Model& model, ElementId list) const {
  const Numbers& numbers = NumbersOf(model);
  SchemeList found;
  for (const ElementId entry : model.Children(list)) {
    if (model[entry].kind != ElementKind::kEntry) continue;
    found.entries.push_back(entry);
    found.schemes.push_back(numbers.at(model[entry].target));
  }
  return found;
}

const ListedSchemes& SchemeTable::SetOf(const Model& model, ElementId list) {
  auto& sets = &model == &models_.old_model ? old_sets_ : new_sets_;
  const auto [known, is_new] = sets.try_emplace(list);
  if (!is_new) return known->second;
  const SchemeList schemes = ListOf(model, list);
  known->second.schemes = Diff::SetOf(schemes);
  std::string identity;
  for (const SchemeNumber number : known->second.schemes) {
    identity += IdentityOf(number);
  }
  known->second.fingerprint = FingerprintOf(identity);
  return known->second;
}

Schemes SchemeTable::Listed(const Model& model) const {
  const Numbers& numbers = NumbersOf(model);
  std::vector<bool> is_listed(schemes_.size());
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    if (element.kind != ElementKind::kEntry || element.fate != Fate::kFound) continue;
    is_listed[numbers.at(element.target)] = true;
  }
  Schemes listed;
  for (SchemeNumber number = 0; number < is_listed.size(); ++number) {
    if (is_listed[number]) listed.push_back(number);
  }
  return listed;
}

}  // namespace Zelk::Analysis::Diff
