#pragma once

#include "analysis/lint/finding.h"
#include "analysis/lint/shape.h"

// What the library drops, overrides or ignores without a message. The table is in loader.cc.

namespace Zelk::Analysis::Lint {

// loader_keys.cc
void DuplicateKey(const OpenFile& file, Findings& findings);
void MisspeltKey(const OpenFile& file, Findings& findings);
void UnknownKey(const OpenFile& file, Findings& findings);
void IgnoredSessionManager(const OpenFile& file, Findings& findings);

// loader_definitions.cc
void DuplicateDefinition(const Workspace& workspace, Findings& findings);
void IgnoredComponent(const OpenFile& file, Findings& findings);
void LostServices(const Workspace& workspace, Findings& findings);
void OperationWithoutPackage(const Workspace& workspace, Findings& findings);
void DuplicateCommand(const Workspace& workspace, Findings& findings);
void NamespaceLosesChildren(const Workspace& workspace, Findings& findings);
void ConstantWithoutValue(const Workspace& workspace, Findings& findings);

// loader_annotations.cc
void IgnoredAnnotation(const Workspace& workspace, Findings& findings);

// loader_texts.cc
void UnreachableNode(const Workspace& workspace, Findings& findings);
void TextAfterZeroByte(const OpenFile& file, Findings& findings);
void MalformedName(const Workspace& workspace, Findings& findings);
void InvalidUtf8(const OpenFile& file, Findings& findings);
void UnknownEnumerator(const OpenFile& file, Findings& findings);
void NoncanonicalSpelling(const OpenFile& file, Findings& findings);

}  // namespace Zelk::Analysis::Lint
