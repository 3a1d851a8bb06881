#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "analysis/document.h"
#include "analysis/reader.h"
#include "host/service_error.h"

namespace Zelk::Tool {

using Analysis::Severity;

/// Where in a file something is wrong.
struct Place {
  std::size_t offset;
  Analysis::Position position;

  /// The JSON Pointer of the value; empty if the file is not valid JSON. A missing member has the
  /// place of the object without it.
  std::optional<std::string> pointer;
};

/// One thing that is wrong with a file.
struct Problem {
  /// Of the library, or, without an id, of this program.
  Message message;

  /// A message whose place is not known is a warning, unless it is the last one, which is always
  /// the reason why the load failed.
  Severity severity = Severity::kError;

  /// Empty for a message that is not about the text, or whose place is not known for sure.
  std::optional<Place> place = {};

  /// What people read in place of the message's own text; or empty.
  std::string words = {};

  /// What is to be known beside it, in sentences; or empty.
  std::string hint = {};

  /// "TEXT [ID]", with the arguments after the id that the text does not show.
  std::string Text() const;
};

/// "FILE:LINE:COLUMN", or the file alone.
std::string PlaceText(const std::string& file, const Problem& problem);

/// The problem as one line; of those that are not errors, it says so.
std::string ProblemLine(const std::string& file, const Problem& problem);

}  // namespace Zelk::Tool
