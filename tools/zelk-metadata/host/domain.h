#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/call.h"
#include "render/json_writer.h"
#include "render/page.h"

// What a domain of metadata looks like to the commands. They know no domain by name: a new one is a
// file that implements this, and a row in the table of domains.

namespace Zelk::Tool {

using Ids = std::vector<std::string>;
using Names = std::vector<std::string>;

/// A record that a service answered, with the two ways to show it.
struct Record {
  std::function<void(Page&)> page;
  std::function<void(JsonWriter&)> json;
};

/// How many ids a query takes.
struct IdCount {
  std::size_t min = 0;
  std::size_t max = 0;
};

/// One question that can be asked about a kind; empty where the services have no operation for it.
template <typename T>
struct Query {
  IdCount ids;
  std::function<Outcome<T>(const Ids&)> call;
};

/// Which of several sources that hold the same name answers for it.
enum class Rule {
  /// Nobody can tell, or it makes no sense to ask.
  kNone,
  kFirstSource,
  kLastSource,
  /// The first source that holds what is around it, whether it is in there or not.
  kFirstParent,
  /// Definitions in a place that counts more come first, whichever source they are in; among equals
  /// the first source.
  kPlace,
  /// All, since names only are answered.
  kAll,
};

/// A kind of thing that a domain knows. The user may also write the name with an "s" behind.
struct Kind {
  std::string name;

  /// What the ids are called in texts for the user, for the query that takes the most of them.
  std::vector<std::string> id_names;

  Query<Names> list;
  Query<Record> get;
  Query<std::string> fingerprint;

  Rule rule = Rule::kNone;
};

/// A thing by its kind and ids.
struct Subject {
  std::string kind;
  Ids ids;
};

/// One line of the outline of what a domain holds.
struct Entry {
  /// How many entries it is inside of.
  std::size_t depth;

  /// A kind, or the name of a part that is no kind, such as "field".
  Subject subject;

  /// What it is called where it stands.
  std::string name;

  std::string documentation;

  /// Whether it is only seen through the entry around it.
  bool is_part = false;

  /// For Rule::kPlace: the smallest counts most.
  int place = 0;
};

/// Each entry is followed by those inside of it. Flat, because they may nest to any depth.
using Outline = std::vector<Entry>;

/// Writes what a domain has to say about a thing that another one describes.
using Section = std::function<void(Page&)>;

/// What a command-line client shows as help, and the operation that would be called, if any.
struct UsagePage {
  Record record;
  std::optional<Subject> calls;
};

/// One domain at work: a container of its own with the services over it.
class Domain {
 public:
  Domain() = default;
  Domain(const Domain&) = delete;
  Domain& operator=(const Domain&) = delete;
  virtual ~Domain() = default;

  /// Has the domain's source service load a file. Empty for success.
  virtual std::optional<ServiceError> CreateSource(const std::string& id,
                                                   const std::string& path) = 0;

  /// Has it forget a source. Empty for success.
  virtual std::optional<ServiceError> DeleteSource(const std::string& id) = 0;

  /// Has it load a source once more, or all without an id. Empty also where sources keep their old
  /// data, of which services say nothing.
  virtual std::optional<ServiceError> ReloadSource(const boost::optional<std::string>& id) = 0;

  /// What can be asked. The queries stay usable as long as this object lives.
  virtual const std::vector<Kind>& Kinds() const = 0;

  // What only some domains have to say; nothing, unless they do.

  /// Everything that the sources hold, in the order in which the services look for it. With more
  /// than one source that is only what the first ones hold.
  virtual Outline MakeOutline() { return {}; }

  /// The thing and what is around it, outermost first.
  virtual std::vector<Subject> Levels(const Subject& subject) { return {subject}; }

  /// What can be told about the last of the levels, which are those of another domain.
  virtual std::vector<Section> About(const std::vector<Subject>& /*levels*/) { return {}; }

  /// The help for what the words name, parts of a dotted name each. Empty in a domain that
  /// describes no client.
  virtual std::optional<Outcome<UsagePage>> Usage(const Names& /*words*/) { return std::nullopt; }
};

/// A row of the table of domains.
struct DomainRow {
  /// The user may write it before a kind, as in "metamodel:component".
  std::string name;

  /// The member of a file's root object that makes it a file of this domain.
  std::string root_key;

  /// The message whose second argument is the offset of a syntax error in the file.
  std::string parse_error_id;

  std::unique_ptr<Domain> (*make)();
};

using DomainTable = std::vector<DomainRow>;

}  // namespace Zelk::Tool
