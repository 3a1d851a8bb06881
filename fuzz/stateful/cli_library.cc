#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/cli/services.h>

#include "stateful/library_services.h"
#include "support/cli_text.h"

namespace Zelk::Fuzzing {
namespace {

namespace Provided = ::Zelk::Provider::Metadata::Cli;
namespace Bindings = ::Com::Orvane::Zelk::Metadata;

struct Cli {
  using Container = Provided::MetadataContainer;
  using Sources = Provided::SourceSvc::AsyncServiceImpl;
  using CreateSpec = Bindings::Cli::SourceSvc::CreateSpec;
};

template <typename Record>
std::string DeliveredRecord(const Testing::Delivery<std::shared_ptr<const Record>>& delivery) {
  return Delivered(delivery, [](const auto& record) { return Testing::CliText(*record); });
}

template <typename Identities>
std::string DeliveredIdentities(const Testing::Delivery<Identities>& delivery) {
  return Delivered(delivery, [](const Identities& identities) {
    return NamesText(Testing::CliTexts(identities));
  });
}

template <typename Identity>
std::shared_ptr<const Identity> IdentityOf(const Question& question) {
  return std::make_shared<const Identity>(question.key, question.second_key);
}

class Library final : public LibraryServices<Cli> {
 public:
  std::string Ask(const Question& question) override {
    using Filter = boost::optional<std::string>;
    using Testing::Ask;
    switch (question.operation) {
      case Operation::kListNamespaces:
        return DeliveredIdentities(Ask(namespaces_, &Namespaces::List));
      case Operation::kGetNamespace:
        return DeliveredRecord(Ask(namespaces_, &Namespaces::Get,
                                   IdentityOf<Bindings::Cli::NamespaceSvc::Identity>(question)));
      case Operation::kFingerprintOfNamespaces:
        return Delivered(Ask(namespaces_, &Namespaces::Fingerprint));
      case Operation::kListAllCommands:
        return DeliveredIdentities(Ask(commands_, &Commands::List, Filter()));
      case Operation::kListCommands:
        return DeliveredIdentities(Ask(commands_, &Commands::List, Filter(question.key)));
      case Operation::kGetCommand:
        return DeliveredRecord(Ask(commands_, &Commands::Get,
                                   IdentityOf<Bindings::Cli::CommandSvc::Identity>(question)));
      case Operation::kFingerprintOfCommands:
        return Delivered(Ask(commands_, &Commands::Fingerprint));
      default:
        return AskSources(question);
    }
  }

 private:
  using Namespaces = Provided::NamespaceSvc::AsyncServiceImpl;
  using Commands = Provided::CommandSvc::AsyncServiceImpl;

  Namespaces namespaces_{Shared()};
  Commands commands_{Shared()};
};

}  // namespace

std::unique_ptr<Services> CliLibrary() {
  return std::make_unique<Library>();
}

}  // namespace Zelk::Fuzzing
