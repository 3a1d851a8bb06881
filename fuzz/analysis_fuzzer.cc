#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/hint.h"
#include "analysis/lint/lint.h"
#include "analysis/reader.h"
#include "authentication/json_metadata_parser.h"
#include "cli/metadata_parser.h"
#include "fuzz/support/check.h"
#include "metamodel/json_metadata_parser.h"
#include "support/message_texts.h"

// The input is one file, or several with form feeds between them. No JSON text has a form feed.

namespace Zelk::Analysis {
namespace {

using Fuzzing::Check;
using Fuzzing::CheckSame;
using Provider::Metadata::Errors;
using Provider::Metadata::TextBuffer;

constexpr std::size_t kMostFiles = 4;

std::vector<std::string> FilesIn(std::string_view input) {
  std::vector<std::string> files(1);
  for (const char byte : input) {
    if (byte == '\f' && files.size() < kMostFiles) {
      files.emplace_back();
    } else {
      files.back() += byte;
    }
  }
  return files;
}

/// Whether the library loads the text; its messages are added to `errors`.
bool Load(std::string_view text, Domain domain, Errors& errors) {
  namespace Library = Provider::Metadata;
  const auto ignore = [](const auto&...) {};
  switch (domain) {
    case Domain::kMetamodel:
      return Library::Metamodel::JsonMetadataParser::LoadMetadata(TextBuffer(text),
                                                                  {ignore, ignore, ignore}, errors);
    case Domain::kAuthentication:
      return Library::Authentication::JsonMetadataParser::LoadMetadata(TextBuffer(text), ignore,
                                                                       errors);
    case Domain::kCli:
      break;
  }
  return Library::Cli::MetadataParser::LoadMetadata(TextBuffer(text), ignore, ignore, errors);
}

/// Those that the library gives, one a line.
std::string TextOf(const Reading& reading) {
  std::string text = reading.loads ? "loads\n" : "refused\n";
  for (const Problem& problem : reading.problems) {
    if (problem.is_further || reading.loads) continue;
    text += Testing::MessageText(problem.message_id, {problem.argument}) + '\n';
  }
  return text;
}

std::string LibraryText(std::string_view text, Domain domain) {
  Errors errors;
  if (Load(text, domain, errors)) return "loads\n";
  std::string lines = "refused\n";
  for (const std::string& message : Testing::MessageTexts(errors)) lines += message + '\n';
  return lines;
}

void CheckPlaces(const Document& document, const Reading& reading) {
  for (const Problem& problem : reading.problems) {
    Check(problem.node < document.Size(), "a problem has a value");
    Check(problem.offset <= document.Text().size(), "a problem has a place");
    HintOf(document, problem);
  }
}

void CheckReading(const Document& document, Domain domain) {
  if (!document.IsJson()) {
    Errors errors;
    return Check(!Load(document.Text(), domain, errors), "only JSON loads");
  }
  const Reading first = Read(document, FormatOf(domain));
  const Reading whole = Read(document, FormatOf(domain), Extent::kWholeFile);
  CheckSame(TextOf(first), LibraryText(document.Text(), domain), "the library decides the same");
  if (whole.unlisted == 0) CheckSame(TextOf(whole), TextOf(first), "the first error is the same");
  CheckPlaces(document, first);
  CheckPlaces(document, whole);
}

void CheckFinding(const Lint::Workspace& workspace, const Lint::Finding& finding) {
  const Document& document = DocumentOf(workspace, finding.place);
  Check(finding.place.node < document.Size(), "a finding has a value");
  Check(finding.place.offset <= document.Text().size(), "a finding has a place");
  Check(!finding.remark.message.empty(), "a finding has a message");
  Check(!PathOf(workspace, finding.place).empty(), "a finding has an element");
  document.Pointer(finding.place.node);
}

std::string TextOf(const Lint::Result& result) {
  std::string text;
  for (const Lint::Finding& finding : result.findings) {
    text += std::string(finding.rule->id) + ' ' + std::to_string(finding.fingerprint) + ' ' +
            finding.remark.message + '\n';
  }
  return text;
}

void CheckLint(const std::vector<std::shared_ptr<const Document>>& documents) {
  std::vector<File> files;
  for (const auto& document : documents) {
    for (const Domain domain : kDomains) {
      const std::string name = std::to_string(files.size());
      files.push_back({name, domain, {name, document}});
    }
  }
  const Lint::Workspace workspace(std::move(files));
  const Lint::Result result = Lint::Lint(workspace, Lint::Rules());
  for (const Lint::Finding& finding : result.findings) CheckFinding(workspace, finding);
  CheckSame(TextOf(Lint::Lint(workspace, Lint::Rules())), TextOf(result),
            "the same files have the same findings");
}

void CheckFiles(std::string_view input) {
  std::vector<std::shared_ptr<const Document>> documents;
  for (std::string& text : FilesIn(input)) {
    auto document = std::make_shared<const Document>(std::move(text));
    for (const Domain domain : kDomains) CheckReading(*document, domain);
    if (document->IsJson()) documents.push_back(std::move(document));
  }
  CheckLint(documents);
}

}  // namespace
}  // namespace Zelk::Analysis

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Zelk::Analysis::CheckFiles(Zelk::Fuzzing::TextOf(data, size));
  return 0;
}
