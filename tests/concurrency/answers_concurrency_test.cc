#include <array>
#include <list>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "concurrency/all_answers.h"
#include "support/threads.h"

// Answers are the caller's: other threads read and drop them without asking anyone, whatever the
// thread that changes the container does meanwhile.

namespace Zelk::Testing {
namespace {

constexpr std::size_t kThreads = 4;

template <typename Domain>
class ConcurrentAnswers : public testing::Test {};

TYPED_TEST_SUITE(ConcurrentAnswers, DomainsUnderTest, DomainName);

TYPED_TEST(ConcurrentAnswers, CanBeReadDuringReloadAndDelete) {
  using Record = typename TypeParam::Record;
  Sources<TypeParam> sources({{"foo", TypeParam::File("bar")}});
  for (int round = 0; round < 20; ++round) {
    const std::string expected = TypeParam::Text(*TypeParam::Find(*sources.Shared(), "bar"));
    std::array<std::shared_ptr<const Record>, kThreads> held;
    held.fill(TypeParam::Find(*sources.Shared(), "bar"));
    // The first thread owns the container, the others have nothing but their answers.
    InThreads(kThreads, [&](std::size_t index) {
      if (index == 0) {
        sources->ReloadSource(boost::none);
        sources->DeleteSource("foo");
        sources.CreateAt("foo", sources.Path("foo"));
      }
      const std::shared_ptr<const Record> mine = std::move(held[index]);
      EXPECT_EQ(TypeParam::Text(*mine), expected);
    });
  }
}

TYPED_TEST(ConcurrentAnswers, OutliveTheirContainerOnOtherThreads) {
  using Record = typename TypeParam::Record;
  std::vector<std::shared_ptr<const Record>> held;
  std::string expected;
  {
    const Sources<TypeParam> sources({{"foo", TypeParam::File("bar")}});
    held.assign(kThreads, TypeParam::Find(*sources.Shared(), "bar"));
    expected = TypeParam::Text(*held.front());
  }
  InThreads(kThreads, [&](std::size_t index) {
    const std::shared_ptr<const Record> mine = std::move(held[index]);
    EXPECT_EQ(TypeParam::Text(*mine), expected);
  });
}

TYPED_TEST(ConcurrentAnswers, MayReleaseTheContainerOnAnyThread) {
  for (int round = 0; round < 20; ++round) {
    auto container = TypeParam::Container::GetInstance();
    ASSERT_EQ(container->CreateSource("own", Sources<TypeParam>::At(OwnMetadata<TypeParam>())),
              nullptr);
    std::vector<std::shared_ptr<const typename TypeParam::Container>> shares(kThreads, container);
    container.reset();
    InThreads(kThreads, [&shares](std::size_t index) {
      EXPECT_EQ(shares[index]->ListSources().size(), 1U);
      shares[index].reset();
    });
  }
}

using TypePtr = std::shared_ptr<const Bindings::Metamodel::Type>;

/// A list of a list of a list and so on, the outermost first.
std::vector<TypePtr> NestedLists(int levels) {
  using Category = Bindings::Metamodel::TypeEnumerations::Category;
  std::vector<TypePtr> types{std::make_shared<const Bindings::Metamodel::Type>(
      Category::BUILTIN,
      Bindings::Metamodel::TypeEnumerations::BuiltinType(
          Bindings::Metamodel::TypeEnumerations::BuiltinType::STRING),
      nullptr, nullptr)};
  for (int level = 0; level < levels; ++level) {
    types.insert(types.begin(),
                 std::make_shared<const Bindings::Metamodel::Type>(
                     Category::GENERIC, boost::none, nullptr,
                     std::make_shared<const Bindings::Metamodel::GenericInstantiation>(
                         Bindings::Metamodel::GenericInstantiationEnumerations::GenericType::LIST,
                         types.front(), nullptr, nullptr)));
  }
  return types;
}

TEST(ConcurrentNestedTypes, AreReleasedOnceIfShared) {
  for (int round = 0; round < 100; ++round) {
    std::vector<TypePtr> shares(kThreads);
    std::weak_ptr<const Bindings::Metamodel::Type> innermost;
    {
      const auto types = NestedLists(50);
      shares.assign(kThreads, types.front());
      innermost = types.back();
    }
    InThreads(kThreads, [&shares](std::size_t index) { shares[index].reset(); });
    EXPECT_TRUE(innermost.expired());
  }
}

TEST(ConcurrentNestedTypes, AreReleasedOnceIfSharedAtDifferentLevels) {
  for (int round = 0; round < 100; ++round) {
    std::vector<std::vector<TypePtr>> shares(kThreads);
    std::weak_ptr<const Bindings::Metamodel::Type> innermost;
    {
      const auto types = NestedLists(50);
      for (std::size_t level = 0; level < types.size(); ++level) {
        shares[level % kThreads].push_back(types[level]);
      }
      innermost = types.back();
    }
    InThreads(kThreads, [&shares](std::size_t index) { shares[index].clear(); });
    EXPECT_TRUE(innermost.expired());
  }
}

}  // namespace
}  // namespace Zelk::Testing
