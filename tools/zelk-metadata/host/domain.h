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

/// A kind of thing that a domain knows. The user may also write the name with an "s" behind.
struct Kind {
  std::string name;

  /// What the ids are called in texts for the user, for the query that takes the most of them.
  std::vector<std::string> id_names;

  Query<Names> list;
  Query<Record> get;
  Query<std::string> fingerprint;
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

  /// What can be asked. The queries stay usable as long as this object lives.
  virtual const std::vector<Kind>& Kinds() const = 0;
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
