#include "diff/kinds.h"

#include <fmt/format.h>
#include <string>
#include <utility>
#include <vector>

#include "diff/report.h"

namespace Zelk::Tool::Diff {
namespace {

using Analysis::Diff::Kind;
using Analysis::Diff::Verdicts;
using Files = Analysis::Diff::ExampleFiles;

std::vector<std::string> Given(const Files& files) {
  std::vector<std::string> given;
  for (const std::string_view file : files) {
    if (!file.empty()) given.emplace_back(file);
  }
  return given;
}

Class VerdictOf(const Verdicts& verdicts, Audience audience) {
  return verdicts.at(static_cast<std::size_t>(audience));
}

/// "breaking", or both if the direction decides.
std::string VerdictText(const Kind& kind, Audience audience) {
  const Class input = VerdictOf(kind.verdicts.input, audience);
  const Class output = VerdictOf(kind.verdicts.output, audience);
  if (input == output) return Word(input);
  return fmt::format("{} if callers send it, {} if they receive it", Word(input), Word(output));
}

/// Shows the files, and returns the words for them on a command line.
std::string WriteFiles(Render::Page& page, const char* version, const Files& files) {
  const std::vector<std::string> given = Given(files);
  if (given.size() == 1) {
    page.Line(1, fmt::format("With this text in {}:", version));
    page.Paragraph(2, given.front());
    return version;
  }
  for (std::size_t i = 0; i < given.size(); ++i) {
    page.Line(1, fmt::format("With this text in {}/{}.json:", version, i + 1));
    page.Paragraph(2, given[i]);
  }
  return version;
}

void WriteVerdicts(Render::JsonWriter& json, const char* key, const Verdicts& verdicts) {
  json.Key(key).StartObject();
  for (const Audience audience : kAudiences) {
    const Class verdict = VerdictOf(verdicts, audience);
    if (verdict != Class::kNotConcerned) json.Member(Word(audience), Word(verdict));
  }
  json.EndObject();
}

}  // namespace

void WritePage(Render::Page& page, const Kind& kind) {
  page.Line(0, kind.id);
  page.Line(1, std::string(kind.title) + ".");
  page.Section("Means:", kind.means);
  page.Heading("For:");
  std::vector<std::pair<std::string, std::string>> verdicts;
  verdicts.reserve(kAudiences.size());
  for (const Audience audience : kAudiences) {
    verdicts.emplace_back(Word(audience), VerdictText(kind, audience));
  }
  page.Pairs(1, verdicts);
  page.Heading("Example:");
  const std::string old_version = WriteFiles(page, "OLD", kind.example.old_files);
  const std::string new_version = WriteFiles(page, "NEW", kind.example.new_files);
  page.Line(1, fmt::format("{} diff {} {}", Render::kProgramName, old_version, new_version));
  if (kind.example.also != nullptr) {
    page.Line(1, fmt::format("This is always reported together with {}.", kind.example.also));
  }
  page.Section("Advice:", kind.advice);
}

void WriteJson(Render::JsonWriter& json, const Kind& kind) {
  json.StartObject();
  json.Member("id", kind.id);
  json.Member("area", Word(kind.area));
  json.Member("action", Word(kind.action));
  json.Member("title", kind.title);
  json.Member("meaning", kind.means);
  json.Member("advice", kind.advice);
  WriteVerdicts(json, "input", kind.verdicts.input);
  WriteVerdicts(json, "output", kind.verdicts.output);
  json.Key("example").StartObject();
  json.Key("old_files").StringArray(Given(kind.example.old_files));
  json.Key("new_files").StringArray(Given(kind.example.new_files));
  json.Member("element", kind.example.element);
  json.EndObject();
  json.EndObject();
}

}  // namespace Zelk::Tool::Diff
