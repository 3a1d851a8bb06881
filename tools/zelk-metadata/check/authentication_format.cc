#include <map>
#include <set>
#include <string>

#include <com/orvane/zelk/metadata/authentication/enumerations.h>

#include "check/formats.h"

namespace Zelk::Tool {
namespace {

using SchemeType =
    ::Com::Orvane::Zelk::Metadata::Authentication::AuthenticationInfoEnumerations::SchemeType;

constexpr char kSessionAware[] = "SESSIONAWARE";
constexpr char kInvalidOperation[] = "zelk.metadata.authentication.json.invalid.operation.id";
constexpr char kInvalidService[] = "zelk.metadata.authentication.json.invalid.service.id";

constexpr Key kScheme[] = {
    {"authenticationScheme", Text},
    {"type", Enumeration<SchemeType, kSessionAware>},
};

constexpr Key kSession[] = {{"sessionManager", Text}};

/// Calls `read` with every member of the object; false as soon as it is.
template <typename Read>
bool EachMember(const JsonTree& tree, JsonTree::Id object, const Read& read) {
  for (auto id = tree[object].first_child; id != JsonTree::kNone; id = tree[id].next) {
    if (!read(id)) return false;
  }
  return true;
}

/// What stands before the last full stop; empty unless something stands on both sides of it.
std::string OwnerOf(const std::string& id) {
  const std::size_t dot = id.rfind('.');
  return dot == std::string::npos || dot + 1 == id.size() ? std::string() : id.substr(0, dot);
}

/// One component. Its lists refer to its schemes, and its services take the operations that are
/// listed for them, so it is more than its keys.
class ComponentWalk {
 public:
  explicit ComponentWalk(Walk& walk) : walk_(walk), tree_(walk.tree) {}

  bool Read(JsonTree::Id component) {
    constexpr Key kName[] = {{"name", Text}};
    if (!ReadKeys(walk_, component, kName)) return false;
    if (!ReadPart(component, "schemes", &ComponentWalk::ReadScheme)) return false;
    if (!ReadPart(component, "operations", &ComponentWalk::ReadOperation)) return false;
    if (!ReadPart(component, "services", &ComponentWalk::ReadService)) return false;
    CheckServicesOfOperations();
    return ReadPart(component, "packages", &ComponentWalk::ReadSchemeList);
  }

 private:
  using MemberReader = bool (ComponentWalk::*)(JsonTree::Id member);

  /// An optional object, all members of which are read alike.
  bool ReadPart(JsonTree::Id component, const char* name, MemberReader read) {
    const JsonTree::Id part = walk_.Require(component, name);
    if (part == JsonTree::kNone) {
      walk_.messages.back().severity = Severity::kNote;
      return true;
    }
    if (!walk_.IsOf(part, JsonKind::kObject, name)) return false;
    return EachMember(tree_, part, [&](JsonTree::Id member) { return (this->*read)(member); });
  }

  bool ReadScheme(JsonTree::Id scheme) {
    if (!ReadKeys(walk_, scheme, kScheme)) return false;
    const std::string& type = tree_[tree_.Find(scheme, "type")].text;
    const bool has_session =
        Upper(type) == kSessionAware || EnumeratorOf<SchemeType>(type) == SchemeType::SESSION_AWARE;
    if (has_session && !ReadKeys(walk_, scheme, kSession)) return false;
    schemes_.insert(tree_[scheme].name);
    return true;
  }

  /// Whatever the level, messages about its lists say "packages".
  bool ReadSchemeList(JsonTree::Id list) {
    constexpr char kPackages[] = "packages";
    if (!walk_.IsOf(list, JsonKind::kArray, kPackages)) return false;
    return EachMember(tree_, list, [&](JsonTree::Id name) {
      if (!walk_.IsOf(name, JsonKind::kString, kPackages)) return false;
      return schemes_.count(tree_[name].text) != 0 ||
             walk_.Fail(name, "zelk.metadata.authentication.json.unknown.schema.name", "id");
    });
  }

  bool ReadOperation(JsonTree::Id operation) {
    if (!ReadSchemeList(operation)) return false;
    const std::string& id = tree_[operation].name;
    const std::string service = OwnerOf(id);
    if (service.empty()) return walk_.FailName(operation, kInvalidOperation, id);
    operations_.emplace(service, operation);
    return true;
  }

  bool ReadService(JsonTree::Id service) {
    if (!ReadSchemeList(service)) return false;
    const std::string& id = tree_[service].name;
    if (OwnerOf(id).empty()) return walk_.FailName(service, kInvalidService, id);
    operations_.erase(id);
    return true;
  }

  /// The services that only operations name. The first bad one ends them, but not the component.
  void CheckServicesOfOperations() {
    for (const auto& [service, operation] : operations_) {
      if (!OwnerOf(service).empty()) continue;
      walk_.FailName(operation, kInvalidService, service);
      walk_.WentOn();
      return;
    }
  }

  Walk& walk_;
  const JsonTree& tree_;
  std::set<std::string> schemes_;
  /// The first operation of each service that no service has taken.
  std::map<std::string, JsonTree::Id> operations_;
};

bool ReadComponent(Walk& walk, JsonTree::Id value, const char* name) {
  return walk.IsOf(value, JsonKind::kObject, name) && ComponentWalk(walk).Read(value);
}

constexpr Key kProduct[] = {{"product", ReadComponent, true}};
constexpr Key kComponent[] = {{"component", ReadComponent, true}};

/// An absent part is a good one, but only a product that is there makes up for a broken component.
bool Authentication(Walk& walk, JsonTree::Id value, const char* name) {
  if (!walk.IsOf(value, JsonKind::kObject, name)) return false;
  const bool product = ReadKeys(walk, value, kProduct);
  const bool component = ReadKeys(walk, value, kComponent);
  return component || (product && walk.tree.Find(value, "product") != JsonTree::kNone);
}

constexpr Key kDocument[] = {{"authentication", Authentication}};

}  // namespace

bool WalkAuthentication(Walk& walk) {
  return ReadKeys(walk, JsonTree::kRoot, kDocument);
}

}  // namespace Zelk::Tool
