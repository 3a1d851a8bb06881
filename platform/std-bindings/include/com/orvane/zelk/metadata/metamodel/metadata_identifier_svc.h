#pragma once

#include <string>

#include <com/orvane/zelk/export.h>

namespace Com::Orvane::Zelk::Metadata::Metamodel::MetadataIdentifierSvc {

/// The names of the annotations that have a meaning to the metadata services themselves.
struct ZELK_STD_BINDINGS_EXPORT Constants {
  /// Says of a structure that it is the model of resources: "Model".
  static const std::string MODEL;

  /// Says which resources an identifier or a model stands for: "Resource".
  static const std::string RESOURCE;
};

}  // namespace Com::Orvane::Zelk::Metadata::Metamodel::MetadataIdentifierSvc
