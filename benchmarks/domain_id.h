#pragma once

namespace Zelk::Benchmarks {

enum class DomainId { kMetamodel, kAuthentication, kCli };

constexpr const char* NameOf(DomainId domain) {
  switch (domain) {
    case DomainId::kMetamodel:
      return "Metamodel";
    case DomainId::kAuthentication:
      return "Authentication";
    case DomainId::kCli:
      break;
  }
  return "CLI";
}

}  // namespace Zelk::Benchmarks
