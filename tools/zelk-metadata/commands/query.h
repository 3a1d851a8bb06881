#pragma once

#include <string>
#include <vector>

#include "commands/command.h"
#include "domains/table.h"
#include "host/host.h"

// What the commands share that ask a kind one question: find the kind, load the sources, ask, show.

namespace Zelk::Tool {

/// Loads every --source and complains of those that fail, which does not keep the others from
/// loading. False if one failed.
bool LoadSources(Host& host, const Arguments& arguments, const Streams& streams);

/// A kind that the user may mean and that offers the query.
struct Candidate {
  const Kind* kind;
  IdCount ids;
};

/// The kinds that offer `query` among those that the user may mean, the likeliest first.
template <typename T>
std::vector<Candidate> Candidates(const Host& host, const std::string& name,
                                  Query<T> Kind::*query) {
  std::vector<Candidate> candidates;
  for (const Kind* kind : host.FindKinds(name)) {
    if ((kind->*query).call) candidates.push_back({kind, (kind->*query).ids});
  }
  return candidates;
}

/// "SERVICE OPERATION", with brackets round an id that may be left out.
std::string IdsText(const Candidate& candidate);

/// Every kind that offers `query`, with the ids it takes, those of several domains once.
template <typename T>
Names Usages(Query<T> Kind::*query) {
  const Host host(Domains());
  Names usages;
  for (const std::string& name : host.KindNames()) {
    for (const Candidate& candidate : Candidates(host, name, query)) {
      const std::string usage = name + IdsText(candidate);
      if (usages.empty() || usages.back() != usage) usages.push_back(usage);
    }
  }
  return usages;
}

/// The first that takes as many ids; null when none does.
const Kind* FirstFitting(const std::vector<Candidate>& candidates, std::size_t id_count);

/// Tells the user why no candidate fits.
ExitStatus ComplainOfKind(const std::string& verb, const Arguments& arguments, const Host& host,
                          const std::vector<Candidate>& candidates, const Streams& streams);

ExitStatus ComplainOf(const ServiceError& error, const Streams& streams);

/// Runs the command `verb`: asks `query` and gives its answer to `show(kind, answer)`.
template <typename T, typename Show>
ExitStatus RunQuery(const std::string& verb, Query<T> Kind::*query, const Arguments& arguments,
                    const Streams& streams, const Show& show) {
  Host host(Domains());
  // Wrong usage is told before anything is loaded.
  const auto candidates = Candidates(host, arguments.kind, query);
  if (FirstFitting(candidates, arguments.ids.size()) == nullptr) {
    return ComplainOfKind(verb, arguments, host, candidates, streams);
  }
  const bool loaded = LoadSources(host, arguments, streams);
  // Only the loaded sources tell which of several kinds is meant.
  const Kind& kind = *FirstFitting(Candidates(host, arguments.kind, query), arguments.ids.size());
  const Outcome<T> outcome = (kind.*query).call(arguments.ids);
  const ExitStatus status = outcome.error ? ComplainOf(*outcome.error, streams) : ExitStatus::kOk;
  if (outcome.answer) show(kind, *outcome.answer);
  return loaded ? status : ExitStatus::kSourceFailed;
}

}  // namespace Zelk::Tool
