#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace Zelk::Provider::Metadata {

/// What a filter remembers of a name of a certain kind. A query makes it once for all sources.
class NameMark {
 public:
  NameMark(unsigned kind, std::string_view name);

  /// Of a name in two parts.
  NameMark(unsigned kind, std::string_view path, std::string_view name);

 private:
  friend class NameFilter;

  using Block = std::array<std::uint64_t, 2>;

  NameMark(unsigned kind, std::uint64_t hash);

  /// Where among the blocks of a filter, as a fraction of 2^32. It does not depend on the kind: a
  /// lookup that asks for several kinds of one name looks at one place.
  std::uint64_t position_;
  /// The bits that the name sets in its block.
  Block bits_;
};

/// A summary of a set of names, to pass over what does not hold a name without looking into it: a
/// Bloom filter whose every name has all its bits in one block, so that one look at memory tells.
/// It takes 4 bytes a name. Fewer than one in 5,000 names that are not in the set pass for one of
/// it.
class NameFilter {
 public:
  /// Of no names at all.
  NameFilter() = default;

  explicit NameFilter(const std::vector<NameMark>& names);

  /// False only for a name that is not in the set.
  bool MayHold(const NameMark& name) const {
    if (blocks_.empty()) return false;
    const NameMark::Block& block = blocks_[IndexOf(name)];
    return ((name.bits_[0] & ~block[0]) | (name.bits_[1] & ~block[1])) == 0;
  }

 private:
  std::size_t IndexOf(const NameMark& name) const { return name.position_ * blocks_.size() >> 32; }

  std::vector<NameMark::Block> blocks_;
};

}  // namespace Zelk::Provider::Metadata
