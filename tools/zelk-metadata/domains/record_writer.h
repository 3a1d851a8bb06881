#pragma once

#include <list>
#include <map>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include "render/json_writer.h"

namespace Zelk::Tool {

class RecordWriter;

/// Writes the record whole, with its members under their own names and in their own order: maps as
/// objects, enumerators by name, and null for what is not set.
template <typename Record>
void WriteRecord(Render::JsonWriter& json, const Record& record);

/// Writes the members of one record. Those of a record in it are written by the
/// WriteMembers(RecordWriter&, const Record&) that is declared for it.
class RecordWriter {
 public:
  explicit RecordWriter(Render::JsonWriter& json) : json_(json) {}

  void Member(const char* name, const std::string& text) { json_.Member(name, text); }

  void Member(const char* name, const boost::optional<std::string>& text) {
    json_.Member(name, text);
  }

  void Member(const char* name, const boost::optional<std::list<std::string>>& texts) {
    json_.Key(name);
    if (!texts) return json_.Null();
    json_.StringArray(*texts);
  }

  template <typename Record>
  void Member(const char* name, const std::shared_ptr<Record>& record) {
    json_.Key(name);
    if (!record) return json_.Null();
    WriteRecord(json_, *record);
  }

  template <typename Record>
  void Member(const char* name, const std::map<std::string, std::shared_ptr<Record>>& records) {
    json_.Key(name).StartObject();
    for (const auto& [key, record] : records) {
      json_.Key(key);
      WriteRecord(json_, *record);
    }
    json_.EndObject();
  }

  template <typename Record>
  void Member(const char* name, const std::list<std::shared_ptr<Record>>& records) {
    json_.Key(name).StartArray();
    for (const auto& record : records) WriteRecord(json_, *record);
    json_.EndArray();
  }

  /// For what has a form of its own.
  Render::JsonWriter& Json() { return json_; }

 private:
  Render::JsonWriter& json_;
};

template <typename Record>
void WriteRecord(Render::JsonWriter& json, const Record& record) {
  json.StartObject();
  RecordWriter writer(json);
  WriteMembers(writer, record);
  json.EndObject();
}

}  // namespace Zelk::Tool
