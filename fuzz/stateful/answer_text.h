#pragma once

#include <string>
#include <vector>

#include <boost/optional.hpp>

#include "support/record_text.h"

// The texts in which answers are compared, where they are the same for all domains.

namespace Zelk::Fuzzing {

inline constexpr char kSilence[] = "nothing delivered";
inline constexpr char kSuccess[] = "success";
inline constexpr char kNoSuchOperation[] = "no such operation";

/// The class of an error and its messages.
inline std::string ErrorText(const std::vector<std::string>& lines) {
  std::string text = "error";
  for (const auto& line : lines) text += "\n" + line;
  return text;
}

template <typename Names>
std::string NamesText(const Names& names) {
  std::string text;
  for (const auto& name : names) text += Testing::Quoted(name) + " ";
  return "names " + text;
}

inline std::string TextBuffer(const std::string& description, int type,
                              const boost::optional<std::string>& file_path,
                              const boost::optional<std::string>& address) {
  return "source " + Testing::Quoted(description) + " " + std::to_string(type) + " " +
         Testing::Quoted(file_path) + " " + Testing::Quoted(address);
}

}  // namespace Zelk::Fuzzing
