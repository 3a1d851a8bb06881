#pragma once

#include <string>

#include <com/orvane/zelk/metadata/metamodel/records.h>

#include "render/json_writer.h"

// Types nest as deep as a file says, so nothing here takes stack for a level.

namespace Zelk::Tool {

/// The type in one line, such as "MAP<STRING, LIST<com.acme.disk>>".
std::string TypeText(const ::Com::Orvane::Zelk::Metadata::Metamodel::Type& type);

/// The record whole, with all types that it is made of.
void WriteJson(JsonWriter& json, const ::Com::Orvane::Zelk::Metadata::Metamodel::Type& type);

}  // namespace Zelk::Tool
