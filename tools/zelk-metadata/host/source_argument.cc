#include "host/source_argument.h"

#include <algorithm>
#include <filesystem>
#include <istream>
#include <limits>
#include <system_error>

#include "host/input_file.h"

namespace Zelk::Tool {
namespace {

namespace fs = std::filesystem;

const std::string kInput = "-";

bool IsHidden(const fs::path& path) {
  return path.filename().string().front() == '.';
}

/// Every "*.json" below a folder.
struct JsonFiles {
  std::vector<fs::path> files;
  std::vector<std::string> complaints;
};

void AddFile(const fs::directory_entry& entry, JsonFiles& found, std::vector<fs::path>& folders) {
  std::error_code ignored;
  if (IsHidden(entry.path())) return;
  if (!entry.is_directory(ignored)) {
    if (entry.path().extension() == ".json") found.files.push_back(entry.path());
  } else if (!entry.is_symlink(ignored)) {
    folders.push_back(entry.path());
  }
}

/// A folder that cannot be read does not hide the others.
JsonFiles FindJsonFiles(const fs::path& folder, std::size_t& entries_left) {
  JsonFiles found;
  std::vector<fs::path> folders{folder};
  while (!folders.empty() && entries_left > 0) {
    const fs::path next = folders.back();
    folders.pop_back();
    std::error_code error;
    fs::directory_iterator at(next, error);
    for (; !error && at != fs::end(at) && entries_left > 0; at.increment(error), --entries_left) {
      AddFile(*at, found, folders);
    }
    if (error) found.complaints.push_back(next.string() + ": " + error.message());
  }
  std::sort(found.files.begin(), found.files.end());
  return found;
}

Expansion ExpandFolder(const SourceArgument& argument, const std::string& prefix,
                       std::size_t& entries_left) {
  JsonFiles found = FindJsonFiles(argument.path, entries_left);
  Expansion expansion{{}, std::move(found.complaints)};
  for (const fs::path& file : found.files) {
    expansion.sources.push_back({prefix + DefaultSourceId(file.string()), file.string()});
  }
  if (expansion.sources.empty() && expansion.complaints.empty()) {
    expansion.complaints.push_back(argument.path + ": this folder has no *.json file");
  }
  return expansion;
}

Expansion ExpandInput(const SourceArgument& argument, std::istream& in) {
  if (in.eof()) return {{}, {"standard input: can be read only once"}};
  const auto input = InputFile::Copy(in);
  if (!input) return {{}, {"standard input: no space for a copy of it"}};
  return {{{argument.id, input->Path(), argument.is_named, input}}, {}};
}

}  // namespace

SourceArgument ParseSourceArgument(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals != std::string::npos && equals != 0) {
    std::string id = text.substr(0, equals);
    if (id.find('/') == std::string::npos) return {std::move(id), text.substr(equals + 1), true};
  }
  return {DefaultSourceId(text), text};
}

std::string DefaultSourceId(const std::string& path) {
  return path == kInput ? "stdin" : fs::path(path).stem().string();
}

std::string ShownName(const SourceArgument& source) {
  return source.input || source.path == kInput ? "standard input" : source.path;
}

Expansion Expand(const SourceArgument& argument, std::istream& in) {
  std::size_t all = std::numeric_limits<std::size_t>::max();
  return Expand(argument, in, all);
}

Expansion Expand(const SourceArgument& argument, std::istream& in, std::size_t& entries_left) {
  if (argument.path == kInput) return ExpandInput(argument, in);
  std::error_code ignored;
  if (!fs::is_directory(argument.path, ignored)) return {{argument}, {}};
  return ExpandFolder(argument, argument.is_named ? argument.id + "/" : "", entries_left);
}

}  // namespace Zelk::Tool
