#pragma once

#include <memory>
#include <optional>
#include <string>

#include "analysis/document.h"

namespace Zelk::Tool {

/// The settings of a project: a JSON object in a file. Whoever needs a setting reads its key;
/// unknown keys are not an error.
struct ProjectFile {
  std::string path;

  /// Null for a file that cannot be read or that is not a JSON object.
  std::unique_ptr<const Analysis::Document> document;

  /// What is wrong with the file as a whole, as Complaint() writes it; or empty.
  std::string failure;

  /// "PATH:LINE:COLUMN: TEXT" about a value of the document.
  std::string Complaint(Analysis::NodeId node, const std::string& text) const;

  /// A path that is given in the file, relative to its folder.
  std::string Resolve(const std::string& relative) const;
};

/// The path of the nearest ".zelk-metadata.json", from the working folder upwards.
std::optional<std::string> FindProjectFile();

ProjectFile ReadProjectFile(const std::string& path);

}  // namespace Zelk::Tool
