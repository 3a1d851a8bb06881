#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/cli/services.h>

#include "domains/cli_nodes.h"
#include "domains/cli_record.h"
#include "domains/source_domain.h"
#include "domains/table.h"

namespace Zelk::Tool {
namespace {

using Render::Page;

namespace Provider = ::Zelk::Provider::Metadata::Cli;
using Container = std::shared_ptr<Provider::MetadataContainer>;
using CommandSvc = Provider::CommandSvc::AsyncServiceImpl;
using NamespaceSvc = Provider::NamespaceSvc::AsyncServiceImpl;
using SourceSvc = Provider::SourceSvc::AsyncServiceImpl;

/// The identity of a full name that is split at a dot; without a path at npos.
template <typename Identity>
std::shared_ptr<const Identity> SplitAt(const std::string& name, std::size_t dot) {
  if (dot == std::string::npos) return std::make_shared<const Identity>("", name);
  return std::make_shared<const Identity>(name.substr(0, dot), name.substr(dot + 1));
}

/// Calls `get` with the identity that the user means by one full name, or by path and name. A full
/// name is split at its last dot, unless only another dot gives an identity that is known.
template <typename Identity, typename Get>
auto CallWithIdentity(const Ids& ids, const Get& get) {
  if (ids.size() == 2) return get(std::make_shared<const Identity>(ids[0], ids[1]));
  const std::string& name = ids.front();
  std::size_t dot = name.rfind('.');
  auto first = get(SplitAt<Identity>(name, dot));
  while (!first.answer && dot != std::string::npos) {
    dot = dot == 0 ? std::string::npos : name.rfind('.', dot - 1);
    auto outcome = get(SplitAt<Identity>(name, dot));
    if (outcome.answer) return outcome;
  }
  // The service has no word for the root.
  if (first.error && name == ".") first.error->messages.front().arguments = {name};
  return first;
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
            auto outcome = CallWithIdentity<Identity>(
                ids, [&](const auto& identity) { return Call(service, operation, identity); });
            if (!outcome.answer) return {std::nullopt, std::move(outcome.error)};
            const auto info = *outcome.answer;
            return {Record{[info](Page& page) { WritePage(page, *info); },
                           [info](Render::JsonWriter& json) { WriteRecord(json, *info); }},
                    std::nullopt};
          }};
}

Query<Names> NamespaceList(NamespaceSvc& service) {
  return {{0, 0},
          [&service](const Ids& /*ids*/) { return ToNames(Call(service, &NamespaceSvc::List)); }};
}

/// Of all commands, or of those directly in one namespace, "." for the root.
Query<Names> CommandList(CommandSvc& service) {
  return {{0, 1, {"namespace"}}, [&service](const Ids& ids) {
            boost::optional<std::string> path;
            if (!ids.empty()) path = ids.front() == "." ? std::string() : ids.front();
            return ToNames(Call(service, &CommandSvc::List, path));
          }};
}

/// Of namespaces, with the commands that are directly in them.
Query<Record> NamespaceRecord(NamespaceSvc& service, CommandSvc& commands) {
  Query<Record> query =
      NodeQuery<Bindings::Cli::NamespaceSvc::Identity>(service, &NamespaceSvc::Get);
  return {query.ids, [query, list = CommandList(commands)](const Ids& ids) {
            Outcome<Record> outcome = query.call(ids);
            if (!outcome.answer) return outcome;
            const std::string name = ids.size() == 1
                                         ? ids.front()
                                         : FullName(Bindings::Cli::TreeIdentity(ids[0], ids[1]));
            const Names names = list.call({name}).answer.value_or(Names{});
            outcome.answer->page = [page = outcome.answer->page, names](Page& out) {
              page(out);
              if (!names.empty()) out.Heading("Commands:");
              for (const std::string& command : names) out.Line(1, command);
            };
            return outcome;
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
       {"namespace"},
       NamespaceList(namespace_),
       NamespaceRecord(namespace_, command_),
       FingerprintQuery(namespace_, &NamespaceSvc::Fingerprint),
       kFirstSource,
       true,
       {"namespace"}},
      {"command",
       {"command"},
       CommandList(command_),
       NodeQuery<Bindings::Cli::CommandSvc::Identity>(command_, &CommandSvc::Get),
       FingerprintQuery(command_, &CommandSvc::Fingerprint),
       kFirstSource,
       true,
       {"namespace"},
       {"option"}},
      SourceKind(source_),
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
