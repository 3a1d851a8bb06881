#include <new>

#include <gmock/gmock.h>

#include "domains/table.h"
#include "host/host.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// A second domain, to see that a row in the table is all that the host needs to know of one.

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::TempFolder;
using Zelk::Tool::Domain;
using Zelk::Tool::DomainTable;
using Zelk::Tool::Host;
using Zelk::Tool::Ids;
using Zelk::Tool::Kind;
using Zelk::Tool::LoadReport;
using Zelk::Tool::Message;
using Zelk::Tool::Names;
using Zelk::Tool::ServiceError;

namespace {

/// Knows components, as the first domain does, and paints. Refuses a source called "bad", and has
/// no memory for one called "huge".
class Colours final : public Domain {
 public:
  std::optional<ServiceError> CreateSource(const std::string& id,
                                           const std::string& /*path*/) override {
    if (id == "huge") throw std::bad_alloc();
    if (id != "bad") return std::nullopt;
    return ServiceError{"error", {Message{"colours.parse.error", "at %2%", {"7", "3"}}}};
  }

  std::optional<ServiceError> DeleteSource(const std::string& /*id*/) override {
    return std::nullopt;
  }

  std::optional<ServiceError> ReloadSource(const boost::optional<std::string>& /*id*/) override {
    return std::nullopt;
  }

  std::string FingerprintOf(const std::string& /*id*/) override { return ""; }

  const std::vector<Kind>& Kinds() const override { return kinds_; }

 private:
  std::vector<Kind> kinds_{
      {"component",
       {},
       {{0, 0},
        [](const Ids& /*ids*/) {
          return Zelk::Tool::Outcome<Names>{Names{"red component"}, std::nullopt};
        }},
       {},
       {}},
      {"paint", {}, {}, {}, {}}};
};

const DomainTable& TwoDomains() {
  static const DomainTable table{
      Zelk::Tool::MetamodelDomain(),
      {"colours", "colours", "colours.parse.error", "colours.exists",
       []() -> std::unique_ptr<Domain> { return std::make_unique<Colours>(); }}};
  return table;
}

Names FirstListed(const Host& host, const std::string& kind) {
  return *host.FindKinds(kind).front().kind->list.call({}).answer;
}

}  // namespace

TEST(Domains, RootKeyDecidesTheDomain) {
  const TempFolder folder;
  Host host(TwoDomains());
  const std::string colours = folder.Write("a.json", R"({"x": {"metamodel": 1}, "colours": 1})");
  EXPECT_EQ(host.Load({"a", colours}).domain, "colours");
  EXPECT_EQ(host.Load({"b", kDataFolder + "/inventory.json"}).domain, "metamodel");
  const std::string both = folder.Write("c.json", R"({"metamodel": 1, "colours": 1})");
  EXPECT_EQ(host.Load({"c", both}).domain, "metamodel");
}

TEST(Domains, FileWithoutRootKeyBelongsToNone) {
  const TempFolder folder;
  Host host(TwoDomains());
  for (const char* text : {"", " \n", "{}", R"({"other": 1})", R"([{"colours": 1}])",
                           R"("colours")", R"({"colours\u0000": 1})", R"({"Colours": 1})"}) {
    const LoadReport report = host.Load({"a", folder.Write("a.json", text)});
    EXPECT_EQ(report.domain, "") << text;
    ASSERT_EQ(report.problems.size(), 1U) << text;
    EXPECT_THAT(report.problems.front().message.Text(),
                AllOf(StartsWith("Not a metadata file: "), HasSubstr("metamodel or colours")));
  }
}

TEST(Domains, FileThatCannotBeReadGoesToTheFirstDomain) {
  const TempFolder folder;
  Host host(TwoDomains());
  EXPECT_EQ(host.Load({"a", folder.Write("a.json", "?")}).domain, "metamodel");
  EXPECT_EQ(host.Load({"a", folder.Path("missing.json")}).domain, "metamodel");
}

TEST(Domains, KindOfTwoDomainsPrefersTheOneWithSources) {
  const TempFolder folder;
  Host host(TwoDomains());
  EXPECT_THAT(FirstListed(host, "components"), IsEmpty());
  host.Load({"a", folder.Write("a.json", R"({"colours": 1})")});
  EXPECT_THAT(FirstListed(host, "components"), ElementsAre("red component"));
  host.Load({"b", kDataFolder + "/inventory.json"});
  EXPECT_THAT(FirstListed(host, "components"), ElementsAre("com.acme"));
  EXPECT_THAT(FirstListed(host, "colours:components"), ElementsAre("red component"));
}

TEST(Domains, KindNamesAreListedOnce) {
  EXPECT_THAT(Host(TwoDomains()).KindNames(),
              ElementsAre("component", "package", "service", "operation", "structure",
                          "enumeration", "resource", "model", "hidden", "source", "paint"));
}

TEST(Domains, KindIsNotFoundInAnotherDomain) {
  const Host host(TwoDomains());
  EXPECT_EQ(host.FindKinds("paint").size(), 1U);
  EXPECT_EQ(host.FindKinds("colours:paints").size(), 1U);
  EXPECT_THAT(host.FindKinds("metamodel:paint"), IsEmpty());
  EXPECT_THAT(host.FindKinds("colours:"), IsEmpty());
}

TEST(Domains, ParseErrorHasItsPosition) {
  const TempFolder folder;
  const std::string path = folder.Write("bad.json", "{\n\"colours\": 1}");
  const LoadReport report = Zelk::Tool::LoadAlone({"bad", path}, TwoDomains());
  ASSERT_EQ(report.problems.size(), 1U);
  EXPECT_EQ(Zelk::Tool::ProblemLine(report.file, report.problems.front()),
            path + ":2:2: Missing a comma or ']' after an array element. [colours.parse.error: 7]");
}

TEST(Domains, DomainWithoutOutlineAddsNothing) {
  const TempFolder folder;
  Host host(TwoDomains());
  host.Load({"a", folder.Write("a.json", R"({"colours": 1})")});
  host.Load({"b", kDataFolder + "/inventory.json"});
  std::vector<LoadReport> failures;
  const auto outlines =
      host.Outlines(failures, [](std::size_t, std::size_t, const std::string&) {});
  EXPECT_THAT(failures, IsEmpty());
  ASSERT_EQ(outlines.size(), 2U);
  EXPECT_FALSE(outlines.front().outline.empty());
  EXPECT_TRUE(outlines.back().outline.empty());
  EXPECT_THAT(host.About(TwoDomains().front(), {"component", {"com.acme"}}), IsEmpty());
}

TEST(Domains, SourceThatMemoryIsTooSmallForIsNotLoaded) {
  const TempFolder folder;
  const std::string colours = folder.Write("a.json", R"({"colours": 1})");
  Host host(TwoDomains());
  EXPECT_THROW(host.Load({"huge", colours}), std::bad_alloc);
  EXPECT_THAT(host.SourceIds(), IsEmpty());
  EXPECT_TRUE(host.Load({"a", colours}).problems.empty());
  EXPECT_THAT(host.SourceIds(), ElementsAre("a"));
}

TEST(Domains, WatcherGetsTheNumberOfEachFileAndOfAll) {
  Host host(Zelk::Tool::Domains());
  const std::string inventory = kDataFolder + "/inventory.json";
  const std::string network = kDataFolder + "/network.json";
  host.Load({"b", inventory});
  host.Load({"a", network});
  std::vector<std::string> seen;
  const auto watcher = [&seen](std::size_t number, std::size_t total, const std::string& file) {
    seen.push_back(std::to_string(number) + " of " + std::to_string(total) + ": " + file);
  };
  std::vector<LoadReport> failures;
  host.Outlines(failures, watcher);
  EXPECT_THAT(seen, ElementsAre("1 of 2: " + network, "2 of 2: " + inventory));
  seen.clear();
  host.Reload(std::nullopt, watcher);
  EXPECT_THAT(seen, ElementsAre("1 of 2: " + network, "2 of 2: " + inventory));
}
