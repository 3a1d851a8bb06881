#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/domain.h"
#include "host/load.h"
#include "host/source_argument.h"

namespace Zelk::Tool {

/// How many ids a command takes for the kind; nothing for a kind that it does not know.
using IdsOf = std::optional<IdCount> (*)(const Kind& kind);

/// Whether the text is the name of the kind or its plural, with or without "DOMAIN:" before it.
bool IsKindCalled(const std::string& text, const std::string& domain, const std::string& kind);

/// A kind that the user may mean.
struct FoundKind {
  const DomainRow* row;
  const Kind* kind;
  IdCount ids;

  /// Whether its domain has loaded something.
  bool has_sources;

  /// All kinds of its domain.
  const std::vector<Kind>* kinds;

  /// What each of the ids names.
  const std::vector<std::string>& IdKinds() const {
    return ids.kinds.empty() ? kind->id_kinds : ids.kinds;
  }

  /// " SERVICE OPERATION", with brackets round an id that may be left out.
  std::string IdsText() const;

  /// The names that things of a kind of its domain have, if `before` are the ids before them.
  Names NamesOf(const std::string& kind_name, const Ids& before = {}) const;

  /// The names that the id at `index` may be, if `before` are the ids before it.
  Names NamesAt(std::size_t index, const Ids& before) const {
    return NamesOf(IdKinds()[index], before);
  }
};

/// Has the parameters and the result of FoundKind::NamesOf().
using NameLookup =
    std::function<Names(const FoundKind& found, const std::string& kind, const Ids& before)>;

/// What one of the loaded sources holds by itself.
struct SourceOutline {
  SourceArgument source;
  const DomainRow* row;
  Outline outline;
};

/// A source and its domain.
struct LoadedSource {
  SourceArgument source;
  const DomainRow* row;
};

/// How a reload left one source.
struct ReloadReport {
  enum class State {
    /// The file did not change.
    kSame,
    kChanged,
    /// The file differs, but the old data is still in use.
    kKept,
    /// A file of a folder that was not loaded before.
    kNew,
    /// The same, and it fails to load.
    kFailed,
    /// The file was of a folder and is gone; the source was deleted.
    kRemoved,
  };

  std::string id;
  std::string file;
  std::string domain;
  State state;

  /// Why it was kept: the name of the domain that the file belongs to now, or what is wrong with
  /// the file, or, if both are empty, that it changed while it was read.
  std::string moved_to = {};
  std::vector<Problem> problems = {};
};

/// Called before each file is read: the number of the file, from 1 on, and how many there are.
using Watcher = std::function<void(std::size_t number, std::size_t total, const std::string& file)>;

/// What a host is asked, which decides how it loads sources.
enum class HostUse {
  /// What all sources say together: each is loaded into the container of its domain.
  kAnswers,
  /// Only what each source holds by itself: each is loaded into a container of its own, of which
  /// the outline is kept.
  kOutlines,
  /// Only which sources load, and in which domains: nothing of them is kept.
  kFiles,
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

  /// Reload() without a text also loads the files that are new in this folder, and deletes the
  /// sources of those that are gone.
  void AddFolder(const SourceArgument& folder);

  /// Deletes the source with that id from every domain. If no source has that id, `text` is taken
  /// as DOMAIN:ID. Returns the number of sources deleted.
  std::size_t Delete(const std::string& text);

  /// Reloads the sources that Delete() would delete, or all of them without a text. Files that did
  /// not change are not loaded. The result is empty if there are none, and not complete after
  /// Ctrl-C in a session.
  std::vector<ReloadReport> Reload(const std::optional<std::string>& text, const Watcher& watcher);

  /// The ids of all sources, each once; with their domains as DOMAIN:ID.
  Names SourceIds(bool with_domains = false) const;

  /// The sources that are loaded, domain by domain, in each by id.
  std::vector<LoadedSource> Sources();

  /// The kinds that the user may mean by `text`, a kind's name or its plural, with or without
  /// "DOMAIN:" before it; with `ids_of` only those that it knows. Domains that have loaded
  /// something come first.
  std::vector<FoundKind> FindKinds(const std::string& text, IdsOf ids_of = nullptr) const;

  /// The names of all kinds, each once.
  Names KindNames() const;

  /// What each source holds, in the order in which the services walk them: domain by domain, in
  /// each by id. For HostUse::kOutlines, to be called once. Otherwise each file is read again; one
  /// that has changed since it was loaded is reported in `failures`.
  std::vector<SourceOutline> Outlines(std::vector<LoadReport>& failures, const Watcher& watcher);

  /// What the other domains with sources than that of `row` know about a thing of that one. All of
  /// them are asked for its parents.
  std::vector<Section> About(const DomainRow& row, const Subject& subject) const;

  /// See Domain::TypesIn().
  Record TypesIn(const DomainRow& row, const Subject& subject, std::size_t levels);

  /// The help for the words from the first domain with sources that describes a client. Empty
  /// without one.
  std::optional<UsageAnswer> Usage(const Names& words) const;

  /// The names that Usage() knows.
  Names UsageNames() const;

 private:
  struct Running {
    const DomainRow* row;
    std::unique_ptr<Domain> domain;
    bool has_sources;
  };

  struct Loaded {
    SourceArgument source;
    const DomainRow* row;

    /// For HostUse::kOutlines.
    Outline outline = {};
  };

  Running& RunningOf(const DomainRow& row);

  /// The fingerprint of what is loaded.
  std::string FingerprintOf(const Loaded& loaded);

  /// Whether a source is one that the user means; all are without a text.
  std::function<bool(const Loaded&)> SourceMatcher(const std::optional<std::string>& text) const;

  /// The sources that match, in the order in which the services walk them.
  std::vector<Loaded*> MatchingSources(const std::optional<std::string>& text);

  /// Loads the source where its use needs it.
  LoadReport LoadFor(Loaded& loaded);

  /// What the source holds by itself. Null, with a report, if its file has changed.
  std::optional<Outline> OutlineOf(Loaded& loaded, std::vector<LoadReport>& failures);

  /// Removes the sources for which it returns true from all domains, and returns their number.
  std::size_t Erase(const std::function<bool(const Loaded&)>& is_meant);

  ReloadReport ReloadOne(Loaded& loaded);

  /// Why the source kept its old data.
  void ExplainKept(const Loaded& loaded, ReloadReport& report) const;

  /// Whether the file was of a folder and is gone, and the folder is not.
  bool IsRemoved(const SourceArgument& source) const;

  void DeleteRemoved(std::vector<ReloadReport>& reports);

  void LoadNew(std::vector<ReloadReport>& reports, const Watcher& watcher);

  HostUse use_;
  std::vector<Running> domains_;
  std::vector<Loaded> loaded_;
  std::vector<SourceArgument> folders_;

  /// The files of folders that were loaded once; one that the user deleted does not come back.
  std::set<std::string> known_files_;
  const DomainTable& table_;
};

}  // namespace Zelk::Tool
