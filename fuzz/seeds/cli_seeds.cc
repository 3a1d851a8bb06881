#include "fuzz/seeds/seed_folder.h"
#include "support/file_text.h"

namespace Zelk::Fuzzing {
namespace {

using Testing::Json;
using Testing::JsonText;
using Testing::With;

/// A command with everything that one can have.
constexpr char kCommand[] = R"({
  "type": "command", "path": "foo.bar", "name": "get", "description": "Gets.",
  "node_metadata": {
    "service_id": "foo.bar", "operation_id": "get", "formatter": "TABLE",
    "options": [{"long_option": "id", "short_option": "i", "field_name": "id",
                 "description": "Which.", "type": "string", "generic": "LIST"}],
    "output_field_list": [{"structure_id": "foo.info", "output_fields": [
      {"field_name": "id", "display_name": "Id"}, {"field_name": "", "display_name": ""}]}]
  }
})";

std::string File(const std::string& nodes) {
  return JsonText(Json(R"({"cli": [)" + nodes + "]}"));
}

std::string Namespace(const std::string& path, const std::string& name) {
  return R"({"type": "namespace", "path": ")" + path + R"(", "name": ")" + name +
         R"(", "description": "d"})";
}

void AddTrees(const SeedFolder& seeds) {
  seeds.Add("root", File(Namespace("", "")));
  seeds.Add("parents-first", File(Namespace("", "a") + "," + Namespace("a", "b")));
  seeds.Add("children-first", File(Namespace("a", "b") + "," + Namespace("", "a")));
  seeds.Add("deep", File(Namespace("a.b.c.d.e.f", "g")));
  seeds.Add("twice", File(Namespace("a", "b") + "," + Namespace("a", "b")));
  seeds.Add("full-stops",
            File(Namespace(".", "") + "," + Namespace("..", ".") + "," + Namespace("a.", ".b")));
  seeds.Add("zero-bytes", File(Namespace("a\\u0000", "\\u0000")));
  seeds.Add("command-twice", File(std::string(kCommand) + "," + kCommand));
}

void AddEnumTexts(const SeedFolder& seeds) {
  for (const std::string text : {"SIMPLE", "TABLE", "JSON", "XML", "CSV", "HTML", "html", ""}) {
    seeds.Add("formatter-" + (text.empty() ? "empty" : text),
              File(With(kCommand, "/node_metadata/formatter", '"' + text + '"')));
  }
  for (const std::string text :
       {"NONE", "OPTIONAL", "LIST", "OPTIONAL_LIST", "LIST_OPTIONAL", "list", "BAG", ""}) {
    seeds.Add("generic-" + (text.empty() ? "empty" : text),
              File(With(kCommand, "/node_metadata/options/0/generic", '"' + text + '"')));
  }
}

/// The project's own file in slices of a few nodes.
void AddOwnNodes(const SeedFolder& seeds, const std::string& json) {
  const auto document = Json(json);
  const auto& nodes = document["cli"];
  std::string slice;
  for (rapidjson::SizeType i = 0; i < nodes.Size() && i < 24; ++i) {
    slice += (slice.empty() ? "" : ",") + JsonText(nodes[i]);
    if (slice.size() < 2000) continue;
    if (slice.size() < 4000) seeds.Add("own-nodes-" + std::to_string(i), File(slice));
    slice.clear();
  }
}

}  // namespace

void MakeCliSeeds(const std::filesystem::path& corpus, const std::filesystem::path& sources) {
  const SeedFolder seeds(corpus / "cli_parser");
  seeds.AddBroken(File(kCommand), {});
  seeds.Add("namespace-and-command", File(Namespace("", "foo") + "," + kCommand));
  seeds.Add("other-node", File(With(kCommand, "/type", R"("Command")")));
  seeds.Add("nothing", File(""));
  AddTrees(seeds);
  AddEnumTexts(seeds);
  AddSyntaxSeeds(seeds);
  AddOwnNodes(seeds, Testing::FileText(sources / "metadata/cli/zelk-metadata.json"));
}

}  // namespace Zelk::Fuzzing
