#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "fault/fault_fixture.h"

// What a host's own callback throws goes through the operation that called it.

namespace Zelk::Testing {
namespace {

/// What the callbacks of these tests throw; derived from nothing that others might catch.
struct HostException {
  int number;
};

/// Calls `run`, which delivers to a callback that throws, and expects that this comes out.
void ExpectHostException(const std::string& name, const std::function<void()>& run) {
  ExpectNoLeak(name, [&] {
    try {
      run();
      ADD_FAILURE() << name << " returned";
    } catch (const HostException& exception) {
      EXPECT_EQ(exception.number, 42) << name;
    }
  });
}

void ExpectBadFunctionCall(const std::string& name, const std::function<void()>& run) {
  ExpectNoLeak(name, [&] { EXPECT_THROW(run(), std::bad_function_call) << name; });
}

template <typename Answer>
AsyncResult<Answer> Throwing() {
  return AsyncResult<Answer>(
      [](const auto&, const auto&, const auto&) { throw HostException{42}; });
}

template <typename Domain>
class Callback : public FaultTest<Domain> {
 protected:
  Callback() : before_(this->State()) {}

  /// Operations that deliver an error about what they cannot change, to `result`.
  template <typename Visit>
  void EachRefusedChange(const AsyncResult<Void>& result, const Visit& visit) {
    const OptionalText unknown(kUnknownKey);
    const std::string id = kUnknownKey;
    visit("Create", [&] { this->service_.Create(id, nullptr, this->activation_, result); });
    visit("Delete", [&] { this->service_.Delete(id, this->activation_, result); });
    visit("Reload", [&] { this->service_.Reload(unknown, this->activation_, result); });
  }

  void ExpectNoChange() const { EXPECT_EQ(this->State(), before_); }

 private:
  const std::string before_;
};

TYPED_TEST_SUITE(Callback, DomainsWithoutMemory, DomainName);

TYPED_TEST(Callback, CanThrowFromEveryAnswer) {
  const auto expect = [this](const std::string& name, auto& service, const auto operation,
                             const auto&... arguments) {
    using Answer = typename decltype(Ask(service, operation, arguments...).value)::value_type;
    const auto result = Throwing<Answer>();
    ExpectHostException(name,
                        [&] { (service.*operation)(arguments..., this->activation_, result); });
  };
  TypeParam::EachOperation(this->sources_.Shared(), expect);
  this->ExpectNoChange();
}

TYPED_TEST(Callback, CanThrowFromRefusedChanges) {
  this->EachRefusedChange(Throwing<Void>(), ExpectHostException);
  this->ExpectNoChange();
}

TYPED_TEST(Callback, CannotUndoAChangeByThrowing) {
  const auto result = Throwing<Void>();
  const OptionalText all;
  const auto expect = [](const std::string& name, const std::function<void()>& change) {
    if (TypeParam::kDeliversSuccess) {
      EXPECT_THROW(change(), HostException) << name;
    } else {
      EXPECT_NO_THROW(change()) << name;
    }
  };
  const auto spec = this->sources_.At(this->sources_.WriteRecord(kNewSource, "new"));
  expect("Create", [&] { this->service_.Create(kNewSource, spec, this->activation_, result); });
  EXPECT_EQ(this->sources_->ListSources().size(), 3U);
  this->sources_.WriteRecord(kNewSource, "reloaded");
  expect("Reload", [&] { this->service_.Reload(all, this->activation_, result); });
  EXPECT_NE(TypeParam::Find(*this->sources_.Shared(), "reloaded"), nullptr);
  expect("Delete", [&] { this->service_.Delete(kNewSource, this->activation_, result); });
  this->ExpectNoChange();
}

TYPED_TEST(Callback, IsNeededForEveryAnswer) {
  const auto expect = [this](const std::string& name, auto& service, const auto operation,
                             const auto&... arguments) {
    ExpectBadFunctionCall(name, [&] { (service.*operation)(arguments..., this->activation_, {}); });
  };
  TypeParam::EachOperation(this->sources_.Shared(), expect);
  this->ExpectNoChange();
}

TYPED_TEST(Callback, IsNeededForRefusedChanges) {
  this->EachRefusedChange(AsyncResult<Void>(), ExpectBadFunctionCall);
  this->ExpectNoChange();
}

}  // namespace
}  // namespace Zelk::Testing
