#include "fuzz/seeds/seed_folder.h"

namespace Zelk::Fuzzing {
namespace {

/// As many as json_member_fuzzer.cc has helpers, which are numbered from 'A'.
constexpr char kLastHelper = 'L';

constexpr const char* kDocuments[] = {
    "{}",
    "[]",
    R"({"a":""})",
    R"({"a":"foo\u0000"})",
    R"({"a":"list"})",
    R"({"a":"Map"})",
    R"({"a":"OPTIONAL"})",
    R"({"a":"Set"})",
    R"({"a":"alias"})",
    R"({"a":0})",
    R"({"a":{}})",
    R"({"a":{"b":"foo"}})",
    R"({"a":{"b":[]}})",
    R"({"a":[]})",
    R"({"a":[{"b":"foo","c":"x"},{"c":"y","b":""},{"b":"bar","c":"x"}]})",
    R"({"a":[{"b":"foo","c":"x"},{"b":0},{"b":"bar"}]})",
    R"({"a":[{"b":"foo"},0]})",
    R"({"a":0,"a":"foo"})",
    R"({"a\u0000z":"foo","a":0})",
};

}  // namespace

void MakeJsonMemberSeeds(const std::filesystem::path& corpus) {
  const SeedFolder seeds(corpus / "json_member");
  AddSyntaxSeeds(seeds, "A");
  for (char helper = 'A'; helper <= kLastHelper; ++helper) {
    int number = 0;
    for (const std::string document : kDocuments) {
      seeds.Add(std::string(1, helper) + "-" + std::to_string(++number), helper + document);
    }
  }
}

}  // namespace Zelk::Fuzzing
