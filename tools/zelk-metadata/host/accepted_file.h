#pragma once

#include <string>
#include <string_view>

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

  /// Ends the list and replaces the file by it. False if it could not be written.
  bool WriteTo(const std::string& path);

 private:
  const Analysis::AcceptedForm form_;
  JsonWriter json_;
};

/// Writes the text to the file. A file that is there keeps its old text unless all of the new one
/// is written, and its permissions; a link still leads to it. False if that fails.
bool ReplaceFile(const std::string& path, std::string_view text);

}  // namespace Zelk::Tool
