#pragma once

#include <com/orvane/zelk/metadata/metamodel/records.h>

#include "render/json_writer.h"

namespace Zelk::Tool {

// Each writes the record whole, with its members under their own names and in their own order:
// maps as objects, enumerators by name, and null for what is not set.
void WriteJson(JsonWriter& json,
               const ::Com::Orvane::Zelk::Metadata::Metamodel::ComponentData& component);
void WriteJson(JsonWriter& json,
               const ::Com::Orvane::Zelk::Metadata::Metamodel::PackageInfo& package);
void WriteJson(JsonWriter& json,
               const ::Com::Orvane::Zelk::Metadata::Metamodel::ServiceInfo& service);
void WriteJson(JsonWriter& json,
               const ::Com::Orvane::Zelk::Metadata::Metamodel::OperationInfo& operation);
void WriteJson(JsonWriter& json,
               const ::Com::Orvane::Zelk::Metadata::Metamodel::StructureInfo& structure);
void WriteJson(JsonWriter& json,
               const ::Com::Orvane::Zelk::Metadata::Metamodel::EnumerationInfo& enumeration);

}  // namespace Zelk::Tool
