#include <algorithm>
#include <fmt/format.h>
#include <ostream>

#include "lint/report.h"
#include "render/json_writer.h"

namespace Zelk::Tool::Lint {
namespace {

using Render::JsonWriter;

void Text(JsonWriter& json, const char* key, const std::string& text) {
  json.Key(key).StartObject();
  json.Member("text", text);
  json.EndObject();
}

void WriteRule(JsonWriter& json, const Analysis::Lint::Rule& rule) {
  json.StartObject();
  json.Member("id", rule.id);
  Text(json, "shortDescription", rule.title);
  Text(json, "fullDescription", rule.means);
  Text(json, "help", fmt::format("Usual cause: {}\n\nFix: {}", rule.cause, rule.fix));
  json.Key("defaultConfiguration").StartObject();
  json.Member("level", Analysis::Lint::Word(rule.severity));
  json.EndObject();
  json.EndObject();
}

/// A relative path stays one, so that results are the same wherever the files are.
std::string UriOf(const std::string& file) {
  std::string uri = file.substr(0, 1) == "/" ? "file://" : "";
  for (const char byte : file) {
    const bool is_plain = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
                          (byte >= '0' && byte <= '9') ||
                          std::string_view("-._~/").find(byte) != std::string_view::npos;
    uri += is_plain
               ? std::string(1, byte)
               : fmt::format("%{:02X}", static_cast<unsigned>(static_cast<unsigned char>(byte)));
  }
  return uri;
}

/// Columns count characters in this format. Entries come in the order of their places, so each
/// byte of a file is looked at once.
class Columns {
 public:
  std::uint64_t Of(const Entry& entry) {
    const std::size_t line_begin = entry.offset + 1 - entry.position->column;
    if (entry.text != text_ || line_begin != line_begin_ || entry.offset < offset_) {
      text_ = entry.text;
      line_begin_ = line_begin;
      offset_ = line_begin;
      column_ = 1;
    }
    const std::string_view passed = text_->Text().substr(offset_, entry.offset - offset_);
    column_ +=
        static_cast<std::uint64_t>(std::count_if(passed.begin(), passed.end(), [](char byte) {
          return (static_cast<unsigned char>(byte) & 0xc0U) != 0x80U;
        }));
    offset_ = entry.offset;
    return column_;
  }

 private:
  const Analysis::Document* text_ = nullptr;
  std::size_t line_begin_ = 0;
  std::size_t offset_ = 0;
  std::uint64_t column_ = 1;
};

void WriteLocation(JsonWriter& json, const Entry& entry, Columns& columns) {
  json.StartObject();
  json.Key("physicalLocation").StartObject();
  json.Key("artifactLocation").StartObject();
  json.Member("uri", UriOf(entry.file));
  json.EndObject();
  if (entry.position && entry.text != nullptr) {
    json.Key("region").StartObject();
    json.Key("startLine").Number(entry.position->line);
    json.Key("startColumn").Number(columns.Of(entry));
    json.EndObject();
  }
  json.EndObject();
  if (!entry.element.empty()) {
    json.Key("logicalLocations").StartArray();
    json.StartObject();
    json.Member("fullyQualifiedName", entry.element);
    json.EndObject();
    json.EndArray();
  }
  json.EndObject();
}

void WriteSuppressions(JsonWriter& json, SuppressedBy by) {
  json.Key("suppressions").StartArray();
  if (by != SuppressedBy::kNothing) {
    json.StartObject();
    json.Member("kind", by == SuppressedBy::kFile ? "inSource" : "external");
    json.EndObject();
  }
  json.EndArray();
}

void WriteResult(JsonWriter& json, const Entry& entry, Columns& columns) {
  json.StartObject();
  if (!entry.rule.empty()) json.Member("ruleId", entry.rule);
  json.Member("level", Analysis::Lint::Word(entry.severity));
  Text(json, "message", entry.message + (entry.hint.empty() ? "" : "; " + entry.hint));
  json.Key("locations").StartArray();
  WriteLocation(json, entry, columns);
  json.EndArray();
  if (!entry.fingerprint.empty()) {
    json.Key("partialFingerprints").StartObject();
    json.Member("zelkMetadataLint/v1", entry.fingerprint);
    json.EndObject();
  }
  WriteSuppressions(json, entry.suppressed_by);
  json.EndObject();
}

}  // namespace

void WriteSarif(std::ostream& out, const Report& report) {
  JsonWriter json;
  json.StartObject();
  json.Member("$schema",
              "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/"
              "sarif-schema-2.1.0.json");
  json.Member("version", "2.1.0");
  json.Key("runs").StartArray();
  json.StartObject();
  json.Key("tool").StartObject();
  json.Key("driver").StartObject();
  json.Member("name", "zelk-metadata");
  json.Member("version", ZELK_METADATA_VERSION);
  json.Key("rules").StartArray();
  for (const Analysis::Lint::Rule* rule : Analysis::Lint::Rules()) WriteRule(json, *rule);
  json.EndArray();
  json.EndObject();
  json.EndObject();
  json.Member("columnKind", "unicodeCodePoints");
  json.Key("results").StartArray();
  Columns columns;
  // Programs that read this format hide suppressed results themselves.
  report.ForEach([&](const Entry& entry) { WriteResult(json, entry, columns); });
  json.EndArray();
  json.EndObject();
  json.EndArray();
  json.EndObject();
  json.WriteTo(out);
}

}  // namespace Zelk::Tool::Lint
