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

/// Turns native objects into data values. Each form answers the exact kind of value that it makes,
/// so a caller may go on filling it.
class NativeToValueAdapter {
 public:
  ZELK_CORE_EXPORT static std::shared_ptr<StringValue> Adapt(const std::string& native);

  /// A StructValue "com.orvane.zelk.std.message" with the fields "id" and "default_text"
  /// (StringValue) and "arguments" (ListValue of StringValue).
  ZELK_CORE_EXPORT static std::shared_ptr<StructValue> Adapt(const BaseMessage& native);

  /// An ErrorValue that bears the type's name and the fields that the object sets itself.
  ZELK_CORE_EXPORT static std::shared_ptr<ErrorValue> Adapt(const Specializable& native);

  /// Absent for an empty optional.
  template <typename T>
  static std::shared_ptr<OptionalValue> Adapt(const boost::optional<T>& native) {
    return native ? std::make_shared<OptionalValue>(Adapt(*native))
                  : std::make_shared<OptionalValue>();
  }

  /// One element for each of the list's, in the same order.
  template <typename T>
  static std::shared_ptr<ListValue> Adapt(const std::list<T>& native) {
    auto value = std::make_shared<ListValue>();
    for (const T& element : native) value->Add(Adapt(element));
    return value;
  }
};

}  // namespace Data
}  // namespace Zelk
