#include <CLI/CLI.hpp>
#include <ostream>

#include "commands/query.h"
#include "commands/table.h"
#include "render/utf8.h"

namespace Zelk::Tool {
namespace {

void Declare(CLI::App& app, Arguments& arguments) {
  DeclareKindAndIds(app, arguments, Usages(&Kind::list)).required();
}

/// The names, one a line; in JSON an array of them.
ExitStatus List(const Arguments& arguments, const Streams& streams) {
  return RunQuery("list", &Kind::list, arguments, streams,
                  [&](const Kind& /*kind*/, const Names& names) {
                    if (arguments.json) {
                      JsonWriter json;
                      json.StringArray(names);
                      json.WriteTo(streams.out);
                      return;
                    }
                    for (const std::string& name : names) streams.out << ForTerminal(name) << '\n';
                  });
}

}  // namespace

Command ListCommand() {
  return {"list", "List the names of a kind, or of what belongs to an ID", Declare, List};
}

}  // namespace Zelk::Tool
