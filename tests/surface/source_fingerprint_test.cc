#include <string>

#include <boost/none.hpp>
#include <gtest/gtest.h>

#include "surface/domains_under_test.h"

namespace Zelk::Testing {
namespace {

template <typename Domain>
class SourceFingerprint : public testing::Test {};

TYPED_TEST_SUITE(SourceFingerprint, DomainsUnderTest, DomainName);

TYPED_TEST(SourceFingerprint, IsTheDigestOfNothingWithoutSources) {
  const Sources<TypeParam> sources;
  EXPECT_EQ(sources->SourceFingerprint(boost::none), kDigestOfNothing);
}

TYPED_TEST(SourceFingerprint, IsEmptyForAnUnknownId) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  for (const std::string id : {"", "M", "m ", "n"}) {
    EXPECT_EQ(sources->SourceFingerprint(Some(id)), "") << id;
  }
}

TYPED_TEST(SourceFingerprint, IsTheDigestOfTheHexDigestOfTheFile) {
  const std::string text = TypeParam::File("foo");
  const Sources<TypeParam> sources{{"m", text}};
  EXPECT_EQ(sources->SourceFingerprint(Some("m")), Md5(Md5(text)));
  EXPECT_NE(sources->SourceFingerprint(Some("m")), Md5(text));
  EXPECT_EQ(sources->SourceFingerprint(boost::none), Md5(Md5(text)));
}

TYPED_TEST(SourceFingerprint, CombinesTheDigestsOfAllSourcesInIdOrder) {
  const std::string foo = TypeParam::File("foo");
  const std::string bar = TypeParam::File("bar");
  const std::string qux = TypeParam::File("qux");
  const Sources<TypeParam> sources{{"a", foo}, {"B", bar}, {"", qux}};
  EXPECT_EQ(sources->SourceFingerprint(boost::none), Md5(Md5(qux) + Md5(bar) + Md5(foo)));
  EXPECT_EQ(sources->SourceFingerprint(Some("")), Md5(Md5(qux)));
  EXPECT_EQ(sources->SourceFingerprint(Some("B")), Md5(Md5(bar)));
  ASSERT_EQ(sources->DeleteSource("B"), nullptr);
  EXPECT_EQ(sources->SourceFingerprint(boost::none), Md5(Md5(qux) + Md5(foo)));
}

TYPED_TEST(SourceFingerprint, DoesNotDependOnPathOrId) {
  const std::string text = TypeParam::File("foo");
  const Sources<TypeParam> sources{{"m", text}, {"n", text}};
  EXPECT_EQ(sources->SourceFingerprint(Some("m")), sources->SourceFingerprint(Some("n")));
  EXPECT_EQ(sources->SourceFingerprint(boost::none), Md5(Md5(text) + Md5(text)));
}

TYPED_TEST(SourceFingerprint, CoversEveryByteOfTheFile) {
  const std::string text = TypeParam::File("foo");
  for (const std::string& tail : {std::string("\n"), std::string("\r\n \t"), std::string(1, '\0'),
                                  std::string("\0 anything", 10)}) {
    const Sources<TypeParam> sources{{"m", text + tail}};
    EXPECT_EQ(sources->SourceFingerprint(Some("m")), Md5(Md5(text + tail))) << Quoted(tail);
  }
}

template <typename Domain>
class ComponentFingerprint : public testing::Test {};

using DomainsWithComponents = testing::Types<MetamodelUnderTest, AuthenticationUnderTest>;
TYPED_TEST_SUITE(ComponentFingerprint, DomainsWithComponents, DomainName);

TYPED_TEST(ComponentFingerprint, IsTheDigestOfTheFile) {
  const std::string text = TypeParam::File("foo");
  const Sources<TypeParam> sources{{"m", text}};
  EXPECT_EQ(sources->ComponentFingerprint("foo"), Md5(text));
  ASSERT_NE(sources->ComponentInfo("foo"), nullptr);
  EXPECT_EQ(sources->ComponentInfo("foo")->fingerprint, Md5(text));
}

TYPED_TEST(ComponentFingerprint, ChangesOnlyWhenAReloadSucceeds) {
  const Sources<TypeParam> sources{{"m", TypeParam::File("foo")}};
  sources.Write("m", "{");
  ASSERT_EQ(sources->ReloadSource(Some("m")), nullptr);
  EXPECT_EQ(sources->ComponentFingerprint("foo"), Md5(TypeParam::File("foo")));
  const std::string changed = TypeParam::File("foo") + "\n";
  sources.Write("m", changed);
  EXPECT_EQ(sources->ComponentFingerprint("foo"), Md5(TypeParam::File("foo")));
  ASSERT_EQ(sources->ReloadSource(Some("m")), nullptr);
  EXPECT_EQ(sources->ComponentFingerprint("foo"), Md5(changed));
}

TEST(KnownFile, HasKnownFingerprints) {
  const MetamodelSources sources{
      {"m", R"({"metamodel":{"component":{"name":"foo","documentation":"","metadata":{},)"
            R"("packages":[]}}})"}};
  EXPECT_EQ(sources->ComponentFingerprint("foo"), "7f3122d7ec2a06c1db5ae44dc504acfd");
  EXPECT_EQ(sources->SourceFingerprint(Some("m")), "067c140a8afd5f5f06cbc5363c417be7");
}

}  // namespace
}  // namespace Zelk::Testing
