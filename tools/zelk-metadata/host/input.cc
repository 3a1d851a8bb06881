#include "host/input.h"

#include "analysis/fingerprint.h"
#include "analysis/format.h"
#include "analysis/reader.h"
#include "host/input_file.h"
#include "host/settings_file.h"

namespace Zelk::Tool {
namespace {

/// The format by whose root key the library knows the document; null for any other document.
const Analysis::Format* FormatOf(const Analysis::Document& document) {
  if (!document.IsJson()) return nullptr;
  const Analysis::Node& root = document[Analysis::kRootNode];
  if (root.kind != Analysis::NodeKind::kObject) return nullptr;
  for (Analysis::NodeId member = root.first_child; member != Analysis::kNoNode;
       member = document[member].next) {
    const std::string_view key = document.Key(member);
    if (const auto* const format = Analysis::FindFormat(key)) return format;
  }
  return nullptr;
}

}  // namespace

std::vector<LoadReport> ReportsOf(std::vector<FailedFile> files) {
  std::vector<LoadReport> reports;
  reports.reserve(files.size());
  for (FailedFile& file : files) reports.push_back(std::move(file.report));
  return reports;
}

std::optional<std::string> InputReader::Accept(const SourceArgument& source,
                                               std::shared_ptr<const Analysis::Document> document) {
  const Analysis::Format* const format = FormatOf(*document);
  if (format == nullptr) return "";
  const Analysis::Reading reading = Analysis::Read(*document, *format);
  if (!reading.loads) return "";
  const bool is_free = ids_.emplace(format->domain, source.id).second;
  input_.files.push_back({ShownName(source),
                          format->domain,
                          {is_free ? source.id : source.path, std::move(document)}});
  if (reading.left_out_part.empty()) return std::nullopt;
  return std::string(reading.left_out_part);
}

void InputReader::Refuse(const SourceArgument& source, std::string_view text,
                         const std::string& part) {
  (part.empty() ? input_.failed : input_.partial)
      .push_back({source.id, part, FingerprintText(Analysis::FingerprintOf(std::string(text))),
                  LoadAlone(source, domains_)});
}

void InputReader::Read(const SourceArgument& source) {
  if (!paths_.insert(source.path).second) return;
  const auto document =
      std::make_shared<const Analysis::Document>(TextOf(source.path).value_or(""));
  if (const auto part = Accept(source, document)) Refuse(source, document->Text(), *part);
}

void InputReader::Add(SourceArgument source, std::string text) {
  const auto document = std::make_shared<const Analysis::Document>(std::move(text));
  const auto part = Accept(source, document);
  if (!part) return;
  // The library reports why. It loads from paths.
  const CopiedInput copied = InputFile::Holding(document->Text());
  if (!copied.file) {  // coverage: a test would have to open all files
    return Fail({source.path, copied.failure});
  }
  source.copied_from = source.path;
  source.path = copied.file->Path();
  source.input = copied.file;
  Refuse(source, document->Text(), *part);
}

Input ReadInput(const std::vector<SourceArgument>& arguments, std::istream& in,
                const DomainTable& domains) {
  InputReader reader(domains);
  for (const SourceArgument& argument : arguments) {
    const Expansion expansion = Expand(argument, in);
    for (const Unreadable& failure : expansion.failures) reader.Fail(failure);
    for (const SourceArgument& source : expansion.sources) reader.Read(source);
  }
  return reader.Take();
}

}  // namespace Zelk::Tool
