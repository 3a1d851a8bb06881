#include "domains/table.h"

namespace Zelk::Tool {

const DomainTable& Domains() {
  static const DomainTable domains{
      MetamodelDomain(),
      AuthenticationDomain(),
      CliDomain(),
  };
  return domains;
}

}  // namespace Zelk::Tool
