
#include "commands/query.h"
#include "commands/table.h"

namespace Zelk::Tool {

/// The record as a page; in JSON the record whole, which a page is not.
ExitStatus RunGet(const Arguments& arguments, const Streams& streams) {
  return RunQuery("get", &Kind::get, arguments, streams,
                  [&](const Kind& /*kind*/, const Record& record) {
                    if (arguments.json) {
                      JsonWriter json;
                      record.json(json);
                      json.WriteTo(streams.out);
                      return;
                    }
                    Page page(streams.out);
                    record.page(page);
                  });
}

}  // namespace Zelk::Tool
