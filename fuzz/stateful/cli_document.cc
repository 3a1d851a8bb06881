#include <array>

#include "stateful/document.h"
#include "stateful/names.h"

namespace Zelk::Fuzzing {
namespace {

using Member = std::pair<std::string, Json>;

const std::array<std::string, 6> kFormatters = {"SIMPLE", "TABLE", "JSON", "HTML", "fancy", ""};
const std::array<std::string, 6> kGenerics = {"",    "NONE",          "LIST",
                                              "odd", "LIST_OPTIONAL", "OPTIONAL"};

Json Fresh(Input& input) {
  return JsonString(input.FreshText());
}

Json Option(Input& input) {
  std::vector<Member> members = {{"long_option", Fresh(input)}};
  if (input.OnceIn(2)) members.emplace_back("short_option", Fresh(input));
  members.emplace_back("field_name", Fresh(input));
  members.emplace_back("description", Fresh(input));
  members.emplace_back("type", Fresh(input));
  members.emplace_back("generic", JsonString(AnyCase(input, input.Pick(kGenerics))));
  return Arranged(input, std::move(members));
}

Json OutputField(Input& input) {
  return Arranged(input, {{"field_name", Fresh(input)}, {"display_name", Fresh(input)}});
}

Json Output(Input& input) {
  std::vector<Member> members = {{"structure_id", Fresh(input)}};
  if (!input.OnceIn(4)) {
    members.emplace_back("output_fields", DrawnArray(input, 2, OutputField));
  }
  return Arranged(input, std::move(members));
}

Json CommandMetadata(Input& input) {
  std::vector<Member> members = {{"service_id", Fresh(input)}, {"operation_id", Fresh(input)}};
  if (input.OnceIn(2)) {
    members.emplace_back("formatter", JsonString(AnyCase(input, input.Pick(kFormatters))));
  }
  if (input.OnceIn(2)) members.emplace_back("options", DrawnArray(input, 2, Option));
  if (input.OnceIn(2)) members.emplace_back("output_field_list", DrawnArray(input, 2, Output));
  return Arranged(input, std::move(members));
}

Json Node(Input& input) {
  const bool is_command = input.OnceIn(2);
  std::vector<Member> members = {{"type", JsonString(is_command ? "command" : "namespace")},
                                 {"path", JsonString(input.Pick(kPaths))},
                                 {"name", JsonString(input.Pick(kLeaves))},
                                 {"description", Fresh(input)}};
  if (is_command) members.emplace_back("node_metadata", CommandMetadata(input));
  return Arranged(input, std::move(members));
}

}  // namespace

Json CliDocument(Input& input) {
  return Arranged(input, {{"cli", DrawnArray(input, 8, Node)}});
}

}  // namespace Zelk::Fuzzing
