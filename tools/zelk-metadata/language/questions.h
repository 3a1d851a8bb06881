#pragma once

#include <vector>

#include "host/host.h"

// How words are read as ids. A thing has one full id or, in the kinds that need several, several
// ids. Full ids are also understood in parts, PATH NAME for PATH.NAME, and several ids as one word.

namespace Zelk::Tool {

/// The words as the ids of one thing of the kinds.
Ids IdsOfOne(const Ids& words, const std::vector<FoundKind>& kinds);

/// The words as the ids of any number of things of the kinds, which must not be empty. What words
/// mean depends on what is loaded: two words are one thing only if they are not two. Empty if the
/// last thing lacks an id.
std::vector<Ids> IdsOfEach(const Ids& words, const std::vector<FoundKind>& kinds);

}  // namespace Zelk::Tool
