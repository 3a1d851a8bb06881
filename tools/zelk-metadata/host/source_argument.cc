#include "host/source_argument.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "host/input_file.h"

namespace Zelk::Tool {
namespace {

namespace fs = std::filesystem;

const std::string kInput = "-";

bool IsHidden(const fs::path& path) {
  return path.filename().string().front() == '.';
}

/// Every "*.json" below the folder. Sets `error` where the folder cannot be read to its end.
std::vector<fs::path> JsonFiles(const fs::path& folder, std::error_code& error) {
  std::vector<fs::path> files;
  for (fs::recursive_directory_iterator at(folder, error); !error && at != fs::end(at);
       at.increment(error)) {
    std::error_code ignored;
    if (IsHidden(at->path())) {
      at.disable_recursion_pending();
    } else if (at->path().extension() == ".json" && !at->is_directory(ignored)) {
      files.push_back(at->path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

Expansion ExpandFolder(const SourceArgument& argument, const std::string& prefix) {
  std::error_code error;
  std::vector<SourceArgument> sources;
  for (const fs::path& file : JsonFiles(argument.path, error)) {
    sources.push_back({prefix + DefaultSourceId(file.string()), file.string()});
  }
  if (error) return argument.path + ": " + error.message();
  if (sources.empty()) return argument.path + ": no *.json file is in this folder";
  return sources;
}

Expansion ExpandInput(const SourceArgument& argument, std::istream& in) {
  if (in.eof()) return std::string("standard input: it can be read only once");
  const auto input = InputFile::Copy(in);
  if (!input) return std::string("standard input: there is no room for a copy of it");
  return std::vector<SourceArgument>{{argument.id, input->Path(), input}};
}

}  // namespace

SourceArgument ParseSourceArgument(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals != std::string::npos && equals != 0) {
    std::string id = text.substr(0, equals);
    if (id.find('/') == std::string::npos) return {std::move(id), text.substr(equals + 1)};
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
  if (argument.path == kInput) return ExpandInput(argument, in);
  std::error_code ignored;
  if (!fs::is_directory(argument.path, ignored)) return std::vector<SourceArgument>{argument};
  const bool named = argument.id != DefaultSourceId(argument.path);
  return ExpandFolder(argument, named ? argument.id + "/" : "");
}

}  // namespace Zelk::Tool
