#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/lint/lint.h"
#include "host/accepted_file.h"
#include "host/load.h"
#include "render/json_writer.h"
#include "render/terminal.h"

namespace Zelk::Tool::Lint {

using Analysis::Severity;
using Analysis::Lint::SuppressedBy;

/// One thing that is reported: a finding of a rule, a message of the library about a file that does
/// not load, or a suppression outside of the files that has no effect.
struct Entry {
  /// The id of the rule or of the message; empty if the library does not take the file at all.
  std::string rule;
  Severity severity = Severity::kError;
  std::string message;
  std::string hint;
  std::string file;

  // Empty for what is not about a place of a file. Long pointers are left out.
  std::optional<Analysis::Position> position;
  std::optional<std::string> pointer;

  // Empty for what is not found by a rule.
  std::string element;
  std::string fingerprint;

  SuppressedBy suppressed_by = SuppressedBy::kNothing;
  /// The entry of the baseline; or null.
  const Analysis::Accepted* accepted = nullptr;

  /// Whether the run fails because of it.
  bool fails = false;

  /// The text of the file and the byte of the place; or null.
  const Analysis::Document* text = nullptr;
  std::size_t offset = 0;
};

/// What a run found.
struct Report {
  std::unique_ptr<const Analysis::Lint::Workspace> workspace;
  Analysis::Lint::Result result;
  std::vector<LoadReport> failed;

  /// More files, or folders, that could not be read.
  std::vector<Unreadable> unreadable;

  /// The files with suppressions, as the user knows them; or empty.
  std::string configuration_file;
  std::string baseline_file;

  /// The entries of the baseline that a new one keeps, since their rules did not run.
  std::vector<const Analysis::Accepted*> kept;

  /// The lowest severity that fails the run; empty if none does.
  std::optional<Severity> fail_on;
  bool shows_suppressed = false;

  /// Calls `visit` with everything that is shown: files that do not load first, then findings in
  /// the order of files and places, then suppressions without effect.
  void ForEach(const std::function<void(const Entry&)>& visit) const;

  /// Whether the finding fails the run.
  bool FailsBecauseOf(const Analysis::Lint::Finding& finding) const;
};

/// The numbers at the end of a report.
struct Summary {
  /// How many files were linted, and how many do not load or cannot be read.
  std::size_t files = 0;
  std::size_t failed = 0;

  /// How many findings there are of each severity, without suppressed ones.
  std::array<std::size_t, 3> findings{};

  /// How many of these are not listed, since a rule found too many.
  std::size_t unlisted = 0;

  /// How many are suppressed, by what.
  std::array<std::size_t, 4> suppressed{};

  /// How many rules did not run since no file of the domain was given.
  std::array<std::size_t, 3> skipped{};

  /// Whether something at or above the severity that fails a run was found.
  bool is_failed = false;
};

Summary Summarize(const Report& report);

// The outputs. That of JSON is written into the document of the command.
void WriteJson(Render::JsonWriter& json, const Report& report);
/// Writes what --baseline reads: all that nothing but a baseline suppresses, which needs
/// `shows_suppressed`, and what is kept.
WrittenList WriteBaseline(const std::string& path, const Report& report);
/// In the terminal's width.
void WriteText(std::ostream& out, const Report& report, const Render::Terminal& terminal);
void WriteGithub(std::ostream& out, const Report& report);
void WriteSarif(std::ostream& out, const Report& report);
void WriteJunit(std::ostream& out, const Report& report);

}  // namespace Zelk::Tool::Lint
