#include "common/messages/message_catalog.h"

namespace Zelk::Provider::Metadata {
namespace {

struct CatalogRow {
  const char* id;
  const char* text;
};

// Intended(catalog-gaps): some ids that the parsers use have no row, and some rows are never used.
// Clients know the messages by this table, so no row is added or removed.
constexpr CatalogRow kCatalog[] = {
    {"zelk.metada.cli.namespace.not.found", "Cli namespace not found: %1%"},
    {"zelk.metada.cli.command.not.found", "Cli command not found: %1%"},
    {"zelk.metada.cli.source.not.found", "Cli source not found: %1%"},
    {"zelk.metada.cli.source.file.not.found", "Cli source file not found: %1%"},
    {"zelk.metada.cli.source.exists", "Cli source already exists: %1%"},
    {"zelk.metadata.cli.parse.error", "Cli source file parse error : %1% at %2%"},
    {"zelk.metadata.json.invalid.field", "Json parse invalid field: %1%"},
    {"zelk.metadata.json.invalid.node.type", "Json parse invalid node type: %1%"},
    {"zelk.metadata.json.invalid.enum.value", "Json parse invalid enum value: %1%"},
    {"zelk.metadata.json.missing.field", "Json parse missing field: %1%"},
    {"zelk.metada.metamodel.source.not.found", "Metamodel source not found: %1%"},
    {"zelk.metada.metamodel.source.file.not.found", "Metamodel source file not found: %1%"},
    {"zelk.metada.metamodel.source.exists", "Metamodel source already exists: %1%"},
    {"zelk.metadata.metamodel.parse.error", "Metamodel source file parse error : %1% at %2%"},
    {"zelk.metada.metamodel.component.not.found", "Metamodel component not found: %1%"},
    {"zelk.metada.metamodel.package.not.found", "Metamodel package not found: %1%"},
    {"zelk.metada.metamodel.service.not.found", "Metamodel service not found: %1%"},
    {"zelk.metada.metamodel.operation.not.found", "Metamodel operation not found: %1%[%2%]"},
    {"zelk.metada.metamodel.structure.not.found", "Metamodel structure not found: %1%"},
    {"zelk.metada.metamodel.resource.not.found", "Metamodel resource not found: %1%"},
    {"zelk.metada.metamodel.enumeration.not.found", "Metamodel enumeration not found: %1%"},
    {"zelk.metada.authentication.source.not.found", "Authentication source not found: %1%"},
    {"zelk.metada.authentication.source.file.not.found",
     "Authentication source file not found: %1%"},
    {"zelk.metada.authentication.source.exists", "Authentication source already exists: %1%"},
    {"zelk.metadata.authentication.parse.error",
     "Authentication source file parse error : %1% at %2%"},
    {"zelk.metada.authentication.component.not.found", "Authentication component not found: %1%"},
    {"zelk.metada.authentication.package.not.found", "Authentication package not found: %1%"},
    {"zelk.metada.authentication.service.not.found", "Authentication service not found: %1%"},
    {"zelk.metada.authentication.operation.not.found",
     "Authentication operation not found: %1%[%2%]"},
    {"zelk.metada.authentication.invalid.service.id", "Authentication invalid service id: %1%"},
    {"zelk.metada.authentication.invalid.operation.id", "Authentication invalid operation id: %1%"},
    {"zelk.metadata.authentication.json.unknown.schema.name",
     "Authentication unknown schema name: %1%"},
    {nullptr, nullptr},
};

}  // namespace
}  // namespace Zelk::Provider::Metadata

namespace Zelk {

template <>
std::string Message<Provider::Metadata::MetadataSvc>::DefaultMessageForId(const std::string& id) {
  for (const auto* row = Provider::Metadata::kCatalog; row->id != nullptr; ++row) {
    if (id == row->id) {
      return row->text;
    }
  }
  return "Unknown message.";
}

}  // namespace Zelk
