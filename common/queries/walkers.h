#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/container/small_vector.hpp>
#include <boost/range/algorithm/find_if.hpp>

#include "common/sources/name_filter.h"

// Function objects that a query nests in the order of the tree, outermost level first, such as
//   WalkComponents{WalkPackages{WalkServices{PushName{names}}}}
// Each takes one map entry (key and pointer to record), applies its inner object to every child at
// its level in ascending key order, and returns true as soon as that reports a hit, which ends the
// whole walk. The innermost object collects (never a hit) or selects.

namespace Zelk::Provider::Metadata {

// The children of each level; several kinds of records have the same ones.
inline constexpr auto kComponents = [](const auto& record) -> const auto& {
  return record.components;
};
inline constexpr auto kPackages = [](const auto& record) -> const auto& {
  return record.packages;
};
inline constexpr auto kServices = [](const auto& record) -> const auto& {
  return record.services;
};
inline constexpr auto kOperations = [](const auto& record) -> const auto& {
  return record.operations;
};

/// Applies `Inner` to the children that `kChildren` picks out of a record.
template <const auto& kChildren, typename Inner>
class WalkChildren {
 public:
  explicit WalkChildren(Inner inner) : inner_(std::move(inner)) {}

  template <typename Entry>
  bool operator()(const Entry& parent) const {
    const auto& children = kChildren(*parent.second);
    return boost::range::find_if(children, inner_) != children.end();
  }

 private:
  Inner inner_;
};

template <typename Inner>
struct WalkComponents : WalkChildren<kComponents, Inner> {
  using WalkChildren<kComponents, Inner>::WalkChildren;
};

template <typename Inner>
WalkComponents(Inner) -> WalkComponents<Inner>;

template <typename Inner>
struct WalkPackages : WalkChildren<kPackages, Inner> {
  using WalkChildren<kPackages, Inner>::WalkChildren;
};

template <typename Inner>
WalkPackages(Inner) -> WalkPackages<Inner>;

template <typename Inner>
struct WalkServices : WalkChildren<kServices, Inner> {
  using WalkChildren<kServices, Inner>::WalkChildren;
};

template <typename Inner>
WalkServices(Inner) -> WalkServices<Inner>;

template <typename Inner>
struct WalkOperations : WalkChildren<kOperations, Inner> {
  using WalkChildren<kOperations, Inner>::WalkChildren;
};

template <typename Inner>
WalkOperations(Inner) -> WalkOperations<Inner>;

/// Stores the record and reports a hit.
template <typename Record>
class Assign {
 public:
  explicit Assign(std::shared_ptr<const Record>& result) : result_(result) {}

  bool operator()(const std::shared_ptr<const Record>& found) const {
    result_ = found;
    return true;
  }

 private:
  std::shared_ptr<const Record>& result_;
};

/// Looks for `id` among the children that `kChildren` picks out of a record, and hands a hit to
/// `Found`.
template <const auto& kChildren, typename Found>
class SelectChild {
 public:
  SelectChild(const std::string& id, Found found) : id_(id), found_(std::move(found)) {}

  template <typename Entry>
  bool operator()(const Entry& parent) const {
    const auto& children = kChildren(*parent.second);
    const auto child = children.find(id_);
    return child != children.end() && found_(child->second);
  }

 private:
  const std::string& id_;
  Found found_;
};

template <typename Found>
struct SelectPackage : SelectChild<kPackages, Found> {
  using SelectChild<kPackages, Found>::SelectChild;
};

template <typename Found>
SelectPackage(const std::string&, Found) -> SelectPackage<Found>;

template <typename Found>
struct SelectService : SelectChild<kServices, Found> {
  using SelectChild<kServices, Found>::SelectChild;
};

template <typename Found>
SelectService(const std::string&, Found) -> SelectService<Found>;

/// Applies `walker` to each source of a table until it reports a hit. Returns whether it did.
template <typename Table, typename Walker>
bool WalkSources(const Table& sources, const Walker& walker) {
  return boost::range::find_if(sources, walker) != sources.end();
}

/// Passes a source to `Inner` unless its filter excludes the name.
template <typename Inner>
class IfMayHold {
 public:
  IfMayHold(const NameMark& name, Inner inner) : name_(name), inner_(std::move(inner)) {}

  template <typename Entry>
  bool operator()(const Entry& source) const {
    return source.second->names.MayHold(name_) && inner_(source);
  }

 private:
  NameMark name_;
  Inner inner_;
};

/// Walks the sources that may hold the name, usually none or one, with each walker in turn until a
/// walk reports a hit. So a hit of an earlier walker wins over one in an earlier source. The first
/// walk is done while the sources are collected: a hit of it needs no other source.
template <typename Table, typename First, typename... Others>
void WalkSourcesByLevel(const Table& sources, const NameMark& name, const First& first,
                        const Others&... others) {
  boost::container::small_vector<const typename Table::value_type*, 4> holders;
  for (const auto& source : sources) {
    if (!source.second->names.MayHold(name)) continue;
    if (first(source)) return;
    holders.push_back(&source);
  }
  const auto hits = [&holders](const auto& walker) {
    return std::any_of(holders.begin(), holders.end(),
                       [&walker](const auto* holder) { return walker(*holder); });
  };
  static_cast<void>((hits(others) || ...));
}

/// Appends a mark of the kind for the key of every entry in the walk.
class PushMark {
 public:
  PushMark(unsigned kind, std::vector<NameMark>& names) : kind_(kind), names_(names) {}

  template <typename Entry>
  bool operator()(const Entry& entry) const {
    names_.emplace_back(kind_, entry.first);
    return false;
  }

 private:
  unsigned kind_;
  std::vector<NameMark>& names_;
};

}  // namespace Zelk::Provider::Metadata
