#include <string>

#include <gtest/gtest.h>

#include "fault/fault_fixture.h"

// Operations of services that change nothing, while memory runs out.

namespace Zelk::Testing {
namespace {

template <typename Domain>
class OperationWithoutMemory : public FaultTest<Domain> {
 protected:
  /// Fails every allocation of an operation, the answer of which is either a value or an error.
  template <typename Service, typename... Parameters, typename... Arguments>
  void FailOperation(const std::string& name, Service& service,
                     void (Service::*operation)(Parameters...), const Arguments&... arguments) {
    using Answer = AnswerOf<Parameters...>;
    int delivered = 0;
    const AsyncResult<Answer> result(
        [&delivered](const auto&, const auto&, const auto&) { ++delivered; });
    const auto call = [&] { (service.*operation)(arguments..., this->activation_, result); };
    const auto failures = this->Fail({name, call, nullptr});
    // Each failed run is repeated and succeeds; so do the first and the last of both series.
    EXPECT_EQ(delivered, failures + 4) << name;
    const auto delivery = Ask(service, operation, arguments...);
    EXPECT_GE(failures > 0, delivery.error || TakesMemory(delivery.value)) << name;
  }
};

TYPED_TEST_SUITE(OperationWithoutMemory, DomainsWithoutMemory, DomainName);

TYPED_TEST(OperationWithoutMemory, ThrowsBadAllocAndDeliversNothing) {
  TypeParam::EachOperation(this->sources_.Shared(),
                           [this](const std::string& name, auto& service, const auto operation,
                                  const auto&... arguments) {
                             this->FailOperation(name, service, operation, arguments...);
                           });
}

}  // namespace
}  // namespace Zelk::Testing
