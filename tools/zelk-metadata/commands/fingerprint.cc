#include <ostream>

#include "commands/query.h"
#include "commands/table.h"

namespace Zelk::Tool {
namespace {

void WriteJson(JsonWriter& json, const Kind& kind, const Ids& ids, const std::string& fingerprint) {
  json.StartObject();
  json.Member("kind", kind.name);
  json.Key("ids");
  json.StringArray(ids);
  json.Member("fingerprint", fingerprint);
  json.EndObject();
}

}  // namespace

/// The digits; in JSON an object that also says what they are the fingerprint of. Without a kind,
/// that of all sources together.
ExitStatus RunFingerprint(const Arguments& given, const Streams& streams) {
  Arguments arguments = given;
  if (arguments.kind.empty()) arguments.kind = "source";
  return RunQuery("fingerprint", &Kind::fingerprint, arguments, streams,
                  [&](const Kind& kind, const std::string& fingerprint) {
                    if (!arguments.json) {
                      streams.out << fingerprint << '\n';
                      return;
                    }
                    JsonWriter json;
                    WriteJson(json, kind, arguments.ids, fingerprint);
                    json.WriteTo(streams.out);
                  });
}

}  // namespace Zelk::Tool
