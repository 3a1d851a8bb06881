#pragma once

#include <cstdint>
#include <list>
#include <string>

#include <boost/optional.hpp>

#include <zelk/export.h>

namespace Zelk {

/// A catalogued message: an id, the English text with the placeholders "%1%", "%2%", and so on, and
/// the arguments that fill them. The text is never rendered here: text and arguments travel side by
/// side, so that whoever shows the message can translate it first.
class ZELK_CORE_EXPORT BaseMessage {
 public:
  BaseMessage(std::string id, std::string default_text);

  const std::string& Id() const;
  const std::string& DefaultText() const;

  /// In the order applied: the first one fills "%1%".
  const std::list<std::string>& Arguments() const;

  /// Each appends the text of one argument and returns *this. Strings are taken byte for byte. A
  /// number becomes its decimal digits. An optional becomes one blank followed by its value, or
  /// "--" when it is empty. How many placeholders the text has is not checked.
  BaseMessage& operator%(const std::string& argument);
  BaseMessage& operator%(const char* argument);
  BaseMessage& operator%(std::uint64_t argument);
  BaseMessage& operator%(const boost::optional<std::string>& argument);

 private:
  std::string id_;
  std::string default_text_;
  std::list<std::string> arguments_;
};

/// A message of the catalog that the tag class Service stands for. It adds no data to BaseMessage,
/// so keeping one as a BaseMessage loses nothing.
template <typename Service>
class Message : public BaseMessage {
 public:
  explicit Message(const std::string& id) : BaseMessage(id, DefaultMessageForId(id)) {}

  /// The text of the given id in Service's catalog. The library that owns Service defines it, as an
  /// explicit specialization.
  static std::string DefaultMessageForId(const std::string& id);
};

}  // namespace Zelk
