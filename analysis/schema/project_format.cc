#include "analysis/schema/project_format.h"

#include "analysis/format_parts.h"

namespace Zelk::Analysis::Schema {
namespace {

constexpr ValueForm kSource = Text(Style::kNotEmpty);
constexpr ValueForm kPattern = Text(Style::kNotEmpty);
constexpr ValueForm kName = Text(Style::kNotEmpty);

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

constexpr const char* kNamedWords[] = {"named", "positional", nullptr};
constexpr const char* kNamedTexts[] = {
    "Parameters and fields are sent with their names.",
    "Parameters and fields are sent in their order.",
};
constexpr const char* kIgnoredWords[] = {"ignored", "refused", nullptr};
constexpr const char* kIgnoredTexts[] = {
    "Receivers ignore a field or parameter that they do not know.",
    "Receivers fail at a field or parameter that they do not know.",
};
constexpr const char* kClosedWords[] = {"closed", "open", nullptr};
constexpr const char* kClosedTexts[] = {
    "Receivers fail at a value of an enumeration that they do not know.",
    "Receivers take a value of an enumeration that they do not know.",
};
constexpr const char* kOrdinalWords[] = {"ordinal", "text", nullptr};
constexpr const char* kOrdinalTexts[] = {
    "Values of enumerations are sent as their positions.",
    "Values of enumerations are sent as their names.",
};
constexpr const char* kAnyWords[] = {"any", "all", nullptr};
constexpr const char* kAnyTexts[] = {
    "Callers need one of the schemes of a list.",
    "Callers need all schemes of a list.",
};
constexpr const char* kNoneWords[] = {"none", "nearest", nullptr};
constexpr const char* kNoneTexts[] = {
    "Callers of what has no schemes of its own need none.",
    "Operations without schemes have those of the service, and services those of the package.",
};
constexpr const char* kClassNames[] = {"documentation", "compatible", "dangerous", "breaking",
                                       nullptr};
constexpr const char* kClassTexts[] = {
    "Only what people read changes.",
    "Breaks no program.",
    "May break a program.",
    "Breaks programs.",
};

constexpr ValueForm WordOf(const Words& words) {  // coverage: runs in the compiler
  return WithWords(Text(Style::kWord), words);
}

constexpr Words kNamed{kNamedWords, nullptr, nullptr, kNamedTexts};
constexpr Words kIgnored{kIgnoredWords, nullptr, nullptr, kIgnoredTexts};
constexpr Words kClosed{kClosedWords, nullptr, nullptr, kClosedTexts};
constexpr Words kOrdinal{kOrdinalWords, nullptr, nullptr, kOrdinalTexts};
constexpr Words kAny{kAnyWords, nullptr, nullptr, kAnyTexts};
constexpr Words kNone{kNoneWords, nullptr, nullptr, kNoneTexts};
constexpr Words kClasses{kClassNames, nullptr, nullptr, kClassTexts};
constexpr ValueForm kClass = WordOf(kClasses);

constexpr KeyForm kDiffKeys[] = {
    Optional("parameters", WordOf(kNamed), "How parameters and fields are told apart."),
    Optional("unknown_fields", WordOf(kIgnored), "What receivers do with unknown fields."),
    Optional("enumerations", WordOf(kClosed), "What receivers do with unknown values."),
    Optional("enumeration_form", WordOf(kOrdinal), "How values of enumerations are sent."),
    Optional("schemes", WordOf(kAny), "How many schemes of a list callers need."),
    Optional("inheritance", WordOf(kNone), "Which schemes count where a list has no schemes."),
    Optional("deprecated", ListOf(kName),
             "Annotations that say that an element will be removed: `Deprecated` if absent."),
    Optional("annotations", MembersOf(kClass),
             "Classes of changes of annotations, by their names."),
};
constexpr ObjectForm kDiff{"diff", kDiffKeys};

constexpr KeyForm kProjectKeys[] = {
    Optional("sources", ListOf(kSource),
             "What `--source` takes, in relation to this file: the default sources."),
    Optional("lint", Object(kLint), "What `zelk-metadata lint` is to find."),
    Optional("diff", Object(kDiff), "What `zelk-metadata diff` assumes."),
};
constexpr ObjectForm kProject{"document", kProjectKeys};

}  // namespace

const ValueForm kProjectForm = Each(ElementKind::kNone, kProject);

}  // namespace Zelk::Analysis::Schema
