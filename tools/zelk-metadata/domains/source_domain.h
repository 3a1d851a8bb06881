#pragma once

#include <memory>
#include <optional>
#include <string>

#include <com/orvane/zelk/metadata/source_type.h>

#include "domains/bindings.h"
#include "domains/record_writer.h"
#include "host/queries.h"

// Sources, which all domains have in the same form.

namespace Zelk::Tool {

void WriteMembers(RecordWriter& json, const Bindings::SourceDescription& source);

/// A source's record does not say which one it is, so its page is given the id.
void WriteSourcePage(Render::Page& page, const std::string& id,
                     const Bindings::SourceDescription& source);

/// The kind "source" of a domain.
template <typename SourceSvc>
Kind SourceKind(SourceSvc& service) {
  const auto describe = [](const Ids& ids, const auto& info) {
    const std::string& id = ids.front();
    return Record{[id, info](Render::Page& page) { WriteSourcePage(page, id, *info); },
                  [info](Render::JsonWriter& json) { WriteRecord(json, *info); }};
  };
  return {"source",
          {"source"},
          ListQuery(service, &SourceSvc::List),
          MakeQuery<Record>(service, &SourceSvc::Get, describe),
          OptionalFingerprintQuery(service)};
}

/// A domain over the services of a container, with the part that all domains have in common.
template <typename SourceSvc, typename CreateSpec>
class SourceDomain : public Domain {
 public:
  template <typename Container>
  explicit SourceDomain(const Container& container) : source_(container) {}

  std::optional<ServiceError> CreateSource(const std::string& id, const std::string& path) final {
    const auto spec =
        std::make_shared<const CreateSpec>("", Bindings::SourceType::LOCAL_FILE, path, boost::none);
    return Call(source_, &SourceSvc::Create, id, spec).error;
  }

  std::optional<ServiceError> DeleteSource(const std::string& id) final {
    return Call(source_, &SourceSvc::Delete, id).error;
  }

  std::optional<ServiceError> ReloadSource(const boost::optional<std::string>& id) final {
    return Call(source_, &SourceSvc::Reload, id).error;
  }

  std::string FingerprintOf(const std::string& id) final {
    return Call(source_, &SourceSvc::Fingerprint, boost::make_optional(id)).answer.value_or("");
  }

  const std::vector<Kind>& Kinds() const final { return kinds_; }

 protected:
  SourceSvc source_;
  std::vector<Kind> kinds_;
};

}  // namespace Zelk::Tool
