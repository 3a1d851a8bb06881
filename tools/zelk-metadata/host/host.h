#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/domain.h"
#include "host/file_position.h"
#include "host/source_argument.h"

namespace Zelk::Tool {

/// One thing that is wrong with a file.
struct Problem {
  Message message;

  /// Set for a syntax error.
  std::optional<FilePosition> position;
};

/// What loading a file gave.
struct LoadReport {
  std::string file;

  /// The name of the domain that loaded it.
  std::string domain;

  /// Empty for a file that was loaded.
  std::vector<Problem> problems;
};

/// "FILE: TEXT [ID]", with the position behind the file's name where there is one, and behind the
/// id the arguments that the text does not show.
std::string ProblemLine(const std::string& file, const Problem& problem);

/// Every domain of a table at work.
class Host {
 public:
  /// The table must not be empty and must outlive the host.
  explicit Host(const DomainTable& table);
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  ~Host();

  /// Loads the file into the domain that it belongs to.
  LoadReport Load(const SourceArgument& source);

  /// The kinds that the user may mean by `text`, a kind's name or its plural, with or without
  /// "DOMAIN:" before it. Domains that have loaded something come first.
  std::vector<const Kind*> FindKinds(const std::string& text) const;

  /// The names of all kinds, each once.
  Names KindNames() const;

 private:
  struct Running;

  std::vector<Running> domains_;
  const DomainTable& table_;
};

/// Loads a file all by itself, to see whether it can be loaded.
LoadReport LoadAlone(const std::string& path, const DomainTable& table);

}  // namespace Zelk::Tool
