#pragma once

#include <string_view>
#include <tuple>

#include "analysis/element_model.h"

// Schemes of Authentication files as clients see them.

namespace Zelk::Analysis {

struct Scheme {
  std::string_view id;
  std::string_view type;
  /// Empty if the type has none.
  std::string_view session_manager;

  bool operator==(const Scheme& other) const {
    return std::tie(id, type, session_manager) ==
           std::tie(other.id, other.type, other.session_manager);
  }

  bool operator<(const Scheme& other) const {
    return std::tie(id, type, session_manager) <
           std::tie(other.id, other.type, other.session_manager);
  }
};

/// The scheme that an element defines.
Scheme SchemeOf(const Model& model, ElementId scheme);

/// Packages, services and operations of Authentication files.
bool IsSchemeList(ElementKind kind);

}  // namespace Zelk::Analysis
