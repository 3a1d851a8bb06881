#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "analysis/workspace.h"
#include "render/json_writer.h"

namespace Zelk::Tool::Docs {

/// Counts the elements and the sources of all domains in one row.
class Numbers {
 public:
  explicit Numbers(const Analysis::Workspace& workspace);

  std::uint64_t Of(Analysis::Domain domain, Analysis::ElementId id) const {
    return elements_.at(static_cast<std::size_t>(domain)) + id;
  }

  /// One more than the number; 0 for kNoElement.
  std::uint64_t OrZero(Analysis::Domain domain, Analysis::ElementId id) const {
    return id == Analysis::kNoElement ? 0 : Of(domain, id) + 1;
  }

  std::uint64_t FirstSource(Analysis::Domain domain) const {
    return sources_.at(static_cast<std::size_t>(domain));
  }

 private:
  std::array<std::uint64_t, 3> elements_{};
  std::array<std::uint64_t, 3> sources_{};
};

/// Every text once, with a number.
class Texts {
 public:
  std::uint64_t Add(std::string_view text);

  /// As an array, in the order of their numbers.
  void Write(Render::JsonWriter& json) const;

 private:
  std::deque<std::string> texts_;
  std::unordered_map<std::string_view, std::uint64_t> numbers_;
};

/// What an element has besides a name, in numbers. page/model.js describes it for each kind.
using Detail = std::vector<std::uint64_t>;

/// Every detail once, with a number. That of an empty one is 0.
class Details {
 public:
  std::uint64_t Add(Detail detail);

  /// As an array of arrays, in the order of their numbers.
  void WriteRows(Render::JsonWriter& json) const;

 private:
  std::map<Detail, std::size_t> numbers_{{{}, 0}};
};

/// An element as an odd number; the name of something that is not loaded as an even one.
std::uint64_t LinkTo(const Numbers& numbers, Texts& texts, const Analysis::DomainElement& target,
                     std::string_view name);

/// What details refer to.
struct DetailContext {
  const Analysis::Workspace& workspace;
  const Numbers& numbers;
  Texts& texts;
};

Detail DetailOf(const DetailContext& context, const Analysis::Model& model, Analysis::ElementId id);

}  // namespace Zelk::Tool::Docs
