#include <algorithm>
#include <fmt/format.h>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "analysis/diff/configuration.h"
#include "analysis/fingerprint.h"
#include "diff/kinds.h"
#include "diff/report.h"
#include "domains/table.h"
#include "host/accepted_file.h"
#include "host/git_input.h"
#include "host/project_file.h"
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
  const auto& accept = arguments.accept;
  const bool is_accepted_input = std::find(accept.begin(), accept.end(), kInput) != accept.end();
  if (is_accepted_input || arguments.new_accept == kInput) {
    return "--accept and --write-accept need a file, not -";
  }
  const bool has_no_name = std::find(accept.begin(), accept.end(), "") != accept.end();
  if (has_no_name) return "--accept needs a file, not an empty text";
  if (arguments.list_kinds) return WrongListOutput("list-changes", arguments.output);
  if (!arguments.sources.empty()) return "diff takes OLD and NEW as arguments, not as --source";
  if (arguments.old_version.empty() || arguments.new_version.empty()) {
    return "OLD and NEW need a path each; try diff --help";
  }
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
  const bool only_asks = arguments.bump && arguments.new_accept.empty();
  if (word == "never" || (word.empty() && only_asks)) return std::nullopt;
  if (word == "any") return Class::kDocumentation;
  return word == "dangerous" ? Class::kDangerous : Class::kBreaking;
}

ExitStatus ListKinds(const Invocation& call) {
  const auto& kinds = Analysis::Diff::Kinds();
  if (call.WantsJson()) {
    call.ShowJsonArray("kinds", kinds, [](Render::JsonWriter& json, const auto* kind) {
      Diff::WriteJson(json, *kind);
    });
    return ExitStatus::kOk;
  }
  Render::Table table({"change", "area", "title"});
  for (const auto* kind : kinds)
    table.Add({kind->id, Analysis::Diff::Word(kind->area), kind->title});
  call.Show(table);
  return ExitStatus::kOk;
}

/// What the project assumes and accepts. Complaints are printed.
bool ReadChoices(const Invocation& call, Report& report) {
  const Arguments& arguments = call.Args();
  std::vector<std::string> complaints;
  const std::string config = FindProjectFile(arguments.config);
  ReadProjectFile(config, complaints, [&](const auto& document, auto& problems) {
    report.assumptions = Analysis::Diff::ReadAssumptions(document, problems);
  });
  report.accepted_files = arguments.accept;
  for (const std::string& file : WithReplaced(arguments.accept, arguments.new_accept)) {
    ReadSettings(file, complaints, [&](const auto& document, auto& problems) {
      for (auto& entry : Analysis::ReadAccepted(document, Diff::kAcceptedForm, problems)) {
        entry.file = file;
        report.accepted.push_back(std::move(entry));
      }
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

/// Whether nothing of a version could be read.
bool IsUnreadable(const Input& input) {
  return input.files.empty() && input.failed.empty() && !input.unreadable.empty();
}

/// Takes the file with the id out of the files, if it is one of them.
std::optional<Analysis::File> TakeOut(std::vector<Analysis::File>& files, const std::string& id) {
  const auto found = std::find_if(files.begin(), files.end(),
                                  [&](const auto& file) { return file.source.id == id; });
  if (found == files.end()) return std::nullopt;
  Analysis::File file = std::move(*found);
  files.erase(found);
  return file;
}

bool Has(const std::vector<FailedFile>& files, const std::string& id) {
  return std::any_of(files.begin(), files.end(),
                     [&](const FailedFile& file) { return file.id == id; });
}

/// Whether no file of a version loads, and it is not known which files of the other version they
/// would be. All of that version would seem to be added or removed.
bool IsUnknown(const Input& input, const Input& other) {
  const auto has_no_other = [&](const FailedFile& failed) {
    return !Has(other.failed, failed.id) &&
           std::none_of(other.files.begin(), other.files.end(),
                        [&](const auto& file) { return file.source.id == failed.id; });
  };
  return input.files.empty() && std::any_of(input.failed.begin(), input.failed.end(), has_no_other);
}

/// Leaves out what loads in the other version only: all that is in it would seem to be added or
/// removed.
void LeaveOut(Report& report, const Input& failing, Input& other, Side& other_side) {
  const bool is_lost = &other_side == &report.old_version;
  for (const FailedFile& failed : failing.failed) {
    // It loads in neither version.
    if (Has(other.failed, failed.id)) continue;
    const auto file = TakeOut(other.files, failed.id);
    // A new file is not compared.
    if (is_lost && !file) continue;
    Analysis::Diff::LostFile lost{failed.id, failed.report.file, is_lost, failed.fingerprint, ""};
    if (file) {
      const std::string text(file->source.document->Text());
      lost.new_fingerprint = FingerprintText(Analysis::FingerprintOf(text));
      other_side.left_out.push_back(file->name);
    }
    if (is_lost) std::swap(lost.old_fingerprint, lost.new_fingerprint);
    report.lost.push_back(std::move(lost));
  }
}

/// A part that does not load in the new version only is a failure. The rest of the file is
/// compared.
void AddLostParts(const Input& old_input, Input& new_input) {
  for (FailedFile& file : new_input.partial) {
    const auto& others = old_input.partial;
    const bool is_in_both = std::any_of(others.begin(), others.end(), [&](const auto& other) {
      return other.id == file.id && other.part == file.part;
    });
    if (!is_in_both) new_input.failed.push_back(std::move(file));
  }
}

void Fill(const Invocation& call, Side& side, Input input) {
  for (const Unreadable& file : input.unreadable) call.Complain(file.file + ": " + file.reason);
  side.unreadable = input.unreadable.size();
  side.failed = std::move(input.failed);
  side.workspace = std::make_unique<const Analysis::Workspace>(std::move(input.files));
}

void ReadVersions(const Invocation& call, Report& report) {
  Side& old_side = report.old_version;
  Side& new_side = report.new_version;
  old_side.name = ShownName({"", call.Args().old_version});
  new_side.name = ShownName({"", call.Args().new_version});
  Input old_input = ReadVersion(call, call.Args().old_version);
  Input new_input = ReadVersion(call, call.Args().new_version);
  old_side.is_unreadable = IsUnreadable(old_input);
  new_side.is_unreadable = IsUnreadable(new_input);
  if (old_side.is_unreadable || new_side.is_unreadable || IsUnknown(old_input, new_input) ||
      IsUnknown(new_input, old_input)) {
    old_input.files.clear();
    new_input.files.clear();
  } else {
    LeaveOut(report, new_input, old_input, old_side);
    LeaveOut(report, old_input, new_input, new_side);
  }
  AddLostParts(old_input, new_input);
  Fill(call, old_side, std::move(old_input));
  Fill(call, new_side, std::move(new_input));
}

ExitStatus WriteAccepted(const Invocation& call, const Report& report) {
  const std::string& path = call.Args().new_accept;
  if (!IsComplete(report)) {
    return call.Fail(ExitStatus::kSourceFailed,
                     path + ": not written, since not all could be compared");
  }
  const WrittenList written = Diff::WriteAccepted(path, report);
  return call.Fail(written.is_written ? ExitStatus::kOk : ExitStatus::kOutputLost, written.message);
}

/// Prints one word, and nothing if that is not known.
void ShowBump(const Invocation& call, const Report& report) {
  const std::string word = Bump(report);
  if (!word.empty()) {
    call.Out() << word << '\n';
  } else {
    call.Complain("the next version is not known, since not all could be compared");
  }
}

void Show(const Invocation& call, const Report& report) {
  const std::string& output = call.Args().output;
  if (call.Args().bump) {
    ShowBump(call, report);
  } else if (call.WantsJson()) {
    call.ShowJson([&](Render::JsonWriter& json) { WriteJson(json, report); });
  } else if (output == "markdown") {
    WriteMarkdown(call.Out(), report);
  } else if (output == "github") {
    WriteGithub(call.Out(), report);
  } else {
    WriteText(call.Out(), report, call.GetStreams().out_terminal);
  }
}

ExitStatus Finish(const Invocation& call, const Report& report) {
  const bool writes = !call.Args().new_accept.empty();
  if (writes || call.Args().bump) {
    for (const Side* side : {&report.old_version, &report.new_version}) {
      for (const FailedFile& file : side->failed) call.ComplainOf(file.report);
    }
  }
  if (writes) return WriteAccepted(call, report);
  Show(call, report);
  const Diff::Summary summary = Summarize(report);
  if (summary.failed > 0) return ExitStatus::kSourceFailed;
  return summary.is_failed ? ExitStatus::kFound : ExitStatus::kOk;
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
  ReadVersions(call, report);
  const bool has_failed = report.old_version.Failed() + report.new_version.Failed() > 0;
  const std::string reason = has_failed ? "" : WhyNotComparable(report);
  if (!reason.empty()) return call.Fail(ExitStatus::kUsage, reason);
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
      "folder of a revision of git, as in diff git:origin/main:metadata metadata. All files of a "
      "version are read together, as if one "
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
       "Report only changes for the audience; may be given several times", &Arguments::audiences,
       AudienceNames()},
      {"fail-on", "CLASS", Word::kChoice,
       "The lowest class that fails the run: breaking (the default), dangerous, any or never",
       &Arguments::fail_on, FailOnNames()},
      {"accept", "FILE", Word::kPath,
       "Do not fail because of the changes that the file lists; may be given several times",
       &Arguments::accept},
      {"write-accept", "FILE", Word::kPath,
       "Write the changes that fail the run to the file instead of showing them",
       &Arguments::new_accept},
      {"bump", "", Word::kNone, "Print only major, minor or patch: what the next version needs",
       &Arguments::bump},
      {"config", "FILE", Word::kPath,
       "What the project assumes, instead of the nearest .zelk-metadata.json", &Arguments::config},
      {"list-changes", "", Word::kNone, "List the kinds of changes, and do nothing else",
       &Arguments::list_kinds},
  };
  command.outputs = {"text", "json", "markdown", "github"};
  command.example = "diff metadata metadata --for wire";
  command.takes_sources = false;
  command.run = RunDiff;
  return command;
}

}  // namespace Zelk::Tool
