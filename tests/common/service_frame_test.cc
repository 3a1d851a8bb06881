#include "common/queries/service_frame.h"

#include <functional>
#include <list>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include "support/message_texts.h"

namespace Zelk::Provider::Metadata {
namespace {

using Testing::ErrorTexts;
using Testing::Lines;

constexpr char kId[] = "zelk.metada.metamodel.service.not.found";
constexpr char kNotFound[] = "com.orvane.zelk.std.errors.not_found";

/// What a result was given, and how often.
template <typename T>
struct Delivery {
  int calls = 0;
  boost::optional<T> value;
  ErrorPtr error;

  ::Zelk::AsyncResult<T> Result() {
    return ::Zelk::AsyncResult<T>(
        [this](const boost::optional<T>& given, const ErrorPtr& reason, const auto&) {
          ++calls;
          value = given;
          error = reason;
        });
  }

  /// Whether exactly one error was delivered, and nothing else.
  bool IsOneError() const { return calls == 1 && !value && error; }

  /// Whether exactly one value was delivered, and nothing else.
  bool IsOneValue() const { return calls == 1 && value && !error; }
};

using RecordPtr = std::shared_ptr<const std::string>;
using Names = std::list<std::string>;

TEST(DeliverOrNotFound, DeliversTheRecordWithoutACopy) {
  Delivery<RecordPtr> delivery;
  const auto record = std::make_shared<const std::string>("foo");
  DeliverOrNotFound(delivery.Result(), record, kId, "bar");
  ASSERT_TRUE(delivery.IsOneValue());
  EXPECT_EQ(*delivery.value, record);
}

TEST(DeliverOrNotFound, ReportsANullRecordByItsKey) {
  Delivery<RecordPtr> delivery;
  DeliverOrNotFound(delivery.Result(), RecordPtr(), kId, std::string("bar"));
  ASSERT_TRUE(delivery.IsOneError());
  EXPECT_EQ(ErrorTexts(*delivery.error), (Lines{kNotFound, std::string(kId) + "(bar)"}));
}

TEST(DeliverOrNotFound, ReportsTwoKeysInOrder) {
  Delivery<RecordPtr> delivery;
  DeliverOrNotFound(delivery.Result(), RecordPtr(), "baz", std::string("foo"), std::string("bar"));
  ASSERT_TRUE(delivery.IsOneError());
  EXPECT_EQ(ErrorTexts(*delivery.error), (Lines{kNotFound, "baz(foo, bar)"}));
}

TEST(DeliverOrNotFound, DeliversTheValueOfAnOptionalEvenIfEmpty) {
  for (const auto& names : {Names(), Names{"foo"}, Names{"foo", "bar", "foo"}}) {
    Delivery<Names> delivery;
    DeliverOrNotFound(delivery.Result(), boost::optional<Names>(names), kId, "bar");
    ASSERT_TRUE(delivery.IsOneValue()) << testing::PrintToString(names);
    EXPECT_EQ(*delivery.value, names);
  }
}

TEST(DeliverOrNotFound, ReportsAnEmptyOptional) {
  Delivery<std::set<std::string>> delivery;
  DeliverOrNotFound(delivery.Result(), boost::optional<std::set<std::string>>(), kId, "bar");
  ASSERT_TRUE(delivery.IsOneError());
  EXPECT_EQ(ErrorTexts(*delivery.error), (Lines{kNotFound, std::string(kId) + "(bar)"}));
}

TEST(DeliverOrNotFound, DeliversAFingerprint) {
  Delivery<std::string> delivery;
  DeliverOrNotFound(delivery.Result(), std::string("abc"), kId, "bar");
  ASSERT_TRUE(delivery.IsOneValue());
  EXPECT_EQ(*delivery.value, "abc");
}

TEST(DeliverOrNotFound, ReportsAnEmptyFingerprintByItsOptionalKey) {
  struct Row {
    boost::optional<std::string> id;
    const char* message;
  };

  for (const auto& row : {Row{std::string("bar"), "foo( bar)"}, Row{boost::none, "foo(--)"}}) {
    Delivery<std::string> delivery;
    DeliverOrNotFound(delivery.Result(), std::string(), "foo", row.id);
    ASSERT_TRUE(delivery.IsOneError()) << row.message;
    EXPECT_EQ(ErrorTexts(*delivery.error), (Lines{kNotFound, row.message}));
  }
}

TEST(DeliverOrNotFound, ThrowsOnAnEmptyCallback) {
  const ::Zelk::AsyncResult<std::string> empty;
  EXPECT_THROW(DeliverOrNotFound(empty, std::string("foo"), kId, "bar"), std::bad_function_call);
  EXPECT_THROW(DeliverOrNotFound(empty, std::string(), kId, "bar"), std::bad_function_call);
}

TEST(DeliverOrNotFound, PassesOnAnExceptionOfTheCallback) {
  const ::Zelk::AsyncResult<std::string> throwing(
      [](const auto&, const auto&, const auto&) { throw std::out_of_range("foo"); });
  EXPECT_THROW(DeliverOrNotFound(throwing, std::string("foo"), kId, "bar"), std::out_of_range);
  EXPECT_THROW(DeliverOrNotFound(throwing, std::string(), kId, "bar"), std::out_of_range);
}

TEST(DeliverChange, DeliversTheErrorWithoutACopy) {
  const auto error = MakeError<StdErrors::AlreadyExists>(kId, "foo");
  for (const auto on_success : {OnSuccess::kDeliver, OnSuccess::kStaySilent}) {
    Delivery<::Zelk::Void> delivery;
    DeliverChange(delivery.Result(), error, on_success);
    EXPECT_TRUE(delivery.IsOneError()) << static_cast<int>(on_success);
    EXPECT_EQ(delivery.error, error) << static_cast<int>(on_success);
  }
}

TEST(DeliverChange, DeliversSuccessOnceIfAskedTo) {
  Delivery<::Zelk::Void> delivery;
  DeliverChange(delivery.Result(), nullptr, OnSuccess::kDeliver);
  EXPECT_TRUE(delivery.IsOneValue());
}

TEST(DeliverChange, DeliversNoSuccessIfSilent) {
  Delivery<::Zelk::Void> delivery;
  DeliverChange(delivery.Result(), nullptr, OnSuccess::kStaySilent);
  EXPECT_EQ(delivery.calls, 0);
}

TEST(DeliverChange, ThrowsOnAnEmptyCallbackOnlyIfItDelivers) {
  const ::Zelk::AsyncResult<::Zelk::Void> empty;
  const auto error = MakeError<StdErrors::NotFound>(kId, "foo");
  EXPECT_THROW(DeliverChange(empty, nullptr, OnSuccess::kDeliver), std::bad_function_call);
  EXPECT_THROW(DeliverChange(empty, error, OnSuccess::kDeliver), std::bad_function_call);
  EXPECT_THROW(DeliverChange(empty, error, OnSuccess::kStaySilent), std::bad_function_call);
  EXPECT_NO_THROW(DeliverChange(empty, nullptr, OnSuccess::kStaySilent));
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
