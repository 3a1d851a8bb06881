#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/definitions.h"
#include "analysis/element_model.h"
#include "analysis/references.h"

namespace Zelk::Analysis {

struct File {
  /// As the user knows it.
  std::string name;
  Domain domain;
  /// Sources of one domain must have different ids.
  Source source;
};

/// All files, loaded together as one host would load them.
class Workspace {
 public:
  explicit Workspace(std::vector<File> files);
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;
  ~Workspace() = default;

  /// In ascending order of their names.
  const std::vector<File>& Files() const { return files_; }

  const Model& ModelOf(Domain domain) const { return models_[static_cast<std::size_t>(domain)]; }

  /// What the Metamodel files define.
  const Definitions& GetDefinitions() const { return definitions_; }

  const References& GetReferences() const { return references_; }

  /// The domains that have a file that loads.
  DomainSet Loaded() const { return loaded_; }

  /// The position in Files() of a source of a model.
  std::uint32_t FileOf(Domain domain, std::uint32_t source) const {
    return file_of_[static_cast<std::size_t>(domain)][source];
  }

 private:
  std::vector<File> files_;
  std::array<Model, 3> models_;
  Definitions definitions_;
  References references_;
  std::array<std::vector<std::uint32_t>, 3> file_of_;
  DomainSet loaded_ = 0;
};

}  // namespace Zelk::Analysis
