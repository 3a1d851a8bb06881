#include "explain/explanations.h"

#include <algorithm>
#include <fmt/format.h>

namespace Zelk::Tool::Explain {
namespace {

constexpr char kNoText[] = "Unknown message.";

constexpr char kHalfLoaded[] =
    " A good product makes up for a broken component, and a good or absent component for a broken "
    "product: the file then loads without the broken part and the message.";

struct Domain {
  const char* name;

  /// As the texts of the catalog have it.
  const char* title;
};

constexpr Domain kMetamodel{"metamodel", "Metamodel"};
constexpr Domain kAuthentication{"authentication", "Authentication"};
constexpr Domain kCli{"cli", "Cli"};

// The templates of messages that several domains have.

Explanation NotFound(const Domain& domain, const std::string& kind) {
  const bool in_service = kind == "operation";
  const std::string article = kind == "enumeration" ? "an" : "a";
  return {
      fmt::format("zelk.metada.{}.{}.not.found", domain.name, kind),
      fmt::format("{} {} not found: %1%{}", domain.title, kind, in_service ? "[%2%]" : ""),
      in_service ? "No loaded source of the domain has such a service, or the service has no "
                   "such operation."
                 : fmt::format("No loaded source of the domain has such {} {}.", article, kind),
      "A misspelt id, or the file that describes it is not loaded.",
      fmt::format("List them with 'zelk-metadata list {}:{}{}', and load the file that is "
                  "missing.",
                  domain.name, kind, in_service ? " SERVICE" : ""),
      {"",
       fmt::format("get {}:{} {}", domain.name, kind, in_service ? "com.acme.nope get" : "nope"),
       ""}};
}

Explanation SourceNotFound(const Domain& domain) {
  Explanation explanation = NotFound(domain, "source");
  explanation.meaning = "No source of this domain has the id.";
  explanation.cause = "A misspelt id, or a source that was deleted or never created.";
  explanation.fix = "List the sources and use one of their ids.";
  return explanation;
}

/// The tool reports in the system's words why it cannot open a file.
Explanation FileNotFound(const Domain& domain) {
  return {fmt::format("zelk.metada.{}.source.file.not.found", domain.name),
          fmt::format("{} source file not found: %1%", domain.title),
          "The file of a source cannot be opened. The argument is its path.",
          "A misspelt path, a path relative to another folder, missing permissions, or a path that "
          "is neither a file nor a folder.",
          "Fix the path or the permissions.",
          {"", "", domain.name}};
}

/// `file` is one that loads.
Explanation SourceExists(const Domain& domain, const std::string& file) {
  return {fmt::format("zelk.metada.{}.source.exists", domain.name),
          fmt::format("{} source already exists: %1%", domain.title),
          "A source was to be created under an id that is taken. A reload of an id that no source "
          "has says the same, with the not-found error.",
          "Two files that would get the same id, for example of the same name in two folders.",
          "Give the second file an id of its own; for a reload, list the sources.",
          {file, fmt::format("list {}:source --source a=FILE --source a=FILE", domain.name), ""}};
}

Explanation ParseError(const Domain& domain) {
  return {
      fmt::format("zelk.metadata.{}.parse.error", domain.name),
      fmt::format("{} source file parse error : %1% at %2%", domain.title),
      "The file is not valid JSON, or it has 4 GiB or more. The arguments are the parser's code "
      "for what is wrong and "
      "the offset of the byte at which it noticed.",
      "A comma too many or too few, a missing bracket, a comment, or a file that was cut off.",
      "Fix the JSON at the line and column that check shows; the mistake may be a little before "
      "them.",
      {fmt::format(R"({{"{}": }})", domain.name), "check FILE", ""}};
}

/// `instead` says which message is raised.
Explanation Reserved(const std::string& id, const std::string& text, const std::string& instead) {
  return {id,
          text,
          "Reserved. The library has the text but nothing raises the message; " + instead + ".",
          "Nothing.",
          "Nothing needs fixing.",
          {}};
}

std::vector<Explanation> CliExplanations() {
  Explanation no_namespace = NotFound(kCli, "namespace");
  no_namespace.cause +=
      " To list the commands of a namespace that holds none directly gives the same message.";
  Explanation no_command = NotFound(kCli, "command");
  no_command.meaning =
      "No loaded source of the domain has such a command; the argument is its full name.";
  return {no_namespace,
          no_command,
          SourceNotFound(kCli),
          FileNotFound(kCli),
          SourceExists(kCli, R"({"cli": []})"),
          ParseError(kCli)};
}

std::vector<Explanation> JsonExplanations() {
  return {
      {"zelk.metadata.json.invalid.field",
       "Json parse invalid field: %1%",
       "A key holds a value of the wrong JSON type; null is a wrong type, too. The argument is the "
       "key, or ElementValue for a value within an annotation, or packages for any list of "
       "schemes.",
       "A number, an object or null where the format wants a string, or one value where it wants "
       "an array.",
       "Give the key the type that the format names.",
       {R"({"metamodel": 1})", "check FILE", ""}},
      Reserved("zelk.metadata.json.invalid.node.type", "Json parse invalid node type: %1%",
               "a bad type of a CLI node is zelk.metadata.cli.json.invalid.node.type"),
      {"zelk.metadata.json.invalid.enum.value",
       "Json parse invalid enum value: %1%",
       "A text is not one of those that the key may have. The argument is the key.",
       "A misspelt word, or one of a newer format.",
       "Use one of the words that the format lists; upper and lower case are alike.",
       {R"({"metamodel": {"component": {"name": "com.acme", "documentation": "", "metadata": {}, "packages": [
  {"name": "com.acme.p", "documentation": "", "metadata": {}, "enumerations": [], "structures": [
    {"name": "com.acme.p.s", "type": "STRUCT"}]}]}}})",
        "check FILE", ""}},
      {"zelk.metadata.json.missing.field",
       "Json parse missing field: %1%",
       "An object does not have the key that the argument names. Where the key is optional, the "
       "message is a note that does no harm.",
       "A forgotten or misspelt key, or a file of another domain.",
       "Add the key if the format requires it.",
       {R"({"metamodel": {}})", "check FILE", ""}},
  };
}

std::vector<Explanation> MetamodelExplanations() {
  Explanation no_component = NotFound(kMetamodel, "component");
  no_component.meaning =
      "No loaded source has such a component. Authentication says it in these words, too.";
  no_component.fix =
      "List them with 'zelk-metadata list component', and load the file that is missing.";
  Explanation no_resource = NotFound(kMetamodel, "resource");
  no_resource.meaning = "Models were asked for of a resource that no loaded source names.";
  no_resource.cause = "A misspelt id, or the file that names it is not loaded.";
  no_resource.fix = "List them with 'zelk-metadata list metamodel:resource'.";
  no_resource.example.command = "list metamodel:model nope";
  return {
      SourceNotFound(kMetamodel),
      FileNotFound(kMetamodel),
      SourceExists(
          kMetamodel,
          R"({"metamodel": {"component": {"name": "com.acme", "documentation": "", "metadata": {}, "packages": []}}})"),
      ParseError(kMetamodel),
      no_component,
      NotFound(kMetamodel, "package"),
      NotFound(kMetamodel, "service"),
      NotFound(kMetamodel, "operation"),
      NotFound(kMetamodel, "structure"),
      no_resource,
      NotFound(kMetamodel, "enumeration")};
}

std::vector<Explanation> AuthenticationExplanations() {
  return {
      SourceNotFound(kAuthentication),
      FileNotFound(kAuthentication),
      SourceExists(kAuthentication, R"({"authentication": {}})"),
      ParseError(kAuthentication),
      Reserved("zelk.metada.authentication.component.not.found",
               "Authentication component not found: %1%",
               "an unknown component is zelk.metada.metamodel.component.not.found in this domain, "
               "too"),
      NotFound(kAuthentication, "package"),
      NotFound(kAuthentication, "service"),
      NotFound(kAuthentication, "operation"),
      Reserved(
          "zelk.metada.authentication.invalid.service.id", "Authentication invalid service id: %1%",
          "a bad service id in a file is zelk.metadata.authentication.json.invalid.service.id"),
      Reserved("zelk.metada.authentication.invalid.operation.id",
               "Authentication invalid operation id: %1%",
               "a bad operation id in a file is "
               "zelk.metadata.authentication.json.invalid.operation.id"),
      {"zelk.metadata.authentication.json.unknown.schema.name",
       "Authentication unknown schema name: %1%",
       std::string("A list of schemes refers to one that the component's schemes do not define. "
                   "The argument "
                   "is always id.") +
           kHalfLoaded,
       "A misspelt scheme, or one that is defined in another component.",
       "Define the scheme in the same component, or fix its name.",
       {R"({"authentication": {"component": {"name": "com.acme",
  "schemes": {}, "packages": {"com.acme.p": ["badge"]}}}})",
        "check FILE", ""}},
  };
}

std::vector<Explanation> ExplanationsWithoutText() {
  return {
      {"zelk.metadata.authentication.json.invalid.operation.id",
       kNoText,
       std::string("An operation id has no full stop, or nothing before or after its last one. The "
                   "argument is "
                   "the id.") +
           kHalfLoaded,
       "The operation's name without its service.",
       "Write SERVICE.OPERATION.",
       {R"({"authentication": {"component": {"name": "com.acme",
  "schemes": {}, "operations": {"list": []}}}})",
        "check FILE", ""}},
      {"zelk.metadata.authentication.json.invalid.service.id",
       kNoText,
       std::string("A service id has no full stop, or nothing before or after its last one; also "
                   "that of the "
                   "service that an operation id names, which costs that service but not the "
                   "component. The "
                   "argument is the id.") +
           kHalfLoaded,
       "The service's name without its package.",
       "Write PACKAGE.SERVICE.",
       {R"({"authentication": {"component": {"name": "com.acme",
  "schemes": {}, "services": {"machines": []}}}})",
        "check FILE", ""}},
      {"zelk.metadata.cli.json.invalid.field",
       kNoText,
       "A part of a node has the wrong JSON type. The argument is cli, path (for node_metadata), "
       "options_entry (for an option or an output) or output_fields (for an output field).",
       "A string where the format wants an object, or an object where it wants an array.",
       "Give the part the type that the format names.",
       {R"({"cli": {}})", "check FILE", ""}},
      {"zelk.metadata.cli.json.invalid.node.type",
       kNoText,
       "The type of a node is neither namespace nor command. The argument is always type.",
       "A misspelt word, or one in upper case.",
       "Use one of the two words, in lower case.",
       {R"({"cli": [{"type": "Command"}]})", "check FILE", ""}},
  };
}

}  // namespace

std::string Explanation::Summary() const {
  if (text != kNoText) return text;
  const std::size_t end = meaning.find(". ");
  return end == std::string::npos ? meaning : meaning.substr(0, end + 1);
}

const Explanation* Find(const std::string& id) {
  const auto& all = Explanations();
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const Explanation& row) { return row.id == id; });
  return found == all.end() ? nullptr : &*found;
}

const std::vector<Explanation>& Explanations() {
  static const std::vector<Explanation> explanations = [] {
    std::vector<Explanation> all;
    for (const auto& part : {CliExplanations(), JsonExplanations(), MetamodelExplanations(),
                             AuthenticationExplanations(), ExplanationsWithoutText()}) {
      all.insert(all.end(), part.begin(), part.end());
    }
    return all;
  }();
  return explanations;
}

}  // namespace Zelk::Tool::Explain
