#include <algorithm>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "docs/page.h"
#include "domains/table.h"
#include "host/input.h"
#include "host/replace_file.h"
#include "language/invocation.h"

namespace Zelk::Tool {
namespace {

using Analysis::Domain;
using Analysis::ElementKind;
using Analysis::Workspace;

std::set<std::string_view> ComponentNames(const Analysis::Model& model) {
  std::set<std::string_view> names;
  for (Analysis::ElementId id = 0; id < model.Size(); ++id) {
    if (model[id].kind == ElementKind::kComponent) names.insert(model[id].name);
  }
  return names;
}

/// The name of the component if there is one, otherwise what the files describe.
std::string TitleOf(const Workspace& workspace) {
  for (const Domain domain : {Domain::kMetamodel, Domain::kAuthentication}) {
    const auto names = ComponentNames(workspace.ModelOf(domain));
    if (names.size() == 1) return std::string(*names.begin());
    if (!names.empty()) return domain == Domain::kMetamodel ? "Interfaces" : "Schemes";
  }
  return workspace.ModelOf(Domain::kCli).Sources().empty() ? "Interfaces" : "Commands";
}

/// Where --output-file leads, or what is in its place.
ExitStatus WritePage(const Invocation& call, const Docs::Subject& subject) {
  const std::string& path = call.Args().output_file;
  if (path.empty() || path == "-") {
    Docs::WritePage(call.Out(), subject);
    return ExitStatus::kOk;
  }
  std::ostringstream page;
  Docs::WritePage(page, subject);
  const std::string complaint = ReplaceFile(path, page.str());
  return complaint.empty() ? ExitStatus::kOk : call.Fail(ExitStatus::kOutputLost, complaint);
}

/// All files on one page.
ExitStatus RunDocs(Invocation& call) {
  const std::vector<std::string> words = call.Sources();
  if (words.empty()) {
    return call.Fail(ExitStatus::kUsage, "a --source is missing; try docs --help");
  }
  std::vector<SourceArgument> sources;
  std::transform(words.begin(), words.end(), std::back_inserter(sources), ParseSourceArgument);
  Input input = ReadInput(sources, call.GetStreams().in, Domains());
  std::vector<LoadReport> failed;
  for (Unreadable& file : input.unreadable) {
    failed.push_back({file.file, "", {{{"", std::move(file.reason), {}}}}});
  }
  for (LoadReport& report : ReportsOf(std::move(input.failed))) failed.push_back(std::move(report));
  for (const LoadReport& report : failed) call.ComplainOf(report);
  const std::vector<LoadReport> partial = ReportsOf(std::move(input.partial));
  for (const LoadReport& report : partial) call.ComplainOf(report);
  const Workspace workspace(std::move(input.files));
  const std::string& title = call.Args().text;
  const ExitStatus status =
      WritePage(call, {workspace, failed, partial, title.empty() ? TitleOf(workspace) : title});
  return !failed.empty() && status == ExitStatus::kOk ? ExitStatus::kSourceFailed : status;
}

}  // namespace

Command DocsCommand() {
  Command command;
  command.name = "docs";
  command.summary = "Write all that the files describe as one HTML page";
  command.details =
      "The page can be opened from disk. It needs no server and no network, and makes no request: "
      "its content security policy forbids that. It has a search, links in both directions, the "
      "schemes that are listed for each operation, the commands that call it, and where in which "
      "file everything is. docs/explorer.md describes it.\n"
      "Files that do not load are listed on the page with their messages, and the exit status is "
      "1. Files of which a part does not load are listed, too.\n";
  command.options = {
      {"output-file", "FILE", Word::kPath,
       "Write the page to the file; without this, or with -, it goes to standard output",
       &Arguments::output_file},
      {"title", "TEXT", Word::kText, "The title; unless given, the name of the component",
       &Arguments::text},
  };
  command.outputs = {"html"};
  command.example = "docs --source metadata --output-file /tmp/zelk-metadata.html";
  command.scope = Scope::kProgram;
  command.is_paged = false;
  command.run = RunDocs;
  return command;
}

}  // namespace Zelk::Tool
