#include "check/findings.h"

#include <algorithm>
#include <charconv>

#include <rapidjson/error/en.h>

#include "check/formats.h"
#include "host/host.h"

namespace Zelk::Tool {
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
          rapidjson::GetParseError_En(static_cast<rapidjson::ParseErrorCode>(error->code));
    }
    findings.push_back(std::move(finding));
  }
  if (!findings.empty()) findings.back().severity = Severity::kError;
  return findings;
}

void LocateSyntaxErrors(std::vector<Finding>& findings, const SourceText& text,
                        const DomainRow& row) {
  for (Finding& finding : findings) {
    const auto error = SyntaxErrorOf(finding.message, row);
    if (!error || error->offset > text.Text().size()) continue;
    finding.place = Place{error->offset, text.PositionAt(error->offset), std::nullopt};
  }
}

bool IsExpected(const Message& message, const Expected& expected) {
  return message.id == expected.id &&
         message.arguments == std::vector<std::string>{expected.argument};
}

/// Up to the first message that was not expected: from there on no place is sure.
void LocateExpected(std::vector<Finding>& findings, const SourceText& text, const Walk& walk) {
  const std::size_t count = std::min(findings.size(), walk.messages.size());
  for (std::size_t i = 0; i < count && IsExpected(findings[i].message, walk.messages[i]); ++i) {
    const Expected& expected = walk.messages[i];
    findings[i].severity = expected.severity;
    findings[i].place =
        Place{expected.offset, text.PositionAt(expected.offset), walk.tree.Pointer(expected.value)};
  }
}

const DomainRow& RowOf(const std::string& domain, const DomainTable& table) {
  return *std::find_if(table.begin(), table.end(),
                       [&](const DomainRow& row) { return row.name == domain; });
}

}  // namespace

std::vector<Finding> Locate(const std::vector<Message>& messages, const SourceText& text,
                            const DomainRow& row) {
  std::vector<Finding> findings = Unlocated(messages, row);
  const std::optional<JsonTree> tree = JsonTree::Parse(text.Text());
  if (!tree) {
    LocateSyntaxErrors(findings, text, row);
    return findings;
  }
  Walk walk(*tree);
  // Of a document that would load, no message can be explained.
  const std::optional<bool> loads = WalkDocument(walk, row.name);
  if (loads && !*loads) LocateExpected(findings, text, walk);
  return findings;
}

CheckedFile CheckFile(const std::string& name, const std::string& path, const DomainTable& table) {
  const LoadReport report = LoadAlone(path, table);
  CheckedFile checked{name, report.domain, {}, std::nullopt};
  if (report.problems.empty()) return checked;
  std::vector<Message> messages;
  for (const Problem& problem : report.problems) messages.push_back(problem.message);
  const DomainRow& row = RowOf(report.domain, table);
  checked.text = SourceText::Read(path);
  checked.findings = checked.text ? Locate(messages, *checked.text, row) : Unlocated(messages, row);
  return checked;
}

}  // namespace Zelk::Tool
