#include "analysis/schemes.h"

#include "analysis/format.h"
#include "analysis/place.h"

namespace Zelk::Analysis {

Scheme SchemeOf(const Model& model, ElementId scheme) {
  const std::string_view type = kSchemeTypes.Find(TextOf(model, scheme, "type"));
  return {TextOf(model, scheme, "authenticationScheme"), type,
          type == "SESSION_AWARE" ? TextOf(model, scheme, "sessionManager") : std::string_view()};
}

SchemeList SchemesOf(const Model& model, ElementId list) {
  SchemeList found;
  for (const ElementId entry : model.Children(list)) {
    if (model[entry].kind != ElementKind::kEntry) continue;
    found.entries.push_back(entry);
    found.schemes.push_back(SchemeOf(model, model[entry].target));
  }
  return found;
}

bool IsSchemeList(ElementKind kind) {
  return kind == ElementKind::kPackageList || kind == ElementKind::kServiceList ||
         kind == ElementKind::kOperationList;
}

}  // namespace Zelk::Analysis
