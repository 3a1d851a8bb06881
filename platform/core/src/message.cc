#include <utility>

#include <boost/lexical_cast.hpp>
#include <boost/optional/optional_io.hpp>

#include <zelk/message.h>

namespace Zelk {

BaseMessage::BaseMessage(std::string id, std::string default_text)
    : id_(std::move(id)), default_text_(std::move(default_text)) {}

const std::string& BaseMessage::Id() const {
  return id_;
}

const std::string& BaseMessage::DefaultText() const {
  return default_text_;
}

const std::list<std::string>& BaseMessage::Arguments() const {
  return arguments_;
}

BaseMessage& BaseMessage::operator%(const std::string& argument) {
  arguments_.push_back(argument);
  return *this;
}

BaseMessage& BaseMessage::operator%(const char* argument) {
  arguments_.emplace_back(argument);
  return *this;
}

BaseMessage& BaseMessage::operator%(std::uint64_t argument) {
  // Not with a stream: the host's locale may group digits, and clients parse the numbers.
  arguments_.push_back(std::to_string(argument));
  return *this;
}

BaseMessage& BaseMessage::operator%(const boost::optional<std::string>& argument) {
  // Intended(optional-argument-blank): the text that the optional has in a stream, blank included.
  arguments_.push_back(boost::lexical_cast<std::string>(argument));
  return *this;
}

}  // namespace Zelk
