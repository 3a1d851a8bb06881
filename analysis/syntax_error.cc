#include "analysis/syntax_error.h"

#include <rapidjson/error/en.h>

namespace Zelk::Analysis {
namespace {

constexpr char kBlanks[] = " \t\r\n";

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

/// Of an ASCII character, UTF-16 and UTF-32 make one with zero bytes.
bool IsWide(std::string_view text) {
  if (StartsWith(text, "\xff\xfe") || StartsWith(text, "\xfe\xff")) return true;
  return text.size() > 1 && (text[0] == '\0') != (text[1] == '\0');
}

/// The text up to the last character that is not blank.
std::string_view Trimmed(std::string_view text) {
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

/// What is wrong with a byte in a string; empty if nothing more is known.
std::string TextInString(char byte) {
  if (byte == '\n' || byte == '\r') {
    return "A string is not closed before the end of the line. A line break in it is written \\n.";
  }
  const bool is_control = byte > 0 && byte < ' ';
  return is_control ? "A control character must be written as \\u00XX." : "";
}

/// The same for a byte that is in no string.
std::string TextOutsideStrings(std::string_view text, std::size_t offset) {
  const char byte = text[offset];
  if (byte == '/') return "JSON has no comments.";
  if (byte == '\'') return "A string must be in double quotes.";
  const std::string_view before = Trimmed(text.substr(0, offset));
  if ((byte == '}' || byte == ']') && !before.empty() && before.back() == ',') {
    return "The last comma before the closing bracket is one too many.";
  }
  return "";
}

}  // namespace

std::string SyntaxErrorText(std::string_view text, std::size_t code, std::size_t offset) {
  const auto parser_code = static_cast<rapidjson::ParseErrorCode>(code);
  if (StartsWith(text, "\xef\xbb\xbf")) {
    return "The file begins with a byte order mark, which JSON does not allow. Save it as UTF-8 "
           "without one.";
  }
  if (IsWide(text)) return "The file is in UTF-16 or UTF-32. Save it as UTF-8.";
  const bool is_empty = parser_code == rapidjson::kParseErrorDocumentEmpty;
  const bool is_cut = offset >= Trimmed(text).size() || text[offset] == '\0';
  if (!is_cut) {
    const bool is_in_string = parser_code == rapidjson::kParseErrorStringEscapeInvalid;
    std::string found =
        is_in_string ? TextInString(text[offset]) : TextOutsideStrings(text, offset);
    if (!found.empty()) return found;
  }
  return (is_cut && !is_empty ? "The file ends too early. " : "") +
         std::string(rapidjson::GetParseError_En(parser_code));
}

}  // namespace Zelk::Analysis
