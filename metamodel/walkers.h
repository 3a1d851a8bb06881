#pragma once

#include <list>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include <boost/range/algorithm/find_if.hpp>

// Function objects that a query nests in the order of the tree, outermost level first, such as
//   WalkComponents{WalkPackages{WalkServices{PushName{names}}}}
// Each takes one map entry (key and pointer to record), applies its inner object to every child at
// its level in ascending key order, and returns true as soon as that reports a hit, which ends the
// whole walk. The innermost object collects (never a hit) or selects.

namespace Zelk::Provider::Metadata::Metamodel {

// The children of each level; records of several kinds have the same ones.
inline constexpr auto kComponents = [](const auto& record) -> const auto& {
  return record.components;
};
inline constexpr auto kPackages = [](const auto& record) -> const auto& {
  return record.packages;
};
inline constexpr auto kServices = [](const auto& record) -> const auto& {
  return record.services;
};
inline constexpr auto kStructures = [](const auto& record) -> const auto& {
  return record.structures;
};
inline constexpr auto kEnumerations = [](const auto& record) -> const auto& {
  return record.enumerations;
};
inline constexpr auto kOperations = [](const auto& record) -> const auto& {
  return record.operations;
};
inline constexpr auto kResources = [](const auto& record) -> const auto& {
  return record.resources;
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
struct WalkStructures : WalkChildren<kStructures, Inner> {
  using WalkChildren<kStructures, Inner>::WalkChildren;
};

template <typename Inner>
WalkStructures(Inner) -> WalkStructures<Inner>;

template <typename Inner>
struct WalkEnumerations : WalkChildren<kEnumerations, Inner> {
  using WalkChildren<kEnumerations, Inner>::WalkChildren;
};

template <typename Inner>
WalkEnumerations(Inner) -> WalkEnumerations<Inner>;

template <typename Inner>
struct WalkOperations : WalkChildren<kOperations, Inner> {
  using WalkChildren<kOperations, Inner>::WalkChildren;
};

template <typename Inner>
WalkOperations(Inner) -> WalkOperations<Inner>;

template <typename Inner>
struct WalkResources : WalkChildren<kResources, Inner> {
  using WalkChildren<kResources, Inner>::WalkChildren;
};

template <typename Inner>
WalkResources(Inner) -> WalkResources<Inner>;

/// Appends the name of every record met.
class PushName {
 public:
  explicit PushName(std::list<std::string>& names) : names_(names) {}

  template <typename Entry>
  bool operator()(const Entry& entry) const {
    names_.push_back(entry.second->name);
    return false;
  }

 private:
  std::list<std::string>& names_;
};

/// Inserts the key of every entry met.
class PushSelf {
 public:
  explicit PushSelf(std::set<std::string>& keys) : keys_(keys) {}

  template <typename Entry>
  bool operator()(const Entry& entry) const {
    keys_.insert(keys_.end(), entry.first);
    return false;
  }

 private:
  std::set<std::string>& keys_;
};

/// Stores the record found and reports a hit.
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

template <typename Found>
struct SelectStructure : SelectChild<kStructures, Found> {
  using SelectChild<kStructures, Found>::SelectChild;
};

template <typename Found>
SelectStructure(const std::string&, Found) -> SelectStructure<Found>;

template <typename Found>
struct SelectEnumeration : SelectChild<kEnumerations, Found> {
  using SelectChild<kEnumerations, Found>::SelectChild;
};

template <typename Found>
SelectEnumeration(const std::string&, Found) -> SelectEnumeration<Found>;

}  // namespace Zelk::Provider::Metadata::Metamodel
