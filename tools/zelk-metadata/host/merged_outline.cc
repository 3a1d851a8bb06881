#include "host/merged_outline.h"

#include <limits>
#include <map>
#include <tuple>

namespace Zelk::Tool {
namespace {

constexpr std::size_t kPassedOver = std::numeric_limits<std::size_t>::max();

class Merger {
 public:
  Merger() : nodes_(1) {}

  void Add(const Outline& outline) {
    ++source_;
    // The nodes that the entries before this one, one for each depth, became.
    std::vector<std::size_t> around{0};
    for (const Entry& entry : outline) {
      around.resize(entry.depth + 1);
      around.push_back(Place(entry, around.back()));
    }
  }

  Outline Write() const {
    Outline outline;
    std::vector<std::size_t> pending;
    Open(0, pending);
    while (!pending.empty()) {
      const std::size_t next = pending.back();
      pending.pop_back();
      outline.push_back(*nodes_[next].entry);
      outline.back().depth = nodes_[next].depth;
      Open(next, pending);
    }
    return outline;
  }

 private:
  struct Node {
    const Entry* entry = nullptr;
    std::size_t depth = 0;
    std::size_t source = 0;
    std::vector<std::size_t> children;
  };

  std::size_t Place(const Entry& entry, std::size_t parent) {
    if (parent == kPassedOver) return kPassedOver;
    const bool is_shadowed = parent != 0 && nodes_[parent].source != source_;
    if (entry.is_part && is_shadowed) return kPassedOver;
    const auto [found, is_new] =
        known_.try_emplace({parent, entry.subject.kind, entry.subject.ids}, nodes_.size());
    if (is_new) {
      nodes_[parent].children.push_back(nodes_.size());
      nodes_.push_back({&entry, entry.depth, source_, {}});
    }
    return found->second;
  }

  void Open(std::size_t node, std::vector<std::size_t>& pending) const {
    const auto& children = nodes_[node].children;
    pending.insert(pending.end(), children.rbegin(), children.rend());
  }

  /// The first one is what all the others are inside of.
  std::vector<Node> nodes_;
  std::map<std::tuple<std::size_t, std::string, Ids>, std::size_t> known_;
  std::size_t source_ = 0;
};

}  // namespace

Outline Merged(const std::vector<const Outline*>& outlines) {
  Merger merger;
  for (const Outline* const outline : outlines) merger.Add(*outline);
  return merger.Write();
}

std::vector<DomainOutline> MergedByDomain(const std::vector<SourceOutline>& sources) {
  std::vector<DomainOutline> domains;
  for (std::size_t i = 0; i < sources.size();) {
    const DomainRow* const row = sources[i].row;
    std::vector<const Outline*> outlines;
    for (; i < sources.size() && sources[i].row == row; ++i) {
      outlines.push_back(&sources[i].outline);
    }
    domains.push_back({row, Merged(outlines)});
  }
  return domains;
}

}  // namespace Zelk::Tool
