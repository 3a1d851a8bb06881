#include "common/messages/message_catalog.h"

namespace Zelk::Provider::Metadata {

// Intended(catalog-gaps): some ids that the parsers use have no row, and some rows are never used.
// Clients know the messages by this table, so no row is added or removed.
constexpr CatalogRow kCatalog[] = {
    {MessageId::kCliNamespaceNotFound, "Cli namespace not found: %1%"},
    {MessageId::kCliCommandNotFound, "Cli command not found: %1%"},
    {MessageId::kCliSourceNotFound, "Cli source not found: %1%"},
    {MessageId::kCliSourceFileNotFound, "Cli source file not found: %1%"},
    {MessageId::kCliSourceExists, "Cli source already exists: %1%"},
    {MessageId::kCliParseError, "Cli source file parse error : %1% at %2%"},
    {MessageId::kInvalidField, "Json parse invalid field: %1%"},
    {"zelk.metadata.json.invalid.node.type", "Json parse invalid node type: %1%"},
    {MessageId::kInvalidEnumValue, "Json parse invalid enum value: %1%"},
    {MessageId::kMissingField, "Json parse missing field: %1%"},
    {MessageId::kMetamodelSourceNotFound, "Metamodel source not found: %1%"},
    {MessageId::kMetamodelSourceFileNotFound, "Metamodel source file not found: %1%"},
    {MessageId::kMetamodelSourceExists, "Metamodel source already exists: %1%"},
    {MessageId::kMetamodelParseError, "Metamodel source file parse error : %1% at %2%"},
    {MessageId::kMetamodelComponentNotFound, "Metamodel component not found: %1%"},
    {MessageId::kMetamodelPackageNotFound, "Metamodel package not found: %1%"},
    {MessageId::kMetamodelServiceNotFound, "Metamodel service not found: %1%"},
    {MessageId::kMetamodelOperationNotFound, "Metamodel operation not found: %1%[%2%]"},
    {MessageId::kMetamodelStructureNotFound, "Metamodel structure not found: %1%"},
    {MessageId::kMetamodelResourceNotFound, "Metamodel resource not found: %1%"},
    {MessageId::kMetamodelEnumerationNotFound, "Metamodel enumeration not found: %1%"},
    {MessageId::kAuthenticationSourceNotFound, "Authentication source not found: %1%"},
    {MessageId::kAuthenticationSourceFileNotFound, "Authentication source file not found: %1%"},
    {MessageId::kAuthenticationSourceExists, "Authentication source already exists: %1%"},
    {MessageId::kAuthenticationParseError, "Authentication source file parse error : %1% at %2%"},
    {"zelk.metada.authentication.component.not.found", "Authentication component not found: %1%"},
    {MessageId::kAuthenticationPackageNotFound, "Authentication package not found: %1%"},
    {MessageId::kAuthenticationServiceNotFound, "Authentication service not found: %1%"},
    {MessageId::kAuthenticationOperationNotFound, "Authentication operation not found: %1%[%2%]"},
    {"zelk.metada.authentication.invalid.service.id", "Authentication invalid service id: %1%"},
    {"zelk.metada.authentication.invalid.operation.id", "Authentication invalid operation id: %1%"},
    {MessageId::kAuthenticationUnknownSchemaName, "Authentication unknown schema name: %1%"},
    {nullptr, nullptr},
};

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
