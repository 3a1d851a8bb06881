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

/// "FILE: TEXT [ID]", with the position behind the file's name where there is one, and behind the
/// id the arguments that the text does not show.
std::string ProblemLine(const std::string& file, const Problem& problem);

/// A kind that the user may mean.
struct FoundKind {
  const DomainRow* row;
  const Kind* kind;

  /// Whether its domain has loaded something.
  bool has_sources;

  /// All kinds of its domain.
  const std::vector<Kind>* kinds;

  /// How the names of a kind of its domain are listed; null when there is none.
  const Query<Names>* ListOf(const std::string& name) const;
};

/// What one of the loaded sources holds, whatever the others hold.
struct SourceOutline {
  SourceArgument source;
  const DomainRow* row;
  Outline outline;
};

/// How a reload left one source.
struct ReloadReport {
  enum class State {
    /// The file is the one that was loaded.
    kSame,
    kChanged,
    /// The file is another one, but the old data is still what is answered.
    kKept,
  };

  std::string id;
  std::string file;
  std::string domain;
  State state;

  /// Why it was kept: the name of the domain that the file belongs to now; or what is wrong with
  /// the file; or, if nothing is, the id of the source that failed before it, which keeps a domain
  /// from going on; or none of these, if the file has changed meanwhile.
  std::string moved_to;
  std::vector<Problem> problems;
  std::string behind;
};

/// How long a host is used.
enum class HostUse {
  /// For one answer.
  kOnce,
  /// For many, while files change. What each source holds is kept beside what all hold together,
  /// so that everything is answered from the data that is loaded.
  kSession,
};

/// Every domain of a table at work.
class Host {
 public:
  /// The table must not be empty and must outlive the host.
  explicit Host(const DomainTable& table, HostUse use = HostUse::kOnce);
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  ~Host();

  /// Loads the file into the domain that it belongs to.
  LoadReport Load(const SourceArgument& source);

  /// Forgets the source of that id, in every domain that has one; unless there is such an id, the
  /// one of the domain that stands before it in "DOMAIN:ID". Answers how many there were.
  std::size_t Delete(const std::string& text);

  /// Loads the sources that Delete() would forget once more, or all of them without a text.
  /// Nothing, if there is none; not all, once Ctrl-C was pressed in a session.
  std::vector<ReloadReport> Reload(const std::optional<std::string>& text);

  /// The ids of all sources, those of several domains once.
  Names SourceIds() const;

  /// The kinds that the user may mean by `text`, a kind's name or its plural, with or without
  /// "DOMAIN:" before it. Domains that have loaded something come first.
  std::vector<FoundKind> FindKinds(const std::string& text) const;

  /// The names of all kinds, each once.
  Names KindNames() const;

  /// What each source holds, in the order in which the services walk them: domain by domain, in
  /// each by id. Outside of a session every source is loaded once more for that; one that cannot be
  /// loaded any more is reported in `failures`.
  std::vector<SourceOutline> Outlines(std::vector<LoadReport>& failures);

  /// What the domains with sources, but the one of `row`, have to say about a thing of that one.
  /// What is around the thing is asked of all of them.
  std::vector<Section> About(const DomainRow& row, const Subject& subject) const;

  /// The help for the words from the first domain with sources that describes a client. Empty
  /// without one.
  std::optional<Outcome<UsagePage>> Usage(const Names& words, const DomainRow*& row) const;

 private:
  struct Running;

  struct Loaded {
    SourceArgument source;
    const DomainRow* row;

    /// In a session, a domain with nothing but this source.
    std::unique_ptr<Domain> alone;
  };

  Running& RunningOf(const DomainRow& row);

  /// Tells whether a source is one that the user means.
  std::function<bool(const Loaded&)> Meaning(const std::optional<std::string>& text) const;

  /// Those that the user means, in the order in which the services walk them.
  std::vector<Loaded*> Meant(const std::optional<std::string>& text);

  /// Keeps what the source holds, read once more. Nothing, if that is not what is answered.
  void KeepAlone(Loaded& loaded);

  /// Loads those sources of one domain once more, by one call of its service.
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

/// Loads a file all by itself, to see whether it can be loaded.
LoadReport LoadAlone(const std::string& path, const DomainTable& table);

}  // namespace Zelk::Tool
