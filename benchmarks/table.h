#pragma once

#include <string>
#include <vector>

namespace Zelk::Benchmarks {

/// What a row is to reach.
struct Goal {
  enum class Kind { kNone, kAtMost, kAtLeast };

  static Goal None() { return {Kind::kNone, 0}; }

  static Goal AtMost(double value) { return {Kind::kAtMost, value}; }

  static Goal AtLeast(double value) { return {Kind::kAtLeast, value}; }

  bool IsMet(double value) const;

  Kind kind;
  double value;
};

/// The one table of results, in the order in which the rows were added.
class Table {
 public:
  struct Row {
    std::string section;
    std::string name;
    /// The two amounts, with their units, that the value was made of.
    std::string one;
    std::string other;
    /// A ratio or, where the goal is one, an amount of `unit`.
    double value;
    std::string unit;
    Goal goal;
  };

  void Add(Row row) { rows_.push_back(std::move(row)); }

  /// As a table in Markdown, which a terminal shows as well.
  std::string Text() const;

  std::size_t Missed() const;

 private:
  std::vector<Row> rows_;
};

/// Three digits and the unit that suits: 1.23 us, 45.6 ms.
std::string SecondsText(double seconds);

/// Three digits, in MB.
std::string BytesText(double bytes);

}  // namespace Zelk::Benchmarks
