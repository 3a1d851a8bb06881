#include "docs/contents.h"

#include <algorithm>
#include <initializer_list>
#include <map>
#include <string_view>
#include <vector>

#include "docs/encoding.h"
#include "docs/owner.h"
#include "docs/shown.h"

namespace Zelk::Tool::Docs {
namespace {

using Analysis::Domain;
using Analysis::ElementId;
using Analysis::ElementKind;
using Analysis::kNoElement;
using Analysis::Model;

/// Lines may end after the dots, slashes and underscores of names.
std::string Name(const std::string& kind, std::string_view name) {
  std::string html = kind + " <bdi><code>";
  for (const char character : Escaped(ShownName(name))) {
    html += character;
    if (character == '.' || character == '/' || character == '_') html += "<wbr>";
  }
  return html + "</code></bdi>";
}

std::string Section(const char* title, const std::string& items) {
  return items.empty() ? "" : std::string("<h2>") + title + "</h2>\n<ul>\n" + items + "</ul>\n";
}

/// Elements that the library answers as nested lists. Elements of one kind are not in each other,
/// so the lists are as deep as there are kinds.
class Lists {
 public:
  Lists(const Model& model, std::initializer_list<ElementKind> kinds)
      : model_(model), kinds_(kinds) {
    for (ElementId id = 0; id < model.Size(); ++id) {
      // The root namespace has no name.
      if (IsListed(id) && !model.FullName(id).empty()) inside_[ListedOwner(id)].push_back(id);
    }
  }

  /// In the order of the files.
  std::string Items() {
    Open(kNoElement);
    std::string html;
    while (!open_.empty()) {
      const ElementId id = open_.back();
      open_.pop_back();
      if (id == kNoElement) {
        html += "</ul></li>\n";
        continue;
      }
      html += "<li>" + Name(Analysis::Word(model_[id].kind), NameInOwner(id));
      html += inside_.count(id) == 0 ? "</li>\n" : "\n<ul>\n";
      Open(id);
    }
    return html;
  }

 private:
  bool IsListed(ElementId id) const {
    return model_[id].fate == Analysis::Fate::kFound &&
           std::find(kinds_.begin(), kinds_.end(), model_[id].kind) != kinds_.end();
  }

  ElementId ListedOwner(ElementId id) const {
    const ElementId owner = ShownOwner(model_, id);
    const bool is_outer = owner != kNoElement && IsListed(owner) &&
                          model_[owner].kind != model_[id].kind && !model_.FullName(owner).empty();
    return is_outer ? owner : kNoElement;
  }

  /// The full name without that of what it is listed in.
  std::string NameInOwner(ElementId id) const {
    std::string name = model_.FullName(id);
    const ElementId owner = ListedOwner(id);
    if (owner == kNoElement) return name;
    const std::string around = model_.FullName(owner) + ".";
    const bool is_inside =
        name.size() > around.size() && name.compare(0, around.size(), around) == 0;
    if (is_inside) name.erase(0, around.size());
    return name;
  }

  /// What is in the element comes next, and then its end.
  void Open(ElementId id) {
    const auto inside = inside_.find(id);
    if (inside == inside_.end()) return;
    if (id != kNoElement) open_.push_back(kNoElement);
    open_.insert(open_.end(), inside->second.rbegin(), inside->second.rend());
  }

  const Model& model_;
  const std::vector<ElementKind> kinds_;
  std::map<ElementId, std::vector<ElementId>> inside_;
  /// What is still to be written, the last one first; kNoElement for the end of an element.
  std::vector<ElementId> open_;
};

std::string Problems(const std::vector<LoadReport>& reports) {
  std::string items;
  for (const LoadReport& report : reports) {
    items += "<li>" + Name("file", report.file) + "\n<ul>\n";
    for (const Problem& problem : report.problems) {
      items += "<li>" + Escaped(ShownName(ProblemLine(report.file, problem), 1000)) + "</li>\n";
    }
    items += "</ul></li>\n";
  }
  return items;
}

}  // namespace

std::string ContentsHtml(const Subject& subject) {
  const auto items = [&](Domain domain, std::initializer_list<ElementKind> kinds) {
    return Lists(subject.workspace.ModelOf(domain), kinds).Items();
  };
  std::string files;
  for (const auto& file : subject.workspace.Files()) {
    files += "<li>" + Name("file", file.name) + "</li>\n";
  }
  return Section("Files that do not load", Problems(subject.failed)) +
         Section("Files that load in part", Problems(subject.partial)) +
         Section("Interfaces",
                 items(Domain::kMetamodel,
                       {ElementKind::kComponent, ElementKind::kPackage, ElementKind::kService})) +
         Section("Schemes",
                 items(Domain::kAuthentication, {ElementKind::kComponent, ElementKind::kScheme})) +
         Section("Commands",
                 items(Domain::kCli, {ElementKind::kNamespace, ElementKind::kCommand})) +
         Section("Sources", files);
}

}  // namespace Zelk::Tool::Docs
