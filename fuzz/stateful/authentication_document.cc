#include <array>

#include "stateful/document.h"
#include "stateful/names.h"

namespace Zelk::Fuzzing {
namespace {

using Member = std::pair<std::string, Json>;

const std::array<std::string, 3> kSchemes = {"x", "", "y"};
const std::array<std::string, 3> kSchemeTypes = {"SESSIONLESS", "SESSION_AWARE", "SESSIONAWARE"};

Json Scheme(Input& input) {
  return Arranged(input, {{"authenticationScheme", JsonString(input.FreshText())},
                          {"type", JsonString(AnyCase(input, input.Pick(kSchemeTypes)))},
                          {"sessionManager", JsonString(input.FreshText())}});
}

/// The two schemes that all lists may name, and one that only some components have.
Json Schemes(Input& input) {
  std::vector<Member> schemes = {{kSchemes[0], Scheme(input)}, {kSchemes[1], Scheme(input)}};
  if (input.OnceIn(2)) schemes.emplace_back(input.Pick(kSchemes), Scheme(input));
  return JsonObject(std::move(schemes));
}

Json SchemeName(Input& input) {
  return JsonString(kSchemes[input.OnceIn(32) ? 2 : input.Below(2)]);
}

Json SchemeNames(Input& input) {
  return DrawnArray(input, 2, SchemeName);
}

/// Ids with the names of their schemes.
template <typename DrawId>
Json Lists(Input& input, std::size_t most, DrawId draw_id) {
  std::vector<Member> lists;
  for (auto count = input.Below(most + 1); count > 0; --count) {
    std::string id = input.OnceIn(32) ? input.Pick(kBadIds) : draw_id(input);
    lists.emplace_back(std::move(id), SchemeNames(input));
  }
  return JsonObject(std::move(lists));
}

std::string ServiceId(Input& input) {
  return input.Pick(kServices);
}

std::string OperationId(Input& input) {
  const std::string service = input.OnceIn(16) ? input.Pick(kBadIds) : ServiceId(input);
  return service + "." + input.Pick(kOperations);
}

std::string PackageId(Input& input) {
  return input.Pick(kPackages);
}

Json Component(Input& input) {
  std::vector<Member> members = {{"name", JsonString(input.Pick(kNames))},
                                 {"schemes", Schemes(input)}};
  if (!input.OnceIn(8)) members.emplace_back("operations", Lists(input, 5, OperationId));
  if (!input.OnceIn(8)) members.emplace_back("services", Lists(input, 4, ServiceId));
  if (!input.OnceIn(8)) members.emplace_back("packages", Lists(input, 4, PackageId));
  return Arranged(input, std::move(members));
}

}  // namespace

Json AuthenticationDocument(Input& input) {
  std::vector<Member> members;
  const auto parts = input.Below(4);
  if (parts != 0) members.emplace_back("component", Component(input));
  if (parts >= 2) members.emplace_back("product", Component(input));
  const Json body = members.empty() ? JsonObject({}) : Arranged(input, std::move(members));
  return Arranged(input, {{"authentication", body}});
}

}  // namespace Zelk::Fuzzing
