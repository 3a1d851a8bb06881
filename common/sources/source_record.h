#pragma once

#include <memory>
#include <string>

#include "common/sources/name_filter.h"

namespace Zelk::Provider::Metadata {

/// The part of a loaded source that all domains share. Filled while the file is loaded and never
/// changed afterwards.
template <typename CreateSpec, typename Info>
struct SourceRecord {
  explicit SourceRecord(const std::shared_ptr<const CreateSpec>& create_spec)
      : spec(create_spec),
        info(std::make_shared<Info>(spec->description, spec->type, spec->file_path,
                                    spec->address)) {}

  /// The names that lookups can find in the source; a lookup of another name skips it.
  NameFilter names;
  /// What the source was created with; a reload uses it again.
  std::shared_ptr<const CreateSpec> spec;
  std::shared_ptr<Info> info;
  /// The MD5 of the file, 32 hex digits; empty until the load succeeds.
  std::string fingerprint;
};

}  // namespace Zelk::Provider::Metadata
