#include <zelk/provider/metadata/authentication/metadata_container.h>
#include <zelk/provider/metadata/authentication/services.h>

#include "stateful/library_services.h"
#include "support/authentication_text.h"

namespace Zelk::Fuzzing {
namespace {

namespace Provided = ::Zelk::Provider::Metadata::Authentication;
namespace Bindings = ::Com::Orvane::Zelk::Metadata;

struct Authentication {
  using Container = Provided::MetadataContainer;
  using Sources = Provided::SourceSvc::AsyncServiceImpl;
  using CreateSpec = Bindings::Authentication::SourceSvc::CreateSpec;
};

// Records do not hold their names, so the texts have none.

std::string Text(const Bindings::Authentication::ComponentData& component) {
  return Testing::ComponentText("", *component.info) + component.fingerprint;
}

std::string Text(const Bindings::Authentication::PackageInfo& package) {
  return Testing::PackageText("", package);
}

std::string Text(const Bindings::Authentication::ServiceInfo& service) {
  return Testing::ServiceText("", service);
}

std::string Text(const Bindings::Authentication::OperationInfo& operation) {
  return Testing::OperationText("", operation);
}

template <typename Record>
std::string DeliveredRecord(const Testing::Delivery<std::shared_ptr<const Record>>& delivery) {
  return Delivered(delivery, [](const auto& record) { return Text(*record); });
}

class Library final : public LibraryServices<Authentication> {
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
      default:
        return AskSources(question);
    }
  }

 private:
  using Components = Provided::ComponentSvc::AsyncServiceImpl;
  using Packages = Provided::PackageSvc::AsyncServiceImpl;
  using ServicesOf = Provided::ServiceSvc::AsyncServiceImpl;
  using Operations = Provided::Service::OperationSvc::AsyncServiceImpl;

  Components components_{Shared()};
  Packages packages_{Shared()};
  ServicesOf services_{Shared()};
  Operations operations_{Shared()};
};

}  // namespace

std::unique_ptr<Services> AuthenticationLibrary() {
  return std::make_unique<Library>();
}

}  // namespace Zelk::Fuzzing
