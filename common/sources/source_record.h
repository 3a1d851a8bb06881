#pragma once

#include <memory>
#include <string>

#include "common/sources/name_filter.h"

namespace Zelk::Provider::Metadata {

/// What a loaded source of any domain knows about itself. Filled while its file is loaded, never
/// changed afterwards.
template <typename CreateSpec, typename Info>
struct SourceRecord {
  explicit SourceRecord(const std::shared_ptr<const CreateSpec>& create_spec)
      : spec(create_spec),
        info(std::make_shared<Info>(spec->description, spec->type, spec->file_path,
                                    spec->address)) {}

  /// The names that lookups can find in it; those that it does not hold pass it over.
  NameFilter names;
  /// What the source was created with; a reload reads it again.
  std::shared_ptr<const CreateSpec> spec;
  std::shared_ptr<Info> info;
  /// MD5 of the file, 32 hex digits; empty until the load succeeds.
  std::string fingerprint;
};

}  // namespace Zelk::Provider::Metadata
