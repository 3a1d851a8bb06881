#pragma once

#include <string>

#include <zelk/export.h>

namespace Zelk {

namespace Data {
class CompoundValue;
}  // namespace Data

/// A native object that can be converted into a data value: the base of the standard errors. The
/// derived classes belong to the generated bindings. The core converts them through these two
/// operations and does not depend on the classes.
class ZELK_CORE_EXPORT Specializable {
 public:
  /// Returns the name of the type, in lower case with full stops. The value gets this name.
  virtual std::string TypeName() const = 0;

  /// Sets the fields of this object on the value. Sets none by default.
  virtual void SetFields(Data::CompoundValue& value) const;

  virtual ~Specializable();

 protected:
  Specializable();
  Specializable(const Specializable&);
  Specializable& operator=(const Specializable&);
};

}  // namespace Zelk
