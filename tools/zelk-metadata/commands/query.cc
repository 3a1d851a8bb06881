#include "commands/query.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include "host/near.h"

namespace Zelk::Tool {

std::string IdsText(const Candidate& candidate) {
  std::string text;
  for (std::size_t i = 0; i < candidate.ids.max; ++i) {
    const std::string& name = candidate.found.kind->id_names[i];
    text += i < candidate.ids.min ? " " + name : " [" + name + "]";
  }
  return text;
}

namespace {

std::string Singular(const std::string& kind) {
  return !kind.empty() && kind.back() == 's' ? kind.substr(0, kind.size() - 1) : kind;
}

/// The first id that names nothing, and the names that there are in its place.
struct Unknown {
  std::string wanted;
  Names known;
};

Unknown FindUnknown(const Candidate& candidate, const Ids& ids) {
  const std::vector<std::string>& id_names = candidate.found.kind->id_names;
  for (std::size_t i = 0; i < std::min(ids.size(), id_names.size()); ++i) {
    const Query<Names>* const list = candidate.found.ListOf(KindOfId(id_names[i]));
    if (list == nullptr) continue;
    const Ids around(ids.begin(), ids.begin() + std::min<std::ptrdiff_t>(
                                                    static_cast<std::ptrdiff_t>(i),
                                                    static_cast<std::ptrdiff_t>(list->ids.min)));
    const Outcome<Names> names = list->call(around);
    if (!names.answer) continue;
    if (std::find(names.answer->begin(), names.answer->end(), ids[i]) != names.answer->end()) {
      continue;
    }
    return {ids[i], *names.answer};
  }
  return {};
}

}  // namespace

std::string KindOfId(const std::string& id_name) {
  std::string kind = id_name;
  for (char& character : kind) character = static_cast<char>(std::tolower(character));
  return kind;
}

Names UsageNames(const Host& host) {
  Names names;
  for (const char* kind : {"namespace", "command"}) {
    for (const FoundKind& found : host.FindKinds(kind)) {
      const Outcome<Names> listed = found.kind->list.call({});
      if (listed.answer) names.insert(names.end(), listed.answer->begin(), listed.answer->end());
    }
  }
  return names;
}

std::vector<Candidate> Fitting(const std::vector<Candidate>& candidates, std::size_t id_count) {
  std::vector<Candidate> fitting;
  for (const Candidate& candidate : candidates) {
    const bool fits = candidate.ids.min <= id_count && id_count <= candidate.ids.max;
    if (fits && (fitting.empty() || candidate.found.has_sources)) fitting.push_back(candidate);
  }
  return fitting;
}

void Question::TellIfEmpty(const Streams& streams) const {
  if (!loaded || !host.SourceIds().empty()) return;
  PrintError(streams.err, fmt::format("nothing is loaded; {} PATH loads a file or a folder",
                                      own ? "--source" : "create"));
}

ExitStatus ComplainOfKind(const std::string& verb, const Arguments& arguments, const Host& host,
                          const std::vector<Candidate>& candidates, const Streams& streams) {
  if (host.FindKinds(arguments.kind).empty()) {
    PrintError(streams.err,
               fmt::format("unknown kind '{}'; the kinds are {}{}", arguments.kind,
                           fmt::join(host.KindNames(), ", "),
                           Suggestion(NearNames(Singular(arguments.kind), host.KindNames()))));
    return ExitStatus::kNotFound;
  }
  if (candidates.empty()) {
    PrintError(streams.err, fmt::format("there is no {} for the kind '{}'", verb, arguments.kind));
  } else {
    const Candidate& likeliest = candidates.front();
    PrintError(streams.err,
               fmt::format("usage: {}{} {}{}", streams.session == nullptr ? "zelk-metadata " : "",
                           verb, likeliest.found.kind->name, IdsText(likeliest)));
  }
  return ExitStatus::kUsage;
}

ExitStatus ComplainOf(const ServiceError& error, const std::vector<Candidate>& asked,
                      const Ids& ids, const Streams& streams) {
  std::string text;
  for (const Message& message : error.messages) {
    text += (text.empty() ? "" : "; ") + message.Text();
  }
  Names known;
  std::string wanted;
  for (const Candidate& candidate : asked) {
    const Unknown unknown = FindUnknown(candidate, ids);
    known.insert(known.end(), unknown.known.begin(), unknown.known.end());
    if (wanted.empty()) wanted = unknown.wanted;
  }
  PrintError(streams.err, text + Suggestion(NearNames(wanted, known)));
  return ExitStatus::kNotFound;
}

}  // namespace Zelk::Tool
