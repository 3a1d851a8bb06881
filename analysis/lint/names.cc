#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "analysis/example.h"
#include "analysis/fates.h"
#include "analysis/lint/finding.h"
#include "analysis/text.h"

namespace Zelk::Analysis::Lint {
namespace {

enum class Convention : std::uint8_t { kAny, kLowerSnake, kDottedLowerSnake, kUpperSnake };

Convention ConventionOf(ElementKind kind) {
  switch (kind) {
    case ElementKind::kComponent:
    case ElementKind::kPackage:
    case ElementKind::kService:
    case ElementKind::kStructure:
    case ElementKind::kEnumeration:
      return Convention::kDottedLowerSnake;
    case ElementKind::kOperation:
    case ElementKind::kParameter:
    case ElementKind::kField:
      return Convention::kLowerSnake;
    case ElementKind::kValue:
      return Convention::kUpperSnake;
    default:
      return Convention::kAny;
  }
}

const char* TextOf(Convention convention) {
  switch (convention) {
    case Convention::kLowerSnake:
      return "lower_snake_case";
    case Convention::kDottedLowerSnake:
      return "lower_snake_case between full stops";
    default:
      return "UPPER_SNAKE_CASE";
  }
}

bool Follows(std::string_view name, Convention convention) {
  const char first = convention == Convention::kUpperSnake ? 'A' : 'a';
  const auto fits = [&](char byte) {
    return (byte >= first && byte <= first + 25) || (byte >= '0' && byte <= '9') || byte == '_' ||
           (byte == '.' && convention == Convention::kDottedLowerSnake);
  };
  return convention == Convention::kAny || std::all_of(name.begin(), name.end(), fits);
}

void NamingConvention(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    const Convention convention = ConventionOf(element.kind);
    if (!IsKept(element) || Follows(element.name, convention)) continue;
    findings.Add(PlaceOf(model, id),
                 {"the name of " + Called(model, id) + " is not in " + TextOf(convention)});
  }
}

bool IsIn(std::string_view name, std::string_view container) {
  return name.size() > container.size() && name.substr(0, container.size()) == container &&
         name[container.size()] == '.';
}

void UnqualifiedName(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    const bool has_full_name =
        element.kind == ElementKind::kPackage || element.kind == ElementKind::kService ||
        element.kind == ElementKind::kStructure || element.kind == ElementKind::kEnumeration;
    if (!has_full_name || !IsKept(element)) continue;
    const Element& owner = model[element.owner];
    const bool is_whole = element.kind == ElementKind::kPackage && element.name == owner.name;
    if (is_whole || IsIn(element.name, owner.name)) continue;
    findings.Add(PlaceOf(model, id), {"the name of " + Called(model, id) +
                                      " does not begin with '" + Shortened(owner.name) + ".'"});
  }
}

/// The name as people may remember it.
std::string Remembered(std::string_view name) {
  std::string text = LowerCase(std::string(name));
  text.erase(std::remove_if(text.begin(), text.end(),
                            [](char byte) { return byte == '-' || byte == '_' || byte == '.'; }),
             text.end());
  return text;
}

/// One name of a kind in what it is looked up in: everything, a path or an owner.
struct NamedElement {
  ElementId id;
  /// kNoElement unless names are only told apart within their owners, as those of parts.
  ElementId owner;
  /// Of the name as people may remember it. Files may have very many names, so it is not kept.
  std::size_t hash;
};

auto Scope(const Model& model, const NamedElement& named) {
  const Element& element = model[named.id];
  return std::tuple(element.kind, named.owner, element.path, named.hash);
}

/// In one scope, those that are remembered alike are together, in the order of their names.
bool IsBefore(const Model& model, const NamedElement& left, const NamedElement& right) {
  const auto left_scope = Scope(model, left);
  const auto right_scope = Scope(model, right);
  if (left_scope != right_scope) return left_scope < right_scope;
  const std::string_view left_name = model[left.id].name;
  const std::string_view right_name = model[right.id].name;
  if (left_name == right_name) return left.id < right.id;
  const int order = Remembered(left_name).compare(Remembered(right_name));
  return order != 0 ? order < 0 : left_name < right_name;
}

bool AreConfused(const Model& model, const NamedElement& left, const NamedElement& right) {
  const std::string_view left_name = model[left.id].name;
  const std::string_view right_name = model[right.id].name;
  return Scope(model, left) == Scope(model, right) && left_name != right_name &&
         Remembered(left_name) == Remembered(right_name);
}

std::vector<NamedElement> NamesOf(const Model& model) {
  std::vector<NamedElement> names;
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    if (!IsKept(element) || element.is_implied || element.kind == ElementKind::kEntry) continue;
    names.push_back({id, HasLookup(element.kind) ? kNoElement : element.owner,
                     std::hash<std::string>()(Remembered(element.name))});
  }
  std::sort(names.begin(), names.end(), [&](const NamedElement& left, const NamedElement& right) {
    return IsBefore(model, left, right);
  });
  return names;
}

void NamesDifferByCase(const Workspace& workspace, Findings& findings) {
  for (const Domain domain : kDomains) {
    const Model& model = workspace.ModelOf(domain);
    const std::vector<NamedElement> names = NamesOf(model);
    for (std::size_t i = 1; i < names.size(); ++i) {
      if (!AreConfused(model, names[i - 1], names[i])) continue;
      const std::string before(model[names[i - 1].id].name);
      findings.Add(
          PlaceOf(model, names[i].id),
          {Called(model, names[i].id) + " has nearly the same name as '" + before + "'", before});
    }
  }
}

constexpr Rule kRules[] = {
    {"naming-convention",
     Group::kNames,
     Severity::kNote,
     DecidedBy::kConvention,
     kMetamodelOnly,
     0,
     "A name that does not follow the convention",
     "Names of components, packages, services, structures and enumerations are lower_snake_case "
     "between full stops, those of operations, parameters and fields lower_snake_case, and those "
     "of values of enumerations UPPER_SNAKE_CASE.",
     "Names that were taken over from a program.",
     "Rename it, if no client knows the name yet.",
     {{ZELK_EXAMPLE_SERVICE(
          "", "", ZELK_EXAMPLE_OPERATION("startNow", "", ZELK_EXAMPLE_BUILTIN("VOID"), ""))},
      "metamodel/component:acme/package:acme.power/service:acme.power.switch/operation:startNow"},
     NamingConvention},
    {"unqualified-name",
     Group::kNames,
     Severity::kWarning,
     DecidedBy::kConvention,
     kMetamodelOnly,
     0,
     "A name that does not begin with that of its container",
     "The name of a package begins with the name of its component, that of a service with its "
     "package, and that of a structure or enumeration with what it is in, each with a full stop "
     "after it. Authentication finds the package of a service only by its name.",
     "A definition that was moved, or a simple name in place of the full one.",
     "Write the full name.",
     {{R"({"metamodel": {"component": {"name": "acme", "documentation": "Controls machines.",
  "metadata": {}, "packages": [
  {"name": "acme.power", "documentation": "Power.", "metadata": {}, "enumerations": [],
  "structures": [], "services": [
  {"name": "acme.switch", "documentation": "Switches.", "metadata": {}, "enumerations": [],
  "structures": [], "constants": [], "operations": [)" ZELK_EXAMPLE_START "]}]}]}}}"},
      "metamodel/component:acme/package:acme.power/service:acme.switch"},
     UnqualifiedName},
    {"names-differ-by-case",
     Group::kNames,
     Severity::kWarning,
     DecidedBy::kSources,
     kAllDomains,
     0,
     "Two names that people confuse",
     "Two names of one kind differ only by upper and lower case, or by '-', '_' and '.'.",
     "A typing error in one of two files.",
     "Rename one of them.",
     {{ZELK_EXAMPLE_CLI(
          ZELK_EXAMPLE_COMMAND("", "power-on", "") "," ZELK_EXAMPLE_COMMAND("", "power_on", ""))},
      "cli/command:power_on"},
     NamesDifferByCase},
};

}  // namespace

const Rows<Rule> kNamesRules = kRules;

}  // namespace Zelk::Analysis::Lint
