#include "common/sources/name_filter.h"

#include <functional>

#include "common/sources/wide_hash.h"

namespace Zelk::Provider::Metadata {
namespace {

constexpr std::size_t kNamesInBlock = 4;

/// More bits would raise the false-positive rate of full blocks, fewer bits that of the others.
constexpr int kBitsInWord = 4;

std::uint64_t Hash(std::string_view text) {
  return WideHash(std::hash<std::string_view>()(text));
}

}  // namespace

NameMark::NameMark(unsigned kind, std::string_view name) : NameMark(kind, Hash(name)) {}

NameMark::NameMark(unsigned kind, std::string_view path, std::string_view name)
    : NameMark(kind, Hash(path) * kSpread + Hash(name)) {}

NameMark::NameMark(unsigned kind, std::uint64_t hash) : position_(hash >> 32), bits_{} {
  std::uint64_t choices = (hash ^ kind) * kSpread;
  choices ^= choices >> 32;
  choices *= kSpread;
  for (auto& word : bits_) {
    for (int bit = 0; bit < kBitsInWord; ++bit) {
      word |= std::uint64_t{1} << (choices >> 58);
      choices <<= 6;
    }
  }
}

NameFilter::NameFilter(const std::vector<NameMark>& names)
    : blocks_((names.size() + kNamesInBlock - 1) / kNamesInBlock) {
  for (const auto& name : names) {
    auto& block = blocks_[IndexOf(name)];
    for (std::size_t word = 0; word < block.size(); ++word) block[word] |= name.bits_[word];
  }
}

}  // namespace Zelk::Provider::Metadata
