#pragma once

#include <string>

#include "host/input.h"

namespace Zelk::Tool {

/// The id of a file that is a version by itself.
constexpr char kOnlyFileId[] = "file";

/// Whether the text begins as "git:REV:PATH" does.
bool IsRevision(const std::string& text);

/// The PATH of "git:REV:PATH" from the top of the repository, or any other text as it is.
std::string PathOfRevision(const std::string& text);

/// Reads "git:REV:PATH": the file, or every "*.json" in the folder and below it, as the revision of
/// the repository has it. The ids are those of files on the disk, and kOnlyFileId for a file by
/// itself. As on the disk, links in folders are followed to files only, those in the name to
/// anything.
Input ReadRevision(const std::string& text, const DomainTable& domains);

}  // namespace Zelk::Tool
