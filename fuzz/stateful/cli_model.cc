#include <algorithm>
#include <cstddef>

#include "stateful/model_sources.h"

namespace Zelk::Fuzzing {
namespace {

constexpr char kInvalidField[] = "zelk.metadata.cli.json.invalid.field";

struct Identity {
  std::string path;
  std::string name;
};

bool operator==(const Identity& left, const Identity& right) {
  return left.path == right.path && left.name == right.name;
}

bool operator<(const Identity& left, const Identity& right) {
  return left.path != right.path ? left.path < right.path : left.name < right.name;
}

std::string Text(const Identity& identity) {
  return identity.path + ":" + identity.name;
}

struct Namespace {
  Identity identity;
  std::string description;
  std::vector<Identity> children;
};

std::string Text(const Namespace& info) {
  std::string children;
  for (const auto& child : info.children) children += (children.empty() ? "" : ", ") + Text(child);
  return "namespace " + Text(info.identity) + " " + Testing::Quoted(info.description) + " [" +
         children + "]";
}

struct Command {
  Identity identity;
  std::string text;
};

std::string Text(const Command& command) {
  return command.text;
}

/// The record of that identity; null when there is none.
template <typename Record>
Record* Find(std::vector<Record>& records, const Identity& identity) {
  for (auto& record : records) {
    if (record.identity == identity) return &record;
  }
  return nullptr;
}

/// Keeps the records in the order of their identities; the last of one stays.
template <typename Record>
void Store(std::vector<Record>& records, const Record& record) {
  if (auto* known = Find(records, record.identity)) {
    *known = record;
    return;
  }
  auto place = records.begin();
  while (place != records.end() && place->identity < record.identity) ++place;
  records.insert(place, record);
}

/// The namespace whose full name a path is.
Identity NamespaceAt(const std::string& path) {
  const auto stop = path.rfind('.');
  if (stop == std::string::npos) return {"", path};
  return {path.substr(0, stop), path.substr(stop + 1)};
}

struct Content {
  std::vector<Namespace> namespaces;
  std::vector<Command> commands;
};

/// Stores a namespace and lists it in its parent, which is made, and listed itself, when it is not
/// there.
void Register(std::vector<Namespace>& namespaces, const Namespace& info) {
  Store(namespaces, info);
  const Identity parent = NamespaceAt(info.identity.path);
  if (auto* known = Find(namespaces, parent)) {
    known->children.push_back(info.identity);
    return;
  }
  const std::string description =
      parent.name.empty() ? "Root namespace" : parent.name + " namespace";
  Register(namespaces, {parent, description, {info.identity}});
}

void DemandObject(const Json& value, const char* word, ModelReader& reader) {
  if (value.kind != Json::Kind::kObject) reader.GiveUp(kInvalidField, {word});
}

/// An enumerator in any case; any other text is kept as an unknown one.
std::string LenientEnumerator(const std::string& text, const Enumerators& known) {
  const std::string upper = Upper(text);
  return Contains(known, upper) ? upper : "UNKNOWN " + Testing::Quoted(upper);
}

std::string OptionText(const Json& option, ModelReader& reader) {
  DemandObject(option, "options_entry", reader);
  std::string text = "\n  option " + Testing::Quoted(reader.Text(option, "long_option"));
  text += " " + Testing::Quoted(reader.OptionalText(option, "short_option"));
  for (const char* key : {"field_name", "description", "type"}) {
    text += " " + Testing::Quoted(reader.Text(option, key));
  }
  const std::string generic = reader.Text(option, "generic");
  if (generic.empty()) return text + " NONE";
  return text + " " +
         LenientEnumerator(generic, {"NONE", "OPTIONAL", "LIST", "OPTIONAL_LIST", "LIST_OPTIONAL"});
}

std::string OutputFieldText(const Json& field, ModelReader& reader) {
  DemandObject(field, "output_fields", reader);
  const std::string name = reader.Text(field, "field_name");
  return Testing::Quoted(name) + " as " + Testing::Quoted(reader.Text(field, "display_name"));
}

std::string OutputText(const Json& output, ModelReader& reader) {
  DemandObject(output, "options_entry", reader);
  const std::string structure = reader.Text(output, "structure_id");
  std::string text;
  if (const Json* fields = reader.Optional(output, "output_fields", Json::Kind::kArray)) {
    for (const auto& field : fields->elements) {
      text += (text.empty() ? "" : ", ") + OutputFieldText(field, reader);
    }
  }
  return "\n  output " + Testing::Quoted(structure) + " [" + text + "]";
}

/// The texts of an array's elements, nothing for an absent array.
std::string Texts(const Json& object, const char* key,
                  std::string (*element_text)(const Json&, ModelReader&), ModelReader& reader) {
  std::string text;
  if (const Json* array = reader.Optional(object, key, Json::Kind::kArray)) {
    for (const auto& element : array->elements) text += element_text(element, reader);
  }
  return text;
}

Command ReadCommand(const Json& node, const Identity& identity, const std::string& description,
                    ModelReader& reader) {
  const Json* details = reader.FindAloud(node, "node_metadata");
  if (details == nullptr) throw GivenUp();
  DemandObject(*details, "path", reader);
  std::string text = "command " + Text(identity) + " " + Testing::Quoted(description);
  text += " " + Testing::Quoted(reader.Text(*details, "service_id"));
  text += " " + Testing::Quoted(reader.Text(*details, "operation_id"));
  const auto formatter = reader.OptionalText(*details, "formatter");
  text += " " + (formatter ? LenientEnumerator(*formatter,
                                               {"SIMPLE", "TABLE", "JSON", "XML", "CSV", "HTML"})
                           : "none");
  text += Texts(*details, "options", OptionText, reader);
  text += Texts(*details, "output_field_list", OutputText, reader);
  return {identity, text};
}

void ReadNode(const Json& node, ModelReader& reader, Content& content) {
  const std::string type = reader.Text(node, "type");
  if (type != "namespace" && type != "command") {
    reader.GiveUp("zelk.metadata.cli.json.invalid.node.type", {"type"});
  }
  Identity identity;
  identity.path = reader.Text(node, "path");
  identity.name = reader.Text(node, "name");
  const std::string description = reader.Text(node, "description");
  if (type == "namespace") {
    Register(content.namespaces, {identity, description, {}});
  } else {
    Store(content.commands, ReadCommand(node, identity, description, reader));
  }
}

struct Cli {
  static constexpr char kWord[] = "cli";
  static constexpr bool kDeliversSuccess = true;

  using Content = Fuzzing::Content;
  using Sources = std::vector<ModelSource<Content>>;

  static Content Read(const Json& document, ModelReader& reader) {
    const Json* nodes = reader.FindAloud(document, "cli");
    if (nodes == nullptr) throw GivenUp();
    if (nodes->kind != Json::Kind::kArray) reader.GiveUp(kInvalidField, {"cli"});
    Content content;
    for (const auto& node : nodes->elements) ReadNode(node, reader, content);
    return content;
  }

  static std::string Ask(const Sources& sources, const Question& question);
};

template <typename Record>
std::vector<std::string> Identities(const Cli::Sources& sources,
                                    std::vector<Record> Content::*records) {
  std::vector<std::string> texts;
  for (const auto& source : sources) {
    for (const auto& record : source.content.*records) texts.push_back(Text(record.identity));
  }
  return texts;
}

std::string ListCommands(const Cli::Sources& sources, const std::string& path) {
  std::vector<std::string> texts;
  for (const auto& source : sources) {
    for (const auto& command : source.content.commands) {
      if (command.identity.path == path) texts.push_back(Text(command.identity));
    }
  }
  return texts.empty() ? NotFound("zelk.metada.cli.namespace.not.found", {path}) : NamesText(texts);
}

template <typename Record>
std::string Get(const Cli::Sources& sources, std::vector<Record> Content::*records,
                const Question& question, const char* message) {
  for (const auto& source : sources) {
    for (const auto& record : source.content.*records) {
      if (record.identity == Identity{question.key, question.second_key}) return Text(record);
    }
  }
  const std::string path = question.key.empty() ? "" : question.key + ".";
  return NotFound(message, {path + question.second_key});
}

std::string Cli::Ask(const Sources& sources, const Question& question) {
  switch (question.operation) {
    case Operation::kListNamespaces:
      return NamesText(Identities(sources, &Content::namespaces));
    case Operation::kGetNamespace:
      return Get(sources, &Content::namespaces, question, "zelk.metada.cli.namespace.not.found");
    case Operation::kListAllCommands:
      return NamesText(Identities(sources, &Content::commands));
    case Operation::kListCommands:
      return ListCommands(sources, question.key);
    case Operation::kGetCommand:
      return Get(sources, &Content::commands, question, "zelk.metada.cli.command.not.found");
    case Operation::kFingerprintOfNamespaces:
    case Operation::kFingerprintOfCommands:
      return Testing::Quoted(ModelSources<Cli>::DigestOfAll(sources));
    default:
      return "no such question";
  }
}

}  // namespace

std::unique_ptr<Services> CliModel(const Disk& disk) {
  return std::make_unique<ModelSources<Cli>>(disk);
}

}  // namespace Zelk::Fuzzing
