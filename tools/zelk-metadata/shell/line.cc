#include "shell/line.h"

#include <cstdlib>

namespace Zelk::Tool::Shell {
namespace {

constexpr char kSpecial[] = " \t\\'\"#~";

bool IsBlank(char character) {
  return character == ' ' || character == '\t' || character == '\r';
}

/// Whether a path in the home folder begins there: "~/" where the word does, or after "ID=".
bool IsHome(const std::string& line, std::size_t word_begin, std::size_t at) {
  const bool is_begin = at == word_begin || line[at - 1] == '=';
  return is_begin && line.compare(at, 2, "~/") == 0 && std::getenv("HOME") != nullptr;
}

/// Reads the word at `at` and moves past it.
std::string TakeWord(const std::string& line, std::size_t& at, bool& is_open) {
  std::string word;
  const std::size_t begin = at;
  char quote = '\0';
  for (; at < line.size() && (quote != '\0' || !IsBlank(line[at])); ++at) {
    const char character = line[at];
    const bool is_escape = character == '\\' && quote != '\'';
    if (is_escape && at + 1 < line.size()) {
      word += line[++at];
    } else if (quote == '\0' && (character == '\'' || character == '"')) {
      quote = character;
    } else if (character == quote) {
      quote = '\0';
    } else if (quote == '\0' && IsHome(line, begin, at)) {
      word += std::getenv("HOME");
    } else {
      word += character;
    }
  }
  is_open = quote != '\0';
  return word;
}

}  // namespace

SplitLine Split(const std::string& line) {
  SplitLine split;
  std::size_t at = 0;
  for (;;) {
    while (at < line.size() && IsBlank(line[at])) ++at;
    split.last_word = at;
    split.is_comment = at < line.size() && line[at] == '#';
    if (at == line.size() || split.is_comment) return split;
    split.words.push_back(TakeWord(line, at, split.is_open));
    if (at == line.size()) return split;
  }
}

std::string Quoted(const std::string& word) {
  if (word.empty()) return "''";
  std::string quoted;
  for (const char character : word) {
    if (std::string(kSpecial).find(character) != std::string::npos) quoted += '\\';
    quoted += character;
  }
  return quoted;
}

}  // namespace Zelk::Tool::Shell
