#include <string>

#include <gtest/gtest.h>

#include "concurrency/all_answers.h"
#include "support/threads.h"

// The library has no state beside its containers: threads that each own one need no lock.

namespace Zelk::Testing {
namespace {

/// The life of a container, with all that fails in it, too: the messages, enumerations, digests and
/// numbers that it goes through are made from what all threads share.
template <typename Domain>
void LiveAlone() {
  const Sources<Domain> sources;
  EXPECT_EQ(sources.CreateAt("own", OwnMetadata<Domain>()), Lines{});
  const std::string answers = AllAnswers(*sources.Shared());
  for (int round = 0; round < 5; ++round) {
    EXPECT_EQ(sources.Create("foo", Domain::File("bar")), Lines{});
    EXPECT_EQ(sources.CreateAt("foo", sources.Path("foo")), AlreadyExists<Domain>("foo"));
    sources.WriteRecord("foo", "baz");
    EXPECT_EQ(ErrorLines(sources->ReloadSource(Some("foo"))), Lines{});
    EXPECT_NE(Domain::Find(*sources.Shared(), "baz"), nullptr);
    EXPECT_EQ(sources.Create("qux", "[1"), ParseError<Domain>(7, 2));
    EXPECT_EQ(sources.Create("qux", std::string("{\"") + Domain::kRootKey + "\": 1}"),
              Domain::InvalidRoot());
    EXPECT_EQ(ErrorLines(sources->DeleteSource("qux")), SourceNotFound<Domain>("qux"));
    EXPECT_EQ(ErrorLines(sources->DeleteSource("foo")), Lines{});
  }
  EXPECT_EQ(AllAnswers(*sources.Shared()), answers);
}

TEST(ConcurrentContainers, AreIndependentInAllDomains) {
  InThreads(6, [](std::size_t index) {
    switch (index % 3) {
      case 0:
        return LiveAlone<MetamodelUnderTest>();
      case 1:
        return LiveAlone<AuthenticationUnderTest>();
      default:
        return LiveAlone<CliUnderTest>();
    }
  });
}

TEST(ConcurrentContainers, MayBeTheFirstUseOfTheLibrary) {
  InThreads(6, [](std::size_t) {
    const auto container = CliUnderTest::Container::GetInstance();
    EXPECT_EQ(ErrorLines(container->DeleteSource("foo")), SourceNotFound<CliUnderTest>("foo"));
    EXPECT_EQ(container->SourceFingerprint(boost::none), Md5(""));
  });
}

}  // namespace
}  // namespace Zelk::Testing
