#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace Zelk::Provider::Metadata {

/// The hash of a name of a certain kind, as filters use it. A query makes it once for all sources.
class NameMark {
 public:
  NameMark(unsigned kind, std::string_view name);

  /// The mark of a name in two parts.
  NameMark(unsigned kind, std::string_view path, std::string_view name);

 private:
  friend class NameFilter;

  using Block = std::array<std::uint64_t, 2>;

  NameMark(unsigned kind, std::uint64_t hash);

  /// The position among the blocks of a filter, as a fraction of 2^32. It does not depend on the
  /// kind, so a lookup of several kinds of one name reads one block.
  std::uint64_t position_;
  /// The bits that the name sets in its block.
  Block bits_;
};

/// A Bloom filter of a set of names, to skip a source that does not hold a name. All bits of a name
/// are in one block, so a query touches one cache line. Uses 4 bytes for each name; the
/// false-positive rate is below 1 in 5,000.
class NameFilter {
 public:
  /// The filter of no names.
  NameFilter() = default;

  explicit NameFilter(const std::vector<NameMark>& names);

  /// Returns false only for a name that is not in the set.
  bool MayHold(const NameMark& name) const {
    if (blocks_.empty()) return false;
    const NameMark::Block& block = blocks_[IndexOf(name)];
    return ((name.bits_[0] & ~block[0]) | (name.bits_[1] & ~block[1])) == 0;
  }

 private:
  std::size_t IndexOf(const NameMark& name) const {
    return static_cast<std::size_t>(name.position_ * blocks_.size() >> 32);
  }

  std::vector<NameMark::Block> blocks_;
};

}  // namespace Zelk::Provider::Metadata
