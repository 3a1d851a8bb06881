#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>

#include <com/orvane/zelk/metadata/metamodel/records.h>

#include "common/sources/source_record.h"

namespace Zelk::Provider::Metadata::Metamodel {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

/// What one Metamodel file declares.
struct SourceData : SourceRecord<Bindings::Metamodel::SourceSvc::CreateSpec,
                                 Bindings::Metamodel::SourceSvc::Info> {
  using SourceRecord::SourceRecord;

  /// A component of a name already present replaces the earlier one.
  void RegisterComponentNode(const std::shared_ptr<Bindings::Metamodel::ComponentInfo>& component);

  /// A resource already present keeps its models.
  void RegisterResoure(const std::string& resource_id);

  /// Adds the resource too when it is not there yet.
  void RegisterModel(const std::string& resource_id, const std::string& model_name);

  std::map<std::string, std::shared_ptr<const Bindings::Metamodel::ComponentInfo>> components;
  /// Resource id to the names of the structures that are its models.
  std::map<std::string, std::set<std::string>> resources;
  /// What the queries hand out as the fingerprint of each component: the file's.
  std::string component_fingerprint;
};

}  // namespace Zelk::Provider::Metadata::Metamodel
