#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <zelk/message.h>

#include "cli/metadata_parser.h"
#include "cli/parser_messages.h"
#include "support/as_source.h"
#include "support/cli_text.h"

// What the parser made of a file: whether it was read, what the callbacks were given and in which
// order, and the messages.

namespace Zelk::Testing {

struct ParsedFile {
  bool ok = false;
  Lines nodes;
  Lines messages;
};

/// `Text` is a std::string_view or a std::istream.
template <typename Text>
ParsedFile ParseFile(Text&& text) {
  ParsedFile parsed;
  Provider::Metadata::Errors errors;
  const auto keep = [&parsed](const auto& info) { parsed.nodes.push_back(CliText(*info)); };
  parsed.ok =
      Provider::Metadata::Cli::MetadataParser::LoadMetadata(AsSource(text), keep, keep, errors);
  parsed.messages = MessageTexts(errors);
  return parsed;
}

}  // namespace Zelk::Testing
