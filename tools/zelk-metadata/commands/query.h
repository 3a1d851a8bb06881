#pragma once

#include <string>
#include <vector>

#include "commands/command.h"
#include "commands/sources.h"
#include "domains/table.h"
#include "host/host.h"

// What the commands share that ask a kind one question: find the kind, load the sources, ask, show.

namespace Zelk::Tool {

/// A kind that the user may mean and that offers the query.
struct Candidate {
  FoundKind found;
  IdCount ids;
};

/// The kinds that offer `query` among those that the user may mean, the likeliest first.
template <typename T>
std::vector<Candidate> Candidates(const Host& host, const std::string& name,
                                  Query<T> Kind::*query) {
  std::vector<Candidate> candidates;
  for (const FoundKind& found : host.FindKinds(name)) {
    const Query<T>& offered = found.kind->*query;
    if (offered.call) candidates.push_back({found, offered.ids});
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

/// Those that take as many ids and have sources to answer from, or else the first that takes as
/// many. Empty when none does.
std::vector<Candidate> Fitting(const std::vector<Candidate>& candidates, std::size_t id_count);

/// The kind whose ids an id of this name is: an id is called like its kind, in capitals.
std::string KindOfId(const std::string& id_name);

/// All names that `usage` knows.
Names UsageNames(const Host& host);

/// Tells the user why no candidate fits.
ExitStatus ComplainOfKind(const std::string& verb, const Arguments& arguments, const Host& host,
                          const std::vector<Candidate>& candidates, const Streams& streams);

/// Tells the user in one line what the service says, and which names there are that may be meant.
ExitStatus ComplainOf(const ServiceError& error, const std::vector<Candidate>& asked,
                      const Ids& ids, const Streams& streams);

/// What one domain answered to one question.
template <typename T>
struct Answer {
  const DomainRow* row;
  const Kind* kind;
  Ids ids;
  T value;
};

template <typename T>
using Answers = std::vector<Answer<T>>;

/// Puts one question to every candidate. When none answers, complains.
template <typename T>
ExitStatus Ask(Query<T> Kind::*query, const std::vector<Candidate>& candidates, const Ids& ids,
               const Streams& streams, Answers<T>& answers) {
  std::optional<ServiceError> error;
  bool answered = false;
  for (const Candidate& candidate : candidates) {
    Outcome<T> outcome = (candidate.found.kind->*query).call(ids);
    if (outcome.answer) {
      answers.push_back(
          {candidate.found.row, candidate.found.kind, ids, std::move(*outcome.answer)});
      answered = true;
    } else if (!error) {
      error = std::move(outcome.error);
    }
  }
  if (answered || !error) return ExitStatus::kOk;
  return ComplainOf(*error, candidates, ids, streams);
}

/// What a command was asked, found and loaded.
struct Question {
  explicit Question(const Streams& streams)
      : own(streams.session == nullptr ? std::make_unique<Host>(Domains()) : nullptr),
        host(own ? *own : *streams.session) {}

  void Load(const Arguments& arguments, const Streams& streams) {
    loaded = LoadSources(host, arguments, streams);
  }

  /// Tells that nothing is loaded, if so, where the answer is empty then. It is no mistake.
  void TellIfEmpty(const Streams& streams) const;

  std::unique_ptr<Host> own;
  Host& host;
  std::vector<Candidate> candidates;
  bool loaded = true;

  ExitStatus Status(ExitStatus status) const { return loaded ? status : ExitStatus::kSourceFailed; }
};

/// Finds the kind and loads the sources. Anything but kOk ends the command; wrong usage is told
/// before anything is loaded. `id_count` is how many ids one question has.
template <typename T>
ExitStatus Prepare(Question& question, const std::string& verb, Query<T> Kind::*query,
                   const Arguments& arguments, std::size_t id_count, const Streams& streams) {
  const auto candidates = Candidates(question.host, arguments.kind, query);
  if (Fitting(candidates, id_count).empty()) {
    return ComplainOfKind(verb, arguments, question.host, candidates, streams);
  }
  question.Load(arguments, streams);
  // Only the loaded sources tell which domains can answer.
  question.candidates = Fitting(Candidates(question.host, arguments.kind, query), id_count);
  return ExitStatus::kOk;
}

}  // namespace Zelk::Tool
