#pragma once

#include "analysis/lint/finding.h"

// What Metamodel files name and define. The table is in references.cc.

namespace Zelk::Analysis::Lint {

// references_names.cc
void UnresolvedReference(const Workspace& workspace, Findings& findings);
void ReferenceKindMismatch(const Workspace& workspace, Findings& findings);
void NotAnError(const Workspace& workspace, Findings& findings);
void UnusedDefinition(const Workspace& workspace, Findings& findings);
void ResourceWithoutModel(const Workspace& workspace, Findings& findings);

// references_types.cc
void InfiniteStructure(const Workspace& workspace, Findings& findings);
void SuspiciousType(const Workspace& workspace, Findings& findings);

// references_members.cc
void DuplicateMember(const Workspace& workspace, Findings& findings);
void EmptyDefinition(const Workspace& workspace, Findings& findings);

}  // namespace Zelk::Analysis::Lint
