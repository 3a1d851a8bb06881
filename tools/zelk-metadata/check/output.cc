#include "check/output.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>
#include <string_view>

#include "check/excerpt.h"
#include "render/utf8.h"

namespace Zelk::Tool::Check {
namespace {

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

/// The id, followed by the arguments that the text does not show.
std::string IdText(const Message& message) {
  const std::vector<std::string> unshown = message.UnshownArguments();
  return unshown.empty() ? message.id : fmt::format("{}: {}", message.id, fmt::join(unshown, ", "));
}

/// "at /a/0", or nothing.
std::string PointerText(const Finding& finding) {
  if (!finding.place || !finding.place->pointer) return "";
  const std::string& pointer = *finding.place->pointer;
  return pointer.empty() ? "at the root" : "at " + pointer;
}

void WriteExcerpt(std::ostream& out, const Analysis::Document& text, const Place& place) {
  const Excerpt excerpt = ExcerptAt(text, place.offset);
  const std::string number = std::to_string(place.position.line);
  const std::string blank(number.size(), ' ');
  out << "  " << number << " | " << excerpt.line << '\n';
  out << "  " << blank << " | " << std::string(excerpt.mark, ' ') << "^\n";
}

void WriteFinding(std::ostream& out, const CheckedFile& checked, const Finding& finding) {
  std::string head = checked.file;
  if (finding.place) {
    const Analysis::Position& position = finding.place->position;
    head += fmt::format(":{}:{}", position.line, position.column);
  }
  const std::string pointer = PointerText(finding);
  out << ForTerminal(fmt::format("{}: {}: {} [{}]{}{}", head, Word(finding.severity),
                                 finding.message.Text(), IdText(finding.message),
                                 pointer.empty() ? "" : " ", pointer))
      << '\n';
  if (finding.place && checked.text) WriteExcerpt(out, *checked.text, *finding.place);
  if (!finding.explanation.empty()) out << "  " << finding.explanation << '\n';
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

void WriteCommand(std::ostream& out, const CheckedFile& checked, const Finding& finding) {
  out << "::" << Command(finding.severity) << " file=" << EscapedProperty(checked.file);
  if (finding.place) {
    const Analysis::Position& position = finding.place->position;
    out << ",line=" << position.line << ",col=" << position.column;
  }
  std::string text = finding.message.Text();
  for (const std::string& more : {finding.explanation, PointerText(finding)}) {
    if (!more.empty()) text += " (" + more + ")";
  }
  out << ",title=" << EscapedProperty(IdText(finding.message)) << "::" << EscapedData(text) << '\n';
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

void WriteFinding(JsonWriter& json, const Finding& finding) {
  json.StartObject();
  json.Member("severity", std::string(Word(finding.severity)));
  json.Member("id", finding.message.id);
  json.Member("text", finding.message.Text());
  json.Key("arguments");
  json.StringArray(finding.message.arguments);
  WriteNumberOrNull(json, "line", finding.place, &Analysis::Position::line);
  WriteNumberOrNull(json, "column", finding.place, &Analysis::Position::column);
  boost::optional<std::string> pointer;
  if (finding.place && finding.place->pointer) pointer = *finding.place->pointer;
  json.Member("pointer", pointer);
  boost::optional<std::string> explanation;
  if (!finding.explanation.empty()) explanation = finding.explanation;
  json.Member("explanation", explanation);
  json.EndObject();
}

}  // namespace

void WriteCheckedText(std::ostream& out, const CheckedFile& checked) {
  if (checked.findings.empty()) out << ForTerminal(checked.file) << ": ok\n";
  for (const Finding& finding : checked.findings) WriteFinding(out, checked, finding);
}

void WriteCheckedCommands(std::ostream& out, const CheckedFile& checked) {
  for (const Finding& finding : checked.findings) WriteCommand(out, checked, finding);
}

void WriteCheckedJson(JsonWriter& json, const CheckedFile& checked) {
  json.StartObject();
  json.Member("file", checked.file);
  json.Member("domain", checked.domain);
  json.Key("ok");
  json.Bool(checked.findings.empty());
  json.Key("messages");
  json.StartArray();
  for (const Finding& finding : checked.findings) WriteFinding(json, finding);
  json.EndArray();
  json.EndObject();
}

}  // namespace Zelk::Tool::Check
