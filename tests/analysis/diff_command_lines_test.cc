#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/command_line.h"
#include "analysis/diff/compare.h"
#include "analysis/files.h"
#include "analysis/mirrored.h"
#include "analysis/small_cli.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): all of the small files

// Command lines of the old version, read by the new one.

namespace {

using Zelk::Analysis::CommandForm;
using Zelk::Analysis::CommandLine;
using Zelk::Analysis::CommandWords;
using Zelk::Analysis::Domain;
using Zelk::Analysis::ElementKind;
using Zelk::Analysis::Workspace;
using Zelk::Analysis::Diff::Class;
using Zelk::Analysis::Diff::Compare;
using Zelk::Analysis::Diff::Result;

/// Commands with up to two options.
std::vector<std::vector<OptionText>> SmallCommands() {
  std::vector<OptionText> all;
  for (const char* const generic : {"none", "optional", "list", "optional_list", "list_optional"}) {
    all.push_back({"a", "x", "LONG", generic, "v"});
  }
  for (const char* const type : {"ID", "STRING"}) all.push_back({"a", "x", type, "optional"});
  for (const char* const field : {"x", "y"}) {
    all.push_back({"b", field, "LONG", "optional", "v"});
    all.push_back({"b", field, "LONG", "optional_list"});
  }
  all.push_back({"b", "x", "LONG", "none", "w"});
  std::vector<std::vector<OptionText>> commands{{}};
  for (const OptionText& first : all) {
    commands.push_back({first});
    for (const OptionText& second : all) commands.push_back({first, second});
  }
  return commands;
}

/// All words with up to two options.
std::vector<CommandWords> SmallLines() {
  std::vector<CommandWords> values{{}};
  for (const char* const option : {"--a", "--b", "-v", "-w"}) {
    for (const char* const value : {"1", "text"}) values.push_back({option, value});
  }
  std::vector<CommandWords> lines;
  for (const CommandWords& first : values) {
    for (const CommandWords& second : values) {
      lines.push_back(first);
      lines.back().insert(lines.back().end(), second.begin(), second.end());
    }
  }
  return lines;
}

/// What a line means; "refused" if it is.
std::string MeaningOf(const CommandForm& form, const CommandWords& words) {
  const CommandLine line = form.Read(words);
  if (!line.problem.empty()) return "refused";
  std::string text;
  for (const auto& value : line.values) {
    text += std::string(value.field) + "=" + value.value + " of " + value.type + " ";
  }
  return text;
}

struct SmallVersion {
  explicit SmallVersion(const std::vector<OptionText>& options)
      : workspace(FilesOf({OneCommand(CommandText{"", "start", options})})),
        form(workspace, workspace.ModelOf(Domain::kCli).Find(ElementKind::kCommand, "start")) {
    for (const CommandWords& line : SmallLines()) meanings.push_back(MeaningOf(form, line));
  }

  std::string_view Text() const { return workspace.Files()[0].source.document->Text(); }

  Workspace workspace;
  CommandForm form;
  /// Of SmallLines().
  std::vector<std::string> meanings;
};

std::vector<std::unique_ptr<SmallVersion>> SmallVersions() {
  std::vector<std::unique_ptr<SmallVersion>> versions;
  for (const auto& options : SmallCommands()) {
    versions.push_back(std::make_unique<SmallVersion>(options));
  }
  return versions;
}

/// Whether all lines that the old version accepts mean the same in the new one.
bool AreKept(const SmallVersion& old_version, const SmallVersion& new_version) {
  for (std::size_t i = 0; i < old_version.meanings.size(); ++i) {
    const std::string& meaning = old_version.meanings[i];
    if (meaning != "refused" && meaning != new_version.meanings[i]) return false;
  }
  return true;
}

}  // namespace

TEST(CommandLines, MeanTheSameAfterCompatibleChanges) {
  const std::vector<std::unique_ptr<SmallVersion>> versions = SmallVersions();
  std::size_t compatible = 0;
  for (const auto& before : versions) {
    for (const auto& after : versions) {
      const Result result = Compare(before->workspace, after->workspace);
      Class worst = Class::kNotConcerned;
      for (const Change& change : result.changes) worst = std::max(worst, ClassOf(change));
      if (worst > Class::kCompatible) continue;
      ++compatible;
      EXPECT_TRUE(AreKept(*before, *after)) << before->Text() << "\n" << after->Text();
    }
  }
  EXPECT_GT(compatible, versions.size());
}

TEST(CommandLines, ChangesOfOptionsAreMirrored) {
  const std::vector<std::unique_ptr<SmallVersion>> versions = SmallVersions();
  for (std::size_t i = 0; i < versions.size(); ++i) {
    for (std::size_t j = i + 1; j < versions.size(); j += 3) {
      const SmallVersion& before = *versions[i];
      const SmallVersion& after = *versions[j];
      const Result result = Compare(before.workspace, after.workspace);
      const Result mirrored = Compare(after.workspace, before.workspace);
      EXPECT_EQ(TallyOf(result, false), TallyOf(mirrored, true)) << before.Text() << "\n"
                                                                 << after.Text();
      EXPECT_FALSE(result.changes.empty());
    }
  }
}
