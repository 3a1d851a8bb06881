#pragma once

#include <string>

#include <com/orvane/zelk/metadata/metamodel/records.h>

#include "domains/bindings.h"
#include "domains/outline.h"
#include "domains/record_writer.h"
#include "render/page.h"

// The ways to show the records of Metamodel.

namespace Zelk::Tool {

// Types nest as deep as a file says, so nothing here takes stack for a level.

/// The type in one line, such as "MAP<STRING, LIST<com.acme.disk>>".
std::string TypeText(const Bindings::Metamodel::Type& type);

/// With all types that it is made of.
void WriteMembers(RecordWriter& json, const Bindings::Metamodel::Type& type);

void WriteMembers(RecordWriter& json, const Bindings::Metamodel::ComponentData& component);
void WriteMembers(RecordWriter& json, const Bindings::Metamodel::PackageInfo& package);
void WriteMembers(RecordWriter& json, const Bindings::Metamodel::ServiceInfo& service);
void WriteMembers(RecordWriter& json, const Bindings::Metamodel::OperationInfo& operation);
void WriteMembers(RecordWriter& json, const Bindings::Metamodel::StructureInfo& structure);
void WriteMembers(RecordWriter& json, const Bindings::Metamodel::EnumerationInfo& enumeration);

// Each begins with a line that names the record, followed by its documentation and annotations;
// then come its parts under headings, those that it has none of left out. What a part holds in
// turn has a page of its own, so only its name and the first line of its documentation are shown.
void WritePage(Render::Page& page, const Bindings::Metamodel::ComponentData& component);
void WritePage(Render::Page& page, const Bindings::Metamodel::PackageInfo& package);
void WritePage(Render::Page& page, const Bindings::Metamodel::ServiceInfo& service);
void WritePage(Render::Page& page, const Bindings::Metamodel::StructureInfo& structure);
void WritePage(Render::Page& page, const Bindings::Metamodel::EnumerationInfo& enumeration);

/// The line that names the operation is its signature: "list(service_id: ID) -> LIST<ID>".
void WritePage(Render::Page& page, const Bindings::Metamodel::OperationInfo& operation);

/// The signature and the first line of the documentation, for a page about something else.
void WriteSummary(Render::Page& page, const Bindings::Metamodel::OperationInfo& operation);

/// The component with everything in it, each kind of thing in the order of its key.
void WriteOutline(OutlineWriter& outline, const Bindings::Metamodel::ComponentInfo& component);

}  // namespace Zelk::Tool
