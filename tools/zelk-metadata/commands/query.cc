#include "commands/query.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace Zelk::Tool {

std::string IdsText(const Candidate& candidate) {
  std::string text;
  for (std::size_t i = 0; i < candidate.ids.max; ++i) {
    const std::string& name = candidate.kind->id_names[i];
    text += i < candidate.ids.min ? " " + name : " [" + name + "]";
  }
  return text;
}

bool LoadSources(Host& host, const Arguments& arguments, const Streams& streams) {
  bool loaded = true;
  for (const std::string& source : arguments.sources) {
    const LoadReport report = host.Load(ParseSourceArgument(source));
    for (const Problem& problem : report.problems) {
      PrintError(streams.err, ProblemLine(report.file, problem));
    }
    loaded = loaded && report.problems.empty();
  }
  return loaded;
}

const Kind* FirstFitting(const std::vector<Candidate>& candidates, std::size_t id_count) {
  const auto found =
      std::find_if(candidates.begin(), candidates.end(), [id_count](const Candidate& candidate) {
        return candidate.ids.min <= id_count && id_count <= candidate.ids.max;
      });
  return found == candidates.end() ? nullptr : found->kind;
}

ExitStatus ComplainOfKind(const std::string& verb, const Arguments& arguments, const Host& host,
                          const std::vector<Candidate>& candidates, const Streams& streams) {
  if (host.FindKinds(arguments.kind).empty()) {
    PrintError(streams.err, fmt::format("unknown kind '{}'; the kinds are {}", arguments.kind,
                                        fmt::join(host.KindNames(), ", ")));
    return ExitStatus::kNotFound;
  }
  if (candidates.empty()) {
    PrintError(streams.err, fmt::format("there is no {} for the kind '{}'", verb, arguments.kind));
  } else {
    const Candidate& likeliest = candidates.front();
    PrintError(streams.err, fmt::format("usage: zelk-metadata {} {}{}", verb, likeliest.kind->name,
                                        IdsText(likeliest)));
  }
  return ExitStatus::kUsage;
}

ExitStatus ComplainOf(const ServiceError& error, const Streams& streams) {
  for (const Message& message : error.messages) PrintError(streams.err, message.Text());
  return ExitStatus::kNotFound;
}

}  // namespace Zelk::Tool
