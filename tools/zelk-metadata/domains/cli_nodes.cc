#include "domains/cli_nodes.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include "domains/cli_record.h"
#include "domains/outline.h"
#include "render/text.h"

namespace Zelk::Tool {
namespace {

using Identity = CliNodes::Identity;
using Pairs = std::vector<std::pair<std::string, std::string>>;

/// The prefix of the names inside; empty for the root.
std::string Path(const Identity& identity) {
  const bool is_root = identity.path.empty() && identity.name.empty();
  return is_root ? std::string() : FullName(identity);
}

/// One dotted id, or two where that would be split in another place.
Ids IdsOf(const Identity& identity) {
  if (identity.name.find('.') != std::string::npos) return {identity.path, identity.name};
  return {FullName(identity)};
}

/// Writes the tree without recursion, since a path may be as long as its file.
class TreeWriter {
 public:
  explicit TreeWriter(const CliNodes& nodes) {
    for (const auto& [identity, info] : nodes.namespaces) {
      if (!Path(identity).empty()) inside_[identity.path].namespaces.push_back(info.get());
    }
    for (const auto& [identity, info] : nodes.commands) {
      inside_[identity.path].commands.push_back(info.get());
    }
    const auto root = nodes.namespaces.find(Identity("", ""));
    if (root == nodes.namespaces.end()) return;
    outline_.Named(0, "namespace", {"."}, ".", root->second->description);
    depth_ = 1;
  }

  Outline Write() {
    WriteFrom("");
    // What is left is in namespaces without a description.
    while (!inside_.empty()) WriteFrom(inside_.begin()->first);
    return outline_.Take();
  }

 private:
  struct Inside {
    std::vector<const Bindings::Cli::NamespaceSvc::Info*> namespaces;
    std::vector<const Bindings::Cli::CommandSvc::Info*> commands;
  };

  struct Pending {
    std::size_t depth;
    const Bindings::Cli::NamespaceSvc::Info* info;
  };

  void WriteFrom(const std::string& path) {
    Open(depth_, path);
    while (!pending_.empty()) {
      const Pending next = pending_.back();
      pending_.pop_back();
      const Identity& identity = *next.info->identity;
      outline_.Named(next.depth, "namespace", IdsOf(identity), identity.name,
                     next.info->description);
      Open(next.depth + 1, Path(identity));
    }
  }

  /// Writes the commands of a namespace and leaves the namespaces in it to be written.
  void Open(std::size_t depth, const std::string& path) {
    const auto found = inside_.find(path);
    if (found == inside_.end()) return;
    for (const auto* command : found->second.commands) WriteCommand(depth, *command);
    const auto& namespaces = found->second.namespaces;
    for (auto at = namespaces.rbegin(); at != namespaces.rend(); ++at) {
      pending_.push_back({depth, *at});
    }
    // Two identities may have one full name; what is inside is written for the first.
    inside_.erase(found);
  }

  void WriteCommand(std::size_t depth, const Bindings::Cli::CommandSvc::Info& command) {
    const Identity& identity = *command.identity;
    outline_.Named(depth, "command", IdsOf(identity), identity.name, command.description);
    for (const auto& option : command.options) {
      outline_.Part(depth + 1, "option", {FullName(identity), "--" + option->long_option},
                    option->description);
    }
  }

  std::map<std::string, Inside> inside_;
  std::vector<Pending> pending_;
  OutlineWriter outline_;
  std::size_t depth_ = 0;
};

struct NamespaceHelp {
  std::string name;
  std::string description;
  Pairs namespaces;
  Pairs commands;
};

/// As they are typed.
std::string WordsOf(const std::string& dotted) {
  std::string words = dotted;
  for (char& character : words) character = character == '.' ? ' ' : character;
  return words;
}

NamespaceHelp HelpOf(const CliNodes& nodes, const Identity& identity,
                     const Bindings::Cli::NamespaceSvc::Info& info) {
  NamespaceHelp help{FullName(identity), info.description, {}, {}};
  const std::string path = Path(identity);
  for (const auto& [child, child_info] : nodes.namespaces) {
    const bool is_inside = child.path == path && !Path(child).empty();
    if (is_inside) help.namespaces.emplace_back(child.name, FirstLine(child_info->description));
  }
  for (const auto& [command, command_info] : nodes.commands) {
    if (command.path == path) {
      help.commands.emplace_back(command.name, FirstLine(command_info->description));
    }
  }
  return help;
}

void WriteHelpPage(Page& page, const NamespaceHelp& help) {
  const std::string words = help.name == "." ? "" : WordsOf(help.name) + ' ';
  page.Title("Usage: " + words + "NAMESPACE|COMMAND ...");
  page.Paragraph(1, help.description);
  if (!help.namespaces.empty()) {
    page.Heading("Namespaces:");
    page.Pairs(1, help.namespaces);
  }
  if (!help.commands.empty()) {
    page.Heading("Commands:");
    page.Pairs(1, help.commands);
  }
}

void WritePairs(JsonWriter& json, const char* name, const Pairs& pairs) {
  json.Key(name);
  json.StartArray();
  for (const auto& [child, description] : pairs) {
    json.StartObject();
    json.Member("name", child);
    json.Member("description", description);
    json.EndObject();
  }
  json.EndArray();
}

void WriteHelpJson(JsonWriter& json, const NamespaceHelp& help) {
  json.StartObject();
  json.Member("namespace", help.name);
  json.Member("description", help.description);
  WritePairs(json, "namespaces", help.namespaces);
  WritePairs(json, "commands", help.commands);
  json.EndObject();
}

}  // namespace

Outline OutlineOf(const CliNodes& nodes) {
  return TreeWriter(nodes).Write();
}

Pairs CommandsCalling(const CliNodes& nodes, const Subject& subject) {
  Pairs calling;
  const bool of_operation = subject.kind == "operation";
  if (!of_operation && subject.kind != "service") return calling;
  for (const auto& [identity, info] : nodes.commands) {
    if (info->service_id != subject.ids[0]) continue;
    if (of_operation && info->operation_id != subject.ids[1]) continue;
    calling.emplace_back(FullName(identity), FirstLine(info->description));
  }
  return calling;
}

Outcome<UsagePage> UsageOf(const CliNodes& nodes, const Names& words) {
  const std::string name = words.empty() ? "." : fmt::format("{}", fmt::join(words, "."));
  const auto is_meant = [&name](const auto& node) { return FullName(node.first) == name; };
  const auto command = std::find_if(nodes.commands.begin(), nodes.commands.end(), is_meant);
  if (command != nodes.commands.end()) {
    const auto info = command->second;
    const std::string title = "Usage: " + WordsOf(name) + " [OPTIONS]";
    return {UsagePage{{[info, title](Page& page) { WriteUsagePage(page, title, *info); },
                       [info](JsonWriter& json) { WriteJson(json, *info); }},
                      Subject{"operation", {info->service_id, info->operation_id}}},
            std::nullopt};
  }
  const auto found = std::find_if(nodes.namespaces.begin(), nodes.namespaces.end(), is_meant);
  if (found != nodes.namespaces.end()) {
    const NamespaceHelp help = HelpOf(nodes, found->first, *found->second);
    return {UsagePage{{[help](Page& page) { WriteHelpPage(page, help); },
                       [help](JsonWriter& json) { WriteHelpJson(json, help); }},
                      std::nullopt},
            std::nullopt};
  }
  const std::string text = fmt::format("no namespace or command has the name '{}'", name);
  return {std::nullopt, ServiceError{"", {Message{"", text, {}}}}};
}

}  // namespace Zelk::Tool
