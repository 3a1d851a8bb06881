#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/host.h"
#include "language/command.h"
#include "render/json_writer.h"
#include "render/page.h"
#include "render/table.h"
#include "render/terminal.h"

namespace Zelk::Tool {

/// Where a command reads, answers and complains.
struct Streams {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  Render::Terminal out_terminal = {};
  Render::Terminal err_terminal = {};

  /// Whether `in` is the terminal of the process.
  bool in_is_terminal = false;

  /// In front of complaints: which line of a script they are about.
  std::string script_line = {};

  /// Prints one line on standard error.
  void Complain(const std::string& text) const {
    Render::PrintError(err, script_line + text, err_terminal);
  }
};

/// What stays from one line of a session to the next.
struct SessionState {
  Host host;
  bool has_ended = false;

  /// --output of the lines that have none, if their command knows it.
  std::string output;
};

/// Changes if what a program reads from a JSON document of a command changes its name or meaning.
constexpr std::uint64_t kJsonVersion = 1;

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

/// All that a command is given: its arguments, its sources, and how answers are shown.
class Invocation {
 public:
  /// `session` is null outside of sessions, where each command has sources of its own.
  Invocation(const Language& language, const Command& command, Arguments arguments,
             const Streams& streams, SessionState* session);

  /// Runs the command. A source that failed to load decides the status, whatever the command
  /// returns.
  ExitStatus Run();

  const Arguments& Args() const { return arguments_; }

  const Language& GetLanguage() const { return language_; }

  const Streams& GetStreams() const { return streams_; }

  // Sources.

  /// The session's, or else the command's own. These are empty before Load().
  Host& GetHost() { return host_; }

  /// The default sources and every --source; in a session, those that the line gives.
  std::vector<std::string> Sources();

  /// Loads them.
  void Load();

  /// What each source holds by itself.
  std::vector<SourceOutline> Outlines();

  /// Complains about a source, and so decides the status as one that fails to load.
  void FailSource(const std::string& complaint);

  /// If no source is loaded, prints a note that explains the empty answer. Not an error.
  void NoteIfEmpty() { HasSources(); }

  /// The same for commands to which it is one: false without a source.
  bool HasSources();

  /// False in a session, which reads its lines from standard input; prints an error in that case.
  bool MayReadInput();

  /// The next line is not read.
  void EndSession();

  // Questions about one kind.

  /// The kinds that the user may mean, of those that this command can be asked for.
  std::vector<FoundKind> KindsCalled(const std::string& kind) const;

  /// Finds the kinds and loads the sources. Anything but kOk ends the command; wrong usage is
  /// reported before anything is loaded. `id_count` is the number of ids of one question.
  ExitStatus Prepare(const std::string& kind, std::size_t id_count);

  /// The kinds that Prepare() found.
  const std::vector<FoundKind>& Kinds() const { return kinds_; }

  /// Puts one question to every kind. If none answers, prints the first error.
  template <typename T>
  ExitStatus Ask(Query<T> Kind::*query, const Ids& ids, Answers<T>& answers) {
    std::optional<ServiceError> error;
    const std::size_t before = answers.size();
    for (const FoundKind& found : kinds_) {
      Outcome<T> outcome = (found.kind->*query).call(ids);
      if (outcome.answer) {
        answers.push_back({found.row, found.kind, ids, std::move(*outcome.answer)});
      } else if (!error) {
        error = std::move(outcome.error);
      }
    }
    return answers.size() > before || !error ? ExitStatus::kOk : FailAs(*error, ids);
  }

  // Answers.

  std::ostream& Out() const { return streams_.out; }

  bool WantsJson() const { return arguments_.json; }

  /// Whether people read the answer: they asked for a table, or asked for nothing and have a
  /// terminal. Not for JSON.
  bool IsForPeople() const;

  /// A page for people, or one without wrapping and colours.
  Render::Page MakePage() const;

  void Show(const Render::Table& table) const;

  /// The document of the command: an object with the version of its shape and the members that
  /// `write_members(json)` writes. Indented on a terminal.
  template <typename WriteMembers>
  void ShowJson(const WriteMembers& write_members) const {
    Render::JsonWriter json;
    json.StartObject();
    json.Key("version").Number(kJsonVersion);
    write_members(json);
    json.EndObject();
    json.WriteTo(streams_.out, streams_.out_terminal.is_terminal);
  }

  /// The same with one member: an array of what `write(json, element)` writes of each element.
  template <typename Elements, typename Write>
  void ShowJsonArray(const char* name, const Elements& elements, const Write& write) const {
    ShowJson([&](Render::JsonWriter& json) {
      json.Key(name).StartArray();
      for (const auto& element : elements) write(json, element);
      json.EndArray();
    });
  }

  // Complaints.

  /// Prints one line on standard error.
  void Complain(const std::string& text) const;

  /// Prints each problem of the file in a line.
  void ComplainOf(const LoadReport& file) const;

  /// Prints one line on standard error, and returns the status.
  ExitStatus Fail(ExitStatus status, const std::string& complaint) const;

  /// Prints what the service says about the ids in one line, with names that may be meant: those
  /// that `lookup` returns.
  ExitStatus FailAs(const ServiceError& error, const Ids& ids,
                    const NameLookup& lookup = &FoundKind::NamesOf) const;

  /// The kind is not known, or not to this command, or takes another number of ids.
  ExitStatus FailAsUsage(const std::string& kind) const;

  /// No source of the session has the id.
  ExitStatus FailAsSource(const std::string& id) const;

 private:
  /// "; it is a service", or nothing if the id is not known in another kind.
  std::string OtherKindText(const std::string& id, const NameLookup& lookup) const;

  const Language& language_;
  const Command& command_;
  const Arguments arguments_;
  const Streams streams_;
  SessionState* session_;
  std::unique_ptr<Host> own_;
  Host& host_;
  std::vector<FoundKind> kinds_;
  bool has_failed_ = false;
};

/// What is printed when memory runs out. What was loaded before stays.
constexpr char kOutOfMemory[] = "out of memory";

/// Does what the words say as a command line of the language. Memory that runs out is an error of
/// the command.
ExitStatus Perform(const std::vector<std::string>& words, const Language& language,
                   const Streams& streams, SessionState* session = nullptr);

}  // namespace Zelk::Tool
