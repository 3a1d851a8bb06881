#include "lookups.h"

#include <memory>
#include <set>
#include <stdexcept>
#include <utility>

#include <boost/optional.hpp>

namespace Zelk::Benchmarks {
namespace {

using MetamodelContainer = MetamodelDomain::Container;
using AuthenticationContainer = AuthenticationDomain::Container;
using CliContainer = CliDomain::Container;

template <typename Names>
std::vector<Key> KeysOf(const Names& names) {
  std::vector<Key> keys;
  for (const std::string& name : names) keys.push_back({name, ""});
  return keys;
}

template <typename Identity>
std::vector<Key> KeysOf(const std::list<std::shared_ptr<const Identity>>& identities) {
  std::vector<Key> keys;
  for (const auto& identity : identities) {
    // Every source has the root.
    if (!identity->name.empty()) keys.push_back({identity->path, identity->name});
  }
  return keys;
}

/// The keys of all operations. Read from the packages: asking for each service's would take as long
/// as the lookups that they are for.
template <typename Container>
std::vector<Key> OperationKeys(const Container& container) {
  std::vector<Key> keys;
  for (const std::string& name : container.ListPackages()) {
    const auto package = container.PackageInfo(name);
    for (const auto& service : package->services) {
      for (const auto& operation : service.second->operations) {
        keys.push_back({service.first, operation.first});
      }
    }
  }
  return keys;
}

/// Draws keys for an aim from those that there are.
class KeyPicker {
 public:
  KeyPicker(Aim aim, std::size_t count, RandomText& random)
      : aim_(aim), count_(count), random_(random) {}

  /// `keys_of` answers all keys of a container.
  template <typename Container, typename KeysOfContainer>
  std::vector<Key> Pick(const Container& all, const Container& last,
                        const KeysOfContainer& keys_of) {
    const std::vector<Key> keys = keys_of(aim_ == Aim::kLastHits ? last : all);
    std::vector<Key> picked;
    while (picked.size() < count_) {
      picked.push_back(random_.OneOf(keys));
      if (aim_ == Aim::kMisses) Spoil(picked.back(), picked.size() % 2 == 0);
    }
    return picked;
  }

 private:
  static void Spoil(Key& key, bool in_known_component) {
    if (in_known_component) {
      (key.inner.empty() ? key.id : key.inner) += 'x';
      return;
    }
    // Components are called com.example.c1 and so on; the nodes of CLI begin with c1.
    const std::string known = "com.example.c";
    std::string& text = key.id.empty() ? key.inner : key.id;
    text[text.compare(0, known.size(), known) == 0 ? known.size() - 1 : 0] = 'x';
  }

  Aim aim_;
  std::size_t count_;
  RandomText& random_;
};

template <typename Ask>
Lookup MakeLookup(std::string name, bool has_goal, std::vector<Key> keys, Ask ask) {
  using Argument = decltype(ask.Argument(keys.front()));
  std::vector<Argument> arguments;
  for (const Key& key : keys) arguments.push_back(ask.Argument(key));
  std::size_t next = 0;
  return {std::move(name), has_goal, std::move(keys),
          [arguments = std::move(arguments), ask, next](std::size_t times) mutable {
            std::size_t answers = 0;
            for (; times > 0; --times) {
              if (ask(arguments[next])) ++answers;
              if (++next == arguments.size()) next = 0;
            }
            return answers;
          }};
}

/// Asks for an id, or for an id and one within it.
template <typename Call>
struct ByKey {
  static Key Argument(const Key& key) { return key; }

  bool operator()(const Key& key) const { return static_cast<bool>(call(key)); }

  Call call;
};

template <typename Call>
ByKey(Call) -> ByKey<Call>;

template <typename Identity, typename Call>
struct ByIdentity {
  static std::shared_ptr<const Identity> Argument(const Key& key) {
    return std::make_shared<const Identity>(key.id, key.inner);
  }

  bool operator()(const std::shared_ptr<const Identity>& identity) const {
    return call(identity) != nullptr;
  }

  Call call;
};

template <typename Identity, typename Call>
ByIdentity<Identity, Call> MakeByIdentity(Call call) {
  return {call};
}

/// What Metamodel and Authentication have in common.
template <typename Container>
std::vector<Lookup> TreeLookups(const std::string& domain,
                                const std::shared_ptr<Container>& container,
                                const std::shared_ptr<Container>& last, KeyPicker& picker) {
  const auto pick = [&](auto list) {
    return picker.Pick(*container, *last, [&](const Container& one) { return KeysOf(list(one)); });
  };
  std::vector<Lookup> lookups;
  lookups.push_back(MakeLookup(
      domain + ", component", false, pick([](const auto& one) { return one.ListComponents(); }),
      ByKey{[container](const Key& key) { return container->ComponentInfo(key.id); }}));
  lookups.push_back(MakeLookup(
      domain + ", package", true, pick([](const auto& one) { return one.ListPackages(); }),
      ByKey{[container](const Key& key) { return container->PackageInfo(key.id); }}));
  lookups.push_back(MakeLookup(
      domain + ", service", true, pick([](const auto& one) { return one.ListServices(); }),
      ByKey{[container](const Key& key) { return container->ServiceInfo(key.id); }}));
  lookups.push_back(MakeLookup(
      domain + ", operation", false, picker.Pick(*container, *last, OperationKeys<Container>),
      ByKey{[container](const Key& key) { return container->OperationInfo(key.id, key.inner); }}));
  return lookups;
}

template <typename Container>
std::vector<Listing> TreeListings(const std::string& domain,
                                  const std::shared_ptr<Container>& container) {
  return {{domain + ", components", [=] { return container->ListComponents().size(); }},
          {domain + ", packages", [=] { return container->ListPackages().size(); }},
          {domain + ", services", [=] { return container->ListServices().size(); }}};
}

}  // namespace

const char* NameOf(Aim aim) {
  switch (aim) {
    case Aim::kUniformHits:
      return "hits";
    case Aim::kLastHits:
      return "last hits";
    case Aim::kMisses:
      break;
  }
  return "misses";
}

template <>
std::vector<Lookup> Lookups(const std::shared_ptr<MetamodelContainer>& container,
                            const std::shared_ptr<MetamodelContainer>& last, Aim aim,
                            std::size_t count, RandomText& random) {
  KeyPicker picker(aim, count, random);
  const auto pick = [&](auto list) {
    return picker.Pick(*container, *last,
                       [&](const MetamodelContainer& one) { return KeysOf(list(one)); });
  };
  std::vector<Lookup> lookups = TreeLookups("Metamodel", container, last, picker);
  lookups.push_back(MakeLookup(
      "Metamodel, structure", true, pick([](const auto& one) { return one.ListStructures(); }),
      ByKey{[container](const Key& key) { return container->StructureInfo(key.id); }}));
  lookups.push_back(MakeLookup(
      "Metamodel, enumeration", true, pick([](const auto& one) { return one.ListEnumerations(); }),
      ByKey{[container](const Key& key) { return container->EnumerationInfo(key.id); }}));
  lookups.push_back(MakeLookup(
      "Metamodel, models", false, pick([](const auto& one) { return one.ListResources(); }),
      ByKey{[container](const Key& key) { return container->ListModels(key.id); }}));
  return lookups;
}

template <>
std::vector<Lookup> Lookups(const std::shared_ptr<AuthenticationContainer>& container,
                            const std::shared_ptr<AuthenticationContainer>& last, Aim aim,
                            std::size_t count, RandomText& random) {
  KeyPicker picker(aim, count, random);
  return TreeLookups("Authentication", container, last, picker);
}

template <>
std::vector<Lookup> Lookups(const std::shared_ptr<CliContainer>& container,
                            const std::shared_ptr<CliContainer>& last, Aim aim, std::size_t count,
                            RandomText& random) {
  namespace Bindings = ::Com::Orvane::Zelk::Metadata;
  KeyPicker picker(aim, count, random);
  std::vector<Lookup> lookups;
  lookups.push_back(MakeLookup(
      "CLI, namespace", true,
      picker.Pick(*container, *last,
                  [](const CliContainer& one) { return KeysOf(one.ListNamespaces()); }),
      MakeByIdentity<Bindings::Cli::NamespaceSvc::Identity>(
          [container](const auto& identity) { return container->NamespaceInfo(identity); })));
  lookups.push_back(MakeLookup(
      "CLI, command", true,
      picker.Pick(*container, *last,
                  [](const CliContainer& one) { return KeysOf(one.ListCommands(boost::none)); }),
      MakeByIdentity<Bindings::Cli::CommandSvc::Identity>(
          [container](const auto& identity) { return container->CommandInfo(identity); })));
  return lookups;
}

template <>
std::vector<Listing> Listings(const std::shared_ptr<MetamodelContainer>& container) {
  std::vector<Listing> listings = TreeListings("Metamodel", container);
  listings.push_back({"Metamodel, structures", [=] { return container->ListStructures().size(); }});
  listings.push_back(
      {"Metamodel, enumerations", [=] { return container->ListEnumerations().size(); }});
  listings.push_back({"Metamodel, resources", [=] { return container->ListResources().size(); }});
  return listings;
}

template <>
std::vector<Listing> Listings(const std::shared_ptr<AuthenticationContainer>& container) {
  return TreeListings("Authentication", container);
}

template <>
std::vector<Listing> Listings(const std::shared_ptr<CliContainer>& container) {
  return {{"CLI, namespaces", [=] { return container->ListNamespaces().size(); }},
          {"CLI, commands", [=] { return container->ListCommands(boost::none).size(); }}};
}

}  // namespace Zelk::Benchmarks
