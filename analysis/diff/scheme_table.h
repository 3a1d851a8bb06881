#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "analysis/diff/pairs.h"
#include "analysis/schemes.h"

// The schemes of both versions as numbers. Names in files may be long and are repeated in each
// list, so they are compared once.

namespace Zelk::Analysis::Diff {

/// The position among all schemes of both versions, in the order of what callers see.
using SchemeNumber = std::uint32_t;

/// Each once, in ascending order.
using Schemes = std::vector<SchemeNumber>;

inline bool Has(const Schemes& schemes, SchemeNumber scheme) {
  return std::binary_search(schemes.begin(), schemes.end(), scheme);
}

/// What the list of a package, a service or an operation names, in its order.
struct SchemeList {
  /// The entries and, in the same order, their schemes.
  std::vector<ElementId> entries;
  std::vector<SchemeNumber> schemes;
};

Schemes SetOf(const SchemeList& list);

/// What a list decides.
struct ListedSchemes {
  Schemes schemes;
  /// The same for the same schemes, whatever else the files define.
  std::uint64_t fingerprint = 0;
};

class SchemeTable {
 public:
  explicit SchemeTable(const ModelPair& models);

  const Scheme& operator[](SchemeNumber number) const { return schemes_[number]; }

  /// The same for schemes with the same id.
  std::uint32_t IdOf(SchemeNumber scheme) const { return ids_[scheme]; }

  /// Of what callers see of the scheme, or of all schemes of the list; for fingerprints.
  std::string IdentityOf(SchemeNumber scheme) const;
  std::string IdentityOf(const SchemeList& list) const;

  /// One of the two models, and a list in it.
  SchemeList ListOf(const Model& model, ElementId list) const;

  /// The same without its order. It is kept, since a list may decide about many elements.
  const ListedSchemes& SetOf(const Model& model, ElementId list);

  /// All schemes that lists which are answered name.
  Schemes Listed(const Model& model) const;

 private:
  using Numbers = std::unordered_map<ElementId, SchemeNumber>;

  const Numbers& NumbersOf(const Model& model) const {
    return &model == &models_.old_model ? old_numbers_ : new_numbers_;
  }

  ModelPair models_;
  std::vector<Scheme> schemes_;
  std::vector<std::uint32_t> ids_;
  std::vector<std::uint64_t> fingerprints_;
  /// By the elements that define schemes.
  Numbers old_numbers_;
  Numbers new_numbers_;
  std::unordered_map<ElementId, ListedSchemes> old_sets_;
  std::unordered_map<ElementId, ListedSchemes> new_sets_;
};

}  // namespace Zelk::Analysis::Diff
