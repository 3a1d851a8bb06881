#include "check/findings.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>

#include <rapidjson/error/en.h>

#include "analysis/format.h"
#include "host/host.h"

namespace Zelk::Tool::Check {
namespace {

std::optional<std::size_t> Number(const std::string& text) {
  std::size_t number = 0;
  const char* const end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, number);
  if (parsed.ec != std::errc() || parsed.ptr != end) return std::nullopt;
  return number;
}

/// The code and the offset that a parse error carries.
struct SyntaxError {
  std::size_t code;
  std::size_t offset;
};

std::optional<SyntaxError> SyntaxErrorOf(const Message& message, const DomainRow& row) {
  if (message.id != row.parse_error_id || message.arguments.size() < 2) return std::nullopt;
  const auto code = Number(message.arguments[0]);
  const auto offset = Number(message.arguments[1]);
  if (!code || !offset) return std::nullopt;
  return SyntaxError{*code, *offset};
}

std::vector<Finding> Unlocated(const std::vector<Message>& messages, const DomainRow& row) {
  std::vector<Finding> findings;
  for (const Message& message : messages) {
    Finding finding{message, Severity::kWarning, std::nullopt, {}};
    if (const auto error = SyntaxErrorOf(message, row)) {
      finding.explanation =
          error->offset == kMaxFileSize
              ? "The file has 4 GiB or more, which is not loaded."
              : rapidjson::GetParseError_En(static_cast<rapidjson::ParseErrorCode>(error->code));
    }
    findings.push_back(std::move(finding));
  }
  if (!findings.empty()) findings.back().severity = Severity::kError;
  return findings;
}

void LocateSyntaxErrors(std::vector<Finding>& findings, const Analysis::Document& document,
                        const DomainRow& row) {
  for (Finding& finding : findings) {
    const auto error = SyntaxErrorOf(finding.message, row);
    if (!error || error->offset > document.Text().size()) continue;
    finding.place = Place{error->offset, document.PositionAt(error->offset), std::nullopt};
  }
}

bool IsExpected(const Message& message, const Analysis::Problem& problem) {
  return message.id == problem.message_id &&
         message.arguments == std::vector<std::string>{problem.argument};
}

/// Up to the first message that was not expected: from there on no place is sure.
void LocateExpected(std::vector<Finding>& findings, const Analysis::Document& document,
                    const std::vector<Analysis::Problem>& problems) {
  const std::size_t count = std::min(findings.size(), problems.size());
  for (std::size_t i = 0; i < count && IsExpected(findings[i].message, problems[i]); ++i) {
    const Analysis::Problem& problem = problems[i];
    findings[i].severity = problem.severity;
    findings[i].place =
        Place{problem.offset, document.PositionAt(problem.offset), document.Pointer(problem.node)};
  }
}

/// Empty for anything but a regular file, for a file that cannot be read and for one of more than
/// kMaxFileSize bytes.
std::optional<std::string> TextOf(const std::string& path) {
  std::error_code ignored;
  // Opening a pipe would wait for a writer.
  if (!std::filesystem::is_regular_file(path, ignored)) return std::nullopt;
  if (std::filesystem::file_size(path, ignored) > kMaxFileSize) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::ostringstream text;
  // Of an empty file there is nothing to take, which would count as a failure.
  if (file.peek() != std::ifstream::traits_type::eof()) text << file.rdbuf();
  return text.str();
}

const DomainRow& RowOf(const std::string& domain, const DomainTable& table) {
  return *std::find_if(table.begin(), table.end(),
                       [&](const DomainRow& row) { return row.name == domain; });
}

}  // namespace

std::vector<Finding> Locate(const std::vector<Message>& messages,
                            const Analysis::Document& document, const DomainRow& row) {
  std::vector<Finding> findings = Unlocated(messages, row);
  if (!document.IsJson()) {
    LocateSyntaxErrors(findings, document, row);
    return findings;
  }
  const Analysis::Reading reading = Analysis::Read(document, *Analysis::FindFormat(row.name));
  // Of a document that would load, no message can be explained.
  if (!reading.loads) LocateExpected(findings, document, reading.problems);
  return findings;
}

CheckedFile CheckFile(const std::string& name, const std::string& path, const DomainTable& table) {
  const LoadReport report = LoadAlone(path, table);
  CheckedFile checked{name, report.domain, {}, nullptr};
  if (report.problems.empty()) return checked;
  std::vector<Message> messages;
  for (const Problem& problem : report.problems) messages.push_back(problem.message);
  const DomainRow& row = RowOf(report.domain, table);
  if (auto text = TextOf(path)) {
    checked.text = std::make_shared<const Analysis::Document>(std::move(*text));
    checked.findings = Locate(messages, *checked.text, row);
  } else {
    checked.findings = Unlocated(messages, row);
  }
  return checked;
}

}  // namespace Zelk::Tool::Check
