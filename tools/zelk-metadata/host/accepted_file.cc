#include "host/accepted_file.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <sstream>
#include <system_error>
#include <utility>

#include "host/replace_file.h"

namespace Zelk::Tool {

AcceptedWriter::AcceptedWriter(const Analysis::AcceptedForm& form) : form_(form) {
  json_.StartObject();
  json_.Key("version").Number(1);
  json_.Key(form_.list).StartArray();
}

void AcceptedWriter::Add(const std::string& id, const std::string& fingerprint,
                         const std::string& element, const Analysis::Accepted* earlier) {
  ++count_;
  json_.StartObject();
  json_.Member(form_.id, id);
  json_.Member("fingerprint", fingerprint);
  json_.Member("element", element);
  if (earlier != nullptr && !earlier->reason.empty()) json_.Member("reason", earlier->reason);
  if (earlier != nullptr && !earlier->until.empty()) json_.Member("until", earlier->until);
  json_.EndObject();
}

WrittenList AcceptedWriter::WriteTo(const std::string& path) {
  json_.EndArray();
  json_.EndObject();
  std::ostringstream text;
  json_.WriteTo(text, true);
  std::string complaint = ReplaceFile(path, text.str());
  if (!complaint.empty()) return {false, std::move(complaint)};
  return {true, fmt::format("{}: {} {} written", path, count_, count_ == 1 ? "entry" : "entries")};
}

std::vector<std::string> WithReplaced(std::vector<std::string> lists, const std::string& written) {
  std::error_code error;
  const bool is_read = std::find(lists.begin(), lists.end(), written) != lists.end();
  if (!is_read && std::filesystem::is_regular_file(written, error)) lists.push_back(written);
  return lists;
}

}  // namespace Zelk::Tool
