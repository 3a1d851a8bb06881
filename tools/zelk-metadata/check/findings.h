#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/document.h"
#include "analysis/reader.h"
#include "host/domain.h"

namespace Zelk::Tool::Check {

using Analysis::Severity;

/// Where in a file something is wrong.
struct Place {
  std::size_t offset;
  Analysis::Position position;

  /// The JSON Pointer of the value; empty where the file is not valid JSON. A missing member has
  /// the place of the object that misses it.
  std::optional<std::string> pointer;
};

/// A message of the library about a file.
struct Finding {
  Message message;

  /// A message whose place is not known is a warning, unless it is the last one, which is always
  /// the reason why the load failed.
  Severity severity;

  /// Empty for a message that is not about the text, and where its place is not known for sure.
  std::optional<Place> place;

  /// What the message says with a number, in words; or empty.
  std::string explanation;
};

/// What loading a file by itself gave.
struct CheckedFile {
  /// The name to show.
  std::string file;

  /// The name of the domain that loaded it.
  std::string domain;

  /// Every message of the library, in its order; none for a file that was loaded.
  std::vector<Finding> findings;

  /// The text of the file; set if there is a finding with a place.
  std::shared_ptr<const Analysis::Document> text;
};

/// Loads the file into a domain of its own and finds the places of what the library has to say.
CheckedFile CheckFile(const std::string& name, const std::string& path, const DomainTable& table);

/// The findings of a load that gave these messages.
std::vector<Finding> Locate(const std::vector<Message>& messages,
                            const Analysis::Document& document, const DomainRow& row);

}  // namespace Zelk::Tool::Check
