#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/accepted.h"
#include "render/json_writer.h"

namespace Zelk::Tool {

/// Writes a list of what a project accepts, as Analysis::ReadAccepted() reads it.
class AcceptedWriter {
 public:
  explicit AcceptedWriter(const Analysis::AcceptedForm& form);

  /// `earlier` is the entry that accepted the same until now; or null.
  void Add(const std::string& id, const std::string& fingerprint, const std::string& element,
           const Analysis::Accepted* earlier);

  /// Ends the list and replaces the file by it. Returns how many entries it has; empty if it could
  /// not be written.
  std::optional<std::size_t> WriteTo(const std::string& path);

 private:
  const Analysis::AcceptedForm form_;
  JsonWriter json_;
  std::size_t count_ = 0;
};

/// The lists to read if one is written, too: a list that will be replaced is read as well. Its
/// reasons are kept then, and a file that is no such list is refused.
std::vector<std::string> WithReplaced(std::vector<std::string> lists, const std::string& written);

/// "PATH: 2 entries written".
std::string WrittenText(const std::string& path, std::size_t entries);

/// Writes the text to the file. A file that is there keeps its old text unless all of the new one
/// is written, and its permissions; a link still leads to it. False if that fails.
bool ReplaceFile(const std::string& path, std::string_view text);

}  // namespace Zelk::Tool
