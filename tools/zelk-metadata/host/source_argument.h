#pragma once

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace Zelk::Tool {

class InputFile;

/// A file to load, and the id that it gets as a source.
struct SourceArgument {
  std::string id;
  std::string path;

  /// Whether the user chose the id.
  bool is_named = false;

  /// Set for standard input: keeps the file that it was copied to.
  std::shared_ptr<const InputFile> input = nullptr;
};

/// Reads "[ID=]FILE". The text before the first '=' is an id unless it is empty or has a '/', so a
/// path in which '=' comes first is written with a folder: "./a=b.json". Without an id, it is the
/// file's name without folder and extension.
SourceArgument ParseSourceArgument(const std::string& text);

/// The id that a file gets when none is given.
std::string DefaultSourceId(const std::string& path);

/// The file as the user knows it: its path, or "standard input".
std::string ShownName(const SourceArgument& source);

/// The sources that an argument means, and what cannot be read of it.
struct Expansion {
  std::vector<SourceArgument> sources;
  std::vector<std::string> complaints;
};

/// A path "-" is what `in` holds; a folder is every "*.json" in it and in the folders in it, in the
/// order of their paths, each with its own name as the id, after "ID/" if an ID was given. Links to
/// folders are not followed. Anything else is taken as it is, whether it can be read or not.
Expansion Expand(const SourceArgument& argument, std::istream& in);

/// The same for callers that must not block: looks at no more entries of folders than are left, and
/// takes away those that it looked at.
Expansion Expand(const SourceArgument& argument, std::istream& in, std::size_t& entries_left);

}  // namespace Zelk::Tool
