#pragma once

#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>

#include <rapidjson/document.h>

#include "fuzz/support/check.h"
#include "fuzz/support/default_json.h"
#include "support/message_texts.h"
#include "support/record_text.h"

// What every file parser promises, whatever bytes it is given.

namespace Zelk::Fuzzing {

using Testing::Lines;

/// Everything that comes of reading a file.
struct Outcome {
  bool ok;
  std::string records;
  Lines messages;
};

inline std::string Text(const Outcome& outcome) {
  std::string text = outcome.ok ? "read\n" : "refused\n";
  for (const auto& message : outcome.messages) text += Testing::Quoted(message) + "\n";
  return text + outcome.records;
}

/// A dump of records without the texts that were read, so that what is left are our own words.
inline std::string WithoutQuotedTexts(const std::string& dump) {
  std::string text;
  bool quoted = false;
  for (const char character : dump) {
    if (character == '"') {
      quoted = !quoted;
    } else if (!quoted) {
      text += character;
    }
  }
  return text;
}

/// That a dump has none of the words by which it shows what a record lacks.
inline void CheckComplete(const std::string& dump, std::initializer_list<const char*> lacks) {
  const std::string text = WithoutQuotedTexts(dump);
  for (const auto* lack : lacks) {
    Check(text.find(lack) == std::string::npos,
          "records are complete (" + std::string(lack) + ")\n" + dump);
  }
}

/// That a syntax error is reported exactly when RapidJSON sees one, with its code and offset.
inline void CheckSyntax(std::string_view text, const std::string& parse_error_id,
                        const Outcome& outcome) {
  if (!CanAskDefaultMode(text)) return;
  rapidjson::Document document;
  ParseInDefaultMode(text, document);
  if (document.HasParseError()) {
    const auto message = Testing::MessageText(
        parse_error_id,
        {std::to_string(document.GetParseError()), std::to_string(document.GetErrorOffset())});
    CheckSame(Text(outcome), Text({false, "", {message}}), "a syntax error is reported as it is");
  } else {
    for (const auto& message : outcome.messages) {
      Check(message.rfind(parse_error_id, 0) != 0, "good syntax is not refused: " + message);
    }
  }
}

/// `load` reads a std::istream or a std::string_view into an Outcome.
template <typename Load>
void CheckParser(std::string_view text, const std::string& parse_error_id, const Load& load) {
  const auto load_stream = [&] {
    std::istringstream in{std::string(text)};
    return load(in);
  };
  const Outcome outcome = load_stream();
  Check(outcome.ok || !outcome.messages.empty(), "a file is refused with a message");
  CheckSame(Text(load_stream()), Text(outcome), "the same bytes are read alike each time");
  CheckSame(Text(load(text)), Text(outcome), "a text is read like a stream of it");
  CheckSyntax(text, parse_error_id, outcome);
}

}  // namespace Zelk::Fuzzing
