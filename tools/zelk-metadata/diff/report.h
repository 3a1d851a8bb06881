#pragma once

#include <array>
#include <cstddef>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/accepted.h"
#include "analysis/diff/compare.h"
#include "host/accepted_file.h"
#include "host/input.h"
#include "render/json_writer.h"
#include "render/terminal.h"

namespace Zelk::Tool::Diff {

using Analysis::Diff::Audience;
using Analysis::Diff::Change;
using Analysis::Diff::Class;

inline constexpr std::array<Audience, Analysis::Diff::kAudiences> kAudiences{
    Audience::kWire, Audience::kSource, Audience::kCli, Audience::kAuth, Audience::kMetadata};

inline constexpr Analysis::AcceptedForm kAcceptedForm{
    "changes", "id", "this is not a list of accepted changes: it has no 'changes'"};

/// One of the two versions.
struct Side {
  /// As the user gave it.
  std::string name;
  std::unique_ptr<const Analysis::Workspace> workspace;

  /// The files that do not load, without those whose repair is accepted.
  std::vector<FailedFile> failed;

  /// How many more files could not be read.
  std::size_t unreadable = 0;

  /// The files that are not compared, since they do not load in the other version.
  std::vector<std::string> left_out;

  /// Whether nothing of it could be read.
  bool is_unreadable = false;

  std::size_t Failed() const { return failed.size() + unreadable; }
};

inline constexpr std::size_t kClasses = 5;

/// What some audiences need, and what a report says if no file has it.
struct Concern {
  Analysis::Diff::AudienceSet audiences;
  Analysis::Domain domain;
  const char* missing;
};

inline constexpr std::array<Concern, 3> kConcerns{
    {{SetOf(Audience::kWire) | SetOf(Audience::kSource), Analysis::Domain::kMetamodel,
      "no interfaces were compared: no Metamodel file was loaded"},
     {SetOf(Audience::kCli), Analysis::Domain::kCli,
      "no command lines were compared: no CLI file was loaded"},
     {SetOf(Audience::kAuth), Analysis::Domain::kAuthentication,
      "no access was compared: no Authentication file was loaded"}}};

/// A change that concerns the user.
struct Entry {
  const Change* change;
  Class worst;

  /// Why it fails no run; or null.
  const Analysis::Accepted* accepted;

  /// Why it failed no run until a day that has passed; or null.
  const Analysis::Accepted* ended;
};

/// An entry of a list of accepted changes that accepts nothing.
struct Unused {
  std::string file;
  std::string problem;
};

/// What a run found.
struct Report {
  Side old_version;
  Side new_version;
  Analysis::Diff::Assumptions assumptions;
  Analysis::Diff::AudienceSet audiences = 0;
  Analysis::Diff::Result result;
  std::vector<Entry> entries;

  /// What is accepted, and the files that list it.
  std::vector<std::string> accepted_files;
  std::vector<Analysis::Accepted> accepted;

  /// The changes with entries that concern other audiences only.
  std::vector<Entry> others;

  /// The entries that accept nothing.
  std::vector<Unused> unused;

  /// The files that load in one version only.
  std::vector<Analysis::Diff::LostFile> lost;

  /// The lowest class that fails the run; empty if none does.
  std::optional<Class> fail_on;
};

/// Compares the versions of the report and fills the rest of it. Files that do not load in the old
/// version are not failures any more if that is accepted.
void Compare(Report& report);

/// Why the versions cannot be compared for the audiences; empty if they can.
std::string WhyNotComparable(const Report& report);

/// Whether all files were compared, but for repaired ones.
bool IsComplete(const Report& report);

/// Whether the run fails unless the change is accepted.
bool FailsBecauseOf(const Report& report, const Entry& entry);

/// The numbers at the end of a report.
struct Summary {
  /// By class, without those that are accepted.
  std::array<std::size_t, kClasses> changes{};

  /// How many of these are not listed, since there are too many.
  std::size_t unlisted = 0;
  std::size_t accepted = 0;

  /// How many files do not load or cannot be read.
  std::size_t failed = 0;

  /// Whether something at or above the class that fails a run was found.
  bool is_failed = false;

  std::size_t Of(Class worst) const { return changes.at(static_cast<std::size_t>(worst)); }
};

Summary Summarize(const Report& report);

/// "major", "minor" or "patch"; empty if not all could be compared. What is accepted counts, too:
/// callers notice it all the same.
std::string Bump(const Report& report);

/// In the order in which they are shown.
inline constexpr std::array<Class, 4> kShownClasses{Class::kBreaking, Class::kDangerous,
                                                    Class::kCompatible, Class::kDocumentation};

// The outputs. That of JSON is written into the document of the command.
void WriteJson(Render::JsonWriter& json, const Report& report);
/// Writes what --accept reads: the changes that fail the run, and those that are accepted already.
WrittenList WriteAccepted(const std::string& path, const Report& report);
/// In the terminal's width.
void WriteText(std::ostream& out, const Report& report, const Render::Terminal& terminal);
/// For release notes.
void WriteMarkdown(std::ostream& out, const Report& report);
void WriteGithub(std::ostream& out, const Report& report);

}  // namespace Zelk::Tool::Diff
