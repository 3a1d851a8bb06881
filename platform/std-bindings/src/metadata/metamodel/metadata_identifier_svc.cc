#include <com/orvane/zelk/metadata/metamodel/metadata_identifier_svc.h>

namespace Com::Orvane::Zelk::Metadata::Metamodel::MetadataIdentifierSvc {

const std::string Constants::MODEL = "Model";

const std::string Constants::RESOURCE = "Resource";

}  // namespace Com::Orvane::Zelk::Metadata::Metamodel::MetadataIdentifierSvc
