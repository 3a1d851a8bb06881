#pragma once

#include <string>

namespace Zelk::Tool {

/// A file to load, and the id that it gets as a source.
struct SourceArgument {
  std::string id;
  std::string path;
};

/// Reads "[ID=]FILE". The text before the first '=' is an id unless it is empty or has a '/', so a
/// path in which '=' comes first is written with a folder: "./a=b.json". Without an id, it is the
/// file's name without folder and extension.
SourceArgument ParseSourceArgument(const std::string& text);

/// The id that a file gets when none is given.
std::string DefaultSourceId(const std::string& path);

}  // namespace Zelk::Tool
