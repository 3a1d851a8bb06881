#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <set>
#include <string_view>

#include "domains/table.h"
#include "host/accepted_file.h"
#include "host/input.h"
#include "host/project_file.h"
#include "language/invocation.h"
#include "lint/choices.h"
#include "lint/report.h"
#include "lint/rules.h"
#include "render/table.h"

namespace Zelk::Tool {
namespace {

using Analysis::Severity;
using Analysis::Lint::Rule;
using Rules = std::vector<const Rule*>;

std::vector<std::string> GroupNames() {
  std::vector<std::string> names;
  for (std::uint8_t group = 0; group < Analysis::Lint::kGroups; ++group) {
    names.emplace_back(Analysis::Lint::Word(static_cast<Analysis::Lint::Group>(group)));
  }
  return names;
}

std::vector<std::string> RuleNames() {
  std::vector<std::string> names;
  for (const Rule* rule : Analysis::Lint::Rules()) names.emplace_back(rule->id);
  return names;
}

std::vector<std::string> SeverityNames() {
  return {"error", "warning", "note", "never"};
}

bool Has(const std::vector<std::string>& words, const std::string& word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// What is wrong with the options; empty if nothing is.
std::string ProblemOf(const Arguments& arguments) {
  for (const std::string& problem : {UnknownChoice("group", arguments.groups, GroupNames()),
                                     UnknownChoice("rule", arguments.rules, RuleNames()),
                                     UnknownChoice("rule", arguments.except, RuleNames())}) {
    if (!problem.empty()) return problem;
  }
  if (arguments.baseline == "-" || arguments.new_baseline == "-") {
    return "--baseline and --write-baseline need a file, not -";
  }
  if (arguments.list_rules) return WrongListOutput("list-rules", arguments.output);
  if (arguments.fail_on.empty()) return "";
  return UnknownChoice("severity", {arguments.fail_on}, SeverityNames());
}

/// Those of the groups and those that are named, or all by default.
Rules ChosenRules(const Arguments& arguments, const std::set<std::string>& off) {
  Rules chosen;
  const bool has_choice = !arguments.groups.empty() || !arguments.rules.empty();
  for (const Rule* rule : Analysis::Lint::Rules()) {
    const bool is_in_group = Has(arguments.groups, Analysis::Lint::Word(rule->group));
    const bool is_wanted =
        Has(arguments.rules, rule->id) ||
        (!rule->is_off && off.count(rule->id) == 0 && (is_in_group || !has_choice));
    if (is_wanted && !Has(arguments.except, rule->id)) chosen.push_back(rule);
  }
  return chosen;
}

std::optional<Severity> FailOn(const std::string& word) {
  if (word.empty()) return Severity::kError;
  for (const Severity severity : {Severity::kError, Severity::kWarning, Severity::kNote}) {
    if (word == Analysis::Lint::Word(severity)) return severity;
  }
  return std::nullopt;
}

ExitStatus ListRules(Invocation& call) {
  if (call.WantsJson()) {
    call.ShowJsonArray(
        "rules", Rules(Analysis::Lint::Rules()),
        [](Render::JsonWriter& json, const Rule* rule) { Lint::WriteJson(json, *rule); });
    return ExitStatus::kOk;
  }
  Render::Table table({"rule", "group", "severity", "decided by", "checks"});
  for (const Rule* rule : Analysis::Lint::Rules()) {
    table.Add({rule->id, Analysis::Lint::Word(rule->group),
               rule->is_off ? std::string("off") : Analysis::Lint::Word(rule->severity),
               Analysis::Lint::Word(rule->decided_by), rule->title});
  }
  call.Show(table);
  return ExitStatus::kOk;
}

/// The operands and every --source; without operands, also the default sources.
std::vector<SourceArgument> InputsOf(Invocation& call) {
  const Arguments& arguments = call.Args();
  std::vector<SourceArgument> inputs;
  for (const std::string& file : arguments.files) {
    inputs.push_back({DefaultSourceId(file), file});
  }
  const auto sources = inputs.empty() ? call.Sources() : arguments.sources;
  std::transform(sources.begin(), sources.end(), std::back_inserter(inputs), ParseSourceArgument);
  return inputs;
}

void Show(const Invocation& call, const Lint::Report& report) {
  const std::string& output = call.Args().output;
  if (call.WantsJson()) {
    call.ShowJson([&](Render::JsonWriter& json) { WriteJson(json, report); });
  } else if (output == "github") {
    WriteGithub(call.Out(), report);
  } else if (output == "sarif") {
    WriteSarif(call.Out(), report);
  } else if (output == "junit") {
    WriteJunit(call.Out(), report);
  } else {
    WriteText(call.Out(), report, call.GetStreams().out_terminal);
  }
}

/// Accepts all that the report has.
ExitStatus WriteBaseline(const Invocation& call, const Lint::Report& report) {
  const std::string& path = call.Args().new_baseline;
  if (!report.unreadable.empty() || !report.failed.empty()) {
    for (const LoadReport& file : report.failed) call.ComplainOf(file);
    return call.Fail(ExitStatus::kSourceFailed,
                     path + ": not written, since not all files could be read");
  }
  const WrittenList written = Lint::WriteBaseline(path, report);
  return call.Fail(written.is_written ? ExitStatus::kOk : ExitStatus::kOutputLost, written.message);
}

/// The entries of the baseline that no rule of this run could find again.
std::vector<const Analysis::Accepted*> KeptEntries(const std::vector<Analysis::Accepted>& baseline,
                                                   const Rules& rules, Analysis::DomainSet loaded) {
  std::set<std::string_view> ran;
  for (const Rule* rule : rules) {
    if (LooksAt(*rule, loaded)) ran.insert(rule->id);
  }
  std::vector<const Analysis::Accepted*> kept;
  for (const Analysis::Accepted& entry : baseline) {
    if (ran.count(entry.id) == 0) kept.push_back(&entry);
  }
  return kept;
}

ExitStatus LintInputs(Invocation& call, const std::vector<SourceArgument>& inputs,
                      const Rules& rules, Lint::Choices choices) {
  const Arguments& arguments = call.Args();
  Input input = ReadInput(inputs, call.GetStreams().in, Domains());
  for (const Unreadable& file : input.unreadable) call.Complain(file.file + ": " + file.reason);
  Lint::Report report;
  report.workspace = std::make_unique<const Analysis::Lint::Workspace>(std::move(input.files),
                                                                       std::move(choices.settings));
  report.failed = ReportsOf(std::move(input.failed));
  report.configuration_file = choices.configuration_file;
  report.baseline_file = arguments.baseline;
  report.fail_on = FailOn(arguments.fail_on);
  report.shows_suppressed =
      arguments.show_suppressed || arguments.output == "sarif" || !arguments.new_baseline.empty();
  report.result = Analysis::Lint::Lint(*report.workspace, rules, choices.suppressions);
  report.unreadable = std::move(input.unreadable);
  report.kept = KeptEntries(choices.suppressions.baseline, rules, report.workspace->Loaded());
  if (!arguments.new_baseline.empty()) return WriteBaseline(call, report);
  Show(call, report);
  if (!report.unreadable.empty() || !report.failed.empty()) return ExitStatus::kSourceFailed;
  const bool has_looked = std::any_of(rules.begin(), rules.end(), [&](const Rule* rule) {
    return LooksAt(*rule, report.workspace->Loaded());
  });
  if (!has_looked) {
    return call.Fail(ExitStatus::kUsage, "the rules need files of other domains, so none ran");
  }
  return Summarize(report).is_failed ? ExitStatus::kFound : ExitStatus::kOk;
}

/// What the files of a set say wrong without the library's noticing.
ExitStatus RunLint(Invocation& call) {
  const Arguments& arguments = call.Args();
  const std::string problem = ProblemOf(arguments);
  if (!problem.empty()) return call.Fail(ExitStatus::kUsage, problem);
  if (arguments.list_rules) return ListRules(call);
  const std::vector<SourceArgument> inputs = InputsOf(call);
  if (inputs.empty()) {
    return call.Fail(ExitStatus::kUsage, "a FILE or --source is missing; try lint --help");
  }
  const bool reads_input = std::any_of(inputs.begin(), inputs.end(),
                                       [](const auto& input) { return input.path == "-"; });
  if (reads_input && !call.MayReadInput()) return ExitStatus::kUsage;
  std::vector<std::string> baselines;
  if (!arguments.baseline.empty()) baselines.push_back(arguments.baseline);
  Lint::Choices choices =
      Lint::ReadChoices(FindProjectFile(arguments.config),
                        WithReplaced(std::move(baselines), arguments.new_baseline));
  for (const std::string& complaint : choices.complaints) call.Complain(complaint);
  if (!choices.complaints.empty()) return ExitStatus::kUsage;
  const Rules rules = ChosenRules(arguments, choices.off);
  if (rules.empty()) return call.Fail(ExitStatus::kUsage, "no rule is left to run");
  return LintInputs(call, inputs, rules, std::move(choices));
}

}  // namespace

Command LintCommand() {
  Command command;
  command.name = "lint";
  command.summary = "Find mistakes that load without a message, in one file and between files";
  command.details =
      "All files are checked together, as if one host had loaded them. Rules that need files of "
      "a domain are skipped if no such file is given. The exit status is 5 if something at or "
      "above --fail-on is found.\n";
  command.operands = {{"FILE", Word::kPath, false,
                       "Metadata files, folders, or - for standard input", &Arguments::files}};
  command.options = {
      {"only", "GROUP", Word::kChoice, "Run the rules of the group; may be given several times",
       &Arguments::groups, GroupNames()},
      {"rule", "ID", Word::kChoice, "Run the rule; may be given several times", &Arguments::rules,
       RuleNames()},
      {"except", "ID", Word::kChoice, "Do not run the rule; may be given several times",
       &Arguments::except, RuleNames()},
      {"fail-on", "SEVERITY", Word::kChoice,
       "The lowest severity that fails the run: error (the default), warning, note or never",
       &Arguments::fail_on, SeverityNames()},
      {"baseline", "FILE", Word::kPath, "Hide the findings that the file lists",
       &Arguments::baseline},
      {"write-baseline", "FILE", Word::kPath,
       "Write the findings to the file instead of showing them", &Arguments::new_baseline},
      {"config", "FILE", Word::kPath,
       "What the project chose, instead of the nearest .zelk-metadata.json", &Arguments::config},
      {"show-suppressed", "", Word::kNone, "Show what is suppressed, too",
       &Arguments::show_suppressed},
      {"list-rules", "", Word::kNone, "List the rules, and do nothing else",
       &Arguments::list_rules},
  };
  command.outputs = {"text", "json", "github", "sarif", "junit"};
  command.example = "lint metadata --fail-on warning --only loader";
  command.run = RunLint;
  return command;
}

}  // namespace Zelk::Tool
