#pragma once

#include <string>

#include <com/orvane/zelk/metadata/cli/records.h>

#include "domains/bindings.h"
#include "domains/record_writer.h"
#include "render/page.h"

namespace Zelk::Tool {

/// Path and name as one dotted text; "." for the root namespace.
std::string FullName(const Bindings::Cli::TreeIdentity& identity);

void WriteMembers(RecordWriter& json, const Bindings::Cli::NamespaceSvc::Info& info);
void WriteMembers(RecordWriter& json, const Bindings::Cli::CommandSvc::Info& info);

void WritePage(Render::Page& page, const Bindings::Cli::NamespaceSvc::Info& info);
void WritePage(Render::Page& page, const Bindings::Cli::CommandSvc::Info& info);

/// The same as a client's help.
void WriteUsagePage(Render::Page& page, const std::string& title,
                    const Bindings::Cli::CommandSvc::Info& info);

}  // namespace Zelk::Tool
