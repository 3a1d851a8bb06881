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

// A copy has the same types, but waits for no release.
GenericInstantiation::GenericInstantiation(const GenericInstantiation& other)
    : GenericInstantiation(other.generic_type, other.element_type, other.map_key_type,
                           other.map_value_type) {}

GenericInstantiation& GenericInstantiation::operator=(const GenericInstantiation& other) {
  // The other may be part of this one's types, so those are let go last.
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
    // These keep the types below alive while current goes, so its own destructor has nothing to do
    // and the depth of the stack stays the same.
    std::shared_ptr<const Type> element = current->element_type;
    std::shared_ptr<const Type> map_key = current->map_key_type;
    std::shared_ptr<const Type> map_value = current->map_value_type;
    current.reset();
    Release(element, pending);
    Release(map_key, pending);
    Release(map_value, pending);
  }
}

// Lets one type go. If nobody else holds the instantiation inside it, that is not destroyed here
// but put before the others that wait for it.
//
// Of an instantiation that others hold too, only this share is dropped. Should another thread drop
// the last of the others just in between, the share is the last one after all and a second
// destructor runs inside this one. It works in the same way, so the stack grows with such
// coincidences, not with the depth of the type.
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
