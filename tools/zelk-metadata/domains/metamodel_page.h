#pragma once

#include <string>

#include <com/orvane/zelk/metadata/metamodel/records.h>

#include "render/page.h"

namespace Zelk::Tool {

// Each begins with a line that names the record, followed by its documentation and annotations;
// then come its parts under headings, those that it has none of left out. What a part holds in
// turn has a page of its own, so only its name and the first line of its documentation are shown.
void WritePage(Page& page,
               const ::Com::Orvane::Zelk::Metadata::Metamodel::ComponentData& component);
void WritePage(Page& page, const ::Com::Orvane::Zelk::Metadata::Metamodel::PackageInfo& package);
void WritePage(Page& page, const ::Com::Orvane::Zelk::Metadata::Metamodel::ServiceInfo& service);
void WritePage(Page& page,
               const ::Com::Orvane::Zelk::Metadata::Metamodel::StructureInfo& structure);
void WritePage(Page& page,
               const ::Com::Orvane::Zelk::Metadata::Metamodel::EnumerationInfo& enumeration);

/// The line that names the operation is its signature: "list(service_id: ID) -> LIST<ID>".
void WritePage(Page& page,
               const ::Com::Orvane::Zelk::Metadata::Metamodel::OperationInfo& operation);

/// The signature and the first line of the documentation, for a page about something else.
void WriteSummary(Page& page,
                  const ::Com::Orvane::Zelk::Metadata::Metamodel::OperationInfo& operation);

}  // namespace Zelk::Tool
