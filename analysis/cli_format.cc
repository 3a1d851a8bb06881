#include <iterator>

#include <com/orvane/zelk/metadata/cli/enumerations.h>

#include "analysis/format_parts.h"

namespace Zelk::Analysis {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

using FormatterType = Bindings::Cli::CommandSvc::FormatterType;
using GenericType = Bindings::Cli::CommandSvc::GenericType;

// Authors write these in lower case, as they write the names of commands.
constexpr const char* kFormatterNames[] = {"simple", "table", "json", "xml",
                                           "csv",    "html",  nullptr};
static_assert(std::size(kFormatterNames) == FormatterType::UNKNOWN + 1, "one name an enumerator");
constexpr const char* kFormatterTexts[] = {
    "Plain text.", "A table.", "JSON.", "XML.", "Values with commas between them.", "HTML.",
};
static_assert(std::size(kFormatterTexts) == FormatterType::UNKNOWN, "one text an enumerator");
constexpr Words kFormatters{kFormatterNames, nullptr, nullptr, kFormatterTexts};

constexpr const char* kGenericNames[] = {"none",          "optional",      "list",
                                         "optional_list", "list_optional", nullptr};
static_assert(std::size(kGenericNames) == GenericType::UNKNOWN + 1, "one name an enumerator");
constexpr const char* kGenericTexts[] = {
    "One value.",
    "One value or none.",
    "A list of values.",
    "A list of values or none.",
    "A list of values each of which may be absent.",
};
static_assert(std::size(kGenericTexts) == GenericType::UNKNOWN, "one text an enumerator");
constexpr Words kGenerics{kGenericNames, nullptr, nullptr, kGenericTexts};

constexpr KeyForm kOutputFieldKeys[] = {
    {"field_name", Text(Style::kNotEmpty), "Simple name of a field of the structure."},
    {"display_name", kText, "Title to show it under."},
};
constexpr ObjectForm kOutputFieldObject{"output_field", kOutputFieldKeys};
constexpr ValueForm kOutputField =
    Own(As(ElementKind::kOutputField, Object(kOutputFieldObject)), "output_fields");

// Messages about outputs call them as they call options.
constexpr char kOptionsEntry[] = "options_entry";

constexpr KeyForm kOutputKeys[] = {
    {"structure_id", Text(Style::kFullName),
     "Full name of the structure that a result consists of."},
    {"output_fields", ListOf(kOutputField), "The fields to show, in this order.",
     KeyForm::kAdvised},
};
constexpr ObjectForm kOutputObject{"output", kOutputKeys};
constexpr ValueForm kOutput = Own(As(ElementKind::kOutput, Object(kOutputObject)), kOptionsEntry);

constexpr KeyForm kOptionKeys[] = {
    {"long_option", Text(Style::kNotEmpty), "Name without dashes: `book` for `--book`."},
    Optional("short_option", Text(Style::kNotEmpty), "Name without a dash: `b` for `-b`."),
    {"field_name", Text(Style::kFullName),
     "The input that the option fills: the simple name of a parameter, then, for a field of a "
     "structure, a full stop and the name of the field: `terms.due_date`."},
    {"description", kText, "Text for people."},
    {"type", WithWords(Text(Style::kExamples), kBuiltinTypes),
     "Type of the value: the name of a built-in type or the full name of an enumeration."},
    {"generic", WithWords(Text(Style::kWord), kGenerics), "How many values the option takes."},
};
constexpr ObjectForm kOptionObject{"option", kOptionKeys};
constexpr ValueForm kOption = Own(As(ElementKind::kOption, Object(kOptionObject)), kOptionsEntry);

constexpr KeyForm kNodeMetadataKeys[] = {
    {"service_id", Text(Style::kFullName), "Full name of the service, as in the Metamodel file."},
    {"operation_id", Text(Style::kSimpleName),
     "Simple name of the operation: `lend`, not `org.example.lending.desk.lend`."},
    Optional("formatter", WithWords(Text(Style::kWord), kFormatters), "How the result is shown."),
    Optional("options", ListOf(kOption), "The options of the command."),
    Optional("output_field_list", ListOf(kOutput), "What is shown of each structure."),
};
constexpr ObjectForm kNodeMetadata{"node_metadata", kNodeMetadataKeys};

constexpr KeyForm kPath{
    "path", Text(Style::kPath),
    "Full name of the namespace that the node is in, with a full stop between its parts; empty at "
    "the top."};
constexpr KeyForm kDescription{"description", kText, "Text for people."};

constexpr KeyForm kCommandKeys[] = {
    kPath,
    {"name", Text(Style::kSimpleName),
     "Last part of the full name. Users type the parts of `path`, then `name`."},
    kDescription,
    {"node_metadata", Own(Object(kNodeMetadata), "path"), "What the command calls, and how."},
};
constexpr ObjectForm kCommand{nullptr, kCommandKeys};

constexpr KeyForm kNamespaceKeys[] = {
    kPath,
    {"name", Text(Style::kSimpleNameOrEmpty),
     "Last part of the full name; empty only for the root, whose `path` is empty, too."},
    kDescription,
};
constexpr ObjectForm kNamespace{nullptr, kNamespaceKeys};

constexpr const char* kNodeTypes[] = {"command", "namespace", nullptr};
constexpr const char* kNodeTypeTexts[] = {
    "Calls an operation of a service.",
    "Holds commands and other namespaces.",
};
constexpr Words kNodeWords{kNodeTypes, nullptr, nullptr, kNodeTypeTexts};

constexpr KeyForm kNodeKeys[] = {
    {"type", WithWords(Text(Style::kWord), kNodeWords), "What the node is, in lower case."}};
constexpr Variant kNodeVariants[] = {
    {"command", &kCommand, ElementKind::kCommand},
    {"namespace", &kNamespace, ElementKind::kNamespace},
};
constexpr ObjectForm kNodeObject{"node", kNodeKeys, "type", nullptr, kNodeVariants};
constexpr ValueForm kNode = Each(ElementKind::kNone, kNodeObject);

constexpr KeyForm kRootKeys[] = {
    {"cli", Own(ListOf(kNode), "cli"),
     "Marks a CLI file: the namespaces and commands of a command-line client."}};
constexpr ObjectForm kRoot{"document", kRootKeys};

}  // namespace

constexpr Words kFormatterTypes{FormatterType::Strings::values, nullptr, nullptr};
constexpr Words kOptionGenerics{GenericType::Strings::values, nullptr, nullptr};

const Format kCliFormat{Domain::kCli, "cli", "CLI file", Each(ElementKind::kNone, kRoot)};

}  // namespace Zelk::Analysis
