#include "analysis/schema/project_format.h"

#include "analysis/format_parts.h"

namespace Zelk::Analysis::Schema {
namespace {

constexpr ValueForm kSource = Text(Style::kNotEmpty);
constexpr ValueForm kPattern = Text(Style::kNotEmpty);

constexpr const char* kSeverities[] = {"error", "warning", "note", "off", nullptr};
constexpr const char* kSeverityTexts[] = {
    "What the author wrote is lost, or a reference breaks.",
    "Likely a mistake.",
    "Completeness and style.",
    "The rule is not checked.",
};
constexpr Words kSeverityWords{kSeverities, nullptr, nullptr, kSeverityTexts};
constexpr ValueForm kSeverity = WithWords(Text(Style::kWord), kSeverityWords);

constexpr const char* kTruths[] = {"true", "false", nullptr};
constexpr Words kTruthWords{kTruths, nullptr, nullptr};
constexpr ValueForm kTruth = WithWords(kAnything, kTruthWords);

constexpr KeyForm kIgnoreKeys[] = {
    {"rule", Text(Style::kNotEmpty), "Id of the rule."},
    Optional("element", kPattern, "Pattern of the elements: all of them if absent."),
    Optional("reason", Text(Style::kNotEmpty), "Why, for people."),
    Optional("until", Text(Style::kNotEmpty), "The last day, such as `2027-01-31`."),
};
constexpr ObjectForm kIgnoreObject{"ignore", kIgnoreKeys};
constexpr ValueForm kIgnore = Each(ElementKind::kNone, kIgnoreObject);

constexpr KeyForm kLintKeys[] = {
    Optional("rules", MembersOf(kSeverity), "Severities of rules, by their ids."),
    Optional("external", ListOf(kPattern),
             "Patterns of names that are described elsewhere, which are not looked for."),
    Optional("reserved_options", ListOf(kPattern),
             "Long and short options that clients have themselves, without dashes."),
    Optional("needs_reasons", kTruth, "Whether each `ignore` and each `$lint` needs a reason."),
    Optional("ignore", ListOf(kIgnore), "Findings that are left out."),
};
constexpr ObjectForm kLint{"lint", kLintKeys};

constexpr KeyForm kProjectKeys[] = {
    Optional("sources", ListOf(kSource),
             "What `--source` takes, in relation to this file: the default sources."),
    Optional("lint", Object(kLint), "What `zelk-metadata lint` is to find."),
};
constexpr ObjectForm kProject{"document", kProjectKeys};

}  // namespace

const ValueForm kProjectForm = Each(ElementKind::kNone, kProject);

}  // namespace Zelk::Analysis::Schema
