#include "analysis/format_parts.h"

namespace Zelk::Analysis {
namespace {

constexpr KeyForm kOutputFieldKeys[] = {
    {"field_name", kText},
    {"display_name", kText},
};
constexpr ObjectForm kOutputFieldObject{kOutputFieldKeys};
constexpr ValueForm kOutputField =
    Own(As(ElementKind::kOutputField, Object(kOutputFieldObject)), "output_fields");

// Messages about outputs call them as they call options.
constexpr char kOptionsEntry[] = "options_entry";

constexpr KeyForm kOutputKeys[] = {
    {"structure_id", kText},
    Optional("output_fields", ListOf(kOutputField)),
};
constexpr ObjectForm kOutputObject{kOutputKeys};
constexpr ValueForm kOutput = Own(As(ElementKind::kOutput, Object(kOutputObject)), kOptionsEntry);

constexpr KeyForm kOptionKeys[] = {
    {"long_option", kText}, Optional("short_option", kText),
    {"field_name", kText},  {"description", kText},
    {"type", kText},        {"generic", kText},
};
constexpr ObjectForm kOptionObject{kOptionKeys};
constexpr ValueForm kOption = Own(As(ElementKind::kOption, Object(kOptionObject)), kOptionsEntry);

constexpr KeyForm kNodeMetadataKeys[] = {
    {"service_id", kText},
    {"operation_id", kText},
    Optional("formatter", kText),
    Optional("options", ListOf(kOption)),
    Optional("output_field_list", ListOf(kOutput)),
};
constexpr ObjectForm kNodeMetadata{kNodeMetadataKeys};

constexpr KeyForm kCommandKeys[] = {
    {"path", kText},
    {"name", kText},
    {"description", kText},
    {"node_metadata", Own(Object(kNodeMetadata), "path")},
};
constexpr ObjectForm kCommand{kCommandKeys};

constexpr KeyForm kNamespaceKeys[] = {
    {"path", kText},
    {"name", kText},
    {"description", kText},
};
constexpr ObjectForm kNamespace{kNamespaceKeys};

constexpr KeyForm kNodeKeys[] = {{"type", kText}};
constexpr Variant kNodeVariants[] = {
    {"command", &kCommand, ElementKind::kCommand},
    {"namespace", &kNamespace, ElementKind::kNamespace},
};
constexpr ObjectForm kNodeObject{kNodeKeys, "type", nullptr, kNodeVariants};
constexpr ValueForm kNode = Each(ElementKind::kNone, kNodeObject);

constexpr KeyForm kRootKeys[] = {{"cli", Own(ListOf(kNode), "cli")}};
constexpr ObjectForm kRoot{kRootKeys};

}  // namespace

const Format kCliFormat{Domain::kCli, "cli", Each(ElementKind::kNone, kRoot)};

}  // namespace Zelk::Analysis
