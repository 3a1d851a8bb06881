#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "analysis/diff/access.h"
#include "analysis/diff/callers.h"
#include "analysis/diff/change.h"
#include "analysis/diff/scheme_table.h"

namespace Zelk::Analysis::Diff {

/// The schemes in their order, as text. Long lists are shown in part.
std::string TextOf(const SchemeTable& table, const SchemeList& list);

/// "; and 2 more lists", or an empty text if there is only the first one.
std::string MoreLists(std::size_t count);

/// The proof for the first one of several lists, with the number of the others.
std::string ForLists(const std::string& witness, const std::string& first, std::size_t count);

/// Compares what packages, services and operations list in both versions.
class ListsComparer {
 public:
  /// All three must outlive it.
  ListsComparer(Changes& changes, SchemeTable& table, Access& access);

  /// The element is in both versions.
  void Compare(Pair pair);

  /// Adds the changes of schemes, each once for all lists that name it.
  void Finish();

 private:
  /// A list of one element in both versions.
  struct Lists {
    Pair pair;
    SchemeList before;
    SchemeList after;
    Schemes old_set;
    Schemes new_set;
  };

  /// The components and the schemes before and after.
  using ReplacedScheme = std::tuple<ElementId, ElementId, SchemeNumber, SchemeNumber>;

  struct Replacement {
    /// The elements that define the schemes.
    Pair schemes;
    /// What lists them.
    std::vector<Pair> lists;
    /// What turned away whom in the first of these.
    std::string witness;
  };

  /// What schemes of a list are now, if they have another definition.
  using Redefined = std::map<SchemeNumber, SchemeNumber>;

  /// One of the lists is empty.
  void CompareEmpty(const Lists& lists);
  Redefined CompareSchemes(const Lists& lists);
  void CompareOrder(const Lists& lists, const Redefined& redefined);
  /// Takes out of both those that are the same scheme with another definition.
  Redefined TakeRedefined(const Lists& lists, std::vector<std::size_t>& removed,
                          std::vector<std::size_t>& added);
  void Replace(const Lists& lists, std::size_t removed, std::size_t added);
  void AddRemoved(const Lists& lists, std::size_t position);
  void AddAdded(const Lists& lists, std::size_t position);

  void Add(std::string_view id, const Lists& lists, Class access, Details details);
  std::string ListOf(const Lists& lists) const;
  std::string Assumed() const;
  /// A caller that has this scheme, and the others if all of the old ones were needed.
  Schemes CallerWith(SchemeNumber scheme, const Lists& lists) const;

  Callers CallersOf(const Lists& lists) const {
    return {table_, lists.old_set, lists.new_set, needed_};
  }

  Changes& changes_;
  ModelPair models_;
  Assumptions::Schemes needed_;
  SchemeTable& table_;
  Access& access_;
  /// All schemes that any list of the version names.
  Schemes old_listed_;
  Schemes new_listed_;
  std::map<ReplacedScheme, Replacement> replaced_;
};

}  // namespace Zelk::Analysis::Diff
