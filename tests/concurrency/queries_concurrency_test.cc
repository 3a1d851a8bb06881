#include <array>
#include <shared_mutex>
#include <string>

#include <gtest/gtest.h>

#include "concurrency/all_answers.h"
#include "support/threads.h"

// Const operations of a container run at the same time on any threads; changes run alone.

namespace Zelk::Testing {
namespace {

constexpr std::size_t kThreads = 8;

template <typename Domain>
class ConcurrentQueries : public testing::Test {
 protected:
  ConcurrentQueries() {
    if (!sources_.CreateAt("own", OwnMetadata<Domain>()).empty() ||
        !sources_.Create("foo", Domain::File("foo")).empty()) {
      throw std::runtime_error("no sources");
    }
  }

  Sources<Domain> sources_;
};

TYPED_TEST_SUITE(ConcurrentQueries, DomainsUnderTest, DomainName);

TYPED_TEST(ConcurrentQueries, ReturnTheSameFromOneContainer) {
  const auto& container = *this->sources_.Shared();
  const std::string expected = AllAnswers(container);
  EXPECT_NE(expected.find("foo"), std::string::npos);
  EXPECT_EQ(expected.find("something for an unknown id"), std::string::npos);

  std::array<std::string, kThreads> answers;
  InThreads(kThreads, [&](std::size_t index) { answers[index] = AllAnswers(container); });

  for (const auto& answer : answers) EXPECT_EQ(answer, expected);
}

TYPED_TEST(ConcurrentQueries, ReturnTheSameFromOneService) {
  using Service = typename TypeParam::SourceService;
  Service service(this->sources_.Shared());
  const Lines unknown = ErrorOf(Ask(service, &Service::Get, std::string(kNoSuchId)));

  InThreads(kThreads, [&](std::size_t) {
    for (int round = 0; round < 20; ++round) {
      EXPECT_EQ(ValueOf(Ask(service, &Service::List)), (std::list<std::string>{"foo", "own"}));
      EXPECT_EQ(ValueOf(Ask(service, &Service::Get, std::string("foo")))->description, "foo");
      EXPECT_EQ(ErrorOf(Ask(service, &Service::Get, std::string(kNoSuchId))), unknown);
    }
  });
}

TYPED_TEST(ConcurrentQueries, SeeWholeChangesThatRunAlone) {
  auto& container = *this->sources_.Shared();
  std::shared_mutex alone;
  const std::string with = AllAnswers(container);
  container.DeleteSource("foo");
  const std::string without = AllAnswers(container);

  InThreads(kThreads, [&](std::size_t index) {
    for (int round = 0; round < 5; ++round) {
      if (index == 0) {
        const std::unique_lock<std::shared_mutex> change(alone);
        this->sources_.CreateAt("foo", this->sources_.Path("foo"));
      } else if (index == 1) {
        const std::unique_lock<std::shared_mutex> change(alone);
        container.DeleteSource("foo");
      } else if (index == 2) {
        const std::unique_lock<std::shared_mutex> change(alone);
        EXPECT_EQ(container.ReloadSource(boost::none), nullptr);
      } else {
        const std::shared_lock<std::shared_mutex> query(alone);
        const std::string answers = AllAnswers(container);
        EXPECT_TRUE(answers == with || answers == without) << answers;
      }
    }
  });
}

}  // namespace
}  // namespace Zelk::Testing
