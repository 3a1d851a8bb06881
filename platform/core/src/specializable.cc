#include <zelk/specializable.h>

namespace Zelk {

Specializable::Specializable() = default;

Specializable::Specializable(const Specializable&) = default;

Specializable& Specializable::operator=(const Specializable&) = default;

Specializable::~Specializable() = default;

void Specializable::SetFields(Data::CompoundValue& /*value*/) const {}

}  // namespace Zelk
