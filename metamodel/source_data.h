#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>

#include <com/orvane/zelk/metadata/metamodel/records.h>

#include "common/sources/source_record.h"

namespace Zelk::Provider::Metadata::Metamodel {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

/// The contents of one Metamodel file.
struct SourceData : SourceRecord<Bindings::Metamodel::SourceSvc::CreateSpec,
                                 Bindings::Metamodel::SourceSvc::Info> {
  using SourceRecord::SourceRecord;

  /// Adds the component, or replaces the one of the same name.
  void RegisterComponentNode(const std::shared_ptr<Bindings::Metamodel::ComponentInfo>& component);

  /// Adds the resource. If it is present already, it keeps its models.
  void RegisterResoure(const std::string& resource_id);

  /// Adds the model to the resource, and the resource if it is missing.
  void RegisterModel(const std::string& resource_id, const std::string& model_name);

  std::map<std::string, std::shared_ptr<const Bindings::Metamodel::ComponentInfo>> components;
  /// For each resource id, the names of the structures that are its models.
  std::map<std::string, std::set<std::string>> resources;
  /// The digest of the file, which queries return as the fingerprint of each component.
  std::string component_fingerprint;
};

}  // namespace Zelk::Provider::Metadata::Metamodel
