#include "commands/table.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include "commands/query.h"
#include "complete/scripts.h"

namespace Zelk::Tool {
namespace {

std::string KindsText(const Names& usages) {
  return fmt::format("Kinds, which may be written in the plural, too:\n  {}\n",
                     fmt::join(usages, "\n  "));
}

OperandDescription KindOperand(bool required) {
  return {"KIND", Word::kKind, required, "One of the kinds below, alone or as DOMAIN:KIND",
          &Arguments::kind};
}

const OperandDescription kIds{"ID", Word::kId, false, "As many ids as the kind takes",
                              &Arguments::ids};

/// How many ids a query takes, if the kind offers it.
template <typename T>
std::optional<IdCount> IdsOf(const Query<T>& query) {
  if (!query.call) return std::nullopt;
  return query.ids;
}

const std::vector<std::string> kOutputs{"table", "plain", "json"};

Command Check() {
  return {{"check",
           "Load files by themselves and tell what is wrong with them",
           "",
           {{"FILE", Word::kPath, true,
             "Files of metadata, each loaded by itself; - is standard input", &Arguments::files}},
           {},
           {"text", "json", "github"},
           "check metadata/metamodel/zelk-metadata.json metadata/authentication/zelk-metadata.json "
           "metadata/cli/zelk-metadata.json"},
          RunCheck};
}

Command Explain() {
  return {{"explain",
           "Explain a message: what it means, what causes it, how to mend it",
           "Without an ID, the ids of all messages are listed.\n\n",
           {{"ID", Word::kMessageId, false, "The id of a message", &Arguments::text}},
           {},
           {"text", "json"},
           "explain zelk.metadata.json.missing.field"},
          RunExplain};
}

Command List() {
  return {
      {"list",
       "List the names of a kind, or of what belongs to an ID",
       "A kind that several domains know is listed for all of them, one after the other; write\n"
       "DOMAIN:KIND for one of them. --output plain and json answer the names alone.\n\n" +
           KindsText(Usages(&Kind::list)),
       {KindOperand(true), kIds},
       {},
       kOutputs,
       "list operations com.orvane.zelk.metadata.metamodel.component --source metadata",
       [](const Kind& kind) { return IdsOf(kind.list); }},
      RunList};
}

Command Get() {
  return {
      {"get",
       "Show what there is to know about one or more IDs",
       "A page has what the other domains say about the thing, too: the schemes that are listed\n"
       "for it and what is around it, and the commands that call it. JSON has the record whole\n"
       "and nothing else; an array of records with their domain, kind and ids, if several ids\n"
       "are asked for or several domains answer.\n\n" +
           KindsText(Usages(&Kind::get)),
       {KindOperand(true), kIds},
       {},
       kOutputs,
       "get operation com.orvane.zelk.metadata.metamodel.source delete --source metadata",
       [](const Kind& kind) { return IdsOf(kind.get); },
       true},
      RunGet};
}

Command Fingerprint() {
  return {
      {"fingerprint",
       "Print a digest that changes when the metadata does",
       "Without a KIND, that of all sources of a domain together. The digits alone are printed\n"
       "where one domain answers and --output is plain, as it is when a program reads.\n\n" +
           KindsText(Usages(&Kind::fingerprint)),
       {KindOperand(false), kIds},
       {},
       kOutputs,
       "fingerprint --source metadata",
       [](const Kind& kind) { return IdsOf(kind.fingerprint); }},
      RunFingerprint};
}

Command Tree() {
  return {{"tree",
           "Show everything that is loaded, each thing below what it is in",
           "Components, packages, services and operations; namespaces and commands; how many of\n"
           "each there are in a thing. What several sources hold is shown once.\n",
           {},
           {{"depth", "LEVELS", Word::kNumber, "How many levels to show below the domains",
             &Arguments::depth}},
           kOutputs,
           "tree --depth 1 --source metadata"},
          RunTree};
}

Command Search() {
  return {
      {"search",
       "Find what is called or described by a text",
       "Upper and lower case are the same. What is called so comes first; a TEXT with a dot is\n"
       "looked for in whole names, other texts in their last part only.\n",
       {{"TEXT", Word::kText, true, "A part of a name or of a documentation", &Arguments::text}},
       {},
       kOutputs,
       "search md5 --source metadata"},
      RunSearch};
}

Command Which() {
  return {
      {"which",
       "Tell which source answers for a name, which are passed over, and why",
       "Kinds: component, package, service, operation, structure, enumeration, resource, model,\n"
       "namespace, command; with the ids that `get` takes, for model and resource that of the\n"
       "resource.\n",
       {KindOperand(true), kIds},
       {},
       kOutputs,
       "which service com.orvane.zelk.metadata.cli.command --source metadata "
       "--source copy=metadata/metamodel/zelk-metadata.json",
       IdsOfWhich},
      RunWhich};
}

Command Usage() {
  return {{"usage",
           "Show the help of the command-line client that the metadata describes",
           "Without a NAME that of the client itself, with its uppermost namespaces.\n",
           {{"NAME", Word::kCliName, false,
             "The namespaces and the command, dotted or each for itself", &Arguments::ids}},
           {},
           kOutputs,
           "usage metadata metamodel component --source metadata"},
          RunUsage};
}

Command Completion() {
  return {
      {"completion",
       "Print what makes a shell complete the words of this program",
       "bash: put into ~/.bashrc: source <(zelk-metadata completion bash)\n"
       "zsh:  put into ~/.zshrc, behind compinit: source <(zelk-metadata completion zsh)\n"
       "fish: put into ~/.config/fish/config.fish: zelk-metadata completion fish | source\n"
       "Where the program was installed from a package the shells know it already. Names are\n"
       "completed from the sources that stand before them, unless those are very large.\n\n",
       {{"SHELL", Word::kChoice, true, "bash, zsh or fish", &Arguments::text, CompletedShells()}},
       {},
       {"text"},
       "completion bash"},
      RunCompletion};
}

Command Manual() {
  return {{"man",
           "Print the manual page",
           "As a page for man: zelk-metadata man | man -l -\n\n",
           {},
           {},
           {"text"},
           "man"},
          RunManual};
}

Command Shell() {
  return {
      {"shell",
       "Ask one question after the other, while sources come, change and go",
       "On a terminal with a history and completed words; elsewhere the lines of standard input\n"
       "are read, and the exit status is that of the first one that fails. The line help tells\n"
       "what can be said: most commands of this program, and changes of what is loaded.\n\n",
       {},
       {},
       {"text"},
       "shell --source metadata"},
      RunShell};
}

std::vector<OptionDescription> ProgramOptions() {
  std::vector<OptionDescription> options = SessionOptions();
  options.insert(options.begin(),
                 {"source", "[ID=]PATH", Word::kSource,
                  "Load a file, a folder or standard input (-); may be given several times",
                  &Arguments::sources});
  return options;
}

}  // namespace

std::vector<OptionDescription> SessionOptions() {
  return {
      {"output", "FORMAT", Word::kChoice,
       "table, plain or json; unless given, a table on a terminal, else plain", &Arguments::output},
      {"json", "", Word::kNone, "The same as --output json", &Arguments::json},
  };
}

std::vector<Command> Questions() {
  return {Check(), Explain(), Tree(), List(), Get(), Search(), Which(), Fingerprint(), Usage()};
}

const Language& ProgramLanguage() {
  static const Language language = [] {
    Language made{"zelk-metadata ", Questions(), ProgramOptions()};
    for (Command (*command)() : {Shell, Completion, Manual}) made.commands.push_back(command());
    return made;
  }();
  return language;
}

bool TakesAll(const OperandDescription& operand) {
  return std::holds_alternative<std::vector<std::string> Arguments::*>(operand.target);
}

const Command* FindCommand(const Language& language, const std::string& name) {
  const auto& commands = language.commands;
  const auto found = std::find_if(commands.begin(), commands.end(), [&](const Command& command) {
    return command.description.name == name;
  });
  return found == commands.end() ? nullptr : &*found;
}

}  // namespace Zelk::Tool
