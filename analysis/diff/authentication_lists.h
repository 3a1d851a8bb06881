#pragma once

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "analysis/diff/callers.h"
#include "analysis/diff/change.h"

namespace Zelk::Analysis::Diff {

/// The schemes in their order, as text.
std::string TextOf(const SchemeList& list);

Schemes SetOf(const SchemeList& list);

/// Compares what packages, services and operations list in both versions.
class ListsComparer {
 public:
  explicit ListsComparer(Changes& changes);

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

  /// The component, and the schemes before and after.
  using ReplacedScheme = std::tuple<std::string_view, Scheme, Scheme>;

  struct Replacement {
    /// The elements that define the schemes.
    Pair schemes;
    /// What lists them.
    std::vector<Pair> lists;
    /// What turned away whom in the first of these.
    std::string witness;
  };

  void CompareOrder(const Lists& lists);
  void CompareSchemes(const Lists& lists);
  /// Takes out of both those that are the same scheme with another definition. Returns whether
  /// there are any.
  bool TakeReplaced(const Lists& lists, std::vector<std::size_t>& removed,
                    std::vector<std::size_t>& added);
  void Replace(const Lists& lists, std::size_t removed, std::size_t added);
  void AddRemoved(const Lists& lists, std::size_t position);
  void AddAdded(const Lists& lists, std::size_t position);

  void Add(std::string_view id, const Lists& lists, Class access, Details details);
  std::string Assumed() const;
  /// A caller that has this scheme, and the others if all of the old ones were needed.
  Schemes CallerWith(const Scheme& scheme, const Lists& lists) const;

  Callers CallersOf(const Lists& lists) const { return {lists.old_set, lists.new_set, needed_}; }

  Changes& changes_;
  ModelPair models_;
  Assumptions::Schemes needed_;
  /// All schemes that any list of the version names.
  Schemes old_listed_;
  Schemes new_listed_;
  std::map<ReplacedScheme, Replacement> replaced_;
};

}  // namespace Zelk::Analysis::Diff
