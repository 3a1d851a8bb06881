#pragma once

#include <string>
#include <vector>

#include "stateful/json_tree.h"
#include "stateful/model_reader.h"

namespace Zelk::Fuzzing {

/// A record of the Metamodel domain in the model: its name and its whole text, and what is looked
/// for inside it. Children are in the order of their names.
struct Definition {
  std::string name;
  std::string text;
  std::vector<Definition> enumerations;
  std::vector<Definition> structures;
  std::vector<Definition> operations;
  std::vector<Definition> services;
};

struct ResourceModels {
  std::string resource;
  std::vector<std::string> models;  // ascending
};

/// What one file says.
struct MetamodelContent {
  std::string component;
  std::string text;
  std::vector<Definition> packages;
  std::vector<ResourceModels> resources;
};

MetamodelContent ReadMetamodel(const Json& document, ModelReader& reader);

}  // namespace Zelk::Fuzzing
