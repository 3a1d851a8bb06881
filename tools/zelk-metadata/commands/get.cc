#include <CLI/CLI.hpp>

#include "commands/query.h"
#include "commands/table.h"

namespace Zelk::Tool {
namespace {

void Declare(CLI::App& app, Arguments& arguments) {
  DeclareKindAndIds(app, arguments, Usages(&Kind::get)).required();
}

/// The record as a page; in JSON the record whole, which a page is not.
ExitStatus Get(const Arguments& arguments, const Streams& streams) {
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

}  // namespace

Command GetCommand() {
  return {"get", "Show what there is to know about one ID", Declare, Get};
}

}  // namespace Zelk::Tool
