#pragma once

#include <functional>
#include <memory>
#include <string>

#include <com/orvane/zelk/metadata/metamodel/records.h>

#include "domains/bindings.h"
#include "host/domain.h"

namespace Zelk::Tool {

/// Finds what types name; null if nothing that is loaded has the name.
struct TypeLookups {
  std::function<std::shared_ptr<const Bindings::Metamodel::StructureInfo>(const std::string&)>
      structure;
  std::function<std::shared_ptr<const Bindings::Metamodel::EnumerationInfo>(const std::string&)>
      enumeration;
};

/// The types of the structure's fields, those of their fields, and so on, as many levels deep. On
/// a page each is shown where it is named, but only once. In JSON they are in an array in the order
/// of their levels, each once.
Record TypesInStructure(const std::string& name, const TypeLookups& lookups, std::size_t levels);

}  // namespace Zelk::Tool
