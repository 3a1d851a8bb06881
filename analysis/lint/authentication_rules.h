#pragma once

#include "analysis/lint/finding.h"

// Schemes, and what they are listed for. The table is in authentication.cc.

namespace Zelk::Analysis::Lint {

// authentication_schemes.cc
void UnusedScheme(const Workspace& workspace, Findings& findings);
void SchemeList(const Workspace& workspace, Findings& findings);

// authentication_targets.cc
void UnknownAuthenticationTarget(const Workspace& workspace, Findings& findings);
void AuthenticationPackageMismatch(const Workspace& workspace, Findings& findings);
void OperationWithoutScheme(const Workspace& workspace, Findings& findings);

}  // namespace Zelk::Analysis::Lint
