#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/domain.h"
#include "host/file_position.h"
#include "host/source_argument.h"

namespace Zelk::Tool {

/// One thing that is wrong with a file.
struct Problem {
  Message message;

  /// Set for a syntax error.
  std::optional<FilePosition> position;
};

/// What loading a file gave.
struct LoadReport {
  std::string file;

  /// The name of the domain that loaded it.
  std::string domain;

  /// Empty for a file that was loaded.
  std::vector<Problem> problems;
};

/// "FILE: TEXT [ID]", with the position after the file's name if it is known, and after the id the
/// arguments that the text does not show. The tool's own messages have no id.
std::string ProblemLine(const std::string& file, const Problem& problem);

/// How many ids a command takes for the kind; nothing for a kind that it does not know.
using IdsOf = std::optional<IdCount> (*)(const Kind& kind);

/// A kind that the user may mean.
struct FoundKind {
  const DomainRow* row;
  const Kind* kind;
  IdCount ids;

  /// Whether its domain has loaded something.
  bool has_sources;

  /// All kinds of its domain.
  const std::vector<Kind>* kinds;

  /// " SERVICE OPERATION", with brackets round an id that may be left out.
  std::string IdsText() const;

  /// The names that the id at `index` may be, if `before` are the ids before it. Empty if they
  /// cannot be listed.
  std::optional<Names> NamesAt(std::size_t index, const Ids& before) const;
};

/// What one of the loaded sources holds by itself.
struct SourceOutline {
  SourceArgument source;
  const DomainRow* row;
  Outline outline;
};

/// How a reload left one source.
struct ReloadReport {
  enum class State {
    /// The file did not change.
    kSame,
    kChanged,
    /// The file differs, but the old data is still in use.
    kKept,
  };

  std::string id;
  std::string file;
  std::string domain;
  State state;

  /// Why it was kept: the name of the domain that the file belongs to now; or what is wrong with
  /// the file; or, if nothing is, the id of the source whose failure stopped the domain's reload;
  /// or none of these, if the file has changed meanwhile.
  std::string moved_to;
  std::vector<Problem> problems;
  std::string stopped_by;
};

/// What a host is asked, which decides how it loads sources.
enum class HostUse {
  /// What all sources say together: each is loaded into the container of its domain.
  kAnswers,
  /// What each source holds by itself: each is loaded into a container of its own.
  kOutlines,
  /// Both, while files change. Each source is loaded twice, so that everything is answered from the
  /// data that is loaded and not from the files.
  kSession,
};

struct UsageAnswer {
  const DomainRow* row;
  Outcome<UsagePage> page;
};

/// All domains of a table, each with a container.
class Host {
 public:
  /// The table must not be empty and must outlive the host.
  explicit Host(const DomainTable& table, HostUse use = HostUse::kAnswers);
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  ~Host();

  /// Loads the file into the domain that it belongs to.
  LoadReport Load(const SourceArgument& source);

  /// Deletes the source with that id from every domain. If no source has that id, `text` is taken
  /// as DOMAIN:ID. Returns the number of sources deleted.
  std::size_t Delete(const std::string& text);

  /// Reloads the sources that Delete() would delete, or all of them without a text. The result is
  /// empty if there are none, and not complete after Ctrl-C in a session.
  std::vector<ReloadReport> Reload(const std::optional<std::string>& text);

  /// The ids of all sources, each once; with their domains as DOMAIN:ID.
  Names SourceIds(bool with_domains = false) const;

  /// The kinds that the user may mean by `text`, a kind's name or its plural, with or without
  /// "DOMAIN:" before it; with `ids_of` only those that it knows. Domains that have loaded
  /// something come first.
  std::vector<FoundKind> FindKinds(const std::string& text, IdsOf ids_of = nullptr) const;

  /// The names of all kinds, each once.
  Names KindNames() const;

  /// What each source holds, in the order in which the services walk them: domain by domain, in
  /// each by id. A source that was not loaded by itself is loaded now; if that fails, it is
  /// reported in `failures`.
  std::vector<SourceOutline> Outlines(std::vector<LoadReport>& failures);

  /// For HostUse::kOutlines: loads every source into the container of its domain, too.
  void LoadTogether();

  /// What the other domains with sources than that of `row` know about a thing of that one. All of
  /// them are asked for its parents.
  std::vector<Section> About(const DomainRow& row, const Subject& subject) const;

  /// The help for the words from the first domain with sources that describes a client. Empty
  /// without one.
  std::optional<UsageAnswer> Usage(const Names& words) const;

  /// The names that Usage() knows.
  Names UsageNames() const;

 private:
  struct Running;

  struct Loaded {
    SourceArgument source;
    const DomainRow* row;

    /// A domain that holds only this source; null if its file changed while it was loaded.
    std::unique_ptr<Domain> isolated;
  };

  Running& RunningOf(const DomainRow& row);

  /// Whether a source is one that the user means; all are without a text.
  std::function<bool(const Loaded&)> SourceMatcher(const std::optional<std::string>& text) const;

  /// The sources that match, in the order in which the services walk them.
  std::vector<Loaded*> MatchingSources(const std::optional<std::string>& text);

  /// Loads the source where its use needs it.
  LoadReport LoadFor(Loaded& loaded);

  /// Loads what the source holds by itself in a session, unless the file has changed.
  void Isolate(Loaded& loaded);

  /// Reloads those sources of one domain by one call of its service.
  std::vector<ReloadReport> ReloadIn(Running& running, const std::vector<Loaded*>& sources,
                                     const boost::optional<std::string>& id);

  /// How a reload left the source, whose fingerprint was `before`. `failed` is the first source of
  /// the reload that failed so far; empty for none.
  ReloadReport ReportOf(Running& running, Loaded& loaded, const std::string& before,
                        std::string& failed);

  HostUse use_;
  std::vector<Running> domains_;
  std::vector<Loaded> loaded_;
  const DomainTable& table_;
};

/// Loads a file by itself, to see whether it can be loaded.
LoadReport LoadAlone(const std::string& path, const DomainTable& table);

}  // namespace Zelk::Tool
