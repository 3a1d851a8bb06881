#pragma once

#include <string_view>
#include <vector>

#include "analysis/lint/workspace.h"

namespace Zelk::Analysis::Lint {

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

/// The text under a key of the element's node, or an empty text.
std::string_view TextOf(const Model& model, ElementId id, const char* key);

/// Whether nothing at all is a value of the parameter or field, too.
bool IsOptional(const Workspace& workspace, ElementId part);

}  // namespace Zelk::Analysis::Lint
