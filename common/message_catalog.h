#pragma once

#include <list>
#include <string>

#include <zelk/message.h>

namespace Zelk::Provider::Metadata {

/// Selects this library's catalog as the place where messages find their default texts.
class MetadataSvc;

/// A message of this library's catalog.
using CatalogMessage = ::Zelk::Message<MetadataSvc>;

/// The messages that a parse leaves behind, in the order found. Owned by the caller; only appended
/// to.
using Errors = std::list<::Zelk::BaseMessage>;

/// The ids that code raises or compares. The catalog itself is the array in the .cc.
/// Intended: most ids say "metada", some "metadata"; clients match them byte for byte.
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

}  // namespace MessageId
}  // namespace Zelk::Provider::Metadata

namespace Zelk {

/// The catalogued text of `id`, its placeholders unfilled; "Unknown message." for any other id.
template <>
std::string Message<Provider::Metadata::MetadataSvc>::DefaultMessageForId(const std::string& id);

}  // namespace Zelk
