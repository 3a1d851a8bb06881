#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "analysis/element_model.h"
#include "analysis/options.h"
#include "analysis/workspace.h"

// Command lines as clients that are built from CLI files read them: the full name of a command as
// words, then options in any order, each with one value after it. An option that takes a list may
// be there several times. Of two options of one name the first one counts.

namespace Zelk::Analysis {

using CommandWords = std::vector<std::string>;

/// A value on a command line, and what it fills.
struct BoundValue {
  std::string_view field;
  std::string type;
  std::string value;
  /// Whether the values that the option accepts are known.
  bool is_enumerated = false;
};

/// What the words after the name of a command mean.
struct CommandLine {
  /// Why they are refused, such as "'--volts' is not an option"; empty if they are accepted.
  std::string problem;
  /// In the order of the words.
  std::vector<BoundValue> values;
};

struct CommandOption {
  /// As they are typed, with dashes; empty if they cannot be typed.
  std::string long_word;
  std::string short_word;
  std::string_view field;
  std::string type;
  /// Null if the file says something that is not a word of the format.
  const Takes* takes;
  /// The values that it accepts, if they are known.
  ElementId enumeration = kNoElement;

  const std::string& AnyWord() const { return long_word.empty() ? short_word : long_word; }
};

/// A command with its options. The workspace must outlive it.
class CommandForm {
 public:
  CommandForm(const Workspace& workspace, ElementId command);

  std::string_view Service() const { return service_; }

  std::string_view Operation() const { return operation_; }

  /// The words in front of the options.
  const CommandWords& Name() const { return name_; }

  /// The option that is typed as the word, such as '--volts', or null.
  const CommandOption* Find(const std::string& word) const;

  /// The values that the option that is typed so accepts, if it is there and they are known.
  std::vector<std::string_view> ValuesOf(const std::string& word) const;

  /// Reads the words after the name. If an option is given, typed so, only problems with it count.
  CommandLine Read(const CommandWords& words, const std::string& about = {}) const;

  /// Whether Read() is right about all words: the name can be typed, and it is known how many
  /// values each option takes.
  bool IsKnown() const { return is_known_; }

  /// The shortest words after the name that are accepted and begin with `times` times the option
  /// that is typed so, with the value unless it is empty. Empty if all such words are long, or none
  /// exist.
  std::optional<CommandWords> Shortest(const std::string& option, std::size_t times,
                                       const std::string& value = {}) const;

 private:
  void Add(const Workspace& workspace, ElementId option);
  std::vector<std::string_view> ValuesOf(const CommandOption& option) const;
  bool Accepts(const CommandOption& option, const std::string& value) const;
  /// A value that the option accepts.
  std::string ExampleOf(const CommandOption& option) const;

  const Model& metamodel_;
  std::string_view service_;
  std::string_view operation_;
  CommandWords name_;
  /// Without those that have the long name of an earlier one.
  std::vector<CommandOption> options_;
  /// Positions in options_.
  std::vector<std::size_t> required_;
  std::unordered_map<std::string, std::size_t> by_word_;
  bool is_known_ = true;
};

/// The command whose name these words are, or kNoElement.
ElementId FindCommand(const Model& cli, const CommandWords& name);

/// The words, quoted for a shell where they need it.
std::string Quoted(const CommandWords& words);

}  // namespace Zelk::Analysis
