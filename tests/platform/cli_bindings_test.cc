#include <memory>
#include <string>

#include <boost/optional/optional_io.hpp>
#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/cli/records.h>

namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

template <typename Identity>
class CliIdentity : public testing::Test {};

using Identities =
    testing::Types<Bindings::Cli::NamespaceSvc::Identity, Bindings::Cli::CommandSvc::Identity>;
TYPED_TEST_SUITE(CliIdentity, Identities, );

TYPED_TEST(CliIdentity, EqualsOneOfTheSamePathAndName) {
  const TypeParam identity("a.b", "c");
  EXPECT_TRUE(identity == TypeParam("a.b", "c"));
  EXPECT_FALSE(identity != TypeParam("a.b", "c"));
  for (const TypeParam& other : {TypeParam("a", "c"), TypeParam("a.b", "d"), TypeParam("c", "a.b"),
                                 TypeParam("a", "b.c"), TypeParam("A.b", "c")}) {
    EXPECT_FALSE(identity == other) << other.path << ' ' << other.name;
    EXPECT_TRUE(identity != other) << other.path << ' ' << other.name;
  }
}

TYPED_TEST(CliIdentity, IsOrderedByPathThenName) {
  EXPECT_TRUE(TypeParam("a", "z") < TypeParam("a.b", "c"));
  EXPECT_FALSE(TypeParam("a.b", "c") < TypeParam("a", "z"));
  EXPECT_TRUE(TypeParam("a", "b") < TypeParam("a", "c"));
  EXPECT_FALSE(TypeParam("a", "b") < TypeParam("a", "b"));
  EXPECT_TRUE(TypeParam("", "z") < TypeParam("A", "a"));
  EXPECT_TRUE(TypeParam("Z", "a") < TypeParam("a", "a"));
  EXPECT_TRUE(TypeParam("z", "a") < TypeParam("\xc3\xa4", "a"));
}

TEST(CliCommandInfo, HoldsItsArguments) {
  using namespace Bindings::Cli::CommandSvc;  // NOLINT(google-build-using-namespace): a test
  const auto identity = std::make_shared<const Identity>("a.b", "c");
  const auto option = std::make_shared<const OptionInfo>("long", std::string("l"), "field", "foo",
                                                         "Type", GenericType::LIST);
  const auto output = std::make_shared<const OutputInfo>(
      "structure", std::list<std::shared_ptr<const OutputFieldInfo>>{
                       std::make_shared<const OutputFieldInfo>("field", "Field")});
  const Info info(identity, "bar", "service", "operation", {option},
                  FormatterType(FormatterType::TABLE), {output});
  EXPECT_EQ(info.identity, identity);
  EXPECT_EQ(info.description, "bar");
  EXPECT_EQ(info.service_id, "service");
  EXPECT_EQ(info.operation_id, "operation");
  ASSERT_EQ(info.options.size(), 1U);
  EXPECT_EQ(info.options.front(), option);
  ASSERT_TRUE(info.formatter);
  EXPECT_EQ(info.formatter->Value(), FormatterType::TABLE);
  ASSERT_EQ(info.output_field_list.size(), 1U);
  EXPECT_EQ(info.output_field_list.front()->output_fields.front()->display_name, "Field");
  EXPECT_EQ(option->short_option, boost::make_optional<std::string>("l"));
}

}  // namespace
