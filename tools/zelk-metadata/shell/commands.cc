#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <ostream>

#include "commands/output.h"
#include "commands/sources.h"
#include "commands/table.h"
#include "host/near.h"
#include "shell/session.h"

// What can be said in a session only: changes of what is loaded.

namespace Zelk::Tool {
namespace {

ExitStatus ComplainOfSource(const std::string& id, const Streams& streams) {
  PrintError(streams.err, fmt::format("no source is called '{}'{}", id,
                                      Suggestion(NearNames(id, streams.session->SourceIds()))));
  return ExitStatus::kNotFound;
}

ExitStatus RunCreate(const Arguments& arguments, const Streams& streams) {
  const auto is_input = [](const std::string& source) {
    return ParseSourceArgument(source).path == "-";
  };
  const auto& sources = arguments.sources;
  if (std::any_of(sources.begin(), sources.end(), is_input) && !MayReadInput(streams)) {
    return ExitStatus::kUsage;
  }
  const bool loaded = LoadSources(*streams.session, arguments, streams);
  return loaded ? ExitStatus::kOk : ExitStatus::kSourceFailed;
}

ExitStatus RunDelete(const Arguments& arguments, const Streams& streams) {
  ExitStatus status = ExitStatus::kOk;
  for (const std::string& id : arguments.ids) {
    if (streams.session->Delete(id) == 0) status = ComplainOfSource(id, streams);
  }
  return status;
}

const char* NameOf(ReloadReport::State state) {
  switch (state) {
    case ReloadReport::State::kChanged:
      return "changed";
    case ReloadReport::State::kKept:
      return "kept";
    case ReloadReport::State::kSame:
      break;
  }
  return "same";
}

/// One line; the messages of the file follow elsewhere.
std::string Reason(const ReloadReport& report) {
  if (report.state != ReloadReport::State::kKept) return "";
  if (!report.moved_to.empty()) {
    return fmt::format("old data, since the file belongs to {} now; delete and create it",
                       report.moved_to);
  }
  if (!report.problems.empty()) return "old data, since the file fails to load";
  if (report.behind.empty()) return "old data, since the file changed meanwhile; reload it again";
  return fmt::format("old data, since {}, which comes before it, fails; reload it by its id",
                     report.behind);
}

void WriteJson(JsonWriter& json, const ReloadReport& report) {
  json.StartObject();
  json.Member("domain", report.domain);
  json.Member("source", report.id);
  json.Member("file", report.file);
  json.Member("state", NameOf(report.state));
  json.Member("reason", Reason(report));
  json.Key("problems");
  json.StartArray();
  for (const Problem& problem : report.problems) json.String(ProblemLine(report.file, problem));
  json.EndArray();
  json.EndObject();
}

void Write(const std::vector<ReloadReport>& reports, const Arguments& arguments,
           const Streams& streams) {
  JsonWriter json;
  Table table({"STATE", "SOURCE", "FILE", "REASON"});
  json.StartArray();
  for (const ReloadReport& report : reports) {
    WriteJson(json, report);
    table.Add({NameOf(report.state), report.domain + ":" + report.id, report.file, Reason(report)});
  }
  json.EndArray();
  if (arguments.json) {
    json.WriteTo(streams.out);
  } else {
    WriteTable(table, arguments, streams);
  }
}

/// The truth that the service cannot tell: it is silent about a source that keeps its old data.
ExitStatus RunReload(const Arguments& arguments, const Streams& streams) {
  ExitStatus status = ExitStatus::kOk;
  std::vector<ReloadReport> reports;
  if (arguments.ids.empty()) reports = streams.session->Reload(std::nullopt);
  for (const std::string& id : arguments.ids) {
    std::vector<ReloadReport> more = streams.session->Reload(id);
    if (more.empty()) status = ComplainOfSource(id, streams);
    std::move(more.begin(), more.end(), std::back_inserter(reports));
  }
  if (reports.empty() && status != ExitStatus::kOk) return status;
  Write(reports, arguments, streams);
  for (const ReloadReport& report : reports) {
    for (const Problem& problem : report.problems) {
      PrintError(streams.err, ProblemLine(report.file, problem));
    }
    if (report.state == ReloadReport::State::kKept) status = ExitStatus::kSourceFailed;
  }
  return status;
}

ExitStatus RunHelp(const Arguments& arguments, const Streams& streams) {
  const Language& language = SessionLanguage();
  if (!arguments.text.empty() && FindCommand(language, arguments.text) == nullptr) {
    PrintError(streams.err, UnknownCommand(language, arguments.text));
    return ExitStatus::kNotFound;
  }
  if (!arguments.text.empty()) {
    streams.out << ParseArguments({arguments.text, "--help"}, language).help;
    return ExitStatus::kOk;
  }
  Page page(streams.out, streams.out_terminal);
  std::vector<std::pair<std::string, std::string>> pairs;
  for (const Command& command : language.commands) {
    pairs.emplace_back(command.description.name, command.description.summary);
  }
  page.Pairs(0, pairs);
  return ExitStatus::kOk;
}

ExitStatus RunQuit(const Arguments& /*arguments*/, const Streams& /*streams*/) {
  return ExitStatus::kOk;
}

const std::string kAboutFolders =
    "The files of a folder are sources of their own, called NAME, or FOLDER/NAME where the folder\n"
    "was given the ID FOLDER.\n";

std::vector<Command> Changes() {
  const std::vector<std::string> text{"text"};
  return {
      {{"create",
        "Load files or folders",
        "",
        {{"SOURCE", Word::kSource, true, "A file or a folder, given as [ID=]PATH",
          &Arguments::sources}},
        {},
        text,
        ""},
       RunCreate},
      {{"delete",
        "Forget sources with all that came from them",
        kAboutFolders,
        {{"ID", Word::kSourceId, true, "A source, in all domains or as DOMAIN:ID",
          &Arguments::ids}},
        {},
        text,
        ""},
       RunDelete},
      {{"reload",
        "Load sources once more, and tell which changed and which kept their old data",
        "Without an ID all sources. A source whose file fails keeps its old data, and so do those\n"
        "behind it in its domain, in the order of their ids, unless they are reloaded by "
        "theirs.\n" +
            kAboutFolders,
        {{"ID", Word::kSourceId, false, "A source, in all domains or as DOMAIN:ID",
          &Arguments::ids}},
        {},
        {"table", "plain", "json"},
        ""},
       RunReload},
  };
}

std::vector<Command> Others() {
  const std::vector<std::string> text{"text"};
  return {
      {{"help",
        "Tell what can be said, or all about one command",
        "",
        {{"COMMAND", Word::kCommand, false, "The name of a command", &Arguments::text}},
        {},
        text,
        ""},
       RunHelp},
      {{"quit", "End the session", "", {}, {}, text, ""}, RunQuit},
      {{"exit", "The same as quit", "", {}, {}, text, ""}, RunQuit},
  };
}

}  // namespace

const Language& SessionLanguage() {
  static const Language language = [] {
    Language made{"", Changes(), SessionOptions()};
    for (const auto& more : {Questions(), Others()}) {
      made.commands.insert(made.commands.end(), more.begin(), more.end());
    }
    return made;
  }();
  return language;
}

}  // namespace Zelk::Tool
