#include <algorithm>
#include <fmt/format.h>
#include <ostream>
#include <sstream>

#include "commands/table.h"
#include "explain/explanations.h"
#include "host/near.h"
#include "render/json_writer.h"
#include "render/layout.h"
#include "render/page.h"

namespace Zelk::Tool {
namespace {

constexpr std::size_t kWidth = 76;

void WriteSection(Page& page, const std::string& heading, const std::string& text) {
  page.Heading(heading);
  for (const std::string& line : Wrapped(text, kWidth)) page.Line(1, line);
}

void WriteExample(Page& page, const Example& example) {
  if (example.command.empty() && example.create_in.empty()) return;
  page.Heading("Example:");
  if (!example.file.empty()) {
    page.Line(1, "With this text in FILE:");
    page.Paragraph(2, example.file);
  }
  if (!example.create_in.empty()) {
    page.Line(1, fmt::format("SourceSvc.Create of {}, with a path at which no file is",
                             example.create_in));
  } else {
    page.Line(1, "zelk-metadata " + example.command);
  }
}

void WritePage(std::ostream& out, const Explanation& explanation) {
  Page page(out);
  page.Line(0, explanation.id);
  page.Line(1, explanation.text);
  WriteSection(page, "Means:", explanation.meaning);
  WriteSection(page, "Usual cause:", explanation.cause);
  WriteExample(page, explanation.example);
  WriteSection(page, "Mend:", explanation.mend);
}

void WriteJson(JsonWriter& json, const Explanation& explanation) {
  json.StartObject();
  json.Member("id", explanation.id);
  json.Member("text", explanation.text);
  json.Member("meaning", explanation.meaning);
  json.Member("cause", explanation.cause);
  json.Member("mend", explanation.mend);
  json.Key("example");
  json.StartObject();
  json.Member("file", explanation.example.file);
  json.Member("command", explanation.example.command);
  json.Member("create_in", explanation.example.create_in);
  json.EndObject();
  json.EndObject();
}

void ListAll(const Arguments& arguments, std::ostream& out) {
  JsonWriter json;
  json.StartArray();
  for (const Explanation& explanation : Explanations()) {
    if (arguments.json) {
      WriteJson(json, explanation);
    } else {
      out << explanation.id << '\n';
    }
  }
  json.EndArray();
  if (arguments.json) json.WriteTo(out);
}

ExitStatus ComplainOfId(const std::string& id, std::ostream& err) {
  std::vector<std::string> known;
  for (const Explanation& explanation : Explanations()) known.push_back(explanation.id);
  PrintError(err, fmt::format("unknown message id '{}'{}", id, Suggestion(NearNames(id, known))));
  return ExitStatus::kNotFound;
}

}  // namespace

/// What there is to say about one message; without an id, the ids of all.
ExitStatus RunExplain(const Arguments& arguments, const Streams& streams) {
  if (arguments.text.empty()) {
    ListAll(arguments, streams.out);
    return ExitStatus::kOk;
  }
  const auto& all = Explanations();
  const auto found = std::find_if(all.begin(), all.end(), [&](const Explanation& explanation) {
    return explanation.id == arguments.text;
  });
  if (found == all.end()) return ComplainOfId(arguments.text, streams.err);
  if (arguments.json) {
    JsonWriter json;
    WriteJson(json, *found);
    json.WriteTo(streams.out);
  } else {
    WritePage(streams.out, *found);
  }
  return ExitStatus::kOk;
}

}  // namespace Zelk::Tool
