#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include <boost/none.hpp>
#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/metamodel/records.h>

#include "support/small_stack.h"

namespace {

using namespace Com::Orvane::Zelk::Metadata::Metamodel;  // NOLINT(google-build-using-namespace):
                                                         // test
using GenericInstantiationEnumerations::GenericType;
using TypePtr = std::shared_ptr<const Type>;
using InstantiationPtr = std::shared_ptr<const GenericInstantiation>;
using Wrap = std::function<InstantiationPtr(const TypePtr&)>;

// If the release recursed once a level, these levels would need far more than this stack.
constexpr int kLevels = 200'000;
constexpr std::size_t kSmallStack = std::size_t{256} * 1024;

TypePtr Leaf() {
  using TypeEnumerations::BuiltinType;
  return std::make_shared<const Type>(TypeEnumerations::Category::BUILTIN,
                                      BuiltinType(BuiltinType::STRING), nullptr, nullptr);
}

TypePtr Generic(InstantiationPtr instantiation) {
  return std::make_shared<const Type>(TypeEnumerations::Category::GENERIC, boost::none, nullptr,
                                      std::move(instantiation));
}

InstantiationPtr Instantiation(TypePtr element, TypePtr key, TypePtr value) {
  return std::make_shared<const GenericInstantiation>(
      element ? GenericType::LIST : GenericType::MAP, std::move(element), std::move(key),
      std::move(value));
}

InstantiationPtr ListOf(const TypePtr& type) {
  return Instantiation(type, nullptr, nullptr);
}

InstantiationPtr MapFrom(const TypePtr& type) {
  return Instantiation(nullptr, type, Leaf());
}

InstantiationPtr MapTo(const TypePtr& type) {
  return Instantiation(nullptr, Leaf(), type);
}

InstantiationPtr MapFromListsTo(const TypePtr& type) {
  return Instantiation(nullptr, Generic(ListOf(Leaf())), type);
}

// Both branches lead to the same types, so there are only as many of them as there are levels.
InstantiationPtr MapFromAndTo(const TypePtr& type) {
  return Instantiation(nullptr, type, type);
}

InstantiationPtr MapBetweenTypesAroundOne(const TypePtr& type) {
  const InstantiationPtr shared = ListOf(type);
  return Instantiation(nullptr, Generic(shared), Generic(shared));
}

TypePtr Nested(const Wrap& wrap, int levels) {
  TypePtr type = Leaf();
  for (int level = 0; level < levels; ++level) type = Generic(wrap(type));
  return type;
}

TypePtr BinaryTree(int levels) {
  if (levels == 0) return Leaf();
  return Generic(Instantiation(nullptr, BinaryTree(levels - 1), BinaryTree(levels - 1)));
}

struct Shape {
  const char* name;
  Wrap wrap;
};

const Shape kShapes[] = {
    {"list of", ListOf},
    {"map from", MapFrom},
    {"map to", MapTo},
    {"map from lists to", MapFromListsTo},
    {"map from and to the same", MapFromAndTo},
    {"map between types around the same instantiation", MapBetweenTypesAroundOne},
};

TEST(NestedTypeRelease, NeedsNoStackForDeepTypes) {
  for (const Shape& shape : kShapes) {
    TypePtr type = Nested(shape.wrap, kLevels);
    const std::weak_ptr<const Type> watch = type;
    Zelk::Testing::RunOnSmallStack(kSmallStack, [&type] { type.reset(); });
    EXPECT_TRUE(watch.expired()) << shape.name;
  }
}

TEST(NestedTypeRelease, ReachesTheInnermostType) {
  for (const Shape& shape : kShapes) {
    const TypePtr innermost = Leaf();
    TypePtr type = Generic(shape.wrap(innermost));
    for (int level = 0; level < 1000; ++level) type = Generic(shape.wrap(type));
    EXPECT_GT(innermost.use_count(), 1) << shape.name;
    type.reset();
    EXPECT_EQ(innermost.use_count(), 1) << shape.name;
  }
}

TEST(NestedTypeRelease, ReachesEveryBranch) {
  TypePtr tree = BinaryTree(16);
  const TypePtr part = tree->generic_instantiation->map_value_type;
  Zelk::Testing::RunOnSmallStack(kSmallStack, [&tree] { tree.reset(); });
  EXPECT_EQ(part.use_count(), 1);
  EXPECT_EQ(part->generic_instantiation.use_count(), 1);
  EXPECT_NE(part->generic_instantiation->map_key_type, nullptr);
}

TEST(NestedTypeRelease, StopsAtTypesStillInUse) {
  const TypePtr kept = Nested(ListOf, 3);
  TypePtr type = kept;
  for (int level = 0; level < 1000; ++level) type = Generic(MapTo(type));
  type.reset();
  EXPECT_EQ(kept.use_count(), 1);
  const TypePtr inner = kept->generic_instantiation->element_type;
  EXPECT_EQ(inner->generic_instantiation->element_type->category.Value(),
            TypeEnumerations::Category::GENERIC);
}

TEST(NestedTypeRelease, StopsAtInstantiationsStillInUse) {
  InstantiationPtr kept = ListOf(Nested(ListOf, kLevels));
  TypePtr type = Generic(kept);
  for (int level = 0; level < 1000; ++level) type = Generic(ListOf(type));
  type.reset();
  EXPECT_EQ(kept.use_count(), 1);
  Zelk::Testing::RunOnSmallStack(kSmallStack, [&kept] { kept.reset(); });
  EXPECT_EQ(kept, nullptr);
}

TEST(NestedTypeRelease, KeepsTheTypesOfACopy) {
  auto original = std::make_unique<GenericInstantiation>(GenericType::LIST, Nested(ListOf, 10),
                                                         nullptr, nullptr);
  const GenericInstantiation copy = *original;
  original.reset();
  EXPECT_TRUE(copy.generic_type == GenericType::LIST);
  EXPECT_EQ(copy.element_type.use_count(), 1);
  EXPECT_NE(copy.element_type->generic_instantiation, nullptr);
}

TEST(NestedTypeRelease, AllowsAssigningAPartOfItself) {
  GenericInstantiation outer = *ListOf(Generic(MapTo(Generic(ListOf(Leaf())))));
  outer = *outer.element_type->generic_instantiation;
  EXPECT_TRUE(outer.generic_type == GenericType::MAP);
  EXPECT_EQ(outer.element_type, nullptr);
  EXPECT_NE(outer.map_value_type->generic_instantiation, nullptr);
}

// Lets all threads start together, each with its own share of what is released.
void ReleaseTogether(const std::vector<std::function<void()>>& releases) {
  std::atomic<std::size_t> ready{0};
  std::vector<std::thread> threads;
  threads.reserve(releases.size());
  for (const std::function<void()>& release : releases) {
    threads.emplace_back([&ready, &release, count = releases.size()] {
      ++ready;
      while (ready < count) std::this_thread::yield();
      Zelk::Testing::RunOnSmallStack(kSmallStack, release);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST(NestedTypeRelease, MayHappenInSeveralThreadsThatShareAType) {
  constexpr int kRounds = 20;
  for (int round = 0; round < kRounds; ++round) {
    const TypePtr innermost = Leaf();
    TypePtr shared = Generic(ListOf(innermost));
    for (int level = 0; level < 5000; ++level) shared = Generic(MapBetweenTypesAroundOne(shared));
    TypePtr first = Generic(ListOf(shared));
    TypePtr second = Generic(MapFromAndTo(shared));
    ReleaseTogether({[&shared] { shared.reset(); }, [&first] { first.reset(); },
                     [&second] { second.reset(); }});
    EXPECT_EQ(innermost.use_count(), 1) << "round " << round;
  }
}

TEST(NestedTypeRelease, MayHappenWhileAnotherThreadDropsEveryLevel) {
  constexpr int kRounds = 20;
  for (int round = 0; round < kRounds; ++round) {
    const TypePtr innermost = Leaf();
    std::vector<InstantiationPtr> levels = {ListOf(innermost)};
    for (int level = 0; level < 20000; ++level) levels.push_back(ListOf(Generic(levels.back())));
    TypePtr type = Generic(levels.back());
    ReleaseTogether({[&type] { type.reset(); },
                     [&levels] {
                       while (!levels.empty()) levels.pop_back();
                     }});
    EXPECT_EQ(innermost.use_count(), 1) << "round " << round;
  }
}

}  // namespace
