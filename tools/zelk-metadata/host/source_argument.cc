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
const std::string kInputName = "standard input";

bool IsHidden(const fs::path& path) {
  return path.filename().string().front() == '.';
}

void AddEntry(const fs::directory_entry& entry, std::vector<fs::path>& files,
              std::vector<fs::path>& folders) {
  std::error_code ignored;
  if (IsHidden(entry.path())) return;
  if (!entry.is_directory(ignored)) {
    if (entry.path().extension() == ".json") files.push_back(entry.path());
  } else if (!entry.is_symlink(ignored)) {
    folders.push_back(entry.path());
  }
}

/// Every "*.json" below a folder. A folder that cannot be read does not hide the others.
std::vector<fs::path> FindJsonFiles(const fs::path& folder, std::size_t& entries_left,
                                    std::vector<Unreadable>& failures) {
  std::vector<fs::path> files;
  std::vector<fs::path> folders{folder};
  while (!folders.empty() && entries_left > 0) {
    const fs::path next = folders.back();
    folders.pop_back();
    std::error_code error;
    fs::directory_iterator at(next, error);
    for (; !error && at != fs::end(at) && entries_left > 0; at.increment(error), --entries_left) {
      AddEntry(*at, files, folders);
    }
    if (error) failures.push_back({next.string(), error.message()});
  }
  std::sort(files.begin(), files.end());
  return files;
}

void AddFile(SourceArgument source, Expansion& expansion) {
  std::error_code ignored;
  std::string reason = fs::is_regular_file(source.path, ignored) ? WhyUnreadable(source.path)
                                                                 : "it is not a regular file";
  if (reason.empty()) {
    expansion.sources.push_back(std::move(source));
  } else {
    expansion.failures.push_back({source.path, std::move(reason)});
  }
}

Expansion ExpandFolder(const SourceArgument& argument, std::size_t& entries_left) {
  Expansion expansion;
  const fs::path folder = argument.path;
  const std::string prefix = argument.is_named ? argument.id + "/" : "";
  const auto files = FindJsonFiles(folder, entries_left, expansion.failures);
  if (files.empty() && expansion.failures.empty()) {
    expansion.failures.push_back({argument.path, "this folder has no *.json file"});
  }
  for (const fs::path& file : files) {
    const fs::path below = file.lexically_relative(folder);
    SourceArgument source{prefix + fs::path(below).replace_extension().string(), file.string()};
    source.folder = argument.path;
    AddFile(std::move(source), expansion);
  }
  return expansion;
}

Expansion WithCopy(const SourceArgument& argument, const CopiedInput& copied,
                   const std::string& name) {
  if (!copied.file) return {{}, {{name, copied.failure}}};
  return {{{argument.id, copied.file->Path(), argument.is_named, copied.file, name}}, {}};
}

Expansion ExpandInput(const SourceArgument& argument, std::istream& in) {
  if (in.eof()) return {{}, {{kInputName, "can be read only once"}}};
  return WithCopy(argument, InputFile::Copy(in), kInputName);
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

bool IsFolder(const SourceArgument& argument) {
  std::error_code ignored;
  return fs::is_directory(argument.path, ignored);
}

std::string ShownName(const SourceArgument& source) {
  if (!source.copied_from.empty()) return source.copied_from;
  return source.path == kInput ? kInputName : source.path;
}

Expansion Expand(const SourceArgument& argument, std::istream& in) {
  if (argument.path == kInput) return ExpandInput(argument, in);
  std::error_code error;
  const fs::file_status status = fs::status(argument.path, error);
  Expansion expansion;
  if (error) {
    expansion.failures.push_back({argument.path, error.message()});
  } else if (fs::is_directory(status)) {
    std::size_t all = std::numeric_limits<std::size_t>::max();
    expansion = ExpandFolder(argument, all);
  } else if (fs::is_regular_file(status)) {
    AddFile(argument, expansion);
  } else {
    expansion = WithCopy(argument, InputFile::CopyOf(argument.path), argument.path);
  }
  return expansion;
}

std::vector<SourceArgument> ExpandQuickly(const SourceArgument& argument,
                                          std::size_t& entries_left) {
  if (IsFolder(argument)) return ExpandFolder(argument, entries_left).sources;
  std::error_code ignored;
  if (fs::is_regular_file(argument.path, ignored)) return {argument};
  return {};
}

}  // namespace Zelk::Tool
