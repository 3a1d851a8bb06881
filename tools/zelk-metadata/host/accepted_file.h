#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "analysis/accepted.h"
#include "render/json_writer.h"

namespace Zelk::Tool {

/// Whether a list could be written.
struct WrittenList {
  bool is_written;

  /// "PATH: 2 entries written", how many of them have ended and how many earlier ones are left out;
  /// or why it could not be written.
  std::string message;
};

/// Writes a list of what a project accepts, as Analysis::ReadAccepted() reads it.
class AcceptedWriter {
 public:
  /// Begins with the notes of the file that it replaces.
  AcceptedWriter(const Analysis::AcceptedForm& form, std::string path);

  /// `earlier` is the entry that accepted the same, even if it has ended; or null.
  void Add(const std::string& id, const std::string& fingerprint, const std::string& element,
           const Analysis::Accepted* earlier);

  /// Ends the list and replaces the file by it.
  WrittenList Write();

 private:
  const Analysis::AcceptedForm form_;
  const std::string path_;
  Render::JsonWriter json_;
  std::size_t count_ = 0;
  std::size_t ended_ = 0;
  /// The fingerprints in the file that it replaces that were not added.
  std::set<std::string> left_out_;
};

/// The lists to read if one is written, too: a list that will be replaced is read first. So what it
/// says about its entries is kept, and any other file is refused.
std::vector<std::string> WithReplaced(std::vector<std::string> lists, const std::string& written);

}  // namespace Zelk::Tool
