#pragma once

#include <string>
#include <vector>

#include "host/settings_file.h"

namespace Zelk::Tool {

/// The project file: `given`, if that is not empty, or the nearest ".zelk-metadata.json", from the
/// working folder upwards. Empty if there is no such file.
std::string FindProjectFile(const std::string& given = "");

/// As ReadSettings(); an empty path stands for a file without any key.
void ReadProjectFile(const std::string& path, std::vector<std::string>& complaints,
                     const SettingsTaker& take);

}  // namespace Zelk::Tool
