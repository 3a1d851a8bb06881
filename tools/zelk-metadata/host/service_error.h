#pragma once

#include <string>
#include <vector>

#include <zelk/data/values.h>

namespace Zelk::Tool {

/// One message of an error.
struct Message {
  std::string id;
  std::string default_text;
  std::vector<std::string> arguments;

  /// The default text with "%1%", "%2%", ... replaced by the arguments. A placeholder without an
  /// argument stays; placeholders within an argument are its text.
  std::string Text() const;

  /// The arguments that no placeholder of the text shows, as those of a message that the catalog
  /// does not know.
  std::vector<std::string> UnshownArguments() const;

  /// "ID", or "ID: ARGUMENT, ..." with the arguments that the text does not show.
  std::string IdText() const;
};

/// What a service delivered in place of an answer.
struct ServiceError {
  /// The type's name, such as "com.orvane.zelk.std.errors.not_found".
  std::string name;

  /// Never empty: for an error without messages, its name serves as text and id of the only one.
  std::vector<Message> messages;

  static ServiceError From(const Data::ErrorValue& value);

  /// For a service that violated its contract and delivered neither an answer nor an error.
  static ServiceError NoAnswer();
};

}  // namespace Zelk::Tool
