#pragma once

#include <map>
#include <memory>
#include <string>

#include <com/orvane/zelk/metadata/authentication/records.h>

#include "common/sources/source_record.h"

namespace Zelk::Provider::Metadata::Authentication {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

/// What one Authentication file declares.
struct SourceData : SourceRecord<Bindings::Authentication::SourceSvc::CreateSpec,
                                 Bindings::Authentication::SourceSvc::Info> {
  using SourceRecord::SourceRecord;

  /// A component of a name already present replaces the earlier one.
  void RegisterComponentNode(
      const std::string& name,
      const std::shared_ptr<Bindings::Authentication::ComponentInfo>& component);

  std::map<std::string, std::shared_ptr<const Bindings::Authentication::ComponentInfo>> components;
  /// What the queries hand out as the fingerprint of each component: the file's.
  std::string component_fingerprint;
};

}  // namespace Zelk::Provider::Metadata::Authentication
