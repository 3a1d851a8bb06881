#include <memory>
#include <new>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "fault/injection.h"

// A test of failures is worth what its injection is worth.

namespace Zelk::Testing {
namespace {

using testing::HasSubstr;

struct HostError {};

std::string NoState() {
  return "";
}

/// Allocates three blocks, and lets go of them.
void TakeThree() {
  const auto first = std::make_unique<int>(1);
  const std::string second(100, 'x');
  const std::string third(200, 'x');
}

/// The texts of all expectations that fail in `run`.
template <typename Run>
std::string FailuresOf(const Run& run) {
  testing::TestPartResultArray results;
  {
    using Reporter = testing::ScopedFakeTestPartResultReporter;
    const Reporter reporter(Reporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
    run();
  }
  std::string texts;
  for (int index = 0; index < results.size(); ++index) {
    texts += results.GetTestPartResult(index).message();
  }
  return texts;
}

std::string FailuresOfEach(const FaultyCall& call) {
  return FailuresOf([&call] { FailEveryAllocation(call, NoState); });
}

TEST(Allocations, FailOnceAtTheGivenNumber) {
  const FailingAllocations failing(2, Shortage::kOnce);
  const auto first = std::make_unique<int>(1);
  EXPECT_FALSE(FailingAllocations::Failed());
  EXPECT_EQ(std::unique_ptr<int>(new (std::nothrow) int(2)), nullptr);
  EXPECT_TRUE(FailingAllocations::Failed());
  EXPECT_NE(std::unique_ptr<int>(new (std::nothrow) int(3)), nullptr);
}

TEST(Allocations, FailFromTheGivenNumberOn) {
  const auto take = [] { return std::unique_ptr<int>(new (std::nothrow) int(1)); };
  std::unique_ptr<int> blocks[3];
  {
    const FailingAllocations failing(2, Shortage::kLasting);
    for (auto& block : blocks) block = take();
  }
  EXPECT_NE(blocks[0], nullptr);
  EXPECT_EQ(blocks[1], nullptr);
  EXPECT_EQ(blocks[2], nullptr);
  EXPECT_NE(take(), nullptr);
}

TEST(Allocations, AreCountedUntilTheyAreReleased) {
  const auto before = LiveBlocks();
  auto block = std::make_unique<int>(1);
  const auto during = LiveBlocks();
  block.reset();
  const auto after = LiveBlocks();
  EXPECT_EQ(during, before + 1);
  EXPECT_EQ(after, before);
}

TEST(Injection, FailsEachAllocationAloneAndWithLaterOnes) {
  EXPECT_EQ(FailEveryAllocation({"three", TakeThree, nullptr}, NoState), 6U);
}

TEST(Injection, DetectsALeak) {
  std::unique_ptr<int> leaked;
  const auto leak = [&leaked] { leaked = std::make_unique<int>(1); };
  EXPECT_THAT(FailuresOf([&] { ExpectNoLeak("foo", leak); }), HasSubstr("foo"));
}

TEST(Injection, DetectsALeakOnALaterFailure) {
  std::unique_ptr<int> lost;
  const auto lose = [&lost] {
    lost = std::make_unique<int>(1);
    const std::string more(100, 'x');
    lost.reset();
  };
  EXPECT_THAT(FailuresOfEach({"foo", lose, nullptr}), HasSubstr("foo, allocation 2"));
}

TEST(Injection, DetectsOtherExceptions) {
  const auto disguise = [] {
    try {
      TakeThree();
    } catch (const std::bad_alloc&) {
      throw HostError{};
    }
  };
  EXPECT_THAT(FailuresOfEach({"foo", disguise, nullptr}), HasSubstr("something else"));
}

TEST(Injection, DetectsAHiddenFailure) {
  const auto hush = [] {
    try {
      TakeThree();
    } catch (const std::bad_alloc&) {
      return;
    }
  };
  EXPECT_THAT(FailuresOfEach({"foo", hush, nullptr}), HasSubstr("bad_alloc"));
}

TEST(Injection, DetectsAPartialChange) {
  int done = 0;
  const auto change = [&done] {
    ++done;
    const std::string more(100, 'x');
    ++done;
  };
  const FaultyCall call{"foo", change, [&done] { done = 0; }};
  const auto state = [&done] { return std::to_string(done); };
  EXPECT_THAT(FailuresOf([&] { FailEveryAllocation(call, state); }),
              HasSubstr("foo, allocation 1"));
}

}  // namespace
}  // namespace Zelk::Testing
