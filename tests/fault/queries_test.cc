#include <string>

#include <gtest/gtest.h>

#include "fault/fault_fixture.h"

// Queries while memory runs out.

namespace Zelk::Testing {
namespace {

template <typename Domain>
class QueryWithoutMemory : public FaultTest<Domain> {};

TYPED_TEST_SUITE(QueryWithoutMemory, DomainsWithoutMemory, DomainName);

TYPED_TEST(QueryWithoutMemory, ThrowsBadAllocAndChangesNothing) {
  TypeParam::EachQuery(*this->sources_.Shared(),
                       [this](const std::string& name, const auto& query) {
                         const auto failures = this->Fail({name, [&query] { query(); }, nullptr});
                         EXPECT_EQ(failures > 0, TakesMemory(query())) << name;
                       });
}

}  // namespace
}  // namespace Zelk::Testing
