#pragma once

#include <functional>
#include <string>
#include <vector>

#include "analysis/settings_reader.h"

namespace Zelk::Tool {

/// Calls `read` with the document of the file, and adds what is wrong with the file to the
/// complaints, with places.
void ReadSettings(
    const std::string& path, std::vector<std::string>& complaints,
    const std::function<void(const Analysis::Document&, Analysis::SettingsProblems&)>& read);

/// The day in UTC, as YYYY-MM-DD.
std::string Today();

/// How fingerprints are written: 16 hex digits.
std::string FingerprintText(std::uint64_t fingerprint);

}  // namespace Zelk::Tool
