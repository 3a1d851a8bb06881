#pragma once

#include "analysis/example.h"

// Parameters and fields of examples.

// clang-format off
// NOLINTBEGIN(cppcoreguidelines-macro-usage): only macros join literals

#define ZELK_OPTIONAL(type) \
  R"({"category": "GENERIC", "generic_type": "OPTIONAL",)" "\n  \"element_type\": " type "}"

#define ZELK_VOLTS ZELK_EXAMPLE_FIELD("volts", "", ZELK_EXAMPLE_LONG)
#define ZELK_VOLTS_OPTIONAL ZELK_EXAMPLE_FIELD("volts", "", ZELK_OPTIONAL(ZELK_EXAMPLE_LONG))
#define ZELK_AMPERES ZELK_EXAMPLE_FIELD("amperes", "", ZELK_EXAMPLE_LONG)

/// Another component, with packages.
#define ZELK_OTHER(packages) \
  R"({"metamodel": {"component": {"name": "other", "documentation": "Others.",)" \
  "\n  \"metadata\": {}, \"packages\": [" packages "]}}}"

// NOLINTEND(cppcoreguidelines-macro-usage)
// clang-format on
