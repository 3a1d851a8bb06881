#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "host.h"
#include "random_text.h"

namespace Zelk::Benchmarks {

/// What a lookup asks for: an id and, for operations and the nodes of CLI, one within it.
struct Key {
  std::string id;
  std::string inner;
};

enum class Aim {
  /// Names drawn evenly from all sources.
  kUniformHits,
  /// Names of the source that walks come to last.
  kLastHits,
  /// Names that are none: half of them in a known component, half in an unknown one.
  kMisses,
};

const char* NameOf(Aim aim);

/// One Info operation of a container, with what to ask it for.
struct Lookup {
  std::string name;
  /// Whether it is to stay short however many sources there are.
  bool has_goal;
  std::vector<Key> keys;
  /// Asks so many times, for one key after the other, and returns how often there was an answer.
  std::function<std::size_t(std::size_t)> ask;
};

/// One List operation; returns how many names it listed.
struct Listing {
  std::string name;
  std::function<std::size_t()> list;
};

/// Every lookup of the domain in `container`, each for `count` keys. `last` has only the source
/// that is the last in `container`.
template <typename Container>
std::vector<Lookup> Lookups(const std::shared_ptr<Container>& container,
                            const std::shared_ptr<Container>& last, Aim aim, std::size_t count,
                            RandomText& random);

template <typename Container>
std::vector<Listing> Listings(const std::shared_ptr<Container>& container);

}  // namespace Zelk::Benchmarks
