#include "cli/source_data.h"

#include <utility>

namespace Zelk::Provider::Metadata::Cli {

void SourceData::RegisterNsNode(const NamespacePtr& node) {
  // A loop and not a recursion from parent to parent: a path may have more parts than fit on a
  // stack. Intended(cli-root-in-itself): the loop ends at the root, whose parent is the root
  // itself.
  for (NamespacePtr next = node; next; next = RegisterWithParent(next->identity)) {
    namespaces[next->identity] = next;
  }
}

NamespacePtr SourceData::RegisterWithParent(const NamespaceIdentityPtr& identity) {
  auto parent = Str2NsId(identity->path);
  const auto found = namespaces.find(parent);
  if (found != namespaces.end()) {
    found->second->children.push_back(identity);
    return nullptr;
  }
  std::string description = parent->name.empty() ? "Root namespace" : parent->name + " namespace";
  return std::make_shared<Bindings::Cli::NamespaceSvc::Info>(
      std::move(parent), std::move(description), std::list<NamespaceIdentityPtr>{identity});
}

NamespaceIdentityPtr SourceData::Str2NsId(const std::string& path) {
  const auto dot = path.rfind('.');
  if (dot == std::string::npos) {
    return std::make_shared<Bindings::Cli::NamespaceSvc::Identity>(std::string(), path);
  }
  return std::make_shared<Bindings::Cli::NamespaceSvc::Identity>(path.substr(0, dot),
                                                                 path.substr(dot + 1));
}

}  // namespace Zelk::Provider::Metadata::Cli
