#include "analysis/workspace.h"

#include <algorithm>
#include <utility>

namespace Zelk::Analysis {
namespace {

std::vector<File> Sorted(std::vector<File> files) {
  std::sort(files.begin(), files.end(),
            [](const File& left, const File& right) { return left.name < right.name; });
  return files;
}

Model ModelFrom(const std::vector<File>& files, Domain domain) {
  std::vector<Source> sources;
  for (const File& file : files) {
    if (file.domain == domain) sources.push_back(file.source);
  }
  return {domain, std::move(sources)};
}

std::vector<std::uint32_t> PositionsOf(const Model& model, const std::vector<File>& files) {
  std::vector<std::uint32_t> positions(model.Sources().size());
  for (std::uint32_t file = 0; file < files.size(); ++file) {
    if (files[file].domain != model.GetDomain()) continue;
    const auto& sources = model.Sources();
    const auto source =
        std::lower_bound(sources.begin(), sources.end(), files[file].source.id,
                         [](const Source& left, const std::string& id) { return left.id < id; });
    positions[static_cast<std::size_t>(source - sources.begin())] = file;
  }
  return positions;
}

}  // namespace

Workspace::Workspace(std::vector<File> files)
    : files_(Sorted(std::move(files))),
      models_{ModelFrom(files_, Domain::kMetamodel), ModelFrom(files_, Domain::kAuthentication),
              ModelFrom(files_, Domain::kCli)},
      definitions_(ModelOf(Domain::kMetamodel)),
      references_(
          {ModelOf(Domain::kMetamodel), ModelOf(Domain::kAuthentication), ModelOf(Domain::kCli)},
          definitions_) {
  for (const Model& model : models_) {
    const auto domain = static_cast<std::size_t>(model.GetDomain());
    file_of_.at(domain) = PositionsOf(model, files_);
    for (std::size_t source = 0; source < model.Sources().size(); ++source) {
      if (model.Loads(source)) loaded_ |= SetOf(model.GetDomain());
    }
  }
}

}  // namespace Zelk::Analysis
