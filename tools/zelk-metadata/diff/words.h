#pragma once

#include <string>
#include <vector>

#include "diff/report.h"

// What the outputs for people say alike.

namespace Zelk::Tool::Diff {

/// "1 file", "2 files".
std::string Counted(std::size_t count, const std::string& word);

/// The assumptions, such as "parameters named".
std::vector<std::string> AssumptionTexts(const Analysis::Diff::Assumptions& assumptions);

/// "Breaking" and so on.
const char* HeadingOf(Class worst);

/// The heading that the change is shown under.
const char* GroupOf(const Entry& entry);

/// "wire, source", with the class of those to whom the change is less than to others.
std::string ConcernedText(const Entry& entry, Analysis::Diff::AudienceSet audiences);

/// The value and its place; empty without both.
std::string ValueText(const std::string& value, const Side& side,
                      const std::optional<Analysis::Place>& place);

/// " (REASON, until DAY)", or less.
std::string ReasonText(const Analysis::Accepted& accepted);

/// The end of a report: what was found, and whether the run fails.
std::vector<std::string> SummaryLines(const Report& report);

}  // namespace Zelk::Tool::Diff
