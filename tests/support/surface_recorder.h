#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <stdexcept>
#include <string>
#include <tuple>

#include <boost/optional.hpp>

#include <zelk/async_result.h>
#include <zelk/core/async_activation.h>
#include <zelk/data/values.h>

#include "support/lines.h"
#include "support/record_text.h"

// What the operations of services and containers answer, in a form that a test compares at once.

namespace Zelk::Testing {

using ErrorPtr = std::shared_ptr<const Data::ErrorValue>;

inline constexpr char kNotFoundError[] = "com.orvane.zelk.std.errors.not_found";
inline constexpr char kAlreadyExistsError[] = "com.orvane.zelk.std.errors.already_exists";
inline constexpr char kInvalidArgumentError[] = "com.orvane.zelk.std.errors.invalid_argument";
inline constexpr char kUnsupportedError[] = "com.orvane.zelk.std.errors.unsupported";

/// A message: its id, its default text and its arguments.
inline std::string MessageLine(const std::string& id, const std::string& default_text,
                               const std::list<std::string>& arguments) {
  return id + " " + Quoted(default_text) + " " +
         Quoted(boost::optional<std::list<std::string>>(arguments));
}

/// The value as exactly that kind of value; throws for a null and for any other kind.
template <typename Value>
const Value& As(const std::shared_ptr<const Data::DataValue>& value) {
  const auto* exact = dynamic_cast<const Value*>(value.get());
  if (exact == nullptr) throw std::runtime_error("a data value is missing or of another kind");
  return *exact;
}

inline std::string MessageLine(const std::shared_ptr<const Data::DataValue>& value) {
  const auto& message = As<Data::StructValue>(value);
  if (message.Name() != "com.orvane.zelk.std.message") return message.Name() + " is not a message";
  std::list<std::string> arguments;
  for (const auto& argument : As<Data::ListValue>(message.Field("arguments")).Elements()) {
    arguments.push_back(As<Data::StringValue>(argument).Value());
  }
  return MessageLine(As<Data::StringValue>(message.Field("id")).Value(),
                     As<Data::StringValue>(message.Field("default_text")).Value(), arguments);
}

/// The name of an error and one line a message of it; nothing for success. An error that does not
/// have the shape of all errors throws or shows.
inline Lines ErrorLines(const ErrorPtr& error) {
  if (!error) return {};
  Lines lines{error->Name()};
  for (const auto& message : As<Data::ListValue>(error->Field("messages")).Elements()) {
    lines.push_back(MessageLine(message));
  }
  if (As<Data::OptionalValue>(error->Field("data")).Value()) lines.push_back("with data");
  return lines;
}

/// What an operation delivered while it was called, and how often.
template <typename T>
struct Delivery {
  int calls = 0;
  boost::optional<T> value;
  ErrorPtr error;
};

/// A result that records what it gets in `delivery`, which must outlive it.
template <typename T>
AsyncResult<T> RecordIn(Delivery<T>& delivery) {
  return AsyncResult<T>([&delivery](const boost::optional<T>& value, const ErrorPtr& error,
                                    const Core::AsyncContext&) {
    ++delivery.calls;
    delivery.value = value;
    delivery.error = error;
  });
}

template <typename Parameter>
struct Answered;

template <typename T>
struct Answered<const AsyncResult<T>&> {
  using Type = T;
};

/// What an operation with those parameters answers through its last one.
template <typename... Parameters>
using AnswerOf = typename Answered<
    std::tuple_element_t<sizeof...(Parameters) - 1, std::tuple<Parameters...>>>::Type;

/// Calls an operation of a service with its own arguments and records what it delivers.
template <typename Service, typename... Parameters, typename... Arguments>
Delivery<AnswerOf<Parameters...>> Ask(Service& service, void (Service::*operation)(Parameters...),
                                      const Arguments&... arguments) {
  Delivery<AnswerOf<Parameters...>> delivery;
  (service.*operation)(arguments..., std::make_shared<Core::AsyncActivation>(), RecordIn(delivery));
  return delivery;
}

/// The value of a delivery that was made once and is no error; throws for any other.
template <typename T>
T ValueOf(const Delivery<T>& delivery) {
  if (delivery.calls != 1) throw std::runtime_error("not delivered once");
  if (delivery.error) throw std::runtime_error("delivered " + ErrorLines(delivery.error).back());
  if (!delivery.value) throw std::runtime_error("delivered neither a value nor an error");
  return *delivery.value;
}

/// The error of a delivery that was made once and has no value; throws for any other.
template <typename T>
Lines ErrorOf(const Delivery<T>& delivery) {
  if (delivery.calls != 1) throw std::runtime_error("not delivered once");
  if (!delivery.error) throw std::runtime_error("delivered no error");
  if (delivery.value) throw std::runtime_error("delivered a value beside the error");
  return ErrorLines(delivery.error);
}

}  // namespace Zelk::Testing
