#include "check/formats.h"

namespace Zelk::Tool {

std::optional<bool> WalkDocument(Walk& walk, const std::string& domain) {
  if (domain == "metamodel") return WalkMetamodel(walk);
  if (domain == "authentication") return WalkAuthentication(walk);
  if (domain == "cli") return WalkCli(walk);
  return std::nullopt;
}

}  // namespace Zelk::Tool
