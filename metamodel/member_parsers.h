#pragma once

#include <list>
#include <map>
#include <memory>
#include <string>

#include "common/json/json_member.h"
#include "metamodel/json_metadata_parser.h"

// Members that several operations of the Metamodel parser read.

namespace Zelk::Provider::Metadata::Metamodel {

/// An array of named records. Of two with the same name, the first one is kept.
template <typename Record>
using MapMember = JsonArrayMember<std::map<std::string, std::shared_ptr<const Record>>>;

template <typename Record>
using ListMember = JsonArrayMember<std::list<std::shared_ptr<const Record>>>;

/// The member "metadata": the annotations.
class MetadataMember : public JsonObjectMember<Bindings::Metamodel::MetadataMap> {
 public:
  MetadataMember(const JsonValue& object, const JsonMetadataParser::RegisterCallbacks& callbacks,
                 Errors& errors)
      : JsonObjectMemberOf(object, "metadata",
                           WithCallbacks(callbacks, JsonMetadataParser::ParseMetadata), errors) {}
};

}  // namespace Zelk::Provider::Metadata::Metamodel
