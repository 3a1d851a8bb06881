#pragma once

#include <string>

#include <com/orvane/zelk/export.h>

namespace Com::Orvane::Zelk::Metadata::Metamodel::MetadataIdentifierSvc {

/// The names of the annotations that the metadata services themselves interpret.
struct ZELK_STD_BINDINGS_EXPORT Constants {
  /// "Model": marks a structure as the model of resources.
  static const std::string MODEL;

  /// "Resource": names the resource types that an identifier or a model refers to.
  static const std::string RESOURCE;
};

}  // namespace Com::Orvane::Zelk::Metadata::Metamodel::MetadataIdentifierSvc
