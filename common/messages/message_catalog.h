#pragma once

#include <list>
#include <string>

#include <zelk/message.h>

namespace Zelk::Provider::Metadata {

/// The tag class of this library's catalog.
class MetadataSvc;

/// A message of this library's catalog.
using CatalogMessage = ::Zelk::Message<MetadataSvc>;

/// The messages of a parse, in the order found. The caller owns the list; parsers only append to
/// it.
using Errors = std::list<::Zelk::BaseMessage>;

/// A message with its text.
struct CatalogRow {
  const char* id;
  const char* text;
};

/// The catalog. It ends with a row of null pointers.
extern const CatalogRow kCatalog[];

/// The message ids that the code uses.
/// Intended(message-id-spelling): most ids have "metada", some "metadata". Clients compare them
/// byte for byte.
namespace MessageId {

inline constexpr char kMissingField[] = "zelk.metadata.json.missing.field";
inline constexpr char kInvalidField[] = "zelk.metadata.json.invalid.field";
inline constexpr char kInvalidEnumValue[] = "zelk.metadata.json.invalid.enum.value";

inline constexpr char kMetamodelParseError[] = "zelk.metadata.metamodel.parse.error";
inline constexpr char kMetamodelSourceExists[] = "zelk.metada.metamodel.source.exists";
inline constexpr char kMetamodelSourceNotFound[] = "zelk.metada.metamodel.source.not.found";
inline constexpr char kMetamodelSourceFileNotFound[] =
    "zelk.metada.metamodel.source.file.not.found";
inline constexpr char kMetamodelComponentNotFound[] = "zelk.metada.metamodel.component.not.found";
inline constexpr char kMetamodelPackageNotFound[] = "zelk.metada.metamodel.package.not.found";
inline constexpr char kMetamodelServiceNotFound[] = "zelk.metada.metamodel.service.not.found";
inline constexpr char kMetamodelOperationNotFound[] = "zelk.metada.metamodel.operation.not.found";
inline constexpr char kMetamodelStructureNotFound[] = "zelk.metada.metamodel.structure.not.found";
inline constexpr char kMetamodelResourceNotFound[] = "zelk.metada.metamodel.resource.not.found";
inline constexpr char kMetamodelEnumerationNotFound[] =
    "zelk.metada.metamodel.enumeration.not.found";

inline constexpr char kAuthenticationParseError[] = "zelk.metadata.authentication.parse.error";
inline constexpr char kAuthenticationSourceExists[] = "zelk.metada.authentication.source.exists";
inline constexpr char kAuthenticationSourceNotFound[] =
    "zelk.metada.authentication.source.not.found";
inline constexpr char kAuthenticationSourceFileNotFound[] =
    "zelk.metada.authentication.source.file.not.found";
inline constexpr char kAuthenticationPackageNotFound[] =
    "zelk.metada.authentication.package.not.found";
inline constexpr char kAuthenticationServiceNotFound[] =
    "zelk.metada.authentication.service.not.found";
inline constexpr char kAuthenticationOperationNotFound[] =
    "zelk.metada.authentication.operation.not.found";
inline constexpr char kAuthenticationUnknownSchemaName[] =
    "zelk.metadata.authentication.json.unknown.schema.name";
inline constexpr char kAuthenticationJsonInvalidOperationId[] =
    "zelk.metadata.authentication.json.invalid.operation.id";
inline constexpr char kAuthenticationJsonInvalidServiceId[] =
    "zelk.metadata.authentication.json.invalid.service.id";

inline constexpr char kCliParseError[] = "zelk.metadata.cli.parse.error";
inline constexpr char kCliInvalidField[] = "zelk.metadata.cli.json.invalid.field";
inline constexpr char kCliInvalidNodeType[] = "zelk.metadata.cli.json.invalid.node.type";
inline constexpr char kCliSourceExists[] = "zelk.metada.cli.source.exists";
inline constexpr char kCliSourceNotFound[] = "zelk.metada.cli.source.not.found";
inline constexpr char kCliSourceFileNotFound[] = "zelk.metada.cli.source.file.not.found";
inline constexpr char kCliNamespaceNotFound[] = "zelk.metada.cli.namespace.not.found";
inline constexpr char kCliCommandNotFound[] = "zelk.metada.cli.command.not.found";

}  // namespace MessageId
}  // namespace Zelk::Provider::Metadata

namespace Zelk {

/// Returns the text of `id` in the catalog, with its placeholders; "Unknown message." if it has
/// none.
template <>
std::string Message<Provider::Metadata::MetadataSvc>::DefaultMessageForId(const std::string& id);

}  // namespace Zelk
