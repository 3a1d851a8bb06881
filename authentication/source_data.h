#pragma once

#include <map>
#include <memory>
#include <string>

#include <com/orvane/zelk/metadata/authentication/records.h>

#include "common/sources/source_record.h"

namespace Zelk::Provider::Metadata::Authentication {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

/// The contents of one Authentication file.
struct SourceData : SourceRecord<Bindings::Authentication::SourceSvc::CreateSpec,
                                 Bindings::Authentication::SourceSvc::Info> {
  using SourceRecord::SourceRecord;

  /// Adds the component, or replaces the one of the same name.
  void RegisterComponentNode(
      const std::string& name,
      const std::shared_ptr<Bindings::Authentication::ComponentInfo>& component);

  std::map<std::string, std::shared_ptr<const Bindings::Authentication::ComponentInfo>> components;
  /// The digest of the file, which queries return as the fingerprint of each component.
  std::string component_fingerprint;
};

}  // namespace Zelk::Provider::Metadata::Authentication
