#pragma once

#include "analysis/lint/finding.h"

// Commands, and what they call. The table is in cli.cc.

namespace Zelk::Analysis::Lint {

// cli_targets.cc
void UnknownCommandTarget(const Workspace& workspace, Findings& findings);
void UnknownOptionField(const Workspace& workspace, Findings& findings);
void UnknownOutputField(const Workspace& workspace, Findings& findings);

// cli_fields.cc
void OptionTypeMismatch(const Workspace& workspace, Findings& findings);
void OptionOptionalityMismatch(const Workspace& workspace, Findings& findings);

// cli_parameters.cc
void ParameterWithoutOption(const Workspace& workspace, Findings& findings);

// cli_outputs.cc
void UnreachableOutput(const Workspace& workspace, Findings& findings);

// cli_commands.cc
void DuplicateOption(const Workspace& workspace, Findings& findings);
void MalformedOption(const Workspace& workspace, Findings& findings);
void CommandNamespaceMissing(const Workspace& workspace, Findings& findings);
void CommandIsNamespace(const Workspace& workspace, Findings& findings);

}  // namespace Zelk::Analysis::Lint
