#include "docs/contents.h"

#include <initializer_list>

#include "docs/encoding.h"

namespace Zelk::Tool::Docs {
namespace {

using Analysis::Domain;
using Analysis::ElementId;
using Analysis::ElementKind;
using Analysis::Model;

void AddItem(std::string& html, const std::string& kind, std::string_view name) {
  html += "<li>" + kind + " <bdi><code>" + Escaped(name) + "</code></bdi></li>\n";
}

/// The elements of these kinds that the library answers, in the order of the files.
void AddList(std::string& html, const char* title, const Model& model,
             std::initializer_list<ElementKind> kinds) {
  std::string items;
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (model[id].fate != Analysis::Fate::kFound || model[id].is_implied) continue;
    for (const ElementKind kind : kinds) {
      if (model[id].kind == kind) AddItem(items, Analysis::Word(kind), model.FullName(id));
    }
  }
  if (items.empty()) return;
  html += std::string("<h2>") + title + "</h2>\n<ul>\n" + items + "</ul>\n";
}

}  // namespace

std::string ContentsHtml(const Analysis::Workspace& workspace) {
  std::string html;
  AddList(html, "Interfaces", workspace.ModelOf(Domain::kMetamodel),
          {ElementKind::kComponent, ElementKind::kPackage, ElementKind::kService});
  AddList(html, "Schemes", workspace.ModelOf(Domain::kAuthentication), {ElementKind::kScheme});
  AddList(html, "Commands", workspace.ModelOf(Domain::kCli), {ElementKind::kCommand});
  html += "<h2>Sources</h2>\n<ul>\n";
  for (const auto& file : workspace.Files()) AddItem(html, "file", file.name);
  return html + "</ul>\n";
}

}  // namespace Zelk::Tool::Docs
