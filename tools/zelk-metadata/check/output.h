#pragma once

#include <iosfwd>
#include <vector>

#include "check/findings.h"

namespace Zelk::Tool::Check {

/// For people: each finding with its line of the file and a mark under the place.
void WriteCheckedText(std::ostream& out, const CheckedFile& checked);

/// Workflow commands, from which GitHub makes annotations. Nothing for a file without findings.
void WriteCheckedCommands(std::ostream& out, const CheckedFile& checked);

/// An array of one object a file.
void WriteCheckedJson(std::ostream& out, const std::vector<CheckedFile>& checked);

}  // namespace Zelk::Tool::Check
