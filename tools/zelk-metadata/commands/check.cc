#include <algorithm>
#include <fmt/format.h>
#include <optional>
#include <ostream>

#include "check/output.h"
#include "domains/table.h"
#include "host/interrupt.h"
#include "language/invocation.h"

namespace Zelk::Tool {
namespace {

/// Checks files one by one. Only for JSON are all reports kept.
class Checking {
 public:
  explicit Checking(Invocation& call) : call_(call) {}

  void CheckOperand(const std::string& operand) {
    const Expansion& expansion = ExpansionOf(operand);
    for (const Unreadable& failure : expansion.failures) {
      Report({failure.file, "", {Problem{Message{"", failure.reason, {}}}}});
    }
    for (const SourceArgument& source : expansion.sources) {
      if (IsInterrupted()) return;
      LoadReport report = LoadAlone(source, Domains());
      if (operand == kInput) report.file = "<stdin>";
      Report(std::move(report));
    }
  }

  ExitStatus End() {
    if (call_.WantsJson()) {
      WriteJson();
    } else if (call_.Args().output != "github" && !call_.Args().quiet) {
      WriteEnd();
    }
    return errors_ == 0 ? ExitStatus::kOk : ExitStatus::kSourceFailed;
  }

  static constexpr char kInput[] = "-";

 private:
  /// Standard input can be read only once, and checked several times.
  const Expansion& ExpansionOf(const std::string& operand) {
    if (operand == kInput && input_) return *input_;
    std::optional<Expansion>& expansion = operand == kInput ? input_ : expansion_;
    expansion = Expand({DefaultSourceId(operand), operand}, call_.GetStreams().in);
    return *expansion;
  }

  void Report(LoadReport report) {
    std::size_t& count = !report.IsLoaded() ? errors_ : report.problems.empty() ? ok_ : warnings_;
    ++count;
    if (call_.WantsJson()) {
      report.text.reset();
      reports_.push_back(std::move(report));
    } else if (call_.Args().output == "github") {
      Check::WriteCheckedCommands(call_.Out(), report);
    } else {
      Check::WriteCheckedText(call_.Out(), report, call_.GetStreams().out_terminal);
      if (report.IsLoaded() && !call_.Args().quiet) {
        WriteLine(report.file + ": " + Check::LoadedText(report));
      }
    }
  }

  std::size_t Total() const { return ok_ + warnings_ + errors_; }

  std::string Summary() const {
    std::string text = fmt::format("{} files: {} ok", Total(), ok_);
    if (warnings_ > 0) text += fmt::format(", {} with warnings", warnings_);
    if (errors_ > 0) text += fmt::format(", {} with errors", errors_);
    return text;
  }

  void WriteEnd() const {
    if (Total() > 1) WriteLine(Summary());
    if (!call_.GetStreams().out_terminal.is_terminal || ok_ == 0 || errors_ > 0) return;
    WriteLine(fmt::format("'{}lint' finds mistakes that load without a message.",
                          call_.GetLanguage().program));
  }

  void WriteLine(const std::string& text) const {
    Render::Page(call_.Out(), call_.GetStreams().out_terminal).Line(0, text);
  }

  void WriteJson() const {
    call_.ShowJson([this](Render::JsonWriter& json) {
      json.Key("files").StartArray();
      for (const LoadReport& report : reports_) Check::WriteCheckedJson(json, report);
      json.EndArray();
      json.Key("summary").StartObject();
      json.Key("files").Number(Total());
      json.Key("ok").Number(ok_);
      json.Key("warnings").Number(warnings_);
      json.Key("errors").Number(errors_);
      json.EndObject();
    });
  }

  Invocation& call_;
  std::optional<Expansion> input_;
  std::optional<Expansion> expansion_;
  std::vector<LoadReport> reports_;
  std::size_t ok_ = 0;
  std::size_t warnings_ = 0;
  std::size_t errors_ = 0;
};

/// What is wrong with each file, in the order given.
ExitStatus RunCheck(Invocation& call) {
  const Arguments& arguments = call.Args();
  if (!arguments.sources.empty()) {
    return call.Fail(ExitStatus::kUsage, "check takes files as arguments, not as --source");
  }
  const bool reads_input = std::find(arguments.files.begin(), arguments.files.end(),
                                     Checking::kInput) != arguments.files.end();
  if (reads_input && !call.MayReadInput()) return ExitStatus::kUsage;
  Checking checking(call);
  for (const std::string& file : arguments.files) checking.CheckOperand(file);
  return checking.End();
}

}  // namespace

Command CheckCommand() {
  Command command;
  command.name = "check";
  command.summary = "Load each file separately and report what is wrong with it";
  command.details =
      "In a folder, every *.json file in it and in the folders in it is checked. --output github "
      "prints workflow commands, which GitHub shows as annotations. The exit status is 1 if a file "
      "has an error. Warnings, which are about what a file loads without, do not change it.\n";
  command.operands = {{"FILE", Word::kPath, true,
                       "Files and folders; each file is loaded separately; - is standard input",
                       &Arguments::files}};
  command.options = {{"quiet", "", Word::kNone, "Print problems only", &Arguments::quiet}};
  command.outputs = {"text", "json", "github"};
  command.example = "check metadata";
  command.takes_sources = false;
  command.run = RunCheck;
  return command;
}

}  // namespace Zelk::Tool
