#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <zelk/enum.h>

namespace {

class Foo : public Zelk::GeneratedEnum<Foo> {
 public:
  enum Enumerator { BAR, BAZ, UNKNOWN };

  Foo() : GeneratedEnum(UNKNOWN) {}

  Foo(Enumerator value) : GeneratedEnum(value) {}  // NOLINT(google-explicit-constructor)
};

class Qux : public Zelk::GeneratedEnum<Qux> {
 public:
  enum Enumerator { QUUX, UNKNOWN };

  Qux() : GeneratedEnum(UNKNOWN) {}

  Qux(Enumerator value) : GeneratedEnum(value) {}  // NOLINT(google-explicit-constructor)
};

template <typename Left, typename Right, typename = void>
struct IsComparable : std::false_type {};

template <typename Left, typename Right>
struct IsComparable<Left, Right,
                    std::void_t<decltype(std::declval<Left>() == std::declval<Right>())>>
    : std::true_type {};

TEST(Enum, IsUnknownByDefault) {
  EXPECT_EQ(Foo().Value(), Foo::UNKNOWN);
  EXPECT_EQ(Foo().Text(), "");
}

TEST(Enum, HoldsAnEnumerator) {
  const Foo foo = Foo::BAZ;
  EXPECT_EQ(foo.Value(), 1);
  EXPECT_EQ(foo.Text(), "");
}

TEST(Enum, KeepsAnUnknownText) {
  const Foo foo = Foo::Unknown("CORGE");
  EXPECT_EQ(foo.Value(), Foo::UNKNOWN);
  EXPECT_EQ(foo.Text(), "CORGE");
}

TEST(Enum, IsEqualIfValueAndTextAreEqual) {
  EXPECT_TRUE(Foo(Foo::BAR) == Foo(Foo::BAR));
  EXPECT_TRUE(Foo() == Foo(Foo::UNKNOWN));
  EXPECT_TRUE(Foo::Unknown("CORGE") == Foo::Unknown("CORGE"));
  EXPECT_FALSE(Foo(Foo::BAR) != Foo(Foo::BAR));
}

TEST(Enum, DiffersIfValueOrTextDiffer) {
  EXPECT_TRUE(Foo(Foo::BAR) != Foo(Foo::BAZ));
  EXPECT_TRUE(Foo::Unknown("CORGE") != Foo::Unknown("GRAULT"));
  EXPECT_TRUE(Foo::Unknown("CORGE") != Foo());
  EXPECT_FALSE(Foo(Foo::BAR) == Foo(Foo::BAZ));
}

TEST(Enum, ComparesWithEnumeratorsOnEitherSide) {
  const Foo foo = Foo::BAR;
  EXPECT_TRUE(foo == Foo::BAR);
  EXPECT_TRUE(Foo::BAR == foo);
  EXPECT_TRUE(foo != Foo::BAZ);
}

TEST(Enum, DoesNotCompareWithOtherEnumerations) {
  EXPECT_TRUE((IsComparable<Foo, Foo>::value));
  EXPECT_TRUE((IsComparable<Foo, Foo::Enumerator>::value));
  EXPECT_FALSE((IsComparable<Foo, Qux>::value));
  EXPECT_FALSE((IsComparable<Foo, Qux::Enumerator>::value));
}

TEST(Enum, MovesWithoutThrowing) {
  EXPECT_TRUE(std::is_nothrow_move_constructible<Foo>::value);
  EXPECT_TRUE(std::is_nothrow_move_assignable<Foo>::value);
}

}  // namespace
