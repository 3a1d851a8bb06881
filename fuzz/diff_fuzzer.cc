#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/diff/compare.h"
#include "analysis/mirrored.h"
#include "fuzz/support/check.h"

// The input is two versions with a vertical tab between them. Each is one file, or several with
// form feeds between them. No JSON text has these characters.

namespace Zelk::Analysis::Diff {
namespace {

using Fuzzing::Check;
using Fuzzing::CheckSame;

constexpr std::size_t kMostFiles = 3;

/// The files as sources of every domain.
std::vector<File> FilesIn(std::string_view version) {
  std::vector<File> files;
  for (std::size_t i = 0; i < kMostFiles && !version.empty(); ++i) {
    const std::size_t end = std::min(version.find('\f'), version.size());
    const auto document = std::make_shared<const Document>(std::string(version.substr(0, end)));
    version.remove_prefix(std::min(end + 1, version.size()));
    if (!document->IsJson()) continue;
    for (const Domain domain : kDomains) {
      const std::string name = std::to_string(files.size());
      files.push_back({name, domain, {std::to_string(i), document}});
    }
  }
  return files;
}

/// What is changed and how, in the opposite direction if `is_reversed`, one change a line.
std::string TextOf(const Result& result, bool is_reversed) {
  std::vector<std::string> lines;
  for (const Change& change : result.changes) {
    const Action action =
        is_reversed ? Testing::Opposite(change.kind->action) : change.kind->action;
    lines.push_back(std::string(Word(action)) + ' ' + change.kind->about + '\n');
  }
  std::sort(lines.begin(), lines.end());
  std::string text;
  for (const std::string& line : lines) text += line;
  return text;
}

void CheckPlace(const Workspace& version, const std::optional<Place>& place) {
  if (!place) return;
  const Document& document = DocumentOf(version, *place);
  Check(place->node < document.Size(), "a change has a value");
  Check(place->offset <= document.Text().size(), "a change has a place");
}

void CheckChanges(const Workspace& old_version, const Workspace& new_version,
                  const Result& result) {
  for (const Change& change : result.changes) {
    Check(!change.details.message.empty(), "a change has a message");
    Check(!change.element.empty(), "a change has an element");
    // Files that differ in nothing but their form have no place where they do.
    if (ClassOf(change) == Class::kNotConcerned) continue;
    Check(change.old_place || change.new_place, "a change has a place");
    CheckPlace(old_version, change.old_place);
    CheckPlace(new_version, change.new_place);
  }
}

void CheckVersions(std::string_view input) {
  const std::size_t tab = std::min(input.find('\v'), input.size());
  const Workspace old_version(FilesIn(input.substr(0, tab)));
  const Workspace new_version(FilesIn(input.substr(std::min(tab + 1, input.size()))));
  for (const Workspace* version : {&old_version, &new_version}) {
    Check(Compare(*version, *version).changes.empty(), "a version is the same as itself");
  }
  const Result there = Compare(old_version, new_version);
  const Result back = Compare(new_version, old_version);
  CheckChanges(old_version, new_version, there);
  CheckChanges(new_version, old_version, back);
  CheckSame(TextOf(back, true), TextOf(there, false), "the way back undoes the way there");
}

}  // namespace
}  // namespace Zelk::Analysis::Diff

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Zelk::Analysis::Diff::CheckVersions(Zelk::Fuzzing::TextOf(data, size));
  return 0;
}
