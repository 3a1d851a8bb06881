#include "domains/cli_nodes.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <functional>
#include <set>
#include <string_view>

#include "domains/cli_record.h"
#include "domains/outline.h"
#include "render/text.h"

namespace Zelk::Tool {
namespace {

using Render::FirstLine;
using Render::JsonWriter;
using Render::Page;

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
    outline_.Named(0, "namespace", IdsFrom("."), ".", root->second->description);
    depth_ = 1;
  }

  Outline Write() {
    Open(depth_, "", Shown::kName);
    WritePending();
    // What is left is in namespaces without a description, which have no line of their own.
    while (!inside_.empty()) {
      Open(depth_, inside_.begin()->first, Shown::kFullName);
      WritePending();
    }
    return outline_.Take();
  }

 private:
  struct Inside {
    std::vector<const Bindings::Cli::NamespaceSvc::Info*> namespaces;
    std::vector<const Bindings::Cli::CommandSvc::Info*> commands;
  };

  enum class Shown { kName, kFullName };

  struct Pending {
    std::size_t depth;
    Shown shown;
    const Bindings::Cli::NamespaceSvc::Info* info;
  };

  static std::string NameOf(const Identity& identity, Shown shown) {
    return shown == Shown::kName ? identity.name : FullName(identity);
  }

  void WritePending() {
    while (!pending_.empty()) {
      const Pending next = pending_.back();
      pending_.pop_back();
      const Identity& identity = *next.info->identity;
      outline_.Named(next.depth, "namespace", IdsOf(identity), NameOf(identity, next.shown),
                     next.info->description);
      Open(next.depth + 1, Path(identity), Shown::kName);
    }
  }

  /// Writes the commands of a namespace and leaves the namespaces in it to be written.
  void Open(std::size_t depth, const std::string& path, Shown shown) {
    const auto found = inside_.find(path);
    if (found == inside_.end()) return;
    for (const auto* command : found->second.commands) WriteCommand(depth, shown, *command);
    const auto& namespaces = found->second.namespaces;
    for (auto at = namespaces.rbegin(); at != namespaces.rend(); ++at) {
      pending_.push_back({depth, shown, *at});
    }
    // Two identities may have one full name; what is inside is written for the first.
    inside_.erase(found);
  }

  void WriteCommand(std::size_t depth, Shown shown,
                    const Bindings::Cli::CommandSvc::Info& command) {
    const Identity& identity = *command.identity;
    outline_.Named(depth, "command", IdsOf(identity), NameOf(identity, shown), command.description);
    for (const auto& option : command.options) {
      outline_.Part(depth + 1, "option", IdsFrom(FullName(identity), "--" + option->long_option),
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

/// Whether `path` is the namespace or in it; all are in the root, which is empty.
bool IsIn(std::string_view path, const std::string& around) {
  if (around.empty() || path == around) return true;
  return path.size() > around.size() && path[around.size()] == '.' &&
         path.compare(0, around.size(), around) == 0;
}

using Paths = std::set<std::string, std::less<>>;

/// The innermost described namespace that a path leads through; empty for the root.
std::string_view NearestDescribed(std::string_view path, const Paths& described) {
  while (!path.empty() && described.count(path) == 0) {
    const std::size_t dot = path.rfind('.');
    path = path.substr(0, dot == std::string_view::npos ? 0 : dot);
  }
  return path;
}

/// The help for a namespace, described or not. It shows the commands in it, those in namespaces
/// without a description included, since these have no help that leads to them.
NamespaceHelp HelpOf(const CliNodes& nodes, const std::string& path,
                     const std::string& description) {
  NamespaceHelp help{path.empty() ? "." : path, description, {}, {}};
  Paths described;
  for (const auto& [child, info] : nodes.namespaces) {
    const bool is_inside = child.path == path && !Path(child).empty();
    if (is_inside) help.namespaces.emplace_back(child.name, FirstLine(info->description));
    described.insert(Path(child));
  }
  for (const auto& [command, info] : nodes.commands) {
    if (!IsIn(command.path, path)) continue;
    if (NearestDescribed(command.path, described).size() > path.size()) continue;
    const std::size_t between =
        path.empty() || command.path.size() == path.size() ? path.size() : path.size() + 1;
    const std::string inner = command.path.substr(between);
    help.commands.emplace_back((inner.empty() ? "" : WordsOf(inner) + ' ') + command.name,
                               FirstLine(info->description));
  }
  return help;
}

void WriteHelpPage(Page& page, const NamespaceHelp& help) {
  const std::string words = help.name == "." ? "" : WordsOf(help.name) + ' ';
  const char* const inside = help.namespaces.empty() ? "COMMAND"
                             : help.commands.empty() ? "NAMESPACE"
                                                     : "NAMESPACE|COMMAND";
  page.Title(fmt::format("Usage: {}{} ...", words, inside));
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
  json.Key(name).StartArray();
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
                       [info](JsonWriter& json) { WriteRecord(json, *info); }},
                      Subject{"operation", {info->service_id, info->operation_id}}},
            std::nullopt};
  }
  const auto found = std::find_if(nodes.namespaces.begin(), nodes.namespaces.end(), is_meant);
  const bool is_described = found != nodes.namespaces.end();
  const NamespaceHelp help = HelpOf(nodes, name == "." ? std::string() : name,
                                    is_described ? found->second->description : "");
  if (is_described || !help.commands.empty()) {
    return {UsagePage{{[help](Page& page) { WriteHelpPage(page, help); },
                       [help](JsonWriter& json) { WriteHelpJson(json, help); }},
                      std::nullopt},
            std::nullopt};
  }
  const std::string text = fmt::format("no namespace or command has the name '{}'", name);
  return {std::nullopt, ServiceError{"", {Message{"", text, {}}}}};
}

}  // namespace Zelk::Tool
