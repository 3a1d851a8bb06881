#include "host/merged_outline.h"

#include <functional>
#include <limits>
#include <unordered_set>

namespace Zelk::Tool {
namespace {

constexpr std::size_t kPassedOver = std::numeric_limits<std::size_t>::max();

class Merger {
 public:
  explicit Merger(std::size_t entries) {
    nodes_.reserve(entries + 1);
    known_.reserve(entries);
    nodes_.emplace_back();
  }

  void Add(Outline& outline) {
    ++source_;
    // The nodes that the entries before this one, one for each depth, became.
    std::vector<std::size_t> around{0};
    for (Entry& entry : outline) {
      around.resize(entry.depth + 1);
      around.push_back(Place(entry, around.back()));
    }
  }

  Outline Write() {
    Outline outline;
    outline.reserve(nodes_.size());
    for (std::size_t node = After(0); node != 0; node = After(node)) {
      outline.push_back(std::move(*nodes_[node].entry));
    }
    return outline;
  }

 private:
  struct Node {
    Entry* entry = nullptr;
    std::size_t source = 0;
    std::size_t parent = 0;
    // 0 for none.
    std::size_t first_child = 0;
    std::size_t last_child = 0;
    std::size_t next = 0;
  };

  std::size_t Place(Entry& entry, std::size_t parent) {
    if (parent == kPassedOver) return kPassedOver;
    const bool is_shadowed = parent != 0 && nodes_[parent].source != source_;
    if (entry.is_part && is_shadowed) return kPassedOver;
    nodes_.push_back({&entry, source_, parent});
    const auto [known, is_new] = known_.insert(nodes_.size() - 1);
    if (is_new) {
      Append(*known);
    } else {
      nodes_.pop_back();
    }
    return *known;
  }

  void Append(std::size_t node) {
    Node& parent = nodes_[nodes_[node].parent];
    (parent.last_child == 0 ? parent.first_child : nodes_[parent.last_child].next) = node;
    parent.last_child = node;
  }

  /// The node after this one and before those that are not inside of it; 0 at the end.
  std::size_t After(std::size_t node) const {
    if (nodes_[node].first_child != 0) return nodes_[node].first_child;
    while (node != 0 && nodes_[node].next == 0) node = nodes_[node].parent;
    return nodes_[node].next;
  }

  /// By the parent, the kind and the ids of a node.
  struct Hash {
    const std::vector<Node>& nodes;

    std::size_t operator()(std::size_t node) const {
      const Subject& subject = nodes[node].entry->subject;
      // Where std::size_t has 32 bits, the lower half of the factor spreads as well.
      constexpr auto kSpread = static_cast<std::size_t>(0x9e3779b97f4a7c15);
      return std::hash<std::string>()(subject.ids.back()) ^ (nodes[node].parent * kSpread);
    }
  };

  struct Equal {
    const std::vector<Node>& nodes;

    bool operator()(std::size_t left, std::size_t right) const {
      const Subject& one = nodes[left].entry->subject;
      const Subject& other = nodes[right].entry->subject;
      return nodes[left].parent == nodes[right].parent && one.kind == other.kind &&
             one.ids == other.ids;
    }
  };

  /// The first one is what all the others are inside of.
  std::vector<Node> nodes_;
  std::unordered_set<std::size_t, Hash, Equal> known_{0, Hash{nodes_}, Equal{nodes_}};
  std::size_t source_ = 0;
};

}  // namespace

Outline Merged(const std::vector<Outline*>& outlines) {
  std::size_t entries = 0;
  for (const Outline* const outline : outlines) entries += outline->size();
  Merger merger(entries);
  for (Outline* const outline : outlines) merger.Add(*outline);
  return merger.Write();
}

std::vector<DomainOutline> MergedByDomain(std::vector<SourceOutline> sources) {
  std::vector<DomainOutline> domains;
  for (std::size_t i = 0; i < sources.size();) {
    const DomainRow* const row = sources[i].row;
    std::vector<Outline*> outlines;
    for (; i < sources.size() && sources[i].row == row; ++i) {
      outlines.push_back(&sources[i].outline);
    }
    domains.push_back({row, Merged(outlines)});
  }
  return domains;
}

}  // namespace Zelk::Tool
