#include <zelk/data/native_to_value_adapter.h>
#include <zelk/message.h>
#include <zelk/specializable.h>

namespace Zelk::Data {

std::shared_ptr<StringValue> NativeToValueAdapter::Adapt(const std::string& native) {
  return std::make_shared<StringValue>(native);
}

std::shared_ptr<StructValue> NativeToValueAdapter::Adapt(const BaseMessage& native) {
  auto value = std::make_shared<StructValue>("com.orvane.zelk.std.message");
  value->SetField("id", Adapt(native.Id()));
  value->SetField("default_text", Adapt(native.DefaultText()));
  value->SetField("arguments", Adapt(native.Arguments()));
  return value;
}

std::shared_ptr<ErrorValue> NativeToValueAdapter::Adapt(const Specializable& native) {
  auto value = std::make_shared<ErrorValue>(native.TypeName());
  native.SetFields(*value);
  return value;
}

}  // namespace Zelk::Data
