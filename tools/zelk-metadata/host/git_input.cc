#include "host/git_input.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "host/git_objects.h"

namespace Zelk::Tool {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kScheme = "git:";

// A small repository can list the same folders many times, which makes a huge number of paths.
constexpr std::size_t kMostEntries = 100'000;
constexpr std::size_t kMostBytesOfPath = 4096;

struct Entry {
  /// What it is, in octal digits.
  std::string mode;
  std::string name;
  std::string id;
};

constexpr char kFolder[] = "40000";
constexpr char kLink[] = "120000";
constexpr char kSubmodule[] = "160000";
constexpr char kSubmoduleText[] = "it is a submodule, whose files are in another repository";

/// The position of the colon between the revision and the path of "REV:PATH". A date in braces has
/// colons of its own, and so has ":N:PATH".
std::size_t ColonOf(std::string_view name) {
  const bool has_stage =
      name.size() > 2 && name[0] == ':' && name[2] == ':' && name[1] >= '0' && name[1] <= '3';
  if (has_stage) return 2;
  int braces = 0;
  for (std::size_t at = 0; at < name.size(); ++at) {
    if (name[at] == '{') ++braces;
    if (name[at] == '}') --braces;
    if (name[at] == ':' && braces == 0) return at;
  }
  return std::string_view::npos;
}

/// "git:REV:PATH" without steps to the same folder. Git only takes those in a path that begins with
/// "./" or "../", from the working folder.
std::string WithoutDots(const std::string& text) {
  const std::size_t colon = ColonOf(std::string_view(text).substr(kScheme.size()));
  if (colon == std::string_view::npos) return text;
  const std::size_t begin = kScheme.size() + colon + 1;
  std::string path = text.substr(begin);
  for (std::size_t at = path.find("/./"); at != std::string::npos; at = path.find("/./", at)) {
    path.erase(at, 2);
  }
  const bool ends_with_dot = path.size() > 1 && path.compare(path.size() - 2, 2, "/.") == 0;
  if (ends_with_dot) path.pop_back();
  if (path == "." || path == "..") path += '/';
  return text.substr(0, begin) + path;
}

/// What the path of a revision is from the top of the repository.
std::string FromTop(const std::string& path) {
  const bool is_from_here = path.compare(0, 2, "./") == 0 || path.compare(0, 3, "../") == 0;
  std::error_code error;
  fs::path folder = is_from_here ? fs::current_path(error) : fs::path();
  const fs::path file = (folder / path).lexically_normal();
  for (; folder.has_relative_path(); folder = folder.parent_path()) {
    if (fs::exists(folder / ".git", error)) return file.lexically_relative(folder).string();
  }
  return path;
}

std::string Hex(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string digits;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    digits += kDigits[value / 16U];
    digits += kDigits[value % 16U];
  }
  return digits;
}

/// The entries of a tree: "MODE NAME", a zero byte, and the bytes of an id.
std::vector<Entry> EntriesOf(const GitObject& tree) {
  std::vector<Entry> entries;
  const std::size_t id_size = tree.id.size() / 2;
  std::string_view left = tree.content;
  for (;;) {
    const std::size_t blank = left.find(' ');
    const std::size_t end = left.find('\0');
    if (end == std::string_view::npos || blank > end || left.size() - end <= id_size) break;
    entries.push_back({std::string(left.substr(0, blank)),
                       std::string(left.substr(blank + 1, end - blank - 1)),
                       Hex(left.substr(end + 1, id_size))});
    left.remove_prefix(end + 1 + id_size);
  }
  return entries;
}

class RevisionReader {
 public:
  RevisionReader(const std::string& text, const DomainTable& domains)
      : text_(WithoutDots(text)), reader_(domains) {}

  Input Read() {
    const std::string name = text_.substr(kScheme.size());
    if (ColonOf(name) == std::string_view::npos) {
      Fail(text_, "a revision is given as git:REV:PATH");
      return reader_.Take();
    }
    const auto object = objects_.Get(name);
    if (!object) {
      Fail(text_, objects_.Failure().empty() ? WhyMissing(name) : objects_.Failure());
    } else if (object->type == "tree") {
      ReadFolder(object->id);
    } else {
      AddFile(kOnlyFileId, text_, *object);
    }
    return reader_.Take();
  }

 private:
  struct Folder {
    /// From the folder that was asked for, with a slash at its end unless it is that one.
    std::string path;
    std::string id;
  };

  void Fail(const std::string& file, const std::string& reason) { reader_.Fail({file, reason}); }

  std::string WhyMissing(const std::string& name) {
    const std::size_t colon = ColonOf(name);
    // The index is always there.
    if (name[0] != ':' && !objects_.Get(name.substr(0, colon))) {
      return "this revision is not known";
    }
    const std::size_t begin = std::max(name.rfind('/') + 1, colon + 1);
    const auto folder = objects_.Get(name.substr(0, begin));
    const auto entries = folder ? EntriesOf(*folder) : std::vector<Entry>();
    const bool is_submodule = std::any_of(entries.begin(), entries.end(), [&](const Entry& entry) {
      return entry.name == name.substr(begin) && entry.mode == kSubmodule;
    });
    return is_submodule ? kSubmoduleText : "this revision has no such path";
  }

  void AddFile(const std::string& id, const std::string& name, GitObject object) {
    if (object.type != "blob") return Fail(name, "it is not a file or a folder");
    reader_.Add({id, name}, std::move(object.content));
    has_files_ = true;
  }

  void ReadFolder(const std::string& id) {
    folders_.push_back({"", id});
    while (!folders_.empty()) {
      const Folder folder = std::move(folders_.back());
      folders_.pop_back();
      const auto tree = objects_.Get(folder.id);
      if (!tree) return FailAsUnreadable(folder.path);
      for (const Entry& entry : EntriesOf(*tree)) {
        if (++entries_ > kMostEntries) return Fail(text_, "this folder has too many entries");
        if (!Take(folder, entry)) return FailAsUnreadable(folder.path + entry.name);
      }
    }
    if (!has_files_) Fail(text_, "this folder has no *.json file");
  }

  void FailAsUnreadable(const std::string& path) {
    Fail(NameOf(path), objects_.Failure().empty() ? "the repository lacks it" : objects_.Failure());
  }

  /// False for an object that cannot be read.
  bool Take(const Folder& folder, const Entry& entry) {
    std::string path = folder.path + entry.name;
    if (entry.name.empty() || entry.name.front() == '.') return true;
    if (entry.mode == kSubmodule) Fail(NameOf(path), kSubmoduleText);
    if (entry.mode == kFolder) TakeFolder(path, entry.id);
    const bool is_link = entry.mode == kLink;
    const bool is_file = entry.mode.substr(0, 3) == "100";
    if ((!is_file && !is_link) || fs::path(path).extension() != ".json") return true;
    const auto object = objects_.Get(is_link ? NameOf(path).substr(kScheme.size()) : entry.id);
    // On the disk, links to folders are not followed, either.
    const bool is_other_folder = object && is_link && object->type == "tree";
    if (object && !is_other_folder) {
      AddFile(fs::path(path).replace_extension().string(), NameOf(path), *object);
    }
    if (!object && is_link) FailAsUnreadable(path);
    return object || is_link;
  }

  void TakeFolder(const std::string& path, const std::string& id) {
    if (path.size() >= kMostBytesOfPath) return Fail(NameOf(path), "this path is too long");
    folders_.push_back({path + '/', id});
  }

  /// What the user may give for the file.
  std::string NameOf(const std::string& path) const {
    const bool has_slash = text_.back() == '/' || text_.back() == ':';
    return text_ + (has_slash || path.empty() ? "" : "/") + path;
  }

  const std::string text_;
  GitObjects objects_;
  InputReader reader_;
  std::vector<Folder> folders_;
  std::size_t entries_ = 0;
  bool has_files_ = false;
};

}  // namespace

bool IsRevision(const std::string& text) {
  return text.compare(0, kScheme.size(), kScheme) == 0;
}

std::string PathOfRevision(const std::string& text) {
  if (!IsRevision(text)) return text;
  const std::string name = WithoutDots(text).substr(kScheme.size());
  const std::size_t colon = ColonOf(name);
  return colon == std::string::npos ? text : FromTop(name.substr(colon + 1));
}

Input ReadRevision(const std::string& text, const DomainTable& domains) {
  return RevisionReader(text, domains).Read();
}

}  // namespace Zelk::Tool
