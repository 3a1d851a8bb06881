#include "host/accepted_file.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace Zelk::Tool {
namespace {

constexpr mode_t kPermissions = 07777;

bool WriteFile(const std::string& path, std::string_view text) {
  std::ofstream file(path, std::ios::binary);
  file << text << std::flush;
  return file.good();
}

}  // namespace

AcceptedWriter::AcceptedWriter(const Analysis::AcceptedForm& form) : form_(form) {
  json_.StartObject();
  json_.Key("version");
  json_.Number(1);
  json_.Key(form_.list);
  json_.StartArray();
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

std::optional<std::size_t> AcceptedWriter::WriteTo(const std::string& path) {
  json_.EndArray();
  json_.EndObject();
  std::ostringstream text;
  json_.WriteTo(text, true);
  if (!ReplaceFile(path, text.str())) return std::nullopt;
  return count_;
}

std::vector<std::string> WithReplaced(std::vector<std::string> lists, const std::string& written) {
  std::error_code error;
  const bool is_read = std::find(lists.begin(), lists.end(), written) != lists.end();
  if (!is_read && std::filesystem::is_regular_file(written, error)) lists.push_back(written);
  return lists;
}

std::string WrittenText(const std::string& path, std::size_t entries) {
  return path + ": " + std::to_string(entries) + (entries == 1 ? " entry" : " entries") +
         " written";
}

bool ReplaceFile(const std::string& path, std::string_view text) {
  struct stat old {};

  // A device has no text to lose. A file with two names, or of another owner, would not be the same
  // file any more.
  const bool is_replaced = stat(path.c_str(), &old) == 0 && S_ISREG(old.st_mode) &&
                           old.st_nlink == 1 && old.st_uid == geteuid();
  if (!is_replaced) return WriteFile(path, text);
  std::error_code error;
  const std::string target = std::filesystem::canonical(path, error).string();
  std::string temporary = target + ".XXXXXX";
  const int descriptor = mkstemp(temporary.data());
  if (descriptor < 0) return false;
  close(descriptor);
  const bool is_written = access(target.c_str(), W_OK) == 0 && WriteFile(temporary, text) &&
                          chmod(temporary.c_str(), old.st_mode & kPermissions) == 0 &&
                          std::rename(temporary.c_str(), target.c_str()) == 0;
  if (!is_written) unlink(temporary.c_str());
  return is_written;
}

}  // namespace Zelk::Tool
