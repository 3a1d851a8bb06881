#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/cli/services.h>

#include "domains/cli_nodes.h"
#include "domains/cli_record.h"
#include "domains/source_domain.h"
#include "domains/table.h"

namespace Zelk::Tool {
namespace {

namespace Provider = ::Zelk::Provider::Metadata::Cli;
using Container = std::shared_ptr<Provider::MetadataContainer>;
using CommandSvc = Provider::CommandSvc::AsyncServiceImpl;
using NamespaceSvc = Provider::NamespaceSvc::AsyncServiceImpl;
using SourceSvc = Provider::SourceSvc::AsyncServiceImpl;

/// The identity that the user means by one dotted name, or by path and name. A name that contains a
/// full stop can only be given the second way.
template <typename Identity>
std::shared_ptr<const Identity> ToIdentity(const Ids& ids) {
  if (ids.size() == 2) return std::make_shared<const Identity>(ids[0], ids[1]);
  const std::string& name = ids.front();
  const auto dot = name.rfind('.');
  if (dot == std::string::npos) return std::make_shared<const Identity>("", name);
  return std::make_shared<const Identity>(name.substr(0, dot), name.substr(dot + 1));
}

template <typename Identities>
Outcome<Names> ToNames(const Outcome<Identities>& outcome) {
  Outcome<Names> names{std::nullopt, outcome.error};
  if (!outcome.answer) return names;
  names.answer.emplace();
  for (const auto& identity : *outcome.answer) names.answer->push_back(FullName(*identity));
  return names;
}

/// Of an operation that answers the record of an identity.
template <typename Identity, typename Service, typename... Parameters>
Query<Record> NodeQuery(Service& service, void (Service::*operation)(Parameters...)) {
  return {{1, 2}, [&service, operation](const Ids& ids) -> Outcome<Record> {
            auto outcome = Call(service, operation, ToIdentity<Identity>(ids));
            if (!outcome.answer) return {std::nullopt, std::move(outcome.error)};
            const auto info = *outcome.answer;
            return {Record{[info](Page& page) { WritePage(page, *info); },
                           [info](JsonWriter& json) { WriteJson(json, *info); }},
                    std::nullopt};
          }};
}

Query<Names> NamespaceList(NamespaceSvc& service) {
  return {{0, 0},
          [&service](const Ids& /*ids*/) { return ToNames(Call(service, &NamespaceSvc::List)); }};
}

/// Of all commands, or of those directly in one namespace.
Query<Names> CommandList(CommandSvc& service) {
  return {{0, 1}, [&service](const Ids& ids) {
            boost::optional<std::string> path;
            if (!ids.empty()) path = ids.front() == "." ? std::string() : ids.front();
            return ToNames(Call(service, &CommandSvc::List, path));
          }};
}

/// The services of the domain over one container.
class Cli final : public SourceDomain<SourceSvc, Bindings::Cli::SourceSvc::CreateSpec> {
 public:
  Cli() : Cli(Provider::MetadataContainer::GetInstance()) {}

  Outline MakeOutline() override;
  std::vector<Section> About(const std::vector<Subject>& levels) override;
  std::optional<Outcome<UsagePage>> Usage(const Names& words) override;
  Names UsageNames() override;

 private:
  /// Each with its record, once: that of the first source that has it.
  CliNodes Nodes();

  explicit Cli(const Container& container);

  NamespaceSvc namespace_;
  CommandSvc command_;
};

Cli::Cli(const Container& container)
    : SourceDomain(container), namespace_(container), command_(container) {
  kinds_ = {
      {"namespace",
       {"namespace", "name"},
       NamespaceList(namespace_),
       NodeQuery<Bindings::Cli::NamespaceSvc::Identity>(namespace_, &NamespaceSvc::Get),
       FingerprintQuery(namespace_, &NamespaceSvc::Fingerprint),
       kFirstSource,
       true,
       {"namespace"}},
      {"command",
       {"command", "name"},
       CommandList(command_),
       NodeQuery<Bindings::Cli::CommandSvc::Identity>(command_, &CommandSvc::Get),
       FingerprintQuery(command_, &CommandSvc::Fingerprint),
       kFirstSource,
       true,
       {"namespace"},
       {"option"}},
      SourceKind("cli", source_),
  };
}

CliNodes Cli::Nodes() {
  CliNodes nodes;
  const auto namespaces = Call(namespace_, &NamespaceSvc::List);
  for (const auto& identity : *namespaces.answer) {
    auto info = Call(namespace_, &NamespaceSvc::Get, identity);
    if (info.answer) nodes.namespaces.emplace(*identity, std::move(*info.answer));
  }
  const auto commands = Call(command_, &CommandSvc::List, boost::optional<std::string>());
  for (const auto& identity : *commands.answer) {
    auto info = Call(command_, &CommandSvc::Get, identity);
    if (info.answer) nodes.commands.emplace(*identity, std::move(*info.answer));
  }
  return nodes;
}

Outline Cli::MakeOutline() {
  return OutlineOf(Nodes());
}

std::vector<Section> Cli::About(const std::vector<Subject>& levels) {
  auto calling = CommandsCalling(Nodes(), levels.back());
  if (calling.empty()) return {};
  return {[calling = std::move(calling)](Page& page) {
    page.Heading("Commands that call it:");
    page.Pairs(1, calling);
  }};
}

std::optional<Outcome<UsagePage>> Cli::Usage(const Names& words) {
  return UsageOf(Nodes(), words);
}

Names Cli::UsageNames() {
  Names names = *NamespaceList(namespace_).call({}).answer;
  const Names commands = *CommandList(command_).call({}).answer;
  names.insert(names.end(), commands.begin(), commands.end());
  return names;
}

}  // namespace

DomainRow CliDomain() {
  return {"cli", "cli", "zelk.metadata.cli.parse.error", "zelk.metada.cli.source.exists",
          []() -> std::unique_ptr<Domain> { return std::make_unique<Cli>(); }};
}

}  // namespace Zelk::Tool
