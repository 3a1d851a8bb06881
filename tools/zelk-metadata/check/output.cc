#include "check/output.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>
#include <string_view>

#include "check/excerpt.h"
#include "render/layout.h"
#include "render/utf8.h"

namespace Zelk::Tool::Check {
namespace {

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

/// The first line as far as it fits; the others are indented.
void WriteWrapped(std::ostream& out, const std::string& text, std::size_t width) {
  const char* indent = "";
  for (const std::string& line :
       Wrapped(ForTerminal(text), width > kIndent ? width - kIndent : 0)) {
    out << indent << line << '\n';
    indent = "    ";
  }
}

void WriteProblem(std::ostream& out, const LoadReport& checked, const Problem& problem,
                  std::size_t width) {
  const std::string pointer = PointerText(problem);
  WriteWrapped(
      out,
      fmt::format("{}: {}: {}{}{}", PlaceText(checked.file, problem), Word(problem.severity),
                  problem.Text(), pointer.empty() ? "" : " ", pointer),
      width);
  if (problem.place && checked.text) WriteExcerpt(out, *checked.text, problem.place->offset, width);
  if (!problem.hint.empty()) WriteWrapped(out, "  " + problem.hint, width);
}

/// With what would end a workflow command, or begin another, written as GitHub reads it; other
/// control characters are made harmless.
std::string Escaped(const std::string& text, std::string_view also) {
  std::string escaped;
  for (const char byte : text) {
    const bool is_special =
        byte == '%' || byte == '\r' || byte == '\n' || also.find(byte) != std::string_view::npos;
    escaped +=
        is_special ? fmt::format("%{:02X}", static_cast<unsigned>(byte)) : std::string(1, byte);
  }
  return ForTerminal(escaped);
}

std::string EscapedProperty(const std::string& text) {
  return Escaped(text, ":,");
}

std::string EscapedData(const std::string& text) {
  return Escaped(text, "");
}

void WriteCommand(std::ostream& out, const LoadReport& checked, const Problem& problem) {
  out << "::" << Command(problem.severity) << " file=" << EscapedProperty(checked.file);
  if (problem.place) {
    const Analysis::Position& position = problem.place->position;
    out << ",line=" << position.line << ",col=" << position.column;
  }
  std::string text = problem.words.empty() ? problem.message.Text() : problem.words;
  for (const std::string& more : {problem.hint, PointerText(problem)}) {
    if (!more.empty()) text += " (" + more + ")";
  }
  if (!problem.message.id.empty()) {
    out << ",title=" << EscapedProperty(problem.message.IdText());
  }
  out << "::" << EscapedData(text) << '\n';
}

void WriteNumberOrNull(JsonWriter& json, const char* key, const std::optional<Place>& place,
                       std::uint64_t Analysis::Position::*member) {
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
  json.Key("arguments");
  json.StringArray(problem.message.arguments);
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
    WriteProblem(out, checked, problem, terminal.width);
  }
}

std::string LoadedText(const LoadReport& checked) {
  const std::size_t count = checked.problems.size();
  if (count == 0) return "ok";
  return count == 1 ? "loads, with 1 warning" : fmt::format("loads, with {} warnings", count);
}

void WriteCheckedCommands(std::ostream& out, const LoadReport& checked) {
  for (const Problem& problem : checked.problems) WriteCommand(out, checked, problem);
}

void WriteCheckedJson(JsonWriter& json, const LoadReport& checked) {
  const char* const state = !checked.IsLoaded()        ? "error"
                            : checked.problems.empty() ? "ok"
                                                       : "warning";
  json.StartObject();
  json.Member("file", checked.file);
  json.Member("domain", TextOrNull(checked.domain));
  json.Member("state", std::string(state));
  json.Key("messages");
  json.StartArray();
  for (const Problem& problem : checked.problems) WriteProblem(json, problem);
  json.EndArray();
  json.EndObject();
}

}  // namespace Zelk::Tool::Check
