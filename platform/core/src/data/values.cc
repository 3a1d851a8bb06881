#include <utility>

#include <zelk/data/values.h>

namespace Zelk::Data {

DataValue::DataValue() = default;

DataValue::~DataValue() = default;

StringValue::StringValue(std::string value) : value_(std::move(value)) {}

StringValue::~StringValue() = default;

const std::string& StringValue::Value() const {
  return value_;
}

OptionalValue::OptionalValue() = default;

OptionalValue::OptionalValue(std::shared_ptr<const DataValue> value) : value_(std::move(value)) {}

OptionalValue::~OptionalValue() = default;

const std::shared_ptr<const DataValue>& OptionalValue::Value() const {
  return value_;
}

ListValue::ListValue() = default;

ListValue::~ListValue() = default;

void ListValue::Add(std::shared_ptr<const DataValue> element) {
  elements_.push_back(std::move(element));
}

const std::vector<std::shared_ptr<const DataValue>>& ListValue::Elements() const {
  return elements_;
}

CompoundValue::CompoundValue(std::string name) : name_(std::move(name)) {}

CompoundValue::~CompoundValue() = default;

const std::string& CompoundValue::Name() const {
  return name_;
}

void CompoundValue::SetField(const std::string& name, std::shared_ptr<const DataValue> value) {
  fields_[name] = std::move(value);
}

std::shared_ptr<const DataValue> CompoundValue::Field(const std::string& name) const {
  const auto found = fields_.find(name);
  return found == fields_.end() ? nullptr : found->second;
}

StructValue::StructValue(std::string name) : CompoundValue(std::move(name)) {}

StructValue::~StructValue() = default;

ErrorValue::ErrorValue(std::string name) : CompoundValue(std::move(name)) {
  SetField("messages", std::make_shared<ListValue>());
  SetField("data", std::make_shared<OptionalValue>());
}

ErrorValue::~ErrorValue() = default;

}  // namespace Zelk::Data
