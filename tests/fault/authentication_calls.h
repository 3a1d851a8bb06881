#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fault/tree_calls.h"
#include "surface/authentication_under_test.h"

namespace Zelk::Testing {

/// The Authentication domain where memory runs out.
struct AuthenticationWithoutMemory : AuthenticationUnderTest {
  static constexpr char kDataFile[] = "authentication.json";

  static constexpr const char* kKeys[] = {
      "component.of.the.whole.product", "component.of.the.first.source",
      "package.of.the.first.source", "package.of.the.first.source.service", kUnknownKey};

  /// What refuses a file after much of it was read, as texts to replace in the whole one. A file is
  /// refused when both of its components are.
  static std::vector<std::pair<std::string, std::string>> Mistakes() {
    const std::string product = R"({"package.of.the.product": ["only"]}},)";
    const std::string in_both = R"({"p": ["unknown"]}}, "component": {"name": "n",
        "packages": {"p": ["unknown"]}}, "unread_component":)";
    return {{product + "\n  \"component\":", in_both}, {R"("authentication":)", R"("other":)"}};
  }

  template <typename Visit>
  static void EachQuery(const Container& container, const Visit& visit) {
    EachSourceQuery(container, visit);
    EachTreeQuery(container, kKeys, visit);
  }

  template <typename Visit>
  static void EachOperation(const std::shared_ptr<Container>& container, const Visit& visit) {
    namespace Provider = ::Zelk::Provider::Metadata::Authentication;
    SourceService sources(container);
    EachSourceOperation(sources, visit);
    EachTreeOperation<
        Provider::ComponentSvc::AsyncServiceImpl, Provider::PackageSvc::AsyncServiceImpl,
        Provider::ServiceSvc::AsyncServiceImpl, Provider::Service::OperationSvc::AsyncServiceImpl>(
        container, kKeys, visit);
  }
};

}  // namespace Zelk::Testing
