#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/json_text.h"

// Seeds: small inputs, made by this program, that a fuzzer starts from. Between them they use every
// feature of a format and every way to fail.

namespace Zelk::Fuzzing {

/// The corpus of one fuzzer. Its seeds are the files called seed-*; what fuzzing has found besides
/// is left alone.
class SeedFolder {
 public:
  /// Seeds that are there already are removed.
  explicit SeedFolder(std::filesystem::path path) : path_(std::move(path)) {
    std::filesystem::create_directories(path_);
    std::vector<std::filesystem::path> old;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      if (entry.path().filename().string().rfind("seed-", 0) == 0) old.push_back(entry.path());
    }
    for (const auto& file : old) std::filesystem::remove(file);
  }

  void Add(const std::string& name, const std::string& text) const {
    std::ofstream file(path_ / ("seed-" + name), std::ios::binary);
    file << text;
    if (!file.flush()) throw std::runtime_error("cannot write seed-" + name);
  }

  /// The seeds that break `json` once: each key of each kind of object missing, and of a type that
  /// it must not have (of an object's strings only the first). `maps` are the kinds of
  /// objects whose keys are names, of which one is enough.
  void AddBroken(const std::string& json, const std::set<std::string>& maps) const {
    std::set<std::string> seen;
    const auto document = Testing::Json(json);
    std::vector<Place> pending{{"", "", &document}};
    while (!pending.empty()) {
      const Place place = pending.back();
      pending.pop_back();
      if (place.value->IsArray()) {
        for (rapidjson::SizeType i = 0; i < place.value->Size(); ++i) {
          pending.push_back(
              {place.pointer + "/" + std::to_string(i), place.kind, &(*place.value)[i]});
        }
        if (!place.value->Empty() && seen.insert(place.kind + "[]").second) {
          Add("element-" + place.kind, Testing::With(json, place.pointer + "/0", "0"));
        }
      }
      if (!place.value->IsObject()) continue;
      for (const auto& member : place.value->GetObject()) {
        const std::string key = member.name.GetString();
        const std::string pointer = place.pointer + "/" + key;
        const std::string kind = place.kind.empty() ? "document" : place.kind;
        const bool is_map = maps.count(kind) > 0;
        if (seen.insert(kind + "." + (is_map ? "" : key)).second) {
          Add("missing-" + kind + "-" + key, Testing::Without(json, pointer));
          if (!member.value.IsString() || seen.insert(kind + " string").second) {
            Add("type-" + kind + "-" + key, Testing::With(json, pointer, "0"));
          }
        }
        pending.push_back({pointer, is_map ? kind + "-entry" : key, &member.value});
      }
    }
  }

 private:
  struct Place {
    std::string pointer;
    /// The nearest key around the value, by which kinds of objects are told apart.
    std::string kind;
    const Testing::JsonValue* value;
  };

  std::filesystem::path path_;
};

/// Texts with one syntax error of each kind, or just without one, each after `before`.
void AddSyntaxSeeds(const SeedFolder& seeds, const std::string& before = "");

/// Each writes the seeds of one fuzzer into a folder of its name in `corpus`; `sources` is the
/// project's folder.
void MakeMetamodelSeeds(const std::filesystem::path& corpus, const std::filesystem::path& sources);
void MakeAuthenticationSeeds(const std::filesystem::path& corpus,
                             const std::filesystem::path& sources);
void MakeCliSeeds(const std::filesystem::path& corpus, const std::filesystem::path& sources);
void MakeAnalysisSeeds(const std::filesystem::path& corpus);
void MakeDiffSeeds(const std::filesystem::path& corpus);
void MakeJsonMemberSeeds(const std::filesystem::path& corpus);
void MakeStatefulSeeds(const std::filesystem::path& corpus);

}  // namespace Zelk::Fuzzing
