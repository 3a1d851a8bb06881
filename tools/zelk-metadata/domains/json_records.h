#pragma once

#include <list>
#include <string>

#include <boost/optional.hpp>

#include "render/json_writer.h"

// Members of records as members of JSON objects. A record is written by the WriteJson(JsonWriter&,
// const Record&) that is declared for it.

namespace Zelk::Tool {

/// Null for a null pointer.
template <typename RecordPtr>
void WriteOne(JsonWriter& json, const char* name, const RecordPtr& record) {
  json.Key(name);
  if (record) {
    WriteJson(json, *record);
  } else {
    json.Null();
  }
}

template <typename Map>
void WriteMap(JsonWriter& json, const char* name, const Map& map) {
  json.Key(name);
  json.StartObject();
  for (const auto& [key, record] : map) {
    json.Key(key);
    WriteJson(json, *record);
  }
  json.EndObject();
}

template <typename List>
void WriteList(JsonWriter& json, const char* name, const List& list) {
  json.Key(name);
  json.StartArray();
  for (const auto& record : list) WriteJson(json, *record);
  json.EndArray();
}

}  // namespace Zelk::Tool
