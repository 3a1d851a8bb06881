#include "service_calls.h"

#include <list>
#include <stdexcept>
#include <utility>

#include <boost/optional.hpp>

#include <zelk/async_result.h>
#include <zelk/core/async_activation.h>
#include <zelk/provider/metadata/authentication/services.h>
#include <zelk/provider/metadata/cli/services.h>
#include <zelk/provider/metadata/metamodel/services.h>

#include "corpus.h"
#include "host.h"

namespace Zelk::Benchmarks {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
using Activation = std::shared_ptr<Core::AsyncActivation>;

/// A container with one file in it.
template <typename Domain>
auto Loaded(DomainId domain) {
  const Corpus corpus({domain, 250'000, Layout::kCompact, 1}, 1);
  HostOf<Domain> host;
  host.Add(corpus.Paths().front());
  host.CreateAll();
  return host.Container();
}

template <typename Answer, typename Ask, typename Serve>
ServiceCall Call(std::string name, Ask ask, Serve serve) {
  const AsyncResult<Answer> result(
      [](const boost::optional<Answer>& answer, const auto&, const auto&) {
        if (!answer) throw std::runtime_error("a service does not know what its container lists");
      });
  const auto activation = std::make_shared<Core::AsyncActivation>();
  return {std::move(name), std::is_same_v<Answer, std::list<std::string>>,
          [ask](std::size_t times) {
            while (times-- > 0) ask();
          },
          [serve, result, activation](std::size_t times) {
            while (times-- > 0) serve(activation, result);
          }};
}

void AddMetamodel(std::vector<ServiceCall>& calls) {
  namespace Domain = Provider::Metadata::Metamodel;
  const auto container = Loaded<MetamodelDomain>(DomainId::kMetamodel);
  const auto services = std::make_shared<Domain::ServiceSvc::AsyncServiceImpl>(container);
  const auto operations =
      std::make_shared<Domain::Service::OperationSvc::AsyncServiceImpl>(container);
  const std::string id = container->ListServices().back();
  const std::string operation = container->ListOperations(id)->back();
  calls.push_back(Call<std::shared_ptr<const Bindings::Metamodel::ServiceInfo>>(
      "Metamodel, service, get", [=] { return container->ServiceInfo(id); },
      [=](const Activation& activation, const auto& result) {
        services->Get(id, activation, result);
      }));
  calls.push_back(Call<std::shared_ptr<const Bindings::Metamodel::OperationInfo>>(
      "Metamodel, operation, get", [=] { return container->OperationInfo(id, operation); },
      [=](const Activation& activation, const auto& result) {
        operations->Get(id, operation, activation, result);
      }));
  calls.push_back(Call<std::list<std::string>>(
      "Metamodel, service, list", [=] { return container->ListServices(); },
      [=](const Activation& activation, const auto& result) {
        services->List(activation, result);
      }));
}

void AddAuthentication(std::vector<ServiceCall>& calls) {
  namespace Domain = Provider::Metadata::Authentication;
  const auto container = Loaded<AuthenticationDomain>(DomainId::kAuthentication);
  const auto packages = std::make_shared<Domain::PackageSvc::AsyncServiceImpl>(container);
  const std::string id = container->ListPackages().back();
  calls.push_back(Call<std::shared_ptr<const Bindings::Authentication::PackageInfo>>(
      "Authentication, package, get", [=] { return container->PackageInfo(id); },
      [=](const Activation& activation, const auto& result) {
        packages->Get(id, activation, result);
      }));
}

void AddCli(std::vector<ServiceCall>& calls) {
  namespace Domain = Provider::Metadata::Cli;
  const auto container = Loaded<CliDomain>(DomainId::kCli);
  const auto commands = std::make_shared<Domain::CommandSvc::AsyncServiceImpl>(container);
  const auto id = container->ListCommands(boost::none).back();
  calls.push_back(Call<std::shared_ptr<const Bindings::Cli::CommandSvc::Info>>(
      "CLI, command, get", [=] { return container->CommandInfo(id); },
      [=](const Activation& activation, const auto& result) {
        commands->Get(id, activation, result);
      }));
}

}  // namespace

std::vector<ServiceCall> ServiceCalls() {
  std::vector<ServiceCall> calls;
  AddMetamodel(calls);
  AddAuthentication(calls);
  AddCli(calls);
  return calls;
}

}  // namespace Zelk::Benchmarks
