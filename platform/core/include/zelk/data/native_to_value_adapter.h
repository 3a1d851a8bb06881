#pragma once

#include <list>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <zelk/data/values.h>
#include <zelk/export.h>

namespace Zelk {

class BaseMessage;
class Specializable;

namespace Data {

/// Converts native objects into data values. Each overload returns a new value of the exact type,
/// so the caller can still add to it.
class NativeToValueAdapter {
 public:
  ZELK_CORE_EXPORT static std::shared_ptr<StringValue> Adapt(const std::string& native);

  /// Returns a StructValue named "com.orvane.zelk.std.message" with the fields "id" and
  /// "default_text" (StringValue) and "arguments" (ListValue of StringValue).
  ZELK_CORE_EXPORT static std::shared_ptr<StructValue> Adapt(const BaseMessage& native);

  /// Returns an ErrorValue with the name of the object's type and the fields that the object sets.
  ZELK_CORE_EXPORT static std::shared_ptr<ErrorValue> Adapt(const Specializable& native);

  /// Returns an absent value for an empty optional.
  template <typename T>
  static std::shared_ptr<OptionalValue> Adapt(const boost::optional<T>& native) {
    return native ? std::make_shared<OptionalValue>(Adapt(*native))
                  : std::make_shared<OptionalValue>();
  }

  /// Returns a list with a value for each element, in the same order.
  template <typename T>
  static std::shared_ptr<ListValue> Adapt(const std::list<T>& native) {
    auto value = std::make_shared<ListValue>();
    for (const T& element : native) value->Add(Adapt(element));
    return value;
  }
};

}  // namespace Data
}  // namespace Zelk
