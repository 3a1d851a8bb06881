#pragma once

#include <list>
#include <set>
#include <string>

#include "common/queries/tree_queries.h"
#include "common/queries/walkers.h"

namespace Zelk::Provider::Metadata::Metamodel {

inline constexpr auto kStructures = [](const auto& record) -> const auto& {
  return record.structures;
};
inline constexpr auto kEnumerations = [](const auto& record) -> const auto& {
  return record.enumerations;
};
inline constexpr auto kResources = [](const auto& record) -> const auto& {
  return record.resources;
};

/// Structures and enumerations have two marks: one for any level and one for their own level.
enum MetamodelNameKind : unsigned {
  kStructureName = kFirstNameOfDomain,
  kEnumerationName,
  kPackageStructureName,
  kServiceStructureName,
  kPackageEnumerationName,
  kServiceEnumerationName,
  kPackageStructureEnumerationName,
  kServiceStructureEnumerationName,
};

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
struct WalkResources : WalkChildren<kResources, Inner> {
  using WalkChildren<kResources, Inner>::WalkChildren;
};

template <typename Inner>
WalkResources(Inner) -> WalkResources<Inner>;

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

/// Appends the name of every record in the walk.
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

/// Inserts the key of every entry in the walk.
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

}  // namespace Zelk::Provider::Metadata::Metamodel
