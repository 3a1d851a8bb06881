#include <zelk/provider/metadata/metamodel/metadata_container.h>
#include <zelk/provider/metadata/metamodel/services.h>

#include "stateful/library_services.h"
#include "support/record_dump.h"

namespace Zelk::Fuzzing {
namespace {

namespace Provided = ::Zelk::Provider::Metadata::Metamodel;
namespace Bindings = ::Com::Orvane::Zelk::Metadata;

struct Metamodel {
  using Container = Provided::MetadataContainer;
  using Sources = Provided::SourceSvc::AsyncServiceImpl;
  using CreateSpec = Bindings::Metamodel::SourceSvc::CreateSpec;
};

template <typename Record>
std::string DeliveredRecord(const Testing::Delivery<std::shared_ptr<const Record>>& delivery) {
  return Delivered(delivery, [](const auto& record) { return Testing::Dump(*record); });
}

std::string DeliveredRecord(
    const Testing::Delivery<std::shared_ptr<const Bindings::Metamodel::ComponentData>>& delivery) {
  return Delivered(delivery, [](const auto& component) {
    return Testing::Dump(*component->info) + component->fingerprint;
  });
}

class Library final : public LibraryServices<Metamodel> {
 public:
  std::string Ask(const Question& question) override {
    using Testing::Ask;
    const auto& key = question.key;
    switch (question.operation) {
      case Operation::kListComponents:
        return DeliveredNames(Ask(components_, &Components::List));
      case Operation::kGetComponent:
        return DeliveredRecord(Ask(components_, &Components::Get, key));
      case Operation::kFingerprintOfComponent:
        return Delivered(Ask(components_, &Components::Fingerprint, key));
      case Operation::kListPackages:
        return DeliveredNames(Ask(packages_, &Packages::List));
      case Operation::kGetPackage:
        return DeliveredRecord(Ask(packages_, &Packages::Get, key));
      case Operation::kListServices:
        return DeliveredNames(Ask(services_, &ServicesOf::List));
      case Operation::kGetService:
        return DeliveredRecord(Ask(services_, &ServicesOf::Get, key));
      case Operation::kListOperations:
        return DeliveredNames(Ask(operations_, &Operations::List, key));
      case Operation::kGetOperation:
        return DeliveredRecord(Ask(operations_, &Operations::Get, key, question.second_key));
      case Operation::kListHiddens:
        return DeliveredNames(Ask(hiddens_, &Hiddens::List));
      default:
        return AskTypes(question);
    }
  }

 private:
  using Components = Provided::ComponentSvc::AsyncServiceImpl;
  using Packages = Provided::PackageSvc::AsyncServiceImpl;
  using ServicesOf = Provided::ServiceSvc::AsyncServiceImpl;
  using Operations = Provided::Service::OperationSvc::AsyncServiceImpl;
  using Hiddens = Provided::Service::HiddenSvc::AsyncServiceImpl;
  using Enumerations = Provided::EnumerationSvc::AsyncServiceImpl;
  using Structures = Provided::StructureSvc::AsyncServiceImpl;
  using Resources = Provided::ResourceSvc::AsyncServiceImpl;
  using Models = Provided::Resource::ModelSvc::AsyncServiceImpl;

  std::string AskTypes(const Question& question) {
    using Testing::Ask;
    const auto& key = question.key;
    switch (question.operation) {
      case Operation::kListEnumerations:
        return DeliveredNames(Ask(enumerations_, &Enumerations::List));
      case Operation::kGetEnumeration:
        return DeliveredRecord(Ask(enumerations_, &Enumerations::Get, key));
      case Operation::kListStructures:
        return DeliveredNames(Ask(structures_, &Structures::List));
      case Operation::kGetStructure:
        return DeliveredRecord(Ask(structures_, &Structures::Get, key));
      case Operation::kListResources:
        return DeliveredNames(Ask(resources_, &Resources::List));
      case Operation::kListModels:
        return DeliveredNames(Ask(models_, &Models::List, key));
      default:
        return AskSources(question);
    }
  }

  Components components_{Shared()};
  Packages packages_{Shared()};
  ServicesOf services_{Shared()};
  Operations operations_{Shared()};
  Hiddens hiddens_{Shared()};
  Enumerations enumerations_{Shared()};
  Structures structures_{Shared()};
  Resources resources_{Shared()};
  Models models_{Shared()};
};

}  // namespace

std::unique_ptr<Services> MetamodelLibrary() {
  return std::make_unique<Library>();
}

}  // namespace Zelk::Fuzzing
