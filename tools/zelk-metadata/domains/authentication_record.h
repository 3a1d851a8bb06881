#pragma once

#include <string>

#include <com/orvane/zelk/metadata/authentication/records.h>

#include "render/json_writer.h"
#include "render/page.h"

namespace Zelk::Tool {

// Each writes the record whole, with its members under their own names and in their own order.
void WriteJson(JsonWriter& json,
               const ::Com::Orvane::Zelk::Metadata::Authentication::ComponentData& component);
void WriteJson(JsonWriter& json,
               const ::Com::Orvane::Zelk::Metadata::Authentication::PackageInfo& package);
void WriteJson(JsonWriter& json,
               const ::Com::Orvane::Zelk::Metadata::Authentication::ServiceInfo& service);
void WriteJson(JsonWriter& json,
               const ::Com::Orvane::Zelk::Metadata::Authentication::OperationInfo& operation);

// Each shows, under the title, the schemes listed for every level from the record down. What counts
// where a level has none is for the clients of the services to decide, so nothing is filled in.
void WritePage(Page& page, const std::string& title,
               const ::Com::Orvane::Zelk::Metadata::Authentication::ComponentData& component);
void WritePage(Page& page, const std::string& title,
               const ::Com::Orvane::Zelk::Metadata::Authentication::PackageInfo& package);
void WritePage(Page& page, const std::string& title,
               const ::Com::Orvane::Zelk::Metadata::Authentication::ServiceInfo& service);
void WritePage(Page& page, const std::string& title,
               const ::Com::Orvane::Zelk::Metadata::Authentication::OperationInfo& operation);

}  // namespace Zelk::Tool
