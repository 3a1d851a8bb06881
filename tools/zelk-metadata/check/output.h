#pragma once

#include <iosfwd>
#include <string>

#include "host/load.h"
#include "render/json_writer.h"
#include "render/terminal.h"

namespace Zelk::Tool::Check {

/// For people: each problem with its line of the file and a mark under the place, in the terminal's
/// width. Nothing for a file without problems.
void WriteCheckedText(std::ostream& out, const LoadReport& checked,
                      const Render::Terminal& terminal);

/// "ok", or how many warnings a file that was loaded has.
std::string LoadedText(const LoadReport& checked);

/// Workflow commands, from which GitHub makes annotations. Nothing for a file without problems.
void WriteCheckedCommands(std::ostream& out, const LoadReport& checked);

/// An object.
void WriteCheckedJson(Render::JsonWriter& json, const LoadReport& checked);

}  // namespace Zelk::Tool::Check
