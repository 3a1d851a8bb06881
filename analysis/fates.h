#pragma once

#include <vector>

#include "analysis/element.h"

// How the fates, owners and targets of elements are decided. A file of its own for what differs
// between the domains: metamodel_fates.cc, authentication_fates.cc and cli_fates.cc.

namespace Zelk::Analysis {

/// The elements of one source, of which `elements` may be given more: implied ones.
struct SourceElements {
  std::vector<Element>& elements;
  /// The first one of the source; those of later sources are not there yet.
  ElementId begin;
  /// All of the source in the order in which the library takes them.
  std::vector<ElementId>& order;
};

// Decide what becomes of elements within their own source.
void DecideMetamodel(const SourceElements& source);
void DecideAuthentication(const SourceElements& source);
void DecideCli(const SourceElements& source);

/// Marks all that is in elements that are not kept.
void LoseParts(std::vector<Element>& elements);

/// Decides which of the elements that are kept lookups of their names return. Returns these in the
/// order of their kinds, paths and names.
std::vector<ElementId> DecideShadows(std::vector<Element>& elements);

/// Whether the library has lookups for elements of the kind by their own names.
bool HasLookup(ElementKind kind);

/// The element that it is in; kNoElement for the outermost ones.
ElementId OwnerAround(const std::vector<Element>& elements, ElementId id);

}  // namespace Zelk::Analysis
