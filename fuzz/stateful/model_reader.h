#pragma once

#include <list>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include "stateful/json_tree.h"

namespace Zelk::Fuzzing {

/// Thrown where the reading of a part of a document ends early.
struct GivenUp {};

/// The texts of an enumeration in their order.
using Enumerators = std::vector<std::string>;

/// Reads members of a document as the model understands the file formats, and collects what is to
/// be said about them. What a value must be it demands, or gives up.
class ModelReader {
 public:
  const std::vector<std::string>& Messages() const { return messages_; }

  void Say(const std::string& id, const std::list<std::string>& arguments);
  [[noreturn]] void GiveUp(const std::string& id, const std::list<std::string>& arguments);

  /// The first member of that name, compared up to the first zero byte; null when there is none.
  static const Json* Find(const Json& object, const std::string& key);

  /// As above; records a message if there is none.
  const Json* FindAloud(const Json& object, const std::string& key);

  const Json& Required(const Json& object, const std::string& key, Json::Kind kind);

  /// Null for an absent member, which is said all the same.
  const Json* Optional(const Json& object, const std::string& key, Json::Kind kind);

  std::string Text(const Json& object, const std::string& key);
  boost::optional<std::string> OptionalText(const Json& object, const std::string& key);

  /// The elements of an array, of an object's member.
  const std::vector<Json>& Elements(const Json& object, const std::string& key);

  /// The enumerator that a text names in any case; gives up for one that is not there.
  std::string Enumerator(const Json& object, const std::string& key, const Enumerators& known,
                         const std::string& alias = "", const std::string& alias_of = "");

 private:
  std::vector<std::string> messages_;
};

/// In upper case, ASCII letters only.
std::string Upper(std::string text);

bool Contains(const Enumerators& texts, const std::string& text);

}  // namespace Zelk::Fuzzing
