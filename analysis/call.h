#pragma once

#include <string>
#include <vector>

#include "analysis/workspace.h"

namespace Zelk::Analysis {

/// A command that is kept, and what it calls.
struct Call {
  ElementId command;
  /// kNoElement if it is not loaded.
  ElementId operation;
};

std::vector<Call> CallsOf(const Workspace& workspace);

/// An option of a command that is kept, and what it fills.
struct Filling {
  ElementId option;
  /// Empty, and missing, if the operation is not loaded.
  FieldPath path;
};

std::vector<Filling> FillingsOf(const Workspace& workspace, const Call& call);

/// The type of options that can fill the parameter or field; empty if none can.
std::string OptionTypeOf(const Workspace& workspace, ElementId part);

/// Whether `written`, the type in a CLI file, means `type`.
bool IsOptionType(const std::string& written, const std::string& type);

/// Whether the parameter or field may be absent.
bool IsOptional(const Workspace& workspace, ElementId part);

}  // namespace Zelk::Analysis
