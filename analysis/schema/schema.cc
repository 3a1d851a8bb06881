#include "analysis/schema/schema.h"

#include <algorithm>

#include "analysis/schema/definitions.h"
#include "analysis/schema/json.h"
#include "analysis/schema/project_format.h"

namespace Zelk::Analysis::Schema {
namespace {

/// A kind of file that has a schema.
struct File {
  const char* name;
  const char* title;
  const ValueForm* root;
};

std::vector<File> FormatFiles() {
  std::vector<File> files;
  for (const Domain domain : {Domain::kMetamodel, Domain::kAuthentication, Domain::kCli}) {
    const Format& format = FormatOf(domain);
    files.push_back({format.root_key, format.title, &format.root});
  }
  return files;
}

constexpr char kAll[] = "all";
constexpr File kProjectFile{"project", "Project file of zelk-metadata", &kProjectForm};

/// Any of several files. An editor that knows by its root key which one is meant says more about a
/// mistake; the library takes a file that is right for any domain.
void ChooseFile(Json& json, Definitions& definitions, Kind kind, const std::vector<File>& files) {
  const auto refer = [&](const File& file) { definitions.Refer(*file.root, file.name); };
  json.Array("anyOf", [&] {
    for (const File& file : files) {
      json.Object([&] {
        if (kind == Kind::kAccepts) return refer(file);
        json.Texts("required", {file.name});
      });
    }
  });
  if (kind == Kind::kAccepts) return;
  json.Array("allOf", [&] {
    for (const File& file : files) {
      json.Object([&] {
        json.Object("if", [&] { json.Texts("required", {file.name}); });
        json.Object("then", [&] { refer(file); });
      });
    }
  });
}

std::string Write(const std::string& name, const std::string& title, const std::vector<File>& files,
                  Kind kind, Draft draft) {
  Json json;
  Definitions definitions(json, kind, draft);
  const bool is_strict = kind == Kind::kStrict;
  json.Object([&] {
    json.Text("$schema", draft == Draft::k7 ? "http://json-schema.org/draft-07/schema#"
                                            : "https://json-schema.org/draft/2020-12/schema");
    json.Text("$id", "urn:zelk:metadata:schema:" + name + (is_strict ? ":2:strict" : ":2:accepts"));
    json.Text("title", title);
    json.Text("description", is_strict ? "What authors should write." : "What the library loads.");
    if (files.size() > 1) {
      ChooseFile(json, definitions, kind, files);
    } else {
      json.Array("allOf",
                 [&] { json.Object([&] { definitions.Refer(*files[0].root, files[0].name); }); });
    }
    definitions.Write();
  });
  return json.Result();
}

}  // namespace

const std::vector<std::string>& Names() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> made;
    for (const File& file : FormatFiles()) made.emplace_back(file.name);
    made.emplace_back(kAll);
    made.emplace_back(kProjectFile.name);
    return made;
  }();
  return names;
}

std::string Text(std::string_view name, Kind kind, Draft draft) {
  const std::vector<File> formats = FormatFiles();
  if (name == kAll) return Write(kAll, "File of metadata", formats, kind, draft);
  if (name == kProjectFile.name) {
    return Write(kProjectFile.name, kProjectFile.title, {kProjectFile}, Kind::kStrict, draft);
  }
  const auto file = std::find_if(formats.begin(), formats.end(),
                                 [&](const File& row) { return name == row.name; });
  return Write(file->name, file->title, {*file}, kind, draft);
}

}  // namespace Zelk::Analysis::Schema
