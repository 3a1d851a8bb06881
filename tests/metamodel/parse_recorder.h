#pragma once

#include <istream>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "metamodel/json_metadata_parser.h"
#include "support/as_source.h"
#include "support/message_texts.h"
#include "support/record_dump.h"

namespace Zelk::Testing {

using MetamodelParser = Provider::Metadata::Metamodel::JsonMetadataParser;
using Provider::Metadata::Errors;

/// Takes down what a parser reports, one line a call.
struct ParseRecorder {
  Lines calls;
  std::shared_ptr<const Bindings::Metamodel::ComponentInfo> component;
  Errors errors;

  MetamodelParser::RegisterCallbacks Callbacks() {
    return {[this](const std::shared_ptr<Bindings::Metamodel::ComponentInfo>& found) {
              calls.push_back("component " + found->name);
              component = found;
            },
            [this](const std::string& id) { calls.push_back("resource " + id); },
            [this](const std::string& id, const std::string& structure) {
              calls.push_back("model " + id + " " + structure);
            }};
  }
};

/// Everything that comes of loading a file.
struct Loaded {
  bool ok;
  std::string dump;
  Lines calls;
  Lines messages;
};

inline bool operator==(const Loaded& left, const Loaded& right) {
  return left.ok == right.ok && left.dump == right.dump && left.calls == right.calls &&
         left.messages == right.messages;
}

inline std::ostream& operator<<(std::ostream& out, const Loaded& loaded) {
  return out << (loaded.ok ? "loaded " : "failed ") << testing::PrintToString(loaded.messages)
             << " " << testing::PrintToString(loaded.calls) << "\n"
             << loaded.dump;
}

/// `source` is a text or a stream.
template <typename Source>
Loaded LoadFrom(Source&& source) {
  ParseRecorder recorder;
  const bool ok =
      MetamodelParser::LoadMetadata(AsSource(source), recorder.Callbacks(), recorder.errors);
  return {ok, recorder.component ? Dump(*recorder.component) : "", recorder.calls,
          MessageTexts(recorder.errors)};
}

inline Loaded Load(std::string_view text) {
  return LoadFrom(text);
}

}  // namespace Zelk::Testing
