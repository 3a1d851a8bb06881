#pragma once

#include <list>
#include <memory>
#include <string>

#include <zelk/data/values.h>
#include <zelk/message.h>

#include "support/lines.h"

// Messages as text, so that a test compares a whole list of them at once.

namespace Zelk::Testing {

/// One message: its id, then its arguments in parentheses.
inline std::string MessageText(const std::string& id, const std::list<std::string>& arguments) {
  std::string text = id + "(";
  for (const auto& argument : arguments) {
    text += (text.back() == '(' ? "" : ", ") + argument;
  }
  return text + ")";
}

/// One line a message, in their order.
inline Lines MessageTexts(const std::list<BaseMessage>& messages) {
  Lines lines;
  for (const auto& message : messages) {
    lines.push_back(MessageText(message.Id(), message.Arguments()));
  }
  return lines;
}

inline std::string StringOf(const Data::DataValue& value) {
  return dynamic_cast<const Data::StringValue&>(value).Value();
}

/// The name of an error value, then one line a message of it.
inline Lines ErrorTexts(const Data::ErrorValue& error) {
  Lines lines{error.Name()};
  for (const auto& element :
       dynamic_cast<const Data::ListValue&>(*error.Field("messages")).Elements()) {
    const auto& message = dynamic_cast<const Data::StructValue&>(*element);
    std::list<std::string> arguments;
    for (const auto& argument :
         dynamic_cast<const Data::ListValue&>(*message.Field("arguments")).Elements()) {
      arguments.push_back(StringOf(*argument));
    }
    lines.push_back(MessageText(StringOf(*message.Field("id")), arguments));
  }
  return lines;
}

// What the JSON binding says about a member, ids spelt out.

inline std::string MissingField(const std::string& name) {
  return MessageText("zelk.metadata.json.missing.field", {name});
}

inline std::string InvalidField(const std::string& name) {
  return MessageText("zelk.metadata.json.invalid.field", {name});
}

inline std::string InvalidEnumValue(const std::string& name) {
  return MessageText("zelk.metadata.json.invalid.enum.value", {name});
}

}  // namespace Zelk::Testing
