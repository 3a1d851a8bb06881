#pragma once

#include <cstdint>
#include <list>
#include <string>

#include <boost/optional.hpp>

#include <zelk/export.h>

namespace Zelk {

/// A message of a catalog: an id, the English text with the placeholders "%1%", "%2%" and so on,
/// and the arguments for them. The arguments are not filled in here, so that the program that shows
/// the message can translate the text first. <zelk/data/values.h> shows how to read the messages of
/// an error.
class ZELK_CORE_EXPORT BaseMessage {
 public:
  BaseMessage(std::string id, std::string default_text);

  const std::string& Id() const;

  /// Returns the English text with its placeholders.
  const std::string& DefaultText() const;

  /// Returns the arguments in the order in which they were added. The first one is for "%1%".
  const std::list<std::string>& Arguments() const;

  /// Each of these adds one argument and returns *this. A string is added as it is, a number as its
  /// decimal digits. An optional is added as one blank and its value, or as "--" if it is empty.
  /// The number of arguments is not compared with the number of placeholders.
  BaseMessage& operator%(const std::string& argument);
  BaseMessage& operator%(const char* argument);
  BaseMessage& operator%(std::uint64_t argument);
  BaseMessage& operator%(const boost::optional<std::string>& argument);

 private:
  std::string id_;
  std::string default_text_;
  std::list<std::string> arguments_;
};

/// A message of the catalog that belongs to the tag class Service. It has no data of its own, so it
/// can be copied to a BaseMessage without loss.
template <typename Service>
class Message : public BaseMessage {
 public:
  /// Takes the text from DefaultMessageForId.
  explicit Message(const std::string& id) : BaseMessage(id, DefaultMessageForId(id)) {}

  /// Returns the text of the id in Service's catalog. The library that owns Service defines it, as
  /// an explicit specialization.
  static std::string DefaultMessageForId(const std::string& id);
};

}  // namespace Zelk
