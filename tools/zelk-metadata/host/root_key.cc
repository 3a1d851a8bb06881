#include "host/root_key.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

#include <rapidjson/istreamwrapper.h>

#include "analysis/json_heap.h"

namespace Zelk::Tool {
namespace {

/// Stops the reader at the first member of the root object that a row of the table wants.
class RootKeyFinder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, RootKeyFinder> {
 public:
  explicit RootKeyFinder(const DomainTable& table) : table_(table), found_(table.end()) {}

  bool StartObject() {
    ++depth_;
    return true;
  }

  bool EndObject(rapidjson::SizeType /*members*/) {
    --depth_;
    return true;
  }

  bool StartArray() { return StartObject(); }

  bool EndArray(rapidjson::SizeType elements) { return EndObject(elements); }

  bool Key(const char* name, rapidjson::SizeType size, bool /*copy*/) {
    if (depth_ > 1) return true;
    found_ = std::find_if(table_.begin(), table_.end(), [&](const DomainRow& row) {
      return row.root_key.compare(0, std::string::npos, name, size) == 0;
    });
    return found_ == table_.end();
  }

  const DomainRow* Found() const { return found_ == table_.end() ? nullptr : &*found_; }

 private:
  const DomainTable& table_;
  DomainTable::const_iterator found_;
  std::size_t depth_ = 0;
};

}  // namespace

const DomainRow* FindDomain(const std::string& path, const DomainTable& table) {
  RootKeyFinder finder(table);
  // Opening a pipe would wait for a writer, and reading it take the bytes from the service.
  std::error_code ignored;
  if (std::filesystem::is_regular_file(path, ignored)) {
    std::ifstream file(path, std::ios::binary);
    rapidjson::IStreamWrapper stream(file);
    // Iterative, because a hostile file may nest deeper than the stack reaches.
    Analysis::JsonReader().Parse<rapidjson::kParseIterativeFlag>(stream, finder);
  }
  return finder.Found();
}

}  // namespace Zelk::Tool
