#include "analysis_files.h"

#include <cstring>
#include <memory>
#include <stdexcept>
#include <utility>

#include "analysis/diff/compare.h"
#include "analysis/lint/lint.h"
#include "tests/support/file_text.h"

namespace Zelk::Benchmarks {
namespace {

Analysis::Domain DomainOf(DomainId domain) {
  switch (domain) {
    case DomainId::kMetamodel:
      return Analysis::Domain::kMetamodel;
    case DomainId::kAuthentication:
      return Analysis::Domain::kAuthentication;
    case DomainId::kCli:
      break;
  }
  return Analysis::Domain::kCli;
}

/// The text with a blank after each bracket, colon and comma.
std::string Spaced(const std::string& text) {
  std::string spaced;
  spaced.reserve(text.size() + text.size() / 4);
  bool is_quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    spaced += text[i];
    if (is_quoted && text[i] == '\\') {
      spaced += text[++i];
    } else if (text[i] == '"') {
      is_quoted = !is_quoted;
    } else if (!is_quoted && std::strchr("{[:,", text[i]) != nullptr) {
      spaced += ' ';
    }
  }
  return spaced;
}

/// A key whose values are texts that callers see.
std::string TextKey(DomainId domain) {
  switch (domain) {
    case DomainId::kMetamodel:
      return "\"documentation\"";
    case DomainId::kAuthentication:
      return "\"authenticationScheme\"";
    case DomainId::kCli:
      break;
  }
  return "\"description\"";
}

std::string Edited(DomainId domain, const std::string& text, Edit edit) {
  if (edit == Edit::kBlanks) return Spaced(text);
  const std::string key = TextKey(domain);
  std::string edited;
  std::size_t begin = 0;
  for (std::size_t at = text.find(key); at != std::string::npos; at = text.find(key, at + 1)) {
    // The first byte of the value that follows.
    const std::size_t value = text.find('"', at + key.size()) + 1;
    edited.append(text, begin, value - begin).append("X");
    begin = value;
    if (edit == Edit::kOne) break;
  }
  return edited.append(text, begin, std::string::npos);
}

template <typename Change>
std::vector<Analysis::File> FilesOf(DomainId domain, const std::vector<std::string>& paths,
                                    const Change& change) {
  std::vector<Analysis::File> files;
  for (const std::string& path : paths) {
    auto document = std::make_shared<const Analysis::Document>(change(Testing::FileText(path)));
    files.push_back({path, DomainOf(domain), {path, std::move(document)}});
  }
  return files;
}

void ExpectLoaded(const Analysis::Workspace& workspace) {
  if (workspace.Loaded() == 0) throw std::runtime_error("a file that was made here does not load");
}

}  // namespace

std::size_t LintFiles(DomainId domain, const std::vector<std::string>& paths) {
  const Analysis::Lint::Workspace workspace(
      FilesOf(domain, paths, [](std::string text) { return text; }));
  ExpectLoaded(workspace);
  return Lint(workspace, Analysis::Lint::DefaultRules()).findings.size();
}

Versions::Versions(DomainId domain, const std::vector<std::string>& paths, Edit edit)
    : old_version_(FilesOf(domain, paths, [](std::string text) { return text; })),
      new_version_(FilesOf(domain, paths,
                           [&](const std::string& text) { return Edited(domain, text, edit); })) {
  ExpectLoaded(old_version_);
  ExpectLoaded(new_version_);
}

std::size_t Versions::Compare() const {
  return Analysis::Diff::Compare(old_version_, new_version_).changes.size();
}

}  // namespace Zelk::Benchmarks
