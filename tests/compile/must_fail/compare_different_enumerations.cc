#include <com/orvane/zelk/metadata/metamodel/enumerations.h>

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

bool Same(const Bindings::Metamodel::TypeEnumerations::Category& category) {
#ifdef MUST_FAIL
  return category == Bindings::Metamodel::TypeEnumerations::BuiltinType(
                         Bindings::Metamodel::TypeEnumerations::BuiltinType::VOID);
#else
  return category == Bindings::Metamodel::TypeEnumerations::Category::BUILTIN;
#endif
}
