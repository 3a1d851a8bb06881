#include "host/load.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <fstream>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "analysis/format.h"
#include "analysis/hint.h"
#include "analysis/near.h"
#include "analysis/reader.h"
#include "analysis/syntax_error.h"
#include "explain/explanations.h"
#include "host/input_file.h"
#include "host/root_key.h"
#include "render/text.h"

namespace Zelk::Tool {
namespace {

/// The code and the offset that a parse error carries.
struct SyntaxError {
  std::size_t code;
  std::size_t offset;
};

std::optional<SyntaxError> SyntaxErrorOf(const Message& message, const DomainRow& row) {
  if (message.id != row.parse_error_id || message.arguments.size() < 2) return std::nullopt;
  const auto code = Render::ParseNumber(message.arguments[0]);
  const auto offset = Render::ParseNumber(message.arguments[1]);
  if (!code || !offset) return std::nullopt;
  return SyntaxError{static_cast<std::size_t>(*code), static_cast<std::size_t>(*offset)};
}

/// Clearer words for some messages; empty for the others.
std::string WordsOf(const Message& message, const DomainRow& row) {
  if (const auto error = SyntaxErrorOf(message, row)) {
    if (error->offset == kMaxFileSize) return "The file has 4 GiB or more, which is not loaded.";
    return Analysis::SyntaxErrorText("", error->code, 0);
  }
  const Explain::Explanation* const explanation = Explain::Find(message.id);
  const bool has_text = explanation == nullptr || explanation->text == explanation->Summary();
  return has_text ? "" : explanation->Summary();
}

std::vector<Problem> Unlocated(const std::vector<Message>& messages, const DomainRow& row) {
  std::vector<Problem> problems;
  problems.reserve(messages.size());
  for (const Message& message : messages) {
    problems.push_back({message, Severity::kWarning, {}, WordsOf(message, row)});
  }
  problems.back().severity = Severity::kError;
  return problems;
}

void LocateSyntaxErrors(std::vector<Problem>& problems, const Analysis::Document& document,
                        const DomainRow& row) {
  for (Problem& problem : problems) {
    const auto error = SyntaxErrorOf(problem.message, row);
    if (!error || error->offset > document.Text().size()) continue;
    problem.place = Place{error->offset, document.PositionAt(error->offset), std::nullopt};
    problem.words = Analysis::SyntaxErrorText(document.Text(), error->code, error->offset);
  }
}

Place PlaceAt(const Analysis::Document& document, Analysis::NodeId node, std::size_t offset) {
  return {offset, document.PositionAt(offset), document.Pointer(node)};
}

void Describe(Problem& problem, const Analysis::Document& document,
              const Analysis::Problem& explained) {
  problem.severity = explained.severity;
  problem.place = PlaceAt(document, explained.node, explained.offset);
  problem.hint = Analysis::HintOf(document, explained);
}

/// What the library does not report.
Problem Unreported(const Analysis::Document& document, const DomainRow& row,
                   const Analysis::Problem& found) {
  const Explain::Explanation* const explanation = Explain::Find(found.message_id);
  Problem problem{{found.message_id, explanation->text, {found.argument}}};
  problem.words = WordsOf(problem.message, row);
  Describe(problem, document, found);
  return problem;
}

bool IsExpected(const Message& message, const Analysis::Problem& problem) {
  return message.id == problem.message_id &&
         message.arguments == std::vector<std::string>{problem.argument};
}

/// Up to the first message that was not expected: from there on no place is sure. False if there is
/// one.
bool LocateExpected(std::vector<Problem>& problems, const Analysis::Document& document,
                    const std::vector<Analysis::Problem>& expected) {
  auto problem = problems.begin();
  for (const Analysis::Problem& next : expected) {
    if (next.is_further) continue;
    if (problem == problems.end() || !IsExpected(problem->message, next)) return false;
    Describe(*problem++, document, next);
  }
  return problem == problems.end();
}

/// The rest of what is wrong with a file that is refused.
void AddFurther(LoadReport& report, const DomainRow& row, const Analysis::Reading& reading) {
  for (const Analysis::Problem& found : reading.problems) {
    if (found.is_further) report.problems.push_back(Unreported(*report.text, row, found));
  }
}

/// Why a file was not loaded whole, which the library does not report.
void AddLeftOut(LoadReport& report, const DomainRow& row, const Analysis::Reading& reading,
                Care care) {
  for (const Analysis::Problem& found : reading.problems) {
    if (found.severity == Severity::kNote) continue;
    if (found.is_further && care == Care::kLoad) continue;
    Problem problem = Unreported(*report.text, row, found);
    problem.severity = Severity::kWarning;
    problem.hint +=
        fmt::format("{}The {} is left out.", problem.hint.empty() ? "" : " ", found.left_out);
    report.problems.push_back(std::move(problem));
  }
}

void AddUnlisted(LoadReport& report, std::size_t count) {
  if (count == 0) return;
  report.problems.push_back({{"", fmt::format("{} more mistakes are not listed.", count), {}},
                             report.IsLoaded() ? Severity::kWarning : Severity::kError});
}

void Read(LoadReport& report, const DomainRow& row, Care care) {
  const Analysis::Format* const format = Analysis::FindFormat(row.root_key);
  if (!report.text->IsJson() || format == nullptr) return;
  const bool was_loaded = report.IsLoaded();
  const Analysis::Reading reading = Analysis::Read(
      *report.text, *format,
      care == Care::kCheck ? Analysis::Extent::kWholeFile : Analysis::Extent::kToFirstError);
  // If the library says otherwise, nothing of the reading is sure.
  if (reading.loads != was_loaded) return;
  if (was_loaded) {
    AddLeftOut(report, row, reading, care);
  } else {
    if (!LocateExpected(report.problems, *report.text, reading.problems)) return;
    AddFurther(report, row, reading);
  }
  AddUnlisted(report, reading.unlisted);
}

/// Whether a letter is written as an escape, as in "\u0063li".
bool HasEscapedLetter(const std::string& text) {
  constexpr std::string_view kEscape = "\\u00";
  for (std::size_t at = text.find(kEscape); at != std::string::npos; at = text.find(kEscape, at)) {
    at += kEscape.size();
    if (text[at] == '6' || text[at] == '7') return true;
  }
  return false;
}

/// Whether the text may have the root key of another domain. Only then is it read once more.
bool MayHaveOtherRoot(const std::string& text, const DomainRow& row, const DomainTable& table) {
  if (HasEscapedLetter(text)) return true;
  return std::any_of(table.begin(), table.end(), [&](const DomainRow& other) {
    const std::string key = '"' + other.root_key + '"';
    return &other != &row && memmem(text.data(), text.size(), key.data(), key.size()) != nullptr;
  });
}

Names RootKeys(const DomainTable& table) {
  Names keys;
  for (const DomainRow& row : table) keys.push_back(row.root_key);
  return keys;
}

/// Names every root key but the one that decides.
void AddOtherRoots(LoadReport& report, const DomainRow& row, const DomainTable& table) {
  const Analysis::Document& document = *report.text;
  if (!document.IsJson()) return;
  const Names roots = RootKeys(table);
  for (auto member = document[Analysis::kRootNode].first_child; member != Analysis::kNoNode;
       member = document[member].next) {
    const std::string key(document.Key(member));
    if (key == row.root_key || std::find(roots.begin(), roots.end(), key) == roots.end()) continue;
    const std::string text = fmt::format(
        "\"{}\" is ignored, since a file belongs to one domain only: that of its first root key, "
        "\"{}\".",
        key, row.root_key);
    report.problems.push_back({{"", text, {}},
                               Severity::kWarning,
                               PlaceAt(document, member, document[member].key_begin)});
  }
}

/// What is wrong with a JSON text that has no root key of a domain.
Problem NotMetadata(const Analysis::Document& document, const DomainTable& table) {
  const Names roots = RootKeys(table);
  const std::string keys =
      fmt::format("{} or {}", fmt::join(roots.begin(), roots.end() - 1, ", "), roots.back());
  const std::string what = "Not a metadata file: ";
  if (!document.IsJson()) {
    return {
        {"", fmt::format("{}it is empty. It must be an object with the key {}.", what, keys), {}},
        Severity::kError,
        Place{0, document.PositionAt(0), std::nullopt}};
  }
  if (document[Analysis::kRootNode].kind != Analysis::NodeKind::kObject) {
    return {{"", fmt::format("{}it must be an object with the key {}.", what, keys), {}},
            Severity::kError,
            PlaceAt(document, Analysis::kRootNode, document[Analysis::kRootNode].begin)};
  }
  const std::string text = fmt::format("{}the object does not have the key {}.", what, keys);
  for (auto member = document[Analysis::kRootNode].first_child; member != Analysis::kNoNode;
       member = document[member].next) {
    const Names near = Analysis::NearNames(std::string(document.Key(member)), roots);
    if (near.empty()) continue;
    return {{"", text, {}},
            Severity::kError,
            PlaceAt(document, member, document[member].key_begin),
            {},
            fmt::format("Did you mean {}?", fmt::join(near, " or "))};
  }
  return {{"", text, {}},
          Severity::kError,
          PlaceAt(document, Analysis::kRootNode, document[Analysis::kRootNode].begin)};
}

/// Finds out what the library does not say about a file that it was given.
void Examine(LoadReport& report, const std::string& path, const DomainRow& row,
             const DomainTable& table, Care care) {
  const bool is_refused = !report.IsLoaded();
  auto text = TextOf(path);
  if (!text) return;
  const Analysis::Format* const format = Analysis::FindFormat(row.root_key);
  const bool may_be_partial =
      format != nullptr && (care == Care::kCheck || format->has_separate_parts);
  if (!is_refused && !may_be_partial && !MayHaveOtherRoot(*text, row, table)) return;
  report.text = std::make_shared<const Analysis::Document>(std::move(*text));
  LocateSyntaxErrors(report.problems, *report.text, row);
  if (is_refused || may_be_partial) Read(report, row, care);
  AddOtherRoots(report, row, table);
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

}  // namespace

std::optional<std::string> TextOf(const std::string& path) {
  std::error_code error;
  // Opening a pipe would wait for a writer.
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error || size > kMaxFileSize) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::string text(static_cast<std::size_t>(size), '\0');
  file.read(text.data(), static_cast<std::streamsize>(size));
  text.resize(static_cast<std::size_t>(file.gcount()));
  return text;
}

bool LoadReport::IsLoaded() const {
  return std::none_of(problems.begin(), problems.end(),
                      [](const Problem& problem) { return problem.severity == Severity::kError; });
}

LoadReport LoadInto(Domain& domain, const DomainRow& row, const SourceArgument& source,
                    const DomainTable& table, Care care) {
  LoadReport report{ShownName(source), row.name, {}};
  const std::optional<ServiceError> error = domain.CreateSource(source.id, source.path);
  if (error) report.problems = Unlocated(error->messages, row);
  Examine(report, source.path, row, table, care);
  return report;
}

std::vector<Problem> LeftOutOf(const std::string& path, const DomainRow& row,
                               const DomainTable& table) {
  LoadReport report;
  Examine(report, path, row, table, Care::kLoad);
  return std::move(report.problems);
}

const DomainRow* DomainOf(const std::string& path, const DomainTable& table, LoadReport& report) {
  if (const DomainRow* const row = FindDomain(path, table)) return row;
  auto text = TextOf(path);
  if (!text) return &table.front();
  const bool is_blank = IsBlank(*text);
  report.text = std::make_shared<const Analysis::Document>(std::move(*text));
  if (!report.text->IsJson() && !is_blank) return &table.front();
  report.problems.push_back(NotMetadata(*report.text, table));
  return nullptr;
}

LoadReport LoadAlone(const SourceArgument& source, const DomainTable& table) {
  LoadReport report{ShownName(source), "", {}};
  const DomainRow* const row = DomainOf(source.path, table, report);
  return row == nullptr ? report : LoadInto(*row->make(), *row, source, table, Care::kCheck);
}

}  // namespace Zelk::Tool
