#include "analysis/schemes.h"

#include "analysis/format.h"
#include "analysis/place.h"

namespace Zelk::Analysis {

Scheme SchemeOf(const Model& model, ElementId scheme) {
  const std::string_view type = kSchemeTypes.Find(TextOf(model, scheme, "type"));
  return {TextOf(model, scheme, "authenticationScheme"), type,
          type == "SESSION_AWARE" ? TextOf(model, scheme, "sessionManager") : std::string_view()};
}

bool IsSchemeList(ElementKind kind) {
  return kind == ElementKind::kPackageList || kind == ElementKind::kServiceList ||
         kind == ElementKind::kOperationList;
}

}  // namespace Zelk::Analysis
