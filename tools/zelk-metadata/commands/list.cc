#include <ostream>

#include "commands/query.h"
#include "commands/table.h"
#include "render/utf8.h"

namespace Zelk::Tool {

/// The names, one a line; in JSON an array of them.
ExitStatus RunList(const Arguments& arguments, const Streams& streams) {
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

}  // namespace Zelk::Tool
