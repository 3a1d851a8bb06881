#include "metadata_file.h"

namespace Zelk::Benchmarks {

std::string MetadataFile(const FileSpec& spec) {
  switch (spec.domain) {
    case DomainId::kMetamodel:
      return MetamodelFile(spec);
    case DomainId::kAuthentication:
      return AuthenticationFile(spec);
    case DomainId::kCli:
      break;
  }
  return CliFile(spec);
}

}  // namespace Zelk::Benchmarks
