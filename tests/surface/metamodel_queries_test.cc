#include <list>
#include <memory>
#include <string>

#include <boost/none.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/metamodel_under_test.h"

// Components, packages, services and operations: which are listed, in which order, and which of
// several of one name is found.

namespace Zelk::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(EmptyMetamodel, ListsNothing) {
  const MetamodelSources sources;
  EXPECT_THAT(sources->ListSources(), IsEmpty());
  EXPECT_THAT(sources->ListComponents(), IsEmpty());
  EXPECT_THAT(sources->ListPackages(), IsEmpty());
  EXPECT_THAT(sources->ListServices(), IsEmpty());
  EXPECT_THAT(sources->ListHiddens(), IsEmpty());
  EXPECT_THAT(sources->ListStructures(), IsEmpty());
  EXPECT_THAT(sources->ListEnumerations(), IsEmpty());
  EXPECT_THAT(sources->ListResources(), IsEmpty());
  EXPECT_FALSE(sources->ListOperations("").has_value());
  EXPECT_FALSE(sources->ListModels("").has_value());
}

TEST(EmptyMetamodel, FindsNothing) {
  const MetamodelSources sources;
  EXPECT_EQ(sources->SourcesInfo(""), nullptr);
  EXPECT_EQ(sources->ComponentInfo(""), nullptr);
  EXPECT_EQ(sources->PackageInfo(""), nullptr);
  EXPECT_EQ(sources->ServiceInfo(""), nullptr);
  EXPECT_EQ(sources->OperationInfo("", ""), nullptr);
  EXPECT_EQ(sources->StructureInfo(""), nullptr);
  EXPECT_EQ(sources->EnumerationInfo(""), nullptr);
  EXPECT_EQ(sources->ComponentFingerprint(""), "");
}

TEST(ListComponents, WalksTheSources) {
  const ComponentSources sources{
      {"c", Component("z")}, {"a", Component("z")}, {"B", Component("y")}, {"b", Component("x")}};
  EXPECT_THAT(sources->ListComponents(), ElementsAre("y", "z", "x", "z"));
}

TEST(ComponentInfo, PrefersTheFirstSource) {
  const ComponentSources sources{{"b", Component("c").Doc("second")},
                                 {"a", Component("c").Doc("first")},
                                 {"c", Component("d").Doc("other")}};
  EXPECT_THAT(sources->ListComponents(), ElementsAre("c", "c", "d"));
  EXPECT_EQ(DocOf(sources->ComponentInfo("c")), "first");
  EXPECT_EQ(DocOf(sources->ComponentInfo("d")), "other");
  ASSERT_EQ(sources->DeleteSource("a"), nullptr);
  EXPECT_EQ(DocOf(sources->ComponentInfo("c")), "second");
  ASSERT_EQ(sources->DeleteSource("b"), nullptr);
  EXPECT_EQ(DocOf(sources->ComponentInfo("c")), "none");
}

TEST(ComponentInfo, HasTheFingerprintOfItsSource) {
  const auto first = Component("c").Doc("first");
  const auto second = Component("c").Doc("second");
  const ComponentSources sources{{"b", second}, {"a", first}};
  EXPECT_EQ(sources->ComponentInfo("c")->fingerprint, Md5(MetamodelFile(first)));
  EXPECT_EQ(sources->ComponentFingerprint("c"), Md5(MetamodelFile(first)));
  ASSERT_EQ(sources->DeleteSource("a"), nullptr);
  EXPECT_EQ(sources->ComponentInfo("c")->fingerprint, Md5(MetamodelFile(second)));
  EXPECT_EQ(sources->ComponentFingerprint("c"), Md5(MetamodelFile(second)));
  EXPECT_EQ(sources->ComponentFingerprint("d"), "");
}

TEST(ListPackages, WalksSourcesThenPackages) {
  const ComponentSources sources{
      {"c", Component("z", {Package("r"), Package("p")})},
      {"b", Component("y", {Package("p"), Package("P")})},
      {"a", Component("z", {Package("q"), Package("p"), Package("p.a"), Package("")})}};
  EXPECT_THAT(sources->ListPackages(), ElementsAre("", "p", "p.a", "q", "P", "p", "p", "r"));
}

TEST(PackageInfo, PrefersTheFirstSource) {
  const ComponentSources sources{{"c", Component("x", {Package("q").Doc("c")})},
                                 {"b", Component("y", {Package("p").Doc("b")})},
                                 {"a", Component("z", {Package("p").Doc("a")})}};
  EXPECT_EQ(DocOf(sources->PackageInfo("p")), "a");
  EXPECT_EQ(DocOf(sources->PackageInfo("q")), "c");
  ASSERT_EQ(sources->DeleteSource("a"), nullptr);
  EXPECT_EQ(DocOf(sources->PackageInfo("p")), "b");
}

TEST(ListServices, WalksSourcesThenPackagesThenServices) {
  const ComponentSources sources{
      {"c", Component("z", {Package("p", {Service("s")})})},
      {"b", Component("y", {Package("p", {Service("s")})})},
      {"a", Component("z", {Package("q", {Service("a"), Service("s")}),
                            Package("p", {Service("t"), Service("s"), Service("S")})})}};
  EXPECT_THAT(sources->ListServices(), ElementsAre("S", "s", "t", "a", "s", "s", "s"));
}

TEST(ServiceInfo, PrefersTheFirstPackage) {
  const ComponentSources sources{
      {"a", Component("c", {Package("q", {Service("s").Doc("q"), Service("t").Doc("only")}),
                            Package("p", {Service("s").Doc("p")})})}};
  EXPECT_EQ(DocOf(sources->ServiceInfo("s")), "p");
  EXPECT_EQ(DocOf(sources->ServiceInfo("t")), "only");
}

TEST(ServiceInfo, PrefersTheFirstSourceEvenInALaterPackage) {
  const ComponentSources sources{
      {"c", Component("a", {Package("p", {Service("s").Doc("c"), Service("t").Doc("only")})})},
      {"b", Component("b", {Package("p", {Service("s").Doc("b")})})},
      {"a", Component("c", {Package("q", {Service("s").Doc("a")})})}};
  EXPECT_EQ(DocOf(sources->ServiceInfo("s")), "a");
  EXPECT_EQ(DocOf(sources->ServiceInfo("t")), "only");
  ASSERT_EQ(sources->DeleteSource("a"), nullptr);
  EXPECT_EQ(DocOf(sources->ServiceInfo("s")), "b");
}

TEST(ListOperations, ListsTheOperationsOfTheFirstService) {
  const ComponentSources sources{
      {"b", Component("c", {Package("p", {Service("s", {Operation("x")})})})},
      {"a", Component("c", {Package("q", {Service("s", {Operation("y")})}),
                            Package("p", {Service("s", {Operation("o"), Operation("get"),
                                                        Operation("Get"), Operation("")})})})}};
  const auto operations = sources->ListOperations("s");
  ASSERT_TRUE(operations.has_value());
  EXPECT_THAT(*operations, ElementsAre("", "Get", "get", "o"));
}

TEST(ListOperations, IsEmptyForAServiceWithoutOperations) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("s")})})},
      {"b", Component("c", {Package("p", {Service("s", {Operation("o")})})})}};
  const auto operations = sources->ListOperations("s");
  ASSERT_TRUE(operations.has_value());
  EXPECT_THAT(*operations, IsEmpty());
}

TEST(ListOperations, ReturnsNoListForAnUnknownService) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("s", {Operation("o")})})})}};
  for (const std::string service : {"", "S", "p", "p.s", "o", "c"}) {
    EXPECT_FALSE(sources->ListOperations(service).has_value()) << service;
  }
}

TEST(OperationInfo, PrefersTheFirstService) {
  const ComponentSources sources{
      {"b", Component("c", {Package("p", {Service("s", {Operation("o").Doc("b")})})})},
      {"a", Component("c", {Package("q", {Service("s", {Operation("o").Doc("q")})}),
                            Package("p", {Service("s", {Operation("o").Doc("p")})})})}};
  EXPECT_EQ(DocOf(sources->OperationInfo("s", "o")), "p");
}

TEST(OperationInfo, IgnoresLaterServicesOfTheName) {
  const ComponentSources sources{
      {"a", Component("c", {Package("q", {Service("s", {Operation("o")})}),
                            Package("p", {Service("s", {Operation("x")})})})},
      {"b", Component("c", {Package("p", {Service("s", {Operation("o")})})})}};
  EXPECT_EQ(sources->OperationInfo("s", "o"), nullptr);
  EXPECT_NE(sources->OperationInfo("s", "x"), nullptr);
}

TEST(OperationInfo, IsNullForAnUnknownServiceOrOperation) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("s", {Operation("o")}),
                                          Service("t", {Operation("u")})})})}};
  EXPECT_NE(sources->OperationInfo("s", "o"), nullptr);
  EXPECT_EQ(sources->OperationInfo("s", "u"), nullptr);
  EXPECT_EQ(sources->OperationInfo("s", "O"), nullptr);
  EXPECT_EQ(sources->OperationInfo("s", ""), nullptr);
  EXPECT_EQ(sources->OperationInfo("", "o"), nullptr);
  EXPECT_EQ(sources->OperationInfo("p.s", "o"), nullptr);
  EXPECT_EQ(sources->OperationInfo("o", "s"), nullptr);
}

TEST(MetamodelLookups, NeedTheExactName) {
  const ComponentSources sources{
      {"a",
       Component("a.c", {Package("a.p", {Service("a.s"), Structure("a.t"), Enumeration("a.e")})})}};
  for (const std::string end : {"", ".", " ", "x"}) {
    const bool exact = end.empty();
    EXPECT_EQ(sources->ComponentInfo("a.c" + end) != nullptr, exact) << end;
    EXPECT_EQ(!sources->ComponentFingerprint("a.c" + end).empty(), exact) << end;
    EXPECT_EQ(sources->PackageInfo("a.p" + end) != nullptr, exact) << end;
    EXPECT_EQ(sources->ServiceInfo("a.s" + end) != nullptr, exact) << end;
    EXPECT_EQ(sources->StructureInfo("a.t" + end) != nullptr, exact) << end;
    EXPECT_EQ(sources->EnumerationInfo("a.e" + end) != nullptr, exact) << end;
  }
}

TEST(MetamodelLookups, RefusePartsAndOtherCasesOfAName) {
  const ComponentSources sources{
      {"a",
       Component("a.c", {Package("a.p", {Service("a.s"), Structure("a.t"), Enumeration("a.e")})})}};
  for (const std::string name : {"", "a", ".", "c", "p", "s", "t", "e", "A.C", "A.P", "A.S", "A.T",
                                 "A.E", "a.p.a.s", "a.c.a.p"}) {
    EXPECT_EQ(sources->ComponentInfo(name), nullptr) << name;
    EXPECT_EQ(sources->ComponentFingerprint(name), "") << name;
    EXPECT_EQ(sources->PackageInfo(name), nullptr) << name;
    EXPECT_EQ(sources->ServiceInfo(name), nullptr) << name;
    EXPECT_EQ(sources->StructureInfo(name), nullptr) << name;
    EXPECT_EQ(sources->EnumerationInfo(name), nullptr) << name;
  }
}

TEST(MetamodelLookups, RefuseNamesOfOtherKinds) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("s", {Operation("o")}), Structure("t"),
                                          Enumeration("e")})})}};
  for (const std::string name : {"p", "s", "o", "t", "e", "a"}) {
    EXPECT_EQ(sources->ComponentInfo(name), nullptr) << name;
  }
  EXPECT_EQ(sources->PackageInfo("c"), nullptr);
  EXPECT_EQ(sources->ServiceInfo("t"), nullptr);
  EXPECT_EQ(sources->StructureInfo("e"), nullptr);
  EXPECT_EQ(sources->EnumerationInfo("t"), nullptr);
}

TEST(MetamodelLookups, CompareNamesPastZeroBytes) {
  const ComponentSources sources{
      {"a", Component("x\\u0000", {Package("x\\u0000a"), Package("x\\u0000b").Doc("b")})}};
  EXPECT_NE(sources->ComponentInfo(std::string("x\0", 2)), nullptr);
  EXPECT_EQ(sources->ComponentInfo("x"), nullptr);
  EXPECT_EQ(DocOf(sources->PackageInfo(std::string("x\0b", 3))), "b");
  EXPECT_EQ(sources->PackageInfo("x"), nullptr);
  EXPECT_THAT(sources->ListPackages(), ElementsAre(std::string("x\0a", 3), std::string("x\0b", 3)));
}

TEST(MetamodelLookups, KeepTheFirstOfARepeatedNameInAFile) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("s", {Operation("o").Doc("1"),
                                                        Operation("o").Doc("2"), Operation("x")})
                                              .Doc("1"),
                                          Service("s", {Operation("y")}).Doc("2")})
                                .Doc("1"),
                            Package("p", {Service("t")}).Doc("2")})}};
  EXPECT_THAT(sources->ListPackages(), ElementsAre("p"));
  EXPECT_EQ(DocOf(sources->PackageInfo("p")), "1");
  EXPECT_THAT(sources->ListServices(), ElementsAre("s"));
  EXPECT_EQ(DocOf(sources->ServiceInfo("s")), "1");
  EXPECT_THAT(*sources->ListOperations("s"), ElementsAre("o", "x"));
  EXPECT_EQ(DocOf(sources->OperationInfo("s", "o")), "1");
}

TEST(MetamodelLookups, ReturnRecordsWithoutCopies) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("s", {Operation("o")}), Structure("t"),
                                          Enumeration("e")})})}};
  const auto component = sources->ComponentInfo("c")->info;
  EXPECT_EQ(sources->ComponentInfo("c")->info, component);
  const auto package = sources->PackageInfo("p");
  EXPECT_EQ(component->packages.at("p"), package);
  EXPECT_EQ(package->services.at("s"), sources->ServiceInfo("s"));
  EXPECT_EQ(package->services.at("s")->operations.at("o"), sources->OperationInfo("s", "o"));
  EXPECT_EQ(package->structures.at("t"), sources->StructureInfo("t"));
  EXPECT_EQ(package->enumerations.at("e"), sources->EnumerationInfo("e"));
}

TEST(MetamodelLookups, ReturnRecordsThatOutliveTheirSource) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("s", {Operation("o").Doc("old")}),
                                          Structure("t", {Enumeration("e")}).Doc("old")})})}};
  const auto operation = sources->OperationInfo("s", "o");
  const auto structure = sources->StructureInfo("t");
  const std::string before = Dump(*operation) + Dump(*structure);
  sources.Write("a", MetamodelFile(Component("d", {Package("p", {Structure("t").Doc("new")})})));
  ASSERT_EQ(sources->ReloadSource(boost::none), nullptr);
  EXPECT_EQ(DocOf(sources->StructureInfo("t")), "new");
  EXPECT_EQ(sources->OperationInfo("s", "o"), nullptr);
  EXPECT_EQ(Dump(*operation) + Dump(*structure), before);
  ASSERT_EQ(sources->DeleteSource("a"), nullptr);
  EXPECT_EQ(Dump(*operation) + Dump(*structure), before);
}

TEST(ListHiddens, IsAlwaysEmpty) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("s", {Operation("o")})
                                              .Annotated(R"("Hidden": {"value": "true"})")})})}};
  ASSERT_THAT(sources->ListServices(), ElementsAre("s"));
  EXPECT_THAT(sources->ListHiddens(), IsEmpty());
}

TEST(ComponentWithoutPackages, IsListedAndFound) {
  const ComponentSources sources{{"a", Component("c")}};
  EXPECT_THAT(sources->ListComponents(), ElementsAre("c"));
  ASSERT_NE(sources->ComponentInfo("c"), nullptr);
  EXPECT_THAT(sources->ComponentInfo("c")->info->packages, IsEmpty());
  EXPECT_THAT(sources->ListPackages(), IsEmpty());
}

}  // namespace
}  // namespace Zelk::Testing
