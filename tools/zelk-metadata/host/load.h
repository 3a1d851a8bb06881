#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/document.h"
#include "host/domain.h"
#include "host/problem.h"
#include "host/source_argument.h"

namespace Zelk::Tool {

/// The bytes of the file; empty for anything but a regular file, for a file that cannot be read and
/// for one that is too large to be loaded.
std::optional<std::string> TextOf(const std::string& path);

/// What loading a file gave.
struct LoadReport {
  std::string file;

  /// The name of the domain that loaded it; empty for a file that belongs to none.
  std::string domain;

  /// The messages of the library, in its order, and then what else is wrong. Empty for a file that
  /// was loaded whole; warnings for one of which something is left out.
  std::vector<Problem> problems;

  /// The text of the file; set if there is a problem with a place.
  std::shared_ptr<const Analysis::Document> text = nullptr;

  /// Whether the file was loaded, if only a part of it.
  bool IsLoaded() const;
};

/// How much is found out about a file.
enum class Care {
  /// What the library reports, and which parts of a file it leaves out without a message. Costs
  /// next to nothing if the file is loaded.
  kLoad,
  /// All mistakes, as far as the rest of the file can still be understood.
  kCheck,
};

/// Loads the file with the domain's source service, and finds the places of what the library has to
/// say about it.
LoadReport LoadInto(Domain& domain, const DomainRow& row, const SourceArgument& source,
                    const DomainTable& table, Care care = Care::kLoad);

/// What the library left out of a source that it has loaded: warnings.
std::vector<Problem> LeftOutOf(const std::string& path, const DomainRow& row,
                               const DomainTable& table);

/// The domain that the file belongs to. A file that cannot be read is the first one's, whose
/// service reports why. Null for a file that belongs to none, which the report says then. The table
/// must not be empty.
const DomainRow* DomainOf(const std::string& path, const DomainTable& table, LoadReport& report);

/// Checks a file: loads it by itself.
LoadReport LoadAlone(const SourceArgument& source, const DomainTable& table);

}  // namespace Zelk::Tool
