#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "analysis/element_model.h"
#include "analysis/workspace.h"

namespace Zelk::Analysis {

/// What something is said about.
struct Place {
  Domain domain;
  /// The position of the source in the model of the domain.
  std::uint32_t source;
  /// kNoElement for the file as a whole.
  ElementId element;
  /// What is to be looked at, and the byte where that begins: a value, or the key of a member.
  NodeId node;
  std::uint32_t offset;
};

/// Where the element has its name, or if it has none, where it begins.
Place PlaceOf(const Model& model, ElementId id);

/// A value that belongs to the element.
Place PlaceOf(const Model& model, ElementId element, NodeId value);

/// The key of a member that belongs to the element.
Place PlaceOfKey(const Model& model, ElementId element, NodeId member);

/// Names the element of the place without any position; the name of the domain for a whole file.
std::string PathOf(const Workspace& workspace, const Place& place);

/// The document of the place.
const Document& DocumentOf(const Workspace& workspace, const Place& place);

/// Calls `look(id)` with each element of the kind that is written in a file.
template <typename Look>
void ForEachElement(const Model& model, ElementKind kind, const Look& look) {
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (model[id].kind == kind && !model[id].is_implied) look(id);
  }
}

/// The text, or its ends if it is longer than `most` bytes.
std::string Shortened(std::string_view text, std::size_t most = 200);

/// "the service 'c.p.s'".
std::string Called(const Model& model, ElementId id);

/// The text under a key of the element's node, or an empty text.
std::string_view TextOf(const Model& model, ElementId id, const char* key);

}  // namespace Zelk::Analysis
