#include <utility>

#include <com/orvane/zelk/metadata/metamodel/records.h>

namespace Com::Orvane::Zelk::Metadata::Metamodel {

GenericInstantiation::GenericInstantiation(
    GenericInstantiationEnumerations::GenericType generic_type_arg,
    std::shared_ptr<const Type> element_type_arg, std::shared_ptr<const Type> map_key_type_arg,
    std::shared_ptr<const Type> map_value_type_arg)
    : generic_type(std::move(generic_type_arg)),
      element_type(std::move(element_type_arg)),
      map_key_type(std::move(map_key_type_arg)),
      map_value_type(std::move(map_value_type_arg)) {}

/// A copy has the same types, but not next_released_.
GenericInstantiation::GenericInstantiation(const GenericInstantiation& other)
    : GenericInstantiation(other.generic_type, other.element_type, other.map_key_type,
                           other.map_value_type) {}

GenericInstantiation& GenericInstantiation::operator=(const GenericInstantiation& other) {
  // `other` may be part of the types of this one, so these are released last.
  GenericInstantiation copy(other);
  std::swap(generic_type, copy.generic_type);
  element_type.swap(copy.element_type);
  map_key_type.swap(copy.map_key_type);
  map_value_type.swap(copy.map_value_type);
  return *this;
}

GenericInstantiation::~GenericInstantiation() {
  Ptr pending;
  Release(element_type, pending);
  Release(map_key_type, pending);
  Release(map_value_type, pending);
  while (pending) {
    Ptr current = std::move(pending);
    pending = std::move(current->next_released_);
    // These keep the types alive while `current` is destroyed, so its own destructor releases
    // nothing and the stack does not grow.
    std::shared_ptr<const Type> element = current->element_type;
    std::shared_ptr<const Type> map_key = current->map_key_type;
    std::shared_ptr<const Type> map_value = current->map_value_type;
    current.reset();
    Release(element, pending);
    Release(map_key, pending);
    Release(map_value, pending);
  }
}

/// Releases one type. If the instantiation inside it has no other owner, it is not destroyed here
/// but put in front of `pending`.
///
/// If it has other owners, only this reference to it is dropped. When another thread drops the last
/// of the others just after the count was read, this reference is the last one after all, and a
/// second destructor runs inside this one. It works in the same way, so the stack grows with the
/// number of such coincidences and not with the depth of the type.
void GenericInstantiation::Release(std::shared_ptr<const Type>& type, Ptr& pending) {
  if (!type) return;
  Ptr inner = type->generic_instantiation;
  type.reset();
  if (inner && inner.use_count() == 1) {
    inner->next_released_ = std::move(pending);
    pending = std::move(inner);
  }
}

}  // namespace Com::Orvane::Zelk::Metadata::Metamodel
