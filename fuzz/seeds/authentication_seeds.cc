#include "fuzz/seeds/seed_folder.h"
#include "support/authentication_text.h"
#include "support/file_text.h"

namespace Zelk::Fuzzing {
namespace {

using Testing::Json;
using Testing::JsonText;

/// A component with everything that one can have.
constexpr char kWhole[] = R"({
  "name": "foo",
  "schemes": {
    "x": {"authenticationScheme": "ex", "type": "SESSIONLESS"},
    "y": {"authenticationScheme": "why", "type": "session_aware", "sessionManager": "sm"}
  },
  "operations": {"foo.bar.get": ["x", "y"], "foo.baz.put": [], "qux.quux.get": ["y"]},
  "services": {"foo.bar": ["y"], "corge.bar": ["x"]},
  "packages": {"foo": ["x"], "": []}
})";

std::string File(const std::string& product, const std::string& component) {
  return JsonText(Json(R"({"authentication": {"product": )" + product + R"(, "component": )" +
                       component + "}}"));
}

std::string Component(const std::string& members) {
  return R"({"name": "c", "schemes": {"x": {"authenticationScheme": "", "type": "SESSIONLESS"}},)" +
         members + "}";
}

struct Row {
  const char* name;
  const char* members;
};

constexpr Row kRows[] = {
    {"only-operations", R"("operations": {"p.s.o": ["x"], "p.s.q": [], "p.t.o": []})"},
    {"operation-without-service", R"("operations": {"o": []})"},
    {"operation-without-name", R"("operations": {"p.s.": []})"},
    {"operation-of-nothing", R"("operations": {".o": []})"},
    {"operation-without-package", R"("operations": {"s.o": [], "t.s.o": []})"},
    {"service-without-package", R"("services": {"s": []})"},
    {"service-without-name", R"("services": {"p.": []})"},
    {"unknown-scheme", R"("packages": {"p": ["x", "y"]})"},
    {"unknown-scheme-of-operation", R"("operations": {"p.s.o": ["y"]})"},
    {"scheme-of-wrong-type", R"("services": {"p.s": [0]})"},
    {"repeated-operation", R"("operations": {"p.s.o": ["x"], "p.s.o": []})"},
    {"repeated-service", R"("services": {"p.s": ["x"], "p.s": []}, "packages": {"p": []})"},
    {"repeated-package", R"("services": {"p.s": []}, "packages": {"p": ["x"], "p": []})"},
    {"nothing-else", R"("other": {})"},
};

}  // namespace

void MakeAuthenticationSeeds(const std::filesystem::path& corpus,
                             const std::filesystem::path& sources) {
  const SeedFolder seeds(corpus / "authentication_parser");
  const std::string whole = JsonText(Json(kWhole));
  seeds.Add("two-components", File(Component(R"("packages": {"p": ["x"]})"), whole));
  seeds.Add("two-of-one-name", File(whole, whole));
  seeds.Add("good-and-bad", File(whole, "{}"));
  seeds.Add("bad-and-good", File("0", whole));
  seeds.Add("none", R"({"authentication":{}})");
  seeds.Add("component-only", R"({"authentication":{"component":{"name":"c"}}})");
  seeds.Add("bad-component-only", R"({"authentication":{"component":{}}})");
  seeds.Add("bad-product-only", R"({"authentication":{"product":{}}})");
  seeds.AddBroken(File("{}", whole), {"schemes", "operations", "services", "packages"});
  for (const auto& row : kRows) {
    seeds.Add(row.name, File("{}", Component(row.members)));
  }
  for (const std::string type :
       {"SESSIONLESS", "SESSION_AWARE", "SESSIONAWARE", "sessionAware", ""}) {
    seeds.Add("type-" + (type.empty() ? "empty" : type),
              File("{}", Testing::With(whole, "/schemes/y/type", '"' + type + '"')));
  }
  AddSyntaxSeeds(seeds);
  seeds.Add(
      "own",
      JsonText(Json(Testing::FileText(sources / "metadata/authentication/zelk-metadata.json"))));
}

}  // namespace Zelk::Fuzzing
