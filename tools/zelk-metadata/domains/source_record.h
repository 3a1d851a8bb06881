#pragma once

#include <memory>
#include <optional>
#include <string>

#include <com/orvane/zelk/metadata/source_type.h>

#include "host/queries.h"

// Sources, which all domains have in the same form.

namespace Zelk::Tool {

void WriteJson(JsonWriter& json, const ::Com::Orvane::Zelk::Metadata::SourceDescription& source);

/// A source's record does not say which one it is, so its page is told.
void WriteSourcePage(Page& page, const std::string& id,
                     const ::Com::Orvane::Zelk::Metadata::SourceDescription& source);

/// Has a domain's source service load a file. Empty for success, whether the domain delivers it or
/// says nothing.
template <typename CreateSpec, typename SourceSvc>
std::optional<ServiceError> CreateLocalSource(SourceSvc& service, const std::string& id,
                                              const std::string& path) {
  const auto spec = std::make_shared<const CreateSpec>(
      "", ::Com::Orvane::Zelk::Metadata::SourceType::LOCAL_FILE, path, boost::none);
  return Call(service, &SourceSvc::Create, id, spec).error;
}

/// The kind "source" of a domain.
template <typename SourceSvc>
Kind SourceKind(SourceSvc& service) {
  const auto describe = [](const Ids& ids, const auto& info) {
    const std::string& id = ids.front();
    return Record{[id, info](Page& page) { WriteSourcePage(page, id, *info); },
                  [info](JsonWriter& json) { WriteJson(json, *info); }};
  };
  return {"source",
          {"SOURCE"},
          ListQuery(service, &SourceSvc::List),
          MakeQuery<Record>(service, &SourceSvc::Get, describe),
          OptionalFingerprintQuery(service)};
}

}  // namespace Zelk::Tool
