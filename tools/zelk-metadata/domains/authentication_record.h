#pragma once

#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <com/orvane/zelk/metadata/authentication/records.h>

#include "domains/bindings.h"
#include "domains/outline.h"
#include "domains/record_writer.h"
#include "render/page.h"

namespace Zelk::Tool {

void WriteMembers(RecordWriter& json, const Bindings::Authentication::ComponentData& component);
void WriteMembers(RecordWriter& json, const Bindings::Authentication::PackageInfo& package);
void WriteMembers(RecordWriter& json, const Bindings::Authentication::ServiceInfo& service);
void WriteMembers(RecordWriter& json, const Bindings::Authentication::OperationInfo& operation);

// Each shows, under the title, the schemes listed for every level from the record down. What counts
// where a level has none is for the clients of the services to decide, so nothing is filled in.
void WritePage(Render::Page& page, const std::string& title,
               const Bindings::Authentication::ComponentData& component);
void WritePage(Render::Page& page, const std::string& title,
               const Bindings::Authentication::PackageInfo& package);
void WritePage(Render::Page& page, const std::string& title,
               const Bindings::Authentication::ServiceInfo& service);
void WritePage(Render::Page& page, const std::string& title,
               const Bindings::Authentication::OperationInfo& operation);

using SchemeList = std::list<std::shared_ptr<const Bindings::Authentication::AuthenticationInfo>>;

/// What is listed for a package, service or operation; nothing where there is no record of it.
struct LevelSchemes {
  std::string title;
  std::optional<SchemeList> schemes;
};

/// A section of the page of something else: what the records list for it and what is around it. As
/// above, nothing is filled in.
void WriteLevels(Render::Page& page, const std::vector<LevelSchemes>& levels);

void WriteOutline(OutlineWriter& outline, const std::string& name,
                  const Bindings::Authentication::ComponentInfo& component);

}  // namespace Zelk::Tool
