#include "lint_files.h"

#include <memory>
#include <stdexcept>
#include <utility>

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

}  // namespace

std::size_t LintFiles(DomainId domain, const std::vector<std::string>& paths) {
  std::vector<Analysis::File> files;
  for (const std::string& path : paths) {
    auto document = std::make_shared<const Analysis::Document>(Testing::FileText(path));
    files.push_back({path, DomainOf(domain), {path, std::move(document)}});
  }
  const Analysis::Lint::Workspace workspace(std::move(files));
  if (workspace.Loaded() == 0) throw std::runtime_error("a file that was made here does not load");
  return Lint(workspace, Analysis::Lint::DefaultRules()).findings.size();
}

}  // namespace Zelk::Benchmarks
