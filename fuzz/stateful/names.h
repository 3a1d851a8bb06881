#pragma once

#include <array>
#include <string>

// What documents are written with and questions asked about. The pools are small, so that names
// meet again within a file, across files and across levels.

namespace Zelk::Fuzzing {

/// A text with a zero byte inside.
inline std::string WithZero(const std::string& before, const std::string& after) {
  return before + '\0' + after;
}

/// A name that no document has.
inline const std::string kUnknownName = "unknown";

inline const std::array<std::string, 5> kNames = {"a", "a.b", "", WithZero("a", "b"), "\xc3\xa9"};
inline const std::array<std::string, 5> kResources = {"r", "s", "", WithZero("r", "s"), "r.s"};
inline const std::array<std::string, 5> kSourceIds = {"b", "B", "", WithZero("b", ""), "\xc3\xa9"};

inline const std::array<std::string, 4> kPackages = {"p", "p.q", WithZero("p", "q"), "\xc3\xa9"};
inline const std::array<std::string, 6> kServices = {"p.s", "p.q.s",      WithZero("p", "q.") + "s",
                                                     "p.q", "\xc3\xa9.s", "p..s"};
inline const std::array<std::string, 4> kOperations = {"o", "n", WithZero("o", "n"), "s"};
inline const std::array<std::string, 4> kBadIds = {"", "s", ".s", "p."};

inline const std::array<std::string, 6> kPaths = {"", "a", "a.b", ".", "a.", WithZero("a", ".b")};
inline const std::array<std::string, 4> kLeaves = {"", "a", "b", WithZero("b", "c")};

}  // namespace Zelk::Fuzzing
