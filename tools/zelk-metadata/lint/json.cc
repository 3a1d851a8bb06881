#include <cstdint>
#include <set>

#include "host/accepted_file.h"
#include "host/settings_file.h"
#include "lint/report.h"

namespace Zelk::Tool::Lint {
namespace {

using Render::JsonWriter;

constexpr std::array<const char*, 4> kSuppressedBy{"", "$lint", "configuration", "baseline"};

boost::optional<std::string> OrNull(const std::string& text) {
  return text.empty() ? boost::none : boost::optional<std::string>(text);
}

void WriteEntry(JsonWriter& json, const Entry& entry) {
  json.StartObject();
  json.Member("rule", OrNull(entry.rule));
  json.Member("severity", Analysis::Lint::Word(entry.severity));
  json.Member("message", entry.message);
  json.Member("hint", OrNull(entry.hint));
  json.Member("file", entry.file);
  for (const char* const key : {"line", "column"}) {
    json.Key(key);
    if (!entry.position) {
      json.Null();
    } else {
      json.Number(key[0] == 'l' ? entry.position->line : entry.position->column);
    }
  }
  json.Member("pointer",
              entry.pointer ? boost::optional<std::string>(*entry.pointer) : boost::none);
  json.Member("element", OrNull(entry.element));
  json.Member("fingerprint", OrNull(entry.fingerprint));
  json.Member("suppressed_by",
              OrNull(kSuppressedBy.at(static_cast<std::size_t>(entry.suppressed_by))));
  json.EndObject();
}

void WriteSummary(JsonWriter& json, const Summary& summary) {
  json.StartObject();
  json.Key("files").Number(summary.files);
  json.Key("failed").Number(summary.failed);
  json.Key("errors").Number(summary.findings[0]);
  json.Key("warnings").Number(summary.findings[1]);
  json.Key("notes").Number(summary.findings[2]);
  json.Key("unlisted").Number(summary.unlisted);
  json.Key("suppressed").StartObject();
  for (std::size_t by = 1; by < summary.suppressed.size(); ++by) {
    json.Key(kSuppressedBy.at(by)).Number(summary.suppressed.at(by));
  }
  json.EndObject();
  json.Key("skipped").StartObject();
  for (const Analysis::Domain domain : Analysis::kDomains) {
    json.Key(Analysis::FormatOf(domain).root_key)
        .Number(summary.skipped.at(static_cast<std::size_t>(domain)));
  }
  json.EndObject();
  json.EndObject();
}

}  // namespace

WrittenList WriteBaseline(const std::string& path, const Report& report) {
  AcceptedWriter writer(Analysis::kBaselineForm, path);
  report.ForEach([&](const Entry& entry) {
    const bool is_accepted = entry.suppressed_by == SuppressedBy::kNothing ||
                             entry.suppressed_by == SuppressedBy::kBaseline;
    if (entry.fingerprint.empty() || !is_accepted) return;
    writer.Add(entry.rule, entry.fingerprint, entry.element, entry.accepted);
  });
  // Several files may list the same.
  std::set<std::uint64_t> written;
  for (const Analysis::Accepted* entry : report.kept) {
    if (!written.insert(entry->fingerprint).second) continue;
    writer.Add(entry->id, FingerprintText(entry->fingerprint), entry->element, entry);
  }
  return writer.Write();
}

void WriteJson(JsonWriter& json, const Report& report) {
  json.Key("findings").StartArray();
  report.ForEach([&](const Entry& entry) { WriteEntry(json, entry); });
  json.EndArray();
  json.Key("summary");
  WriteSummary(json, Summarize(report));
}

}  // namespace Zelk::Tool::Lint
