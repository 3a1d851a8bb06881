#include "analysis/diff/configuration.h"
#include "check/output.h"
#include "diff/report.h"
#include "host/accepted_file.h"
#include "host/named_place.h"
#include "host/settings_file.h"

namespace Zelk::Tool::Diff {
namespace {

using Render::JsonWriter;

boost::optional<std::string> OrNull(const std::string& text) {
  return text.empty() ? boost::none : boost::optional<std::string>(text);
}

void WritePlace(JsonWriter& json, const char* key, const Side& side,
                const std::optional<Analysis::Place>& place) {
  json.Key(key);
  if (!place) return json.Null();
  const NamedPlace named = NamedPlaceOf(*side.workspace, *place);
  json.StartObject();
  json.Member("file", named.file);
  json.Key("line").Number(named.position.line);
  json.Key("column").Number(named.position.column);
  json.Member("pointer",
              named.pointer ? boost::optional<std::string>(*named.pointer) : boost::none);
  json.EndObject();
}

void WriteAudiences(JsonWriter& json, const Change& change, Analysis::Diff::AudienceSet audiences) {
  json.Key("audiences").StartObject();
  for (const Audience audience : kAudiences) {
    const Class verdict = change.verdicts.at(static_cast<std::size_t>(audience));
    if ((audiences & SetOf(audience)) == 0 || verdict == Class::kNotConcerned) continue;
    json.Member(Word(audience), Word(verdict));
  }
  json.EndObject();
}

void WriteAccepted(JsonWriter& json, const Analysis::Accepted* accepted) {
  json.Key("accepted");
  if (accepted == nullptr) return json.Null();
  json.StartObject();
  json.Member("reason", OrNull(accepted->reason));
  json.Member("until", OrNull(accepted->until));
  json.EndObject();
}

void WriteEntry(JsonWriter& json, const Report& report, const Entry& entry) {
  const Change& change = *entry.change;
  json.StartObject();
  json.Member("id", change.kind->id);
  json.Member("class", Word(entry.worst));
  WriteAudiences(json, change, report.audiences);
  json.Member("element", change.element);
  json.Member("direction", OrNull(Word(change.details.direction)));
  json.Member("message", change.details.message);
  json.Member("old", OrNull(change.details.old_value));
  json.Member("new", OrNull(change.details.new_value));
  WritePlace(json, "old_place", report.old_version, change.old_place);
  WritePlace(json, "new_place", report.new_version, change.new_place);
  json.Member("assumption", OrNull(change.details.assumption));
  json.Member("witness", OrNull(change.details.witness));
  json.Member("hint", OrNull(change.details.hint));
  json.Member("fingerprint", FingerprintText(change.fingerprint));
  WriteAccepted(json, entry.accepted);
  json.EndObject();
}

void WriteSummary(JsonWriter& json, const Report& report) {
  const Summary summary = Summarize(report);
  json.StartObject();
  json.Key("old_files").Number(report.old_version.workspace->Files().size());
  json.Key("new_files").Number(report.new_version.workspace->Files().size());
  json.Key("failed").Number(summary.failed);
  for (const Class worst : kShownClasses) json.Key(Word(worst)).Number(summary.Of(worst));
  json.Key("unlisted").Number(summary.unlisted);
  json.Key("accepted").Number(summary.accepted);
  json.Key("fingerprints_differ").Bool(report.result.fingerprints_differ);
  json.Member("bump", OrNull(Bump(report)));
  json.EndObject();
}

}  // namespace

WrittenList WriteAccepted(const std::string& path, const Report& report) {
  AcceptedWriter writer(kAcceptedForm, path);
  for (const auto* entries : {&report.entries, &report.others}) {
    for (const Entry& entry : *entries) {
      const Analysis::Accepted* const earlier =
          entry.accepted == nullptr ? entry.ended : entry.accepted;
      if (earlier == nullptr && !FailsBecauseOf(report, entry)) continue;
      const Change& change = *entry.change;
      writer.Add(change.kind->id, FingerprintText(change.fingerprint), change.element, earlier);
    }
  }
  return writer.Write();
}

void WriteJson(JsonWriter& json, const Report& report) {
  json.Key("changes").StartArray();
  for (const Entry& entry : report.entries) WriteEntry(json, report, entry);
  json.EndArray();
  json.Key("files").StartArray();
  for (const Side* side : {&report.old_version, &report.new_version}) {
    for (const FailedFile& file : side->failed) Check::WriteCheckedJson(json, file.report);
  }
  json.EndArray();
  json.Key("left_out").StartArray();
  for (const Side* side : {&report.old_version, &report.new_version}) {
    for (const std::string& file : side->left_out) json.String(file);
  }
  json.EndArray();
  json.Key("assumptions").StartObject();
  for (const auto& choice : Analysis::Diff::Choices()) {
    json.Member(choice.key, choice.WordOf(report.assumptions));
  }
  json.EndObject();
  json.Key("unused").StartArray();
  for (const Unused& entry : report.unused) json.String(entry.file + ": " + entry.problem);
  json.EndArray();
  json.Key("summary");
  WriteSummary(json, report);
}

}  // namespace Zelk::Tool::Diff
