#include "language/invocation.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>

#include "analysis/near.h"
#include "domains/table.h"
#include "language/sources.h"

namespace Zelk::Tool {
namespace {

std::string Singular(const std::string& kind) {
  return !kind.empty() && kind.back() == 's' ? kind.substr(0, kind.size() - 1) : kind;
}

/// Those that take as many ids and have sources to answer from, or else the first that takes as
/// many. Empty if none does.
std::vector<FoundKind> Fitting(const std::vector<FoundKind>& kinds, std::size_t id_count) {
  std::vector<FoundKind> fitting;
  for (const FoundKind& found : kinds) {
    const bool fits = found.ids.min <= id_count && id_count <= found.ids.max;
    if (fits && (fitting.empty() || found.has_sources)) fitting.push_back(found);
  }
  return fitting;
}

/// The first id that names nothing, and the names that there are in its place.
struct Unknown {
  std::string wanted;
  Names known;
};

Unknown FindUnknown(const FoundKind& found, const Ids& ids) {
  for (std::size_t i = 0; i < std::min(ids.size(), found.kind->id_kinds.size()); ++i) {
    const auto end = ids.begin() + static_cast<std::ptrdiff_t>(i);
    const std::optional<Names> names = found.NamesAt(i, {ids.begin(), end});
    if (names && std::find(names->begin(), names->end(), ids[i]) == names->end()) {
      return {ids[i], *names};
    }
  }
  return {};  // coverage: every id is listed only if a file changes meanwhile
}

}  // namespace

Invocation::Invocation(const Language& language, const Command& command, Arguments arguments,
                       const Streams& streams, SessionState* session)
    : language_(language),
      command_(command),
      arguments_(std::move(arguments)),
      streams_(streams),
      session_(session),
      own_(session == nullptr ? std::make_unique<Host>(Domains(), command.use) : nullptr),
      host_(own_ ? *own_ : session->host) {}

ExitStatus Invocation::Run() {
  const ExitStatus status = command_.run(*this);
  return has_failed_ ? ExitStatus::kSourceFailed : status;
}

std::vector<std::string> Invocation::Sources() {
  if (session_ != nullptr) return arguments_.sources;
  std::vector<std::string> sources;
  has_failed_ = !FindSources(arguments_, sources, streams_) || has_failed_;
  return sources;
}

void Invocation::Load() {
  has_failed_ = !LoadSources(host_, Sources(), streams_) || has_failed_;
}

std::vector<SourceOutline> Invocation::Outlines() {
  std::vector<SourceOutline> outlines;
  has_failed_ = !LoadOutlines(host_, outlines, streams_) || has_failed_;
  return outlines;
}

bool Invocation::HasSources() {
  if (!host_.SourceIds().empty()) return true;
  if (!has_failed_) {
    Complain(fmt::format("nothing is loaded; {} PATH loads a file or a folder",
                         session_ == nullptr ? "--source" : "create"));
  }
  return false;
}

bool Invocation::MayReadInput() {
  if (session_ == nullptr) return true;
  Complain("'-' cannot be used in a session: standard input is the session's own");
  return false;
}

void Invocation::EndSession() {
  session_->has_ended = true;
}

std::vector<FoundKind> Invocation::KindsCalled(const std::string& kind) const {
  return host_.FindKinds(kind, command_.ids_of);
}

ExitStatus Invocation::Prepare(const std::string& kind, std::size_t id_count) {
  if (Fitting(KindsCalled(kind), id_count).empty()) return FailAsUsage(kind);
  Load();
  // Which domains can answer is known once the sources are loaded.
  kinds_ = Fitting(KindsCalled(kind), id_count);
  return ExitStatus::kOk;
}

bool Invocation::IsForPeople() const {
  return arguments_.output.empty() ? streams_.out_terminal.is_terminal
                                   : arguments_.output == "table";
}

Page Invocation::MakePage() const {
  return Page(streams_.out, IsForPeople() ? streams_.out_terminal : Terminal{});
}

void Invocation::Show(const Table& table) const {
  if (IsForPeople()) {
    table.Write(streams_.out, streams_.out_terminal);
  } else {
    table.WritePlain(streams_.out);
  }
}

void Invocation::Complain(const std::string& text) const {
  PrintError(streams_.err, text);
}

ExitStatus Invocation::Fail(ExitStatus status, const std::string& complaint) const {
  Complain(complaint);
  return status;
}

ExitStatus Invocation::FailAs(const ServiceError& error, const Ids& ids) const {
  std::string text;
  for (const Message& message : error.messages) {
    text += (text.empty() ? "" : "; ") + message.Text();
  }
  Names known;
  std::string wanted;
  for (const FoundKind& found : kinds_) {
    const Unknown unknown = FindUnknown(found, ids);
    known.insert(known.end(), unknown.known.begin(), unknown.known.end());
    if (wanted.empty()) wanted = unknown.wanted;
  }
  return Fail(ExitStatus::kNotFound, text + Analysis::Suggestion(wanted, known));
}

ExitStatus Invocation::FailAsSource(const std::string& id) const {
  return Fail(ExitStatus::kNotFound, fmt::format("no source has the id '{}'{}", id,
                                                 Analysis::Suggestion(id, host_.SourceIds())));
}

ExitStatus Invocation::FailAsUsage(const std::string& kind) const {
  const Names known = host_.KindNames();
  if (host_.FindKinds(kind).empty()) {
    return Fail(ExitStatus::kNotFound,
                fmt::format("unknown kind '{}'; the kinds are {}{}", kind, fmt::join(known, ", "),
                            Analysis::Suggestion(Singular(kind), known)));
  }
  const std::vector<FoundKind> kinds = KindsCalled(kind);
  if (kinds.empty()) {
    return Fail(ExitStatus::kUsage,
                fmt::format("'{}' does not take the kind '{}'", command_.name, kind));
  }
  const FoundKind& likeliest = kinds.front();
  return Fail(ExitStatus::kUsage, fmt::format("usage: {}{} {}{}", language_.program, command_.name,
                                              likeliest.kind->name, likeliest.IdsText()));
}

ExitStatus Perform(const std::vector<std::string>& words, const Language& language,
                   const Streams& streams, SessionState* session) {
  const ParsedArguments parsed = ParseArguments(words, language);
  if (parsed.command != nullptr) {
    try {
      return Invocation(language, *parsed.command, parsed.arguments, streams, session).Run();
    } catch (const std::bad_alloc&) {
      PrintError(streams.err, kOutOfMemory);
      return ExitStatus::kOutputLost;
    }
  }
  if (parsed.error.empty()) {
    streams.out << parsed.help;
    return ExitStatus::kOk;
  }
  PrintError(streams.err, parsed.error);
  return ExitStatus::kUsage;
}

}  // namespace Zelk::Tool
