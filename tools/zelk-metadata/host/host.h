#pragma once

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

/// Every domain of a table at work.
class Host {
 public:
  /// The table must not be empty and must outlive the host.
  explicit Host(const DomainTable& table);
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  ~Host();

  /// Loads the file into the domain that it belongs to.
  LoadReport Load(const SourceArgument& source);

  /// The kinds that the user may mean by `text`, a kind's name or its plural, with or without
  /// "DOMAIN:" before it. Domains that have loaded something come first.
  std::vector<FoundKind> FindKinds(const std::string& text) const;

  /// The names of all kinds, each once.
  Names KindNames() const;

  /// Loads every source once more, each into a domain of its own, in the order in which the
  /// services walk them: domain by domain, in each by id. One that cannot be loaded any more is
  /// reported in `failures`.
  std::vector<SourceOutline> Outlines(std::vector<LoadReport>& failures) const;

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
  };

  std::vector<Running> domains_;
  std::vector<Loaded> loaded_;
  const DomainTable& table_;
};

/// Loads a file all by itself, to see whether it can be loaded.
LoadReport LoadAlone(const std::string& path, const DomainTable& table);

}  // namespace Zelk::Tool
