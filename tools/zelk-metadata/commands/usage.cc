#include <fmt/format.h>
#include <fmt/ranges.h>

#include "analysis/near.h"
#include "language/invocation.h"
#include "language/operands.h"

namespace Zelk::Tool {
namespace {

void ShowJson(const Invocation& call, const std::vector<UsagePage>& pages) {
  call.ShowJsonArray("usages", pages, [](Render::JsonWriter& json, const UsagePage& page) {
    page.record.json(json);
  });
}

/// The help that a command-line client would show.
ExitStatus RunUsage(Invocation& call) {
  call.Load();
  const Host& host = call.GetHost();
  const Names& words = call.Args().ids;
  const auto usage = host.Usage(words);
  if (!usage || !usage->page.answer) {
    if (call.WantsJson()) ShowJson(call, {});
    const std::string name = fmt::format("{}", fmt::join(words, "."));
    return call.Fail(ExitStatus::kNotFound,
                     usage ? usage->page.error->messages.front().Text() +
                                 Analysis::Suggestion(name, host.UsageNames())
                           : "no loaded source describes a command-line client");
  }
  const UsagePage& help = *usage->page.answer;
  if (call.WantsJson()) {
    ShowJson(call, {help});
    return ExitStatus::kOk;
  }
  Render::Page page = call.MakePage();
  help.record.page(page);
  if (help.calls) {
    for (const Section& section : host.About(*usage->row, *help.calls)) section(page);
  }
  return ExitStatus::kOk;
}

}  // namespace

Command UsageCommand() {
  Command command;
  command.name = "usage";
  command.summary = "Show the help of the command-line client that the metadata describes";
  command.details = "Without a NAME, the help of the client itself with its top namespaces.\n";
  command.operands = {{"NAME", Word::kUsageName, false,
                       "The namespaces and the command, as one dotted name or as words",
                       &Arguments::ids}};
  command.outputs = TableOutputs();
  command.example = "usage metadata metamodel component --source metadata";
  command.run = RunUsage;
  return command;
}

}  // namespace Zelk::Tool
