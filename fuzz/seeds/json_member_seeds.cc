#include "fuzz/seeds/seed_folder.h"

namespace Zelk::Fuzzing {
namespace {

/// Documents for some of the helpers, by the letters that select them in json_member_fuzzer.cc.
struct Row {
  const char* helpers;
  const char* document;
};

constexpr char kAll[] = "ABCDEFGHIJKL";
constexpr char kStrings[] = "ABCD";
constexpr char kObjects[] = "EFGH";
constexpr char kArrays[] = "IJKL";

constexpr Row kRows[] = {
    {kAll, "{}"},
    {kAll, "[]"},
    {kAll, R"({"a":0})"},
    {kStrings, R"({"a":""})"},
    {kStrings, R"({"a":"foo\u0000"})"},
    {kStrings, R"({"a":"list"})"},
    {kStrings, R"({"a":"Map"})"},
    {kStrings, R"({"a":"OPTIONAL"})"},
    {kStrings, R"({"a":"Set"})"},
    {kStrings, R"({"a":"alias"})"},
    {kStrings, R"({"a":0,"a":"foo"})"},
    {kStrings, R"({"a\u0000z":"foo","a":0})"},
    {kObjects, R"({"a":{}})"},
    {kObjects, R"({"a":{"b":"foo"}})"},
    {kObjects, R"({"a":{"b":[]}})"},
    {kArrays, R"({"a":[]})"},
    {kArrays, R"({"a":[{"b":"foo","c":"x"},{"c":"y","b":""},{"b":"bar","c":"x"}]})"},
    {kArrays, R"({"a":[{"b":"foo","c":"x"},{"b":0},{"b":"bar"}]})"},
    {kArrays, R"({"a":[{"b":"foo"},0]})"},
};

}  // namespace

void MakeJsonMemberSeeds(const std::filesystem::path& corpus) {
  const SeedFolder seeds(corpus / "json_member");
  AddSyntaxSeeds(seeds, "A");
  int number = 0;
  for (const auto& row : kRows) {
    ++number;
    for (const char helper : std::string(row.helpers)) {
      seeds.Add(std::string(1, helper) + "-" + std::to_string(number),
                std::string(1, helper) + row.document);
    }
  }
}

}  // namespace Zelk::Fuzzing
