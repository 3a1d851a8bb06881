#include "fault/injection.h"

#include <cstddef>
#include <exception>
#include <iostream>
#include <map>
#include <new>
#include <string>
#include <typeinfo>

#include <gtest/gtest.h>

namespace Zelk::Testing {
namespace {

std::size_t injected_failures = 0;

/// Prints how many failures all tests have injected.
class FailureTotal : public testing::Environment {
 public:
  void TearDown() override { std::cout << injected_failures << " failures injected in all\n"; }
};

const testing::Environment* const kFailureTotal =
    testing::AddGlobalTestEnvironment(new FailureTotal);  // GoogleTest deletes it

constexpr char kBadAlloc[] = "std::bad_alloc";

/// What left the call, which may not even be an exception; nothing when it returned.
std::string WhatLeaves(const std::function<void()>& run, std::size_t nth, Shortage shortage) {
  try {
    const FailingAllocations failing(nth, shortage);
    run();
  } catch (const std::bad_alloc&) {
    return kBadAlloc;
  } catch (const std::exception& exception) {
    return typeid(exception).name();
  } catch (...) {
    return "something else";
  }
  return "";
}

/// The runs of one call under one kind of shortage.
class Series {
 public:
  Series(const FaultyCall& call, Shortage shortage, const std::function<std::string()>& state)
      : call_(call),
        shortage_(shortage),
        state_(state),
        before_(state()),
        after_(StateAfterCall()) {
    for (const auto& state_between : call.between) left_[state_between] = false;
    blocks_ = LiveBlocks();
  }

  std::size_t Run() {
    std::size_t nth = 1;
    while (!testing::Test::HasFailure() && Fails(nth)) ++nth;
    for (const auto& [state, is_left] : left_) EXPECT_TRUE(is_left) << call_.name << ": " << state;
    return nth - 1;
  }

 private:
  std::string StateAfterCall() {
    call_.run();
    std::string after = state_();
    EXPECT_EQ(after == before_, !call_.undo) << call_.name;
    Undo();
    EXPECT_EQ(state_(), before_) << call_.name;
    return after;
  }

  void Undo() const {
    if (call_.undo) call_.undo();
  }

  /// False when the call has fewer allocations.
  bool Fails(std::size_t nth) {
    const std::string left = WhatLeaves(call_.run, nth, shortage_);
    if (!FailingAllocations::Failed()) {
      EXPECT_EQ(left, "") << call_.name;
      ExpectSuccess(nth);
      return false;
    }
    const auto blocks = LiveBlocks();
    EXPECT_EQ(left, kBadAlloc) << call_.name << ", allocation " << nth;
    EXPECT_EQ(blocks, blocks_) << call_.name << ", allocation " << nth;
    ExpectStateOfFailure(nth);
    EXPECT_NO_THROW(call_.run()) << call_.name << ", allocation " << nth;
    ExpectSuccess(nth);
    return true;
  }

  void ExpectStateOfFailure(std::size_t nth) {
    const std::string state = state_();
    const auto between = left_.find(state);
    if (between != left_.end()) {
      between->second = true;
    } else {
      EXPECT_EQ(state, before_) << call_.name << ", allocation " << nth;
    }
  }

  void ExpectSuccess(std::size_t nth) const {
    if (call_.undo) {
      EXPECT_EQ(state_(), after_) << call_.name << ", allocation " << nth;
      Undo();
    }
    const auto blocks = LiveBlocks();
    EXPECT_EQ(blocks, blocks_) << call_.name << ", allocation " << nth;
  }

  const FaultyCall& call_;
  const Shortage shortage_;
  const std::function<std::string()>& state_;
  const std::string before_;
  const std::string after_;
  /// Whether a failure has left the state, for each state between.
  std::map<std::string, bool> left_;
  std::ptrdiff_t blocks_ = 0;
};

}  // namespace

std::size_t FailEveryAllocation(const FaultyCall& call, const std::function<std::string()>& state) {
  const auto once = Series(call, Shortage::kOnce, state).Run();
  return once + Series(call, Shortage::kLasting, state).Run();
}

void ExpectNoLeak(const std::string& name, const std::function<void()>& run) {
  const auto before = LiveBlocks();
  run();
  const auto after = LiveBlocks();
  EXPECT_EQ(after, before) << name;
}

void AddToTotal(std::size_t failures) {
  injected_failures += failures;
}

}  // namespace Zelk::Testing
