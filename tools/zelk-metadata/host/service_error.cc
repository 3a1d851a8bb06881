#include "host/service_error.h"

#include <charconv>
#include <cstddef>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <memory>

namespace Zelk::Tool {
namespace {

std::string StringFrom(const std::shared_ptr<const Data::DataValue>& value) {
  const auto string = std::dynamic_pointer_cast<const Data::StringValue>(value);
  return string ? string->Value() : std::string();
}

std::vector<std::shared_ptr<const Data::DataValue>> ElementsOf(
    const std::shared_ptr<const Data::DataValue>& value) {
  const auto list = std::dynamic_pointer_cast<const Data::ListValue>(value);
  if (!list) return {};
  return list->Elements();
}

Message MessageFrom(const Data::CompoundValue& value) {
  Message message{StringFrom(value.Field("id")), StringFrom(value.Field("default_text")), {}};
  for (const auto& argument : ElementsOf(value.Field("arguments"))) {
    message.arguments.push_back(StringFrom(argument));
  }
  return message;
}

/// The size of the placeholder at `at`, or 0; `number` is the one it names.
std::size_t PlaceholderAt(const std::string& text, std::size_t at, std::size_t& number) {
  if (text[at] != '%') return 0;
  const char* const first = text.data() + at + 1;
  const char* const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(first, last, number);
  if (error != std::errc() || end == last || *end != '%') return 0;
  return static_cast<std::size_t>(end - first) + 2;
}

}  // namespace

std::string Message::Text() const {
  std::string text;
  for (std::size_t at = 0; at < default_text.size();) {
    std::size_t number = 0;
    const std::size_t size = PlaceholderAt(default_text, at, number);
    if (size != 0 && number >= 1 && number <= arguments.size()) {
      text += arguments[number - 1];
      at += size;
    } else {
      text += default_text[at++];
    }
  }
  return text;
}

std::vector<std::string> Message::UnshownArguments() const {
  std::vector<std::string> unshown;
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    const std::string placeholder = '%' + std::to_string(index + 1) + '%';
    if (default_text.find(placeholder) == std::string::npos) unshown.push_back(arguments[index]);
  }
  return unshown;
}

std::string Message::IdText() const {
  const std::vector<std::string> unshown = UnshownArguments();
  return unshown.empty() ? id : fmt::format("{}: {}", id, fmt::join(unshown, ", "));
}

ServiceError ServiceError::From(const Data::ErrorValue& value) {
  ServiceError error{value.Name(), {}};
  for (const auto& element : ElementsOf(value.Field("messages"))) {
    const auto message = std::dynamic_pointer_cast<const Data::CompoundValue>(element);
    if (message) error.messages.push_back(MessageFrom(*message));
  }
  if (error.messages.empty()) error.messages.push_back({error.name, error.name, {}});
  return error;
}

ServiceError ServiceError::NoAnswer() {
  return {"", {{"", "the service gave no answer", {}}}};
}

}  // namespace Zelk::Tool
