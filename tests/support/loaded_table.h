#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <boost/optional.hpp>

#include "common/sources/source_registry.h"
#include "support/temp_folder.h"

// For tests that hold lookups against walks that leave nothing out.

namespace Zelk::Testing {

/// A container and, from the same files, a table of sources of its own, which a test can see.
template <typename Domain, typename Container>
class LoadedTable {
 public:
  using Source = typename Domain::SourceData;
  using Spec = typename Domain::CreateSpec;

  void Create(const std::string& id, const std::string& file) {
    folder_.Write(id, file);
    const auto spec = SpecOf(id);
    if (container_.CreateSource(id, spec)) throw std::invalid_argument("no source: " + file);
    Load(id);
  }

  void Reload(const std::string& id, const std::string& file) {
    folder_.Write(id, file);
    container_.ReloadSource(id);
    Load(id);
  }

  void Delete(const std::string& id) {
    container_.DeleteSource(id);
    table_.erase(id);
  }

  const Container& Lookups() const { return container_; }

  /// In ascending id order.
  const std::map<std::string, std::shared_ptr<const Source>>& Table() const { return table_; }

 private:
  std::shared_ptr<const Spec> SpecOf(const std::string& id) const {
    return std::make_shared<const Spec>("", ::Com::Orvane::Zelk::Metadata::SourceType::LOCAL_FILE,
                                        folder_.Path(id), boost::none);
  }

  void Load(const std::string& id) {
    Provider::Metadata::ErrorPtr error;
    table_[id] = Provider::Metadata::LoadSource<Domain>(SpecOf(id), error);
  }

  TempFolder folder_;
  Container container_;
  std::map<std::string, std::shared_ptr<const Source>> table_;
};

/// Creates, reloads and deletes random sources, with `make_file()` giving their files, and calls
/// `check()` after every change.
template <typename Table, typename Random, typename MakeFile, typename Check>
void ChangeAtRandom(Table& table, Random& random, const MakeFile& make_file, const Check& check) {
  for (int change = 0; change < 60; ++change) {
    const std::string id(1, static_cast<char>('a' + random() % 12));
    if (table.Table().count(id) == 0) {
      table.Create(id, make_file());
    } else if (random() % 2 == 0) {
      table.Reload(id, make_file());
    } else {
      table.Delete(id);
    }
    check();
  }
}

}  // namespace Zelk::Testing
