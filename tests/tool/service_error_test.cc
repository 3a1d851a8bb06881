#include "host/service_error.h"

#include <list>
#include <memory>
#include <string>

#include <gmock/gmock.h>

#include <com/orvane/zelk/std/errors.h>
#include <zelk/data/error_factory.h>

#include "host/queries.h"

using testing::ElementsAre;
using testing::IsEmpty;
using Zelk::AsyncResult;
using Zelk::Core::AsyncActivation;
using Zelk::Data::ErrorFactory;
using Zelk::Tool::Names;
using Zelk::Tool::Outcome;
using Zelk::Tool::ServiceError;

namespace {

/// Breaks its word: delivers neither an answer nor an error.
class SilentSvc {
 public:
  void List(const std::shared_ptr<AsyncActivation>& /*activation*/,
            const AsyncResult<std::list<std::string>>& /*result*/) {}
};

}  // namespace

TEST(ServiceError, WithoutMessagesShowsItsName) {
  using Com::Orvane::Zelk::Std::Errors::Unsupported;
  const auto error = ServiceError::From(*ErrorFactory::GetError<Unsupported>());
  EXPECT_EQ(error.name, "com.orvane.zelk.std.errors.unsupported");
  ASSERT_EQ(error.messages.size(), 1U);
  EXPECT_EQ(error.messages.front().id, error.name);
  EXPECT_EQ(error.messages.front().Text(), error.name);
  EXPECT_THAT(error.messages.front().arguments, IsEmpty());
}

TEST(ServiceError, ReportsAServiceThatDeliversNothing) {
  SilentSvc service;
  const Outcome<Names> names = Zelk::Tool::ListQuery(service, &SilentSvc::List).call({});
  EXPECT_FALSE(names.answer);
  ASSERT_TRUE(names.error);
  ASSERT_EQ(names.error->messages.size(), 1U);
  EXPECT_EQ(names.error->messages.front().Text(), "the service gave no answer");
}
