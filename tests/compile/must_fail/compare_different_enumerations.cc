#include <com/orvane/zelk/metadata/metamodel/enumerations.h>

namespace Metamodel = Com::Orvane::Zelk::Metadata::Metamodel;

bool Same(const Metamodel::TypeEnumerations::Category& category) {
#ifdef MUST_FAIL
  return category ==
         Metamodel::TypeEnumerations::BuiltinType(Metamodel::TypeEnumerations::BuiltinType::VOID);
#else
  return category == Metamodel::TypeEnumerations::Category::BUILTIN;
#endif
}
