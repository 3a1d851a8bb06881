#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <zelk/async_result.h>
#include <zelk/core/async_activation.h>
#include <zelk/core/async_context.h>
#include <zelk/data/values.h>

namespace {

using Zelk::AsyncResult;
using Zelk::Void;
using ErrorPtr = std::shared_ptr<const Zelk::Data::ErrorValue>;

// What a callback was given, and how often.
template <typename T>
struct Delivered {
  int calls = 0;
  boost::optional<T> value;
  ErrorPtr error;

  AsyncResult<T> Result() {
    return AsyncResult<T>([this](const boost::optional<T>& given, const ErrorPtr& why,
                                 const Zelk::Core::AsyncContext&) {
      ++calls;
      value = given;
      error = why;
    });
  }
};

// Counts in the copies how often the first one was copied.
struct CopyCounter {
  explicit CopyCounter(int& count) : copies(&count) {}

  CopyCounter(const CopyCounter& other) : copies(other.copies) { ++*copies; }

  CopyCounter& operator=(const CopyCounter&) = delete;
  ~CopyCounter() = default;

  int* copies;
};

TEST(AsyncResult, DeliversAValueWithoutAnError) {
  Delivered<std::string> delivered;
  delivered.Result()("foo");
  EXPECT_EQ(delivered.calls, 1);
  EXPECT_EQ(delivered.value.value_or("(none)"), "foo");
  EXPECT_EQ(delivered.error, nullptr);
}

TEST(AsyncResult, DeliversAnEmptyValue) {
  Delivered<std::string> delivered;
  delivered.Result()("");
  EXPECT_TRUE(delivered.value.has_value());
}

TEST(AsyncResult, DeliversAnErrorWithoutAValue) {
  const auto error = std::make_shared<const Zelk::Data::ErrorValue>("foo");
  Delivered<std::string> delivered;
  delivered.Result().error(error);
  EXPECT_EQ(delivered.calls, 1);
  EXPECT_FALSE(delivered.value.has_value());
  EXPECT_EQ(delivered.error, error);
}

TEST(AsyncResult, DeliversVoidWithoutAnArgument) {
  Delivered<Void> delivered;
  delivered.Result()();
  EXPECT_EQ(delivered.calls, 1);
  EXPECT_TRUE(delivered.value.has_value());
  EXPECT_EQ(delivered.error, nullptr);
}

TEST(AsyncResult, NeedsAValueUnlessItIsVoid) {
  EXPECT_TRUE((std::is_invocable<AsyncResult<Void>>::value));
  EXPECT_TRUE((std::is_invocable<AsyncResult<Void>, Void>::value));
  EXPECT_FALSE((std::is_invocable<AsyncResult<std::string>>::value));
}

TEST(AsyncResult, CopiesTheValueExactlyOnce) {
  int copies = 0;
  const AsyncResult<CopyCounter> result(
      [](const boost::optional<CopyCounter>&, const ErrorPtr&, const Zelk::Core::AsyncContext&) {});
  result(CopyCounter(copies));
  EXPECT_EQ(copies, 1);
}

TEST(AsyncResult, ThrowsIfEmpty) {
  EXPECT_THROW(AsyncResult<std::string>()("foo"), std::bad_function_call);
  EXPECT_THROW(AsyncResult<std::string>().error(nullptr), std::bad_function_call);
  EXPECT_THROW(AsyncResult<Void>()(), std::bad_function_call);
  EXPECT_THROW(AsyncResult<Void>(nullptr)(), std::bad_function_call);
}

TEST(AsyncResult, PassesOnAnExceptionOfTheCallback) {
  const AsyncResult<Void> result(
      [](const boost::optional<Void>&, const ErrorPtr&, const Zelk::Core::AsyncContext&) {
        throw std::range_error("foo");
      });
  EXPECT_THROW(result(), std::range_error);
  EXPECT_THROW(result.error(nullptr), std::range_error);
}

TEST(AsyncActivation, IsDefaultConstructible) {
  const Zelk::Core::AsyncActivationPtr activation = std::make_shared<Zelk::Core::AsyncActivation>();
  EXPECT_NE(activation, nullptr);
}

}  // namespace
