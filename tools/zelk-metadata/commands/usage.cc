#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>

#include "commands/output.h"
#include "commands/query.h"
#include "commands/table.h"
#include "host/near.h"

namespace Zelk::Tool {
namespace {

std::string Joined(const Names& words) {
  return fmt::format("{}", fmt::join(words, "."));
}

}  // namespace

/// The help that a command-line client would show.
ExitStatus RunUsage(const Arguments& arguments, const Streams& streams) {
  Question question(streams);
  question.Load(arguments, streams);
  const DomainRow* row = nullptr;
  const auto usage = question.host.Usage(arguments.ids, row);
  if (!usage) {
    PrintError(streams.err, "no source that is loaded describes a command-line client");
    return question.Status(ExitStatus::kNotFound);
  }
  if (!usage->answer) {
    PrintError(streams.err,
               usage->error->messages.front().Text() +
                   Suggestion(NearNames(Joined(arguments.ids), UsageNames(question.host))));
    return question.Status(ExitStatus::kNotFound);
  }
  if (arguments.json) {
    JsonWriter json;
    usage->answer->record.json(json);
    json.WriteTo(streams.out);
    return question.Status(ExitStatus::kOk);
  }
  Page page = MakePage(arguments, streams);
  usage->answer->record.page(page);
  if (usage->answer->calls) {
    for (const Section& section : question.host.About(*row, *usage->answer->calls)) section(page);
  }
  return question.Status(ExitStatus::kOk);
}

}  // namespace Zelk::Tool
