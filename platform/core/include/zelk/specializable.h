#pragma once

#include <string>

#include <zelk/export.h>

namespace Zelk {

namespace Data {
class CompoundValue;
}  // namespace Data

/// A native object that knows which data value it becomes: the base of the standard errors. The
/// classes derived from it belong to the generated bindings; through these two operations the core
/// adapts them without knowing any of them.
class ZELK_CORE_EXPORT Specializable {
 public:
  /// The dotted lower-case name of the type, which names the adapted value.
  virtual std::string TypeName() const = 0;

  /// Sets this object's own fields on the value that it is adapted to.
  virtual void SetFields(Data::CompoundValue& value) const;

  virtual ~Specializable();

 protected:
  Specializable();
  Specializable(const Specializable&);
  Specializable& operator=(const Specializable&);
};

}  // namespace Zelk
