#include "lint/rules.h"

#include <fmt/format.h>

namespace Zelk::Tool::Lint {
namespace {

using Analysis::Lint::Rule;

std::string SeverityText(const Rule& rule) {
  return rule.is_off ? fmt::format("{}, only if it is asked for with --rule",
                                   Analysis::Lint::Word(rule.severity))
                     : Analysis::Lint::Word(rule.severity);
}

std::vector<std::string> ExampleFiles(const Rule& rule) {
  std::vector<std::string> files;
  for (const std::string_view file : rule.example.files) {
    if (!file.empty()) files.emplace_back(file);
  }
  return files;
}

}  // namespace

void WritePage(Render::Page& page, const Rule& rule) {
  page.Line(0, rule.id);
  page.Line(1, std::string(rule.title) + ".");
  page.Line(1, fmt::format("Group {}, {}, decided by {}.", Analysis::Lint::Word(rule.group),
                           SeverityText(rule), Analysis::Lint::Word(rule.decided_by)));
  page.Section("Means:", rule.means);
  page.Section("Usual cause:", rule.cause);
  page.Heading("Example:");
  const std::vector<std::string> files = ExampleFiles(rule);
  std::string names;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const std::string name = files.size() == 1 ? "FILE" : fmt::format("FILE{}", i + 1);
    names += " " + name;
    page.Line(1, fmt::format("With this text in {}:", name));
    page.Paragraph(2, files[i]);
  }
  page.Line(1, fmt::format("zelk-metadata lint --rule {}{}", rule.id, names));
  page.Section("Fix:", rule.fix);
}

void WriteJson(Render::JsonWriter& json, const Rule& rule) {
  json.StartObject();
  json.Member("id", rule.id);
  json.Member("group", Analysis::Lint::Word(rule.group));
  json.Member("severity", Analysis::Lint::Word(rule.severity));
  json.Key("default").Bool(!rule.is_off);
  json.Member("decided_by", Analysis::Lint::Word(rule.decided_by));
  json.Member("title", rule.title);
  json.Member("meaning", rule.means);
  json.Member("cause", rule.cause);
  json.Member("fix", rule.fix);
  json.Key("example").StartObject();
  json.Key("files").StringArray(ExampleFiles(rule));
  json.Member("element", rule.example.element);
  json.EndObject();
  json.EndObject();
}

}  // namespace Zelk::Tool::Lint
