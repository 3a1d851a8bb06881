#include "shapes.h"

namespace Zelk::Benchmarks {
namespace {

constexpr std::size_t kMegabyte = 1'000'000;

/// `open`, then `one(n)` for as many n as the size has room for, between commas, then `close`.
template <typename One>
std::string Filled(std::size_t size, const std::string& open, const One& one,
                   const std::string& close) {
  std::string text = open;
  text.reserve(size + 4096);
  for (std::size_t number = 0; text.size() + close.size() < size || number == 0; ++number) {
    if (number > 0) text += ',';
    text += one(std::to_string(number));
  }
  return text += close;
}

/// Arrays in each other that are ignored, in front of the members of `file`.
std::string WithNested(std::size_t size, const std::string& file) {
  return R"({"ignored":)" + std::string(size / 2, '[') + std::string(size / 2, ']') + "," +
         file.substr(1);
}

/// Members that are ignored, in front of those of `file`.
std::string WithMembers(std::size_t size, const std::string& file) {
  return Filled(
      size, "{", [](const std::string& number) { return "\"ignored" + number + "\":{}"; },
      "," + file.substr(1));
}

std::string Repeated(const std::string& text, std::size_t times) {
  std::string repeated;
  repeated.reserve(text.size() * times);
  while (times-- > 0) repeated += text;
  return repeated;
}

constexpr char kOpenPackage[] =
    R"({"metamodel":{"component":{"name":"c","documentation":"","metadata":{},"packages":[
{"name":"p","documentation":"","metadata":{},"enumerations":[],"structures":[],"services":[)";
constexpr char kClosePackage[] = "]}]}}}";

std::string ServiceWith(const std::string& name, const std::string& type) {
  return R"({"name":"com.acme.inventory.service)" + name +
         R"(","documentation":"Answers questions about machines of this kind.","metadata":{},
"enumerations":[],"structures":[{"name":"com.acme.inventory.machine)" +
         name +
         R"(","type":"STRUCTURE","documentation":"A machine.","metadata":{},"enumerations":[],
"constants":[],"fields":[{"name":"id","documentation":"Its identifier.",
"metadata":{"Resource":{"value":"com.acme.inventory.machine"}},
"type":{"category":"BUILTIN","primitive_type":"ID"}},{"name":"name","documentation":"Its name.",
"metadata":{},"type":{"category":"BUILTIN","primitive_type":"STRING"}}]}],"constants":[],
"operations":[{"name":"get","documentation":"Answers one machine.","metadata":{},
"params":[{"name":"id","documentation":"Which one.","metadata":{},
"type":{"category":"BUILTIN","primitive_type":"ID"}}],
"errors":[{"user_defined_type_name":"com.acme.errors.not_found","documentation":"There is none."}],
"result":{"documentation":"The machine.","metadata":{},"type":)" +
         type + "}}]}";
}

constexpr char kListOfStrings[] = R"({"category":"GENERIC","generic_type":"LIST","element_type":)"
                                  R"({"category":"BUILTIN","primitive_type":"STRING"}})";

std::string MetamodelServices(std::size_t size) {
  return Filled(
      size, kOpenPackage,
      [](const std::string& number) { return ServiceWith(number, kListOfStrings); }, kClosePackage);
}

std::string MetamodelOfOneName(std::size_t size) {
  return Filled(
      size, kOpenPackage,
      [](const std::string& /*number*/) { return ServiceWith("", kListOfStrings); }, kClosePackage);
}

std::string MetamodelDeepType(std::size_t size) {
  const std::string open = R"({"category":"GENERIC","generic_type":"LIST","element_type":)";
  const std::size_t levels = size / (open.size() + 1);
  return kOpenPackage +
         ServiceWith("", Repeated(open, levels) +
                             R"({"category":"BUILTIN","primitive_type":"STRING"})" +
                             std::string(levels, '}')) +
         kClosePackage;
}

std::string MetamodelDeepIgnored(std::size_t size) {
  return WithNested(size, MetamodelServices(0));
}

constexpr char kOpenAnnotations[] =
    R"({"metamodel":{"component":{"name":"c","documentation":"","packages":[],"metadata":{)";

std::string MetamodelAnnotations(std::size_t size) {
  return Filled(
      size, kOpenAnnotations,
      [](const std::string& number) {
        return "\"Annotation" + number + R"(":{"value":"machine"})";
      },
      "}}}}");
}

std::string MetamodelAnnotationsOfOneName(std::size_t size) {
  return Filled(
      size, kOpenAnnotations,
      [](const std::string& number) {
        return R"("Annotation":{"value":"machine)" + number + "\"}";
      },
      "}}}}");
}

std::string MetamodelLongText(std::size_t size) {
  return R"({"metamodel":{"component":{"name":"c","metadata":{},"packages":[],"documentation":")" +
         std::string(size, 'x') + "\"}}}";
}

constexpr char kScheme[] = R"({"authenticationScheme":"com.acme.badge","type":"SESSIONLESS"})";

std::string AuthenticationOperations(std::size_t size) {
  return Filled(
      size,
      R"({"authentication":{"component":{"name":"c","schemes":{"badge":)" + std::string(kScheme) +
          R"(},"operations":{)",
      [](const std::string& number) {
        return R"("com.acme.inventory.machines)" + number + R"(.list":["badge"])";
      },
      "}}}}");
}

std::string AuthenticationSchemes(std::size_t size) {
  return Filled(
      size, R"({"authentication":{"component":{"name":"c","schemes":{)",
      [](const std::string& number) { return "\"badge" + number + "\":" + kScheme; },
      R"(},"packages":{"p":["badge0"]}}}})");
}

std::string AuthenticationSchemesOfOneName(std::size_t size) {
  return Filled(
      size, R"({"authentication":{"component":{"name":"c","schemes":{)",
      [](const std::string& /*number*/) { return R"("badge":)" + std::string(kScheme); },
      R"(},"packages":{"p":["badge"]}}}})");
}

std::string AuthenticationLongText(std::size_t size) {
  return R"({"authentication":{"component":{"name":")" + std::string(size, 'x') + "\"}}}";
}

std::string AuthenticationIgnoredMembers(std::size_t size) {
  return WithMembers(size, AuthenticationSchemes(0));
}

std::string AuthenticationDeepIgnored(std::size_t size) {
  return WithNested(size, AuthenticationSchemes(0));
}

std::string CommandOf(const std::string& path, const std::string& number) {
  return R"({"type":"command","path":")" + path + R"(","name":"list)" + number +
         R"(","description":"List machines.","node_metadata":{
"service_id":"com.acme.inventory.machines","operation_id":"list","formatter":"TABLE",
"options":[{"long_option":"name","short_option":"n","field_name":"filter.names",
"description":"Names to look for.","type":"String","generic":"LIST"}],
"output_field_list":[{"structure_id":"com.acme.inventory.machine",
"output_fields":[{"field_name":"name","display_name":"Name"}]}]}})";
}

std::string CliCommands(std::size_t size) {
  return Filled(
      size, R"({"cli":[)",
      [](const std::string& number) { return CommandOf("inventory.machines", number); }, "]}");
}

std::string CliCommandsOfOneName(std::size_t size) {
  return Filled(
      size, R"({"cli":[)",
      [](const std::string& /*number*/) { return CommandOf("inventory.machines", ""); }, "]}");
}

std::string CliNamespaces(std::size_t size) {
  return Filled(
      size, R"({"cli":[)",
      [](const std::string& number) {
        return R"({"type":"namespace","path":"inventory","name":"machines)" + number +
               R"(","description":"Machines."})";
      },
      "]}");
}

/// Each under a parent of its own, which only its path implies.
std::string CliNamespaceTree(std::size_t size) {
  return Filled(
      size, R"({"cli":[)",
      [](const std::string& number) {
        return R"({"type":"namespace","path":"inventory.site)" + number +
               R"(","name":"machines","description":"Machines."})";
      },
      "]}");
}

std::string CliDeepIgnored(std::size_t size) {
  return WithNested(size, CliCommands(0));
}

std::string CliIgnoredMembers(std::size_t size) {
  return WithMembers(size, CliCommands(0));
}

std::string CliLongText(std::size_t size) {
  return R"({"cli":[{"type":"namespace","path":"","name":"a","description":")" +
         std::string(size, 'x') + R"("}]})";
}

std::string CliDeepPath(std::size_t size) {
  return R"({"cli":[{"type":"namespace","path":")" + std::string(size, '.') +
         R"(","name":"a","description":""}]})";
}

}  // namespace

const std::vector<Shape>& Shapes() {
  constexpr auto kMetamodel = DomainId::kMetamodel;
  constexpr auto kAuthentication = DomainId::kAuthentication;
  constexpr auto kCli = DomainId::kCli;
  static const std::vector<Shape> shapes = {
      {"Metamodel: services", kMetamodel, true, kMegabyte, MetamodelServices},
      {"Metamodel: services of one name", kMetamodel, true, kMegabyte, MetamodelOfOneName},
      {"Metamodel: annotations", kMetamodel, true, kMegabyte, MetamodelAnnotations},
      {"Metamodel: annotations of one name", kMetamodel, true, kMegabyte,
       MetamodelAnnotationsOfOneName},
      {"Metamodel: one type, nested", kMetamodel, true, kMegabyte, MetamodelDeepType},
      {"Metamodel: ignored, nested", kMetamodel, true, kMegabyte, MetamodelDeepIgnored},
      {"Metamodel: one long text", kMetamodel, true, kMegabyte, MetamodelLongText},
      {"Authentication: operations", kAuthentication, true, kMegabyte, AuthenticationOperations},
      {"Authentication: schemes", kAuthentication, true, kMegabyte, AuthenticationSchemes},
      {"Authentication: schemes, one name", kAuthentication, true, kMegabyte,
       AuthenticationSchemesOfOneName},
      {"Authentication: ignored members", kAuthentication, true, kMegabyte,
       AuthenticationIgnoredMembers},
      {"Authentication: ignored, nested", kAuthentication, true, kMegabyte,
       AuthenticationDeepIgnored},
      {"Authentication: one long text", kAuthentication, true, kMegabyte, AuthenticationLongText},
      {"CLI: commands", kCli, true, kMegabyte, CliCommands},
      {"CLI: commands of one name", kCli, true, kMegabyte, CliCommandsOfOneName},
      {"CLI: namespaces of one parent", kCli, true, kMegabyte, CliNamespaces},
      {"CLI: namespaces of many parents", kCli, true, kMegabyte, CliNamespaceTree},
      {"CLI: ignored members", kCli, true, kMegabyte, CliIgnoredMembers},
      {"CLI: ignored, nested", kCli, true, kMegabyte, CliDeepIgnored},
      {"CLI: one long text", kCli, true, kMegabyte, CliLongText},
      // Each namespace on a path holds its own path, and a file needs one byte to imply one more.
      {"CLI: one namespace path", kCli, false, 500, CliDeepPath},
  };
  return shapes;
}

}  // namespace Zelk::Benchmarks
