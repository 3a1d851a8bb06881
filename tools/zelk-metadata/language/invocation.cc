#include "language/invocation.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>

#include "analysis/near.h"
#include "domains/table.h"
#include "language/operands.h"
#include "language/sources.h"
#include "render/pager.h"

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

Unknown FindUnknown(const FoundKind& found, const Ids& ids, const NameLookup& lookup) {
  for (std::size_t i = 0; i < std::min(ids.size(), found.IdKinds().size()); ++i) {
    const auto end = ids.begin() + static_cast<std::ptrdiff_t>(i);
    const Names names = lookup(found, found.IdKinds()[i], {ids.begin(), end});
    if (std::find(names.begin(), names.end(), ids[i]) == names.end()) return {ids[i], names};
  }
  return {};  // coverage: every id is listed only if a file changes meanwhile
}

/// With colours as --color says.
Streams Coloured(const Streams& streams, const std::string& color) {
  Streams coloured = streams;
  if (color == "always" || color == "never") {
    coloured.out_terminal.colours = coloured.err_terminal.colours = color == "always";
  }
  return coloured;
}

Streams WithOutput(const Streams& streams, std::ostream& out) {
  return {streams.in,           out,
          streams.err,          streams.out_terminal,
          streams.err_terminal, streams.in_is_terminal,
          streams.script_line};
}

/// That of the session, unless the line asks for another.
void SetDefaultOutput(ParsedArguments& parsed, const std::string& output) {
  Arguments& arguments = parsed.arguments;
  const auto& known = parsed.command->outputs;
  if (arguments.json || !arguments.output.empty()) return;
  if (std::find(known.begin(), known.end(), output) == known.end()) return;
  arguments.output = output;
  arguments.json = output == "json";
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
  return has_failed_ && status != ExitStatus::kOutputLost ? ExitStatus::kSourceFailed : status;
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

void Invocation::FailSource(const std::string& complaint) {
  has_failed_ = true;
  Complain(complaint);
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

Render::Page Invocation::MakePage() const {
  Render::Terminal plain;
  plain.colours = arguments_.color == "always";
  return Render::Page(streams_.out, IsForPeople() ? streams_.out_terminal : plain);
}

void Invocation::Show(const Render::Table& table) const {
  if (IsForPeople()) {
    table.Write(streams_.out, streams_.out_terminal);
  } else {
    table.WritePlain(streams_.out);
  }
}

void Invocation::Complain(const std::string& text) const {
  streams_.Complain(text);
}

void Invocation::ComplainOf(const LoadReport& file) const {
  for (const Problem& problem : file.problems) Complain(ProblemLine(file.file, problem));
}

ExitStatus Invocation::Fail(ExitStatus status, const std::string& complaint) const {
  Complain(complaint);
  return status;
}

ExitStatus Invocation::FailAs(const ServiceError& error, const Ids& ids,
                              const NameLookup& lookup) const {
  std::string text;
  for (const Message& message : error.messages) {
    text += (text.empty() ? "" : "; ") + message.Text();
  }
  Names known;
  std::string wanted;
  for (const FoundKind& found : kinds_) {
    const Unknown unknown = FindUnknown(found, ids, lookup);
    known.insert(known.end(), unknown.known.begin(), unknown.known.end());
    if (wanted.empty()) wanted = unknown.wanted;
  }
  const std::string other = OtherKindText(wanted, lookup);
  return Fail(ExitStatus::kNotFound,
              text + (other.empty() ? Analysis::Suggestion(wanted, known) : other));
}

std::string Invocation::OtherKindText(const std::string& id, const NameLookup& lookup) const {
  for (const std::string& name : host_.KindNames()) {
    for (const FoundKind& found : host_.FindKinds(name, IdsOfQuery<&Kind::list>)) {
      if (found.ids.min > 0 || name == kinds_.front().kind->name) continue;
      const Names names = lookup(found, name, {});
      const bool is_one = std::find(names.begin(), names.end(), id) != names.end();
      const bool is_vowel = std::string("aeiou").find(name.front()) != std::string::npos;
      if (is_one) return fmt::format("; {} is {} {}", id, is_vowel ? "an" : "a", name);
    }
  }
  return "";
}

ExitStatus Invocation::FailAsSource(const std::string& id) const {
  return Fail(ExitStatus::kNotFound, fmt::format("no source has the id '{}'{}", id,
                                                 Analysis::Suggestion(id, host_.SourceIds())));
}

ExitStatus Invocation::FailAsUsage(const std::string& kind) const {
  const Names known = KindNames(command_.ids_of);
  if (host_.FindKinds(kind).empty()) {
    return Fail(ExitStatus::kNotFound,
                fmt::format("unknown kind '{}'; the kinds are {}{}", kind, fmt::join(known, ", "),
                            Analysis::Suggestion(Singular(kind), known)));
  }
  const std::vector<FoundKind> kinds = KindsCalled(kind);
  if (kinds.empty()) {
    return Fail(ExitStatus::kUsage, fmt::format("'{}' does not take the kind '{}'; it takes {}",
                                                command_.name, kind, fmt::join(known, ", ")));
  }
  const FoundKind& likeliest = kinds.front();
  return Fail(ExitStatus::kUsage, fmt::format("usage: {}{} {}{}", language_.program, command_.name,
                                              likeliest.kind->name, likeliest.IdsText()));
}

/// With a pager if the answer is longer than the screen.
static ExitStatus RunOnTerminal(const ParsedArguments& parsed, const Language& language,
                                const Streams& streams, SessionState* session) {
  const bool is_paged = parsed.command->is_paged && !parsed.arguments.no_pager;
  if (!is_paged || !Render::WantsPager(streams.out_terminal)) {
    return Invocation(language, *parsed.command, parsed.arguments, streams, session).Run();
  }
  Render::Pager pager(streams.out, streams.err, streams.out_terminal);
  std::ostream out(&pager);
  return Invocation(language, *parsed.command, parsed.arguments, WithOutput(streams, out), session)
      .Run();
}

ExitStatus Perform(const std::vector<std::string>& words, const Language& language,
                   const Streams& streams, SessionState* session) {
  ParsedArguments parsed = ParseArguments(words, language);
  if (!parsed.error.empty()) {
    streams.Complain(parsed.error);
    return ExitStatus::kUsage;
  }
  if (parsed.command == nullptr) {
    streams.out << parsed.version << '\n';
    return ExitStatus::kOk;
  }
  if (session != nullptr) SetDefaultOutput(parsed, session->output);
  try {
    return RunOnTerminal(parsed, language, Coloured(streams, parsed.arguments.color), session);
  } catch (const std::bad_alloc&) {
    streams.Complain(kOutOfMemory);
    return ExitStatus::kOutputLost;
  }
}

}  // namespace Zelk::Tool
