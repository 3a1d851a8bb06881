#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <memory>

#include "analysis/format.h"
#include "analysis/near.h"
#include "analysis/reader.h"
#include "analysis/workspace.h"
#include "host/load.h"
#include "language/invocation.h"
#include "language/operands.h"

namespace Zelk::Tool {
namespace {

using Analysis::Domain;
using Analysis::Element;
using Analysis::ElementId;
using Analysis::ElementKind;
using Analysis::kNoElement;
using Analysis::Model;
using Analysis::Reference;
using Analysis::ReferenceKind;
using Analysis::Workspace;

/// A kind of things that others refer to.
struct UsedKind {
  const char* name;
  Domain domain;
  /// kNone for resources, which are only names.
  ElementKind element;
};

constexpr std::array<UsedKind, 8> kUsedKinds{{
    {"component", Domain::kMetamodel, ElementKind::kComponent},
    {"package", Domain::kMetamodel, ElementKind::kPackage},
    {"service", Domain::kMetamodel, ElementKind::kService},
    {"operation", Domain::kMetamodel, ElementKind::kOperation},
    {"structure", Domain::kMetamodel, ElementKind::kStructure},
    {"enumeration", Domain::kMetamodel, ElementKind::kEnumeration},
    {"resource", Domain::kMetamodel, ElementKind::kNone},
    {"scheme", Domain::kAuthentication, ElementKind::kScheme},
}};

/// Null for an unknown kind.
const UsedKind* FindUsedKind(const std::string& name) {
  const auto found = std::find_if(kUsedKinds.begin(), kUsedKinds.end(), [&](const UsedKind& kind) {
    return name == kind.name || name == std::string(kind.name) + "s";
  });
  return found == kUsedKinds.end() ? nullptr : &*found;
}

Names UsedKindNames() {
  Names names;
  for (const UsedKind& kind : kUsedKinds) names.emplace_back(kind.name);
  return names;
}

/// Reads the files again. In a session, they may have changed since they were loaded.
std::unique_ptr<const Workspace> ReadSources(Invocation& call) {
  const bool may_differ = call.GetLanguage().IsOfSession();
  std::vector<Analysis::File> files;
  for (const LoadedSource& loaded : call.GetHost().Sources()) {
    const std::string name = ShownName(loaded.source);
    const Analysis::Format& format = *Analysis::FindFormat(loaded.row->root_key);
    auto document =
        std::make_shared<const Analysis::Document>(TextOf(loaded.source.path).value_or(""));
    if (may_differ && !(document->IsJson() && Analysis::Read(*document, format).loads)) {
      call.FailSource(name +
                      ": left out, since it has changed and fails to load; list and get "
                      "still show the old data");
      continue;
    }
    files.push_back({name, format.domain, {loaded.source.id, std::move(document)}});
  }
  return std::make_unique<Workspace>(std::move(files));
}

/// One thing that refers to another.
struct Use {
  const Model* model;
  /// What `get` shows, or a list of schemes or a scheme.
  ElementId user;
  std::string what;
  std::string file;
  Analysis::Position position;
};

bool IsUser(ElementKind kind) {
  switch (kind) {
    case ElementKind::kComponent:
    case ElementKind::kPackage:
    case ElementKind::kService:
    case ElementKind::kOperation:
    case ElementKind::kStructure:
    case ElementKind::kEnumeration:
    case ElementKind::kScheme:
    case ElementKind::kPackageList:
    case ElementKind::kServiceList:
    case ElementKind::kOperationList:
    case ElementKind::kCommand:
      return true;
    default:
      return false;
  }
}

/// "parameter name"; empty for a user.
std::string PartText(const Element& element) {
  if (IsUser(element.kind)) return "";
  if (element.kind == ElementKind::kResult) return "result";
  return fmt::format("{} {}", Analysis::Word(element.kind), element.name);
}

std::string WhatText(const Model& model, const Reference& reference) {
  const Element& from = model[reference.from.element];
  switch (reference.kind) {
    case ReferenceKind::kListed:
      return from.kind == ElementKind::kComponent ? "schemes" : "list of schemes";
    case ReferenceKind::kSessionManager:
      return "session manager";
    case ReferenceKind::kScheme:
      return "scheme";
    case ReferenceKind::kService:
    case ReferenceKind::kOperation:
      return "call";
    case ReferenceKind::kError:
    case ReferenceKind::kOutput:
      return Analysis::Word(from.kind);
    case ReferenceKind::kResource: {
      const std::string part = PartText(model[from.parent]);
      return part.empty() ? "resource" : "resource of " + part;
    }
    default:
      return PartText(from);
  }
}

Use UseOf(const Workspace& workspace, const Reference& reference) {
  const Model& model = workspace.ModelOf(reference.from.domain);
  ElementId user = reference.from.element;
  while (!IsUser(model[user].kind)) user = model[user].parent;
  const Element& from = model[reference.from.element];
  const Analysis::Document& document = model.DocumentOf(reference.from.element);
  const Analysis::Node& node = document[reference.node];
  const bool is_key =
      reference.kind == ReferenceKind::kListed && from.kind != ElementKind::kComponent;
  const auto file = workspace.FileOf(reference.from.domain, from.source);
  return {&model, user, WhatText(model, reference), workspace.Files()[file].name,
          document.PositionAt(is_key ? node.key_begin : node.begin)};
}

/// Whether a reference that has the name of a thing of the kind means one.
bool Means(const Workspace& workspace, const Reference& reference, const UsedKind& kind) {
  const bool is_resource = reference.kind == ReferenceKind::kResource;
  if (is_resource || kind.element == ElementKind::kNone) {
    return is_resource && kind.element == ElementKind::kNone;
  }
  const auto& [domain, target] = reference.target;
  const ElementKind meant =
      target == kNoElement ? reference.wanted : workspace.ModelOf(domain)[target].kind;
  return meant == kind.element || meant == ElementKind::kNone;
}

/// SERVICE.OPERATION, or kNoElement.
ElementId FindOperation(const Workspace& workspace, const std::string& id) {
  const std::size_t dot = std::min(id.rfind('.'), id.size());
  const ElementId service =
      workspace.ModelOf(Domain::kMetamodel).Find(ElementKind::kService, id.substr(0, dot));
  if (service == kNoElement || dot == id.size()) return kNoElement;
  return workspace.GetDefinitions().Part(service, ElementKind::kOperation, id.substr(dot + 1));
}

/// The names that things of the kind have.
Names KnownNames(const Workspace& workspace, const UsedKind& kind) {
  Names names;
  const Model& model = workspace.ModelOf(kind.domain);
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (kind.element == ElementKind::kNone || model[id].kind != kind.element) continue;
    const bool is_operation = kind.element == ElementKind::kOperation;
    names.push_back(is_operation ? model.FullName(id) : std::string(model[id].name));
  }
  // References to operations have only their last name.
  if (kind.element == ElementKind::kOperation) return names;
  for (const Reference& reference : workspace.GetReferences().All()) {
    if (Means(workspace, reference, kind)) names.emplace_back(reference.name);
  }
  return names;
}

/// The references to the thing, those to one that is not loaded included.
std::vector<const Reference*> ReferencesTo(const Workspace& workspace, const UsedKind& kind,
                                           const std::string& id) {
  const Analysis::References& references = workspace.GetReferences();
  if (kind.element == ElementKind::kOperation) {
    const ElementId operation = FindOperation(workspace, id);
    if (operation == kNoElement) return {};
    return references.To({Domain::kMetamodel, operation});
  }
  std::vector<const Reference*> named;
  for (const Reference& reference : references.All()) {
    if (reference.name == id && Means(workspace, reference, kind)) named.push_back(&reference);
  }
  return named;
}

void WriteJson(Render::JsonWriter& json, const Use& use) {
  const Element& user = (*use.model)[use.user];
  json.StartObject();
  json.Member("domain", Analysis::FormatOf(use.model->GetDomain()).root_key);
  json.Member("kind", Analysis::Word(user.kind));
  json.Member("id", use.model->FullName(use.user));
  json.Member("what", use.what);
  json.Member("file", use.file);
  json.Key("line").Number(use.position.line);
  json.Key("column").Number(use.position.column);
  json.EndObject();
}

void Show(const Invocation& call, const std::vector<Use>& uses) {
  if (call.WantsJson()) return call.ShowJsonArray("uses", uses, WriteJson);
  Render::Table table({"KIND", "ID", "WHAT", "PLACE"});
  for (const Use& use : uses) {
    const Model& model = *use.model;
    table.Add({fmt::format("{}:{}", Analysis::FormatOf(model.GetDomain()).root_key,
                           Analysis::Word(model[use.user].kind)),
               model.FullName(use.user), use.what,
               fmt::format("{}:{}:{}", use.file, use.position.line, use.position.column)});
  }
  call.Show(table);
}

/// What refers to a thing, with the places.
ExitStatus RunUses(Invocation& call) {
  const UsedKind* const kind = FindUsedKind(call.Args().kind);
  if (kind == nullptr) {
    const Names known = UsedKindNames();
    return call.Fail(
        ExitStatus::kNotFound,
        fmt::format("unknown kind '{}'; the kinds are {}{}", call.Args().kind,
                    fmt::join(known, ", "), Analysis::Suggestion(call.Args().kind, known)));
  }
  const Ids& ids = call.Args().ids;
  if (ids.empty()) return call.Fail(ExitStatus::kUsage, "ID is required");
  if (ids.size() > 1 && (kind->element != ElementKind::kOperation || ids.size() > 2)) {
    return call.Fail(ExitStatus::kUsage, fmt::format("unexpected argument '{}'", ids.back()));
  }
  call.Load();
  call.NoteIfEmpty();
  const std::unique_ptr<const Workspace> workspace = ReadSources(call);
  const std::string id = Dotted(ids);
  std::vector<Use> uses;
  for (const Reference* reference : ReferencesTo(*workspace, *kind, id)) {
    uses.push_back(UseOf(*workspace, *reference));
  }
  if (!uses.empty() || call.WantsJson()) Show(call, uses);
  if (!uses.empty()) return ExitStatus::kOk;
  const Names known = KnownNames(*workspace, *kind);
  if (std::find(known.begin(), known.end(), id) == known.end()) {
    return call.Fail(ExitStatus::kNotFound, fmt::format("no {} has the id '{}'{}", kind->name, id,
                                                        Analysis::Suggestion(id, known)));
  }
  return call.Fail(ExitStatus::kOk, fmt::format("nothing refers to the {} '{}'", kind->name, id));
}

/// For the completion of ids. Schemes cannot be listed.
std::optional<IdCount> IdsOfUses(const Kind& kind) {
  if (FindUsedKind(kind.name) == nullptr) return std::nullopt;
  return IdCount{kind.id_kinds.size(), kind.id_kinds.size()};
}

}  // namespace

Command UsesCommand() {
  Command command;
  command.name = "uses";
  command.summary = "Show what refers to a thing, in all domains";
  command.ids_of = IdsOfUses;
  command.details =
      "Shows the operations and structures whose types, errors and resources name the thing, the "
      "commands that call it, fill it or show it, and what Authentication lists for it, each with "
      "its place in a file. The files are read for that, whatever a session has loaded of them. "
      "Things that are not loaded but referred to are found, too.\n\n"
      "An operation is SERVICE.OPERATION or two words, a scheme the name that lists have for it.\n";
  command.operands = {{"KIND", Word::kChoice, true,
                       fmt::format("What the thing is: {}", fmt::join(UsedKindNames(), ", ")),
                       &Arguments::kind, UsedKindNames()},
                      {"ID", Word::kId, false, "Its id", &Arguments::ids}};
  command.outputs = TableOutputs();
  command.example =
      "uses structure com.orvane.zelk.metadata.metamodel.field_info --source metadata";
  command.use = HostUse::kFiles;
  command.run = RunUses;
  return command;
}

}  // namespace Zelk::Tool
