#include <algorithm>
#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "analysis/diff/configuration.h"
#include "diff/kinds.h"
#include "diff/report.h"
#include "domains/table.h"
#include "host/git_input.h"
#include "host/project_file.h"
#include "host/settings_file.h"
#include "language/invocation.h"
#include "render/table.h"

namespace Zelk::Tool {
namespace {

using Diff::Audience;
using Diff::Class;
using Diff::Report;
using Diff::Side;

constexpr char kInput[] = "-";

std::vector<std::string> AudienceNames() {
  std::vector<std::string> names(Diff::kAudiences.size());
  std::transform(Diff::kAudiences.begin(), Diff::kAudiences.end(), names.begin(),
                 [](Audience audience) { return Analysis::Diff::Word(audience); });
  return names;
}

const std::vector<std::string>& FailOnNames() {
  static const std::vector<std::string> names{"breaking", "dangerous", "any", "never"};
  return names;
}

/// What is wrong with the words of the command line; empty if nothing is.
std::string ProblemOf(const Arguments& arguments) {
  std::string audience = UnknownChoice("audience", arguments.audiences, AudienceNames());
  if (!audience.empty()) return audience;
  if (!arguments.fail_on.empty()) {
    std::string fail_on = UnknownChoice("class", {arguments.fail_on}, FailOnNames());
    if (!fail_on.empty()) return fail_on;
  }
  const bool is_text = arguments.output.empty() || arguments.output == "text";
  if (arguments.bump && (arguments.json || !is_text)) {
    return "--bump prints one word, whatever --output is";
  }
  if (arguments.list_kinds) return "";
  if (!arguments.sources.empty()) return "diff takes OLD and NEW as operands, not as --source";
  if (arguments.new_version.empty()) return "OLD and NEW are needed; try diff --help";
  if (arguments.old_version == kInput && arguments.new_version == kInput) {
    return "only one of OLD and NEW can be standard input";
  }
  return "";
}

Analysis::Diff::AudienceSet Audiences(const Arguments& arguments) {
  Analysis::Diff::AudienceSet set = 0;
  for (const Audience audience : Diff::kAudiences) {
    const auto& chosen = arguments.audiences;
    const bool is_chosen =
        chosen.empty() ||
        std::find(chosen.begin(), chosen.end(), Analysis::Diff::Word(audience)) != chosen.end();
    if (is_chosen) set |= SetOf(audience);
  }
  return set;
}

std::optional<Class> FailOn(const Arguments& arguments) {
  const std::string& word = arguments.fail_on;
  // The caller asks for the number of the next version, so changes are expected.
  if (word == "never" || (word.empty() && arguments.bump)) return std::nullopt;
  if (word == "any") return Class::kDocumentation;
  return word == "dangerous" ? Class::kDangerous : Class::kBreaking;
}

ExitStatus ListKinds(const Invocation& call) {
  const auto& kinds = Analysis::Diff::Kinds();
  if (call.WantsJson()) {
    call.ShowJsonArray("kinds", kinds,
                       [](JsonWriter& json, const auto* kind) { Diff::WriteJson(json, *kind); });
    return ExitStatus::kOk;
  }
  Table table({"change", "area", "title"});
  for (const auto* kind : kinds)
    table.Add({kind->id, Analysis::Diff::Word(kind->area), kind->title});
  call.Show(table);
  return ExitStatus::kOk;
}

/// What the project assumes and accepts. Complaints are printed.
bool ReadChoices(const Invocation& call, Report& report) {
  const Arguments& arguments = call.Args();
  std::vector<std::string> complaints;
  const std::string config =
      arguments.config.empty() ? FindProjectFile().value_or("") : arguments.config;
  if (!config.empty()) {
    ReadSettings(config, complaints, [&](const auto& document, auto& problems) {
      report.assumptions = Analysis::Diff::ReadAssumptions(document, problems);
    });
  }
  report.accepted_file = arguments.accept;
  if (!arguments.accept.empty()) {
    ReadSettings(arguments.accept, complaints, [&](const auto& document, auto& problems) {
      report.accepted = Analysis::ReadAccepted(document, Diff::kAcceptedForm, problems);
    });
  }
  for (const std::string& complaint : complaints) call.Complain(complaint);
  return complaints.empty();
}

Input ReadVersion(const Invocation& call, const std::string& text) {
  if (IsRevision(text)) return ReadRevision(text, Domains());
  // Two files are the same source, whatever they are called.
  return ReadInput({{kOnlyFileId, text}}, call.GetStreams().in, Domains());
}

/// Leaves out the files that do not load in the other version: all that is in them would seem to be
/// added or removed.
void LeaveOut(const std::set<std::string>& failed_ids, Input& input, Side& side) {
  const auto left_out = std::stable_partition(
      input.files.begin(), input.files.end(),
      [&](const auto& file) { return failed_ids.count(file.source.id) == 0; });
  std::transform(left_out, input.files.end(), std::back_inserter(side.left_out),
                 [](const Analysis::File& file) { return file.name; });
  input.files.erase(left_out, input.files.end());
}

void Fill(const Invocation& call, Side& side, Input input) {
  for (const Unreadable& file : input.unreadable) call.Complain(file.file + ": " + file.reason);
  side.unreadable = input.unreadable.size();
  side.failed = std::move(input.failed);
  side.workspace = std::make_unique<const Analysis::Workspace>(std::move(input.files));
}

ExitStatus WriteAccepted(const Invocation& call, const Report& report) {
  const std::string& path = call.Args().new_accept;
  std::ofstream file(path, std::ios::binary);
  Diff::WriteAccepted(file, report);
  if (file.flush()) return ExitStatus::kOk;
  return call.Fail(ExitStatus::kOutputLost, path + ": the file could not be written");
}

void Show(const Invocation& call, const Report& report) {
  const std::string& output = call.Args().output;
  if (call.Args().bump) {
    call.Out() << Bump(report) << '\n';
  } else if (call.WantsJson()) {
    call.ShowJson([&](JsonWriter& json) { WriteJson(json, report); });
  } else if (output == "markdown") {
    WriteMarkdown(call.Out(), report);
  } else if (output == "github") {
    WriteGithub(call.Out(), report);
  } else {
    WriteText(call.Out(), report, call.GetStreams().out_terminal);
  }
}

ExitStatus Finish(const Invocation& call, const Report& report) {
  ExitStatus status = ExitStatus::kOk;
  if (call.Args().new_accept.empty()) {
    Show(call, report);
  } else {
    status = WriteAccepted(call, report);
  }
  const Diff::Summary summary = Summarize(report);
  if (status != ExitStatus::kOk) return status;
  if (summary.failed > 0) return ExitStatus::kSourceFailed;
  if (!call.Args().new_accept.empty()) return ExitStatus::kOk;
  if (summary.is_failed) return ExitStatus::kFound;
  const auto common =
      report.old_version.workspace->Loaded() & report.new_version.workspace->Loaded();
  if (common != 0) return ExitStatus::kOk;
  return call.Fail(ExitStatus::kUsage, "OLD and NEW have no domain in common");
}

ExitStatus RunDiff(Invocation& call) {
  const Arguments& arguments = call.Args();
  const std::string problem = ProblemOf(arguments);
  if (!problem.empty()) return call.Fail(ExitStatus::kUsage, problem);
  if (arguments.list_kinds) return ListKinds(call);
  const bool reads_input = arguments.old_version == kInput || arguments.new_version == kInput;
  if (reads_input && !call.MayReadInput()) return ExitStatus::kUsage;
  Report report;
  if (!ReadChoices(call, report)) return ExitStatus::kUsage;
  report.audiences = Audiences(arguments);
  report.fail_on = FailOn(arguments);
  report.old_version.name = ShownName({"", arguments.old_version});
  report.new_version.name = ShownName({"", arguments.new_version});
  Input old_input = ReadVersion(call, arguments.old_version);
  Input new_input = ReadVersion(call, arguments.new_version);
  LeaveOut(new_input.failed_ids, old_input, report.old_version);
  LeaveOut(old_input.failed_ids, new_input, report.new_version);
  if (old_input.files.empty() || new_input.files.empty()) {
    old_input.files.clear();
    new_input.files.clear();
  }
  Fill(call, report.old_version, std::move(old_input));
  Fill(call, report.new_version, std::move(new_input));
  Compare(report);
  return Finish(call, report);
}

}  // namespace

Command DiffCommand() {
  Command command;
  command.name = "diff";
  command.summary = "Compare two versions: what changed, and whom it breaks";
  command.details =
      "Each version is a file, a folder, - for standard input, or git:REV:PATH for a file or a "
      "folder as a revision of git has it. All files of a version are read together, as if one "
      "host had loaded them, and what the library answers is compared. The exit status is 5 if a "
      "change is at or above --fail-on.\n"
      "Audiences: wire (programs that call, or are called), source (code that uses generated "
      "bindings), cli (command lines and scripts), auth (who may call), metadata (programs that "
      "read the metadata).\n";
  command.operands = {
      {"OLD", Word::kPath, false, "A file, a folder, - or git:REV:PATH", &Arguments::old_version},
      {"NEW", Word::kPath, false, "The same", &Arguments::new_version}};
  command.options = {
      {"for", "AUDIENCE", Word::kChoice,
       "Look at what concerns the audience; may be given several times", &Arguments::audiences,
       AudienceNames()},
      {"fail-on", "CLASS", Word::kChoice,
       "The least class that fails: breaking (unless given), dangerous, any or never",
       &Arguments::fail_on, FailOnNames()},
      {"accept", "FILE", Word::kPath, "Do not fail because of the changes that the file lists",
       &Arguments::accept},
      {"write-accept", "FILE", Word::kPath,
       "Write the changes to the file in place of showing them", &Arguments::new_accept},
      {"bump", "", Word::kNone, "Print only major, minor or patch: what the next version needs",
       &Arguments::bump},
      {"config", "FILE", Word::kPath,
       "What the project assumes, in place of the nearest .zelk-metadata.json", &Arguments::config},
      {"list-changes", "", Word::kNone, "List the kinds of changes, and do nothing else",
       &Arguments::list_kinds},
  };
  command.outputs = {"text", "json", "markdown", "github"};
  command.example = "diff metadata metadata --for wire";
  command.run = RunDiff;
  return command;
}

}  // namespace Zelk::Tool
