#include "host/named_place.h"

#include <cstddef>

namespace Zelk::Tool {
namespace {

/// The pointers of values deep in a file are as long as the file is deep, and there may be many.
std::optional<std::string> PointerOf(const Analysis::Document& document, Analysis::NodeId node) {
  constexpr std::size_t kMostBytes = 10'000;
  std::size_t bytes = 0;
  for (auto around = node; around != Analysis::kNoNode; around = document[around].parent) {
    bytes += 1 + document[around].key_end - document[around].key_begin;
    if (bytes > kMostBytes) return std::nullopt;
  }
  return document.Pointer(node);
}

}  // namespace

NamedPlace NamedPlaceOf(const Analysis::Workspace& workspace, const Analysis::Place& place) {
  const Analysis::Document& document = DocumentOf(workspace, place);
  return {workspace.Files()[workspace.FileOf(place.domain, place.source)].name,
          document.PositionAt(place.offset), PointerOf(document, place.node)};
}

}  // namespace Zelk::Tool
