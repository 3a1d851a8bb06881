#include "check/output.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>

#include "check/excerpt.h"
#include "render/layout.h"
#include "render/utf8.h"
#include "render/workflow_command.h"

namespace Zelk::Tool::Check {
namespace {

using Render::JsonWriter;
using Render::Style;
using Render::Styled;
using Render::Terminal;
using Render::Wrapped;

constexpr std::size_t kIndent = 4;

const char* Word(Severity severity) {
  switch (severity) {
    case Severity::kError:
      return "error";
    case Severity::kWarning:
      return "warning";
    case Severity::kNote:
      break;
  }
  return "note";
}

Style StyleOf(Severity severity) {
  switch (severity) {
    case Severity::kError:
      return Style::kError;
    case Severity::kWarning:
      return Style::kWarning;
    case Severity::kNote:
      break;
  }
  return Style::kNote;
}

/// What GitHub calls it.
const char* Command(Severity severity) {
  return severity == Severity::kNote ? "notice" : Word(severity);
}

/// "at /a/0", or nothing. The program's own messages name the key themselves.
std::string PointerText(const Problem& problem) {
  if (!problem.place || !problem.place->pointer || problem.message.id.empty()) return "";
  const std::string& pointer = *problem.place->pointer;
  return pointer.empty() ? "at the root" : "at " + pointer;
}

/// All lines but the first are indented. The first `word` is written in the style.
void WriteWrapped(std::ostream& out, const std::string& text, const Terminal& terminal,
                  const std::string& word, Style style) {
  bool is_styled = false;
  for (std::string& line : Wrapped(Render::ForTerminal(text), terminal.width, kIndent)) {
    const std::size_t at = is_styled ? std::string::npos : line.find(word);
    is_styled = is_styled || at != std::string::npos;
    if (at != std::string::npos) line.replace(at, word.size(), Styled(terminal, style, word));
    out << line << '\n';
  }
}

void WriteProblem(std::ostream& out, const LoadReport& checked, const Problem& problem,
                  const Terminal& terminal) {
  const std::string pointer = PointerText(problem);
  const std::string word = fmt::format("{}:", Word(problem.severity));
  WriteWrapped(out,
               fmt::format("{}: {} {}{}{}", PlaceText(checked.file, problem), word, problem.Text(),
                           pointer.empty() ? "" : " ", pointer),
               terminal, word, StyleOf(problem.severity));
  if (problem.place && checked.text) {
    WriteExcerpt(out, *checked.text, problem.place->offset, terminal.width);
  }
  if (problem.hint.empty()) return;
  for (const std::string& line :
       Wrapped(Render::ForTerminal("  " + problem.hint), terminal.width, kIndent)) {
    out << line << '\n';
  }
}

Render::WorkflowCommand CommandOf(const LoadReport& checked, const Problem& problem) {
  Render::WorkflowCommand command{Command(problem.severity), checked.file};
  if (problem.place) {
    command.line = problem.place->position.line;
    command.column = problem.place->position.column;
  }
  if (!problem.message.id.empty()) command.title = problem.message.IdText();
  command.text = problem.words.empty() ? problem.message.Text() : problem.words;
  for (const std::string& more : {problem.hint, PointerText(problem)}) {
    if (!more.empty()) command.text += " (" + more + ")";
  }
  return command;
}

void WriteNumberOrNull(JsonWriter& json, const char* key, const std::optional<Place>& place,
                       std::size_t Analysis::Position::*member) {
  json.Key(key);
  if (place) {
    json.Number(place->position.*member);
  } else {
    json.Null();
  }
}

boost::optional<std::string> TextOrNull(const std::string& text) {
  return boost::make_optional(!text.empty(), text);
}

void WriteProblem(JsonWriter& json, const Problem& problem) {
  json.StartObject();
  json.Member("severity", std::string(Word(problem.severity)));
  json.Member("id", TextOrNull(problem.message.id));
  json.Member("text", problem.message.Text());
  json.Key("arguments").StringArray(problem.message.arguments);
  WriteNumberOrNull(json, "line", problem.place, &Analysis::Position::line);
  WriteNumberOrNull(json, "column", problem.place, &Analysis::Position::column);
  boost::optional<std::string> pointer;
  if (problem.place && problem.place->pointer) pointer = *problem.place->pointer;
  json.Member("pointer", pointer);
  json.Member("explanation", TextOrNull(problem.words));
  json.Member("hint", TextOrNull(problem.hint));
  json.EndObject();
}

}  // namespace

void WriteCheckedText(std::ostream& out, const LoadReport& checked, const Terminal& terminal) {
  for (const Problem& problem : checked.problems) {
    WriteProblem(out, checked, problem, terminal);
  }
}

std::string LoadedText(const LoadReport& checked) {
  const std::size_t count = checked.problems.size();
  if (count == 0) return "ok";
  return count == 1 ? "loads, with 1 warning" : fmt::format("loads, with {} warnings", count);
}

void WriteCheckedCommands(std::ostream& out, const LoadReport& checked) {
  for (const Problem& problem : checked.problems) Write(out, CommandOf(checked, problem));
}

void WriteCheckedJson(JsonWriter& json, const LoadReport& checked) {
  const char* const state = !checked.IsLoaded()        ? "error"
                            : checked.problems.empty() ? "ok"
                                                       : "warning";
  json.StartObject();
  json.Member("file", checked.file);
  json.Member("domain", TextOrNull(checked.domain));
  json.Member("state", std::string(state));
  json.Key("messages").StartArray();
  for (const Problem& problem : checked.problems) WriteProblem(json, problem);
  json.EndArray();
  json.EndObject();
}

}  // namespace Zelk::Tool::Check
