#pragma once

#include <iosfwd>

#include "check/findings.h"
#include "render/json_writer.h"

namespace Zelk::Tool::Check {

/// For people: each finding with its line of the file and a mark under the place.
void WriteCheckedText(std::ostream& out, const CheckedFile& checked);

/// Workflow commands, from which GitHub makes annotations. Nothing for a file without findings.
void WriteCheckedCommands(std::ostream& out, const CheckedFile& checked);

/// An object.
void WriteCheckedJson(JsonWriter& json, const CheckedFile& checked);

}  // namespace Zelk::Tool::Check
