#include "host.h"

namespace Zelk::Benchmarks {

std::unique_ptr<Host> MakeHost(DomainId domain) {
  switch (domain) {
    case DomainId::kMetamodel:
      return std::make_unique<HostOf<MetamodelDomain>>();
    case DomainId::kAuthentication:
      return std::make_unique<HostOf<AuthenticationDomain>>();
    case DomainId::kCli:
      break;
  }
  return std::make_unique<HostOf<CliDomain>>();
}

std::unique_ptr<Host> MakeHost(DomainId domain, const std::vector<std::string>& paths) {
  auto host = MakeHost(domain);
  for (const std::string& path : paths) host->Add(path);
  return host;
}

}  // namespace Zelk::Benchmarks
