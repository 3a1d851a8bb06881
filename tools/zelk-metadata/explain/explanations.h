#pragma once

#include <string>
#include <vector>

namespace Zelk::Tool::Explain {

/// A small example that ends in the message.
struct Example {
  /// The text of a file, or empty where none is needed.
  std::string file;

  /// What is done with the file, or without one, as words of this program's command line. FILE
  /// means the file.
  std::string command;

  /// The domain whose source service is asked to load a path that does not exist; empty if there is
  /// a command.
  std::string create_in;
};

/// What is known about a message.
struct Explanation {
  std::string id;

  /// The default text.
  std::string text;

  std::string meaning;
  std::string cause;
  std::string fix;

  /// Empty for a message that nothing raises.
  Example example;

  /// The default text, or, for a message without one, the first sentence of the meaning.
  std::string Summary() const;
};

/// All messages of the library, those of the catalog in its order and then those that have no row
/// in it.
const std::vector<Explanation>& Explanations();

/// Null for an unknown id.
const Explanation* Find(const std::string& id);

}  // namespace Zelk::Tool::Explain
