#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/call.h"
#include "render/json_writer.h"
#include "render/page.h"

// The interface that a domain of metadata has for the commands. Commands name no domain, and no
// kind but `source`, which every domain has: a new domain is a file that implements this, and a row
// in the table of domains.

namespace Zelk::Tool {

using Ids = std::vector<std::string>;
using Names = std::vector<std::string>;

/// The ids of one thing as one dotted text.
inline std::string Dotted(const Ids& ids) {
  std::string text;
  for (const std::string& id : ids) text += (text.empty() ? "" : ".") + id;
  return text;
}

/// A record from a service, with the two ways to show it.
struct Record {
  std::function<void(Render::Page&)> page;
  std::function<void(Render::JsonWriter&)> json;
};

/// How many ids a query takes; both numbers are included.
struct IdCount {
  std::size_t min = 0;
  std::size_t max = 0;

  /// What each of them names, if that is not as Kind::id_kinds has it.
  std::vector<std::string> kinds = {};
};

/// One question about a kind. `call` is empty if the services have no operation for it.
template <typename T>
struct Query {
  IdCount ids;
  std::function<Outcome<T>(const Ids&)> call;
};

/// Which of several sources that hold the same name answers for it.
enum class Rule {
  /// It cannot be known, or the question makes no sense.
  kNone,
  kFirstSource,
  kLastSource,
  /// The first source that holds the parent, even if its parent does not hold the name.
  kFirstParent,
  /// The definition with the smallest Entry::place, in whichever source; among equals the first
  /// source.
  kPlace,
  /// All of them, since only names are returned.
  kAll,
};

struct Precedence {
  Rule rule = Rule::kNone;

  /// The rule in words for the user.
  const char* text = "";
};

constexpr Precedence kFirstSource{Rule::kFirstSource,
                                  "The first source in the order of the ids answers."};

/// At most four names that are written in the code.
class FewNames {
 public:
  constexpr FewNames() = default;

  // NOLINTNEXTLINE(google-explicit-constructor): written where rows of a table are
  constexpr FewNames(std::initializer_list<const char*> names) {
    for (const char* name : names) names_[size_++] = name;
  }

  constexpr bool Empty() const { return size_ == 0; }

  constexpr const char* const* begin() const { return names_.data(); }

  constexpr const char* const* end() const { return names_.data() + size_; }

 private:
  std::array<const char*, 4> names_{};
  std::size_t size_ = 0;
};

/// A kind of thing that a domain knows. The user may also write the name with an "s" after it.
struct Kind {
  std::string name;

  /// For the query that takes the most ids: what each of them names, usually a kind. Texts for the
  /// user show these words in capitals.
  std::vector<std::string> id_kinds;

  Query<Names> list;
  Query<Record> get;
  Query<std::string> fingerprint;

  Precedence precedence = {};

  /// Whether trees show it.
  bool in_tree = false;

  /// The kinds of things that a thing of this kind can be in, the innermost first.
  FewNames within = {};

  /// Parts of it that outlines have and that are not kinds, such as "field".
  FewNames parts = {};

  /// Whether Domain::TypesIn() knows what it consists of.
  bool has_types = false;

  /// Whether its two ids may also be given as one word, with a dot between them.
  bool MayJoin() const { return id_kinds.size() == 2; }
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

  /// A kind, or the name of a part that is not a kind, such as "field".
  Subject subject;

  std::string documentation;

  /// Whether it can only be reached through its parent.
  bool is_part = false;

  /// For Rule::kPlace: the smallest wins.
  int place = 0;

  /// If it is not the last id.
  std::optional<std::string> shown_name = {};

  /// Its name within its parent.
  const std::string& Name() const { return shown_name ? *shown_name : subject.ids.back(); }
};

/// Each entry is followed by its children. Flat, because they may nest to any depth.
using Outline = std::vector<Entry>;

/// Writes what a domain knows about a thing that another one describes.
using Section = std::function<void(Render::Page&)>;

/// What a command-line client shows as help, and the operation that would be called, if any.
struct UsagePage {
  Record record;
  std::optional<Subject> calls;
};

/// One container with its services.
class Domain {
 public:
  Domain() = default;
  Domain(const Domain&) = delete;
  Domain& operator=(const Domain&) = delete;
  virtual ~Domain() = default;

  /// Loads a file with the domain's source service. Empty on success.
  virtual std::optional<ServiceError> CreateSource(const std::string& id,
                                                   const std::string& path) = 0;

  /// Deletes a source. Empty on success.
  virtual std::optional<ServiceError> DeleteSource(const std::string& id) = 0;

  /// Reloads a source, or all without an id. Empty also if sources keep their old data, which the
  /// services do not report.
  virtual std::optional<ServiceError> ReloadSource(const boost::optional<std::string>& id) = 0;

  /// The fingerprint of a source; empty for an unknown one.
  virtual std::string FingerprintOf(const std::string& id) = 0;

  /// What can be asked. The queries stay usable as long as this object lives.
  virtual const std::vector<Kind>& Kinds() const = 0;

  // What only some domains provide.

  /// Everything that the sources hold, in the order in which the services search. With more than
  /// one source, a name that several hold has only what the first one says.
  virtual Outline MakeOutline() { return {}; }

  /// The types that a thing of a kind with Kind::has_types is made of, those that these are made
  /// of, and so on, as many levels deep: a section of its page, and an array in JSON.
  virtual Record TypesIn(const Subject&, std::size_t) { return {}; }  // coverage: has no types

  /// The thing and its parents, outermost first.
  virtual std::vector<Subject> Levels(const Subject& subject) { return {subject}; }

  /// What this domain knows about the last of the levels, which are those of another domain.
  virtual std::vector<Section> About(const std::vector<Subject>& /*levels*/) { return {}; }

  /// The help for the dotted name that the words are parts of. Empty in a domain that describes no
  /// client.
  virtual std::optional<Outcome<UsagePage>> Usage(const Names& /*words*/) { return std::nullopt; }

  /// The names that Usage() knows.
  virtual Names UsageNames() { return {}; }
};

/// A row of the table of domains.
struct DomainRow {
  /// The user may write it before a kind, as in "metamodel:component".
  std::string name;

  /// The member of a file's root object that makes it a file of this domain.
  std::string root_key;

  /// The message whose second argument is the offset of a syntax error in the file.
  std::string parse_error_id;

  /// The message about a source whose id is in use.
  std::string exists_id;

  std::unique_ptr<Domain> (*make)();
};

using DomainTable = std::vector<DomainRow>;

}  // namespace Zelk::Tool
