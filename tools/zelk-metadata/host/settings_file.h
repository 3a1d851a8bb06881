#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "analysis/settings_reader.h"
#include "host/input_file.h"

namespace Zelk::Tool {

/// Takes what a file holds, and notes what is wrong with it.
using SettingsTaker = std::function<void(const Analysis::Document&, Analysis::SettingsProblems&)>;

/// Calls `take` with the file, if it is a JSON object. Adds what is wrong to the complaints, with
/// places.
void ReadSettings(const std::string& path, std::vector<std::string>& complaints,
                  const SettingsTaker& take, std::uintmax_t max_bytes = kMaxFileSize);

/// The day in UTC, as YYYY-MM-DD.
std::string Today();

/// How fingerprints are written: 16 hex digits.
std::string FingerprintText(std::uint64_t fingerprint);

}  // namespace Zelk::Tool
