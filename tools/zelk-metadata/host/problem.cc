#include "host/problem.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace Zelk::Tool {

std::string Problem::Text() const {
  const std::string text = words.empty() ? message.Text() : words;
  return message.id.empty() ? text : fmt::format("{} [{}]", text, message.IdText());
}

std::string PlaceText(const std::string& file, const Problem& problem) {
  if (!problem.place) return file;
  const Analysis::Position& position = problem.place->position;
  return fmt::format("{}:{}:{}", file, position.line, position.column);
}

std::string ProblemLine(const std::string& file, const Problem& problem) {
  return fmt::format("{}: {}{}{}{}", PlaceText(file, problem),
                     problem.severity == Severity::kError ? "" : "warning: ", problem.Text(),
                     problem.hint.empty() ? "" : " ", problem.hint);
}

}  // namespace Zelk::Tool
