#pragma once

#include <memory>
#include <string>
#include <vector>

#include "analysis/format.h"
#include "analysis/workspace.h"

namespace Zelk::Testing {

/// The names of the files are "a", "b" and so on, as are the ids of their sources.
inline std::vector<Analysis::File> FilesOf(const std::vector<std::string>& texts) {
  std::vector<Analysis::File> files;
  for (const std::string& text : texts) {
    const auto document = std::make_shared<const Analysis::Document>(text);
    const std::string name(1, static_cast<char>('a' + files.size()));
    for (const Analysis::Domain domain : Analysis::kDomains) {
      const char* const key = Analysis::FormatOf(domain).root_key;
      if (document->Find(Analysis::kRootNode, key) == Analysis::kNoNode) continue;
      files.push_back({name, domain, {name, document}});
    }
  }
  return files;
}

}  // namespace Zelk::Testing
