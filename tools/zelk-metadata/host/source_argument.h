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

  /// Set for standard input and for pipes: keeps the file that they were copied to.
  std::shared_ptr<const InputFile> input = nullptr;

  /// What the user calls a file that was copied.
  std::string copied_from = {};

  /// For a file that was found in a folder: the folder that was given.
  std::string folder = {};
};

/// Reads "[ID=]FILE". The text before the first '=' is an id unless it is empty or has a '/', so a
/// path in which '=' comes first is written with a folder: "./a=b.json". Without an id, it is the
/// file's name without folder and extension.
SourceArgument ParseSourceArgument(const std::string& text);

/// The id that a file gets when none is given.
std::string DefaultSourceId(const std::string& path);

/// The file as the user knows it: its path, or "standard input".
std::string ShownName(const SourceArgument& source);

/// What cannot be read, and why.
struct Unreadable {
  std::string file;
  std::string reason;
};

/// The sources that an argument means, and what cannot be read of it.
struct Expansion {
  std::vector<SourceArgument> sources;
  std::vector<Unreadable> failures;
};

bool IsFolder(const SourceArgument& argument);

/// A path "-" is what `in` holds. A folder is every "*.json" in it and below it, to any depth, in
/// the order of their paths; the id of each is its path below the folder without ".json", after
/// "ID/" if an ID was given. Links to folders are not followed. A pipe or a device is read to its
/// end; those in folders are not.
Expansion Expand(const SourceArgument& argument, std::istream& in);

/// The regular files that the argument means, for callers that must not block: looks at no more
/// entries of folders than are left, and takes away those that it looked at.
std::vector<SourceArgument> ExpandQuickly(const SourceArgument& argument,
                                          std::size_t& entries_left);

}  // namespace Zelk::Tool
