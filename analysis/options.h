#pragma once

#include <string>
#include <string_view>

#include "analysis/types.h"

// What the texts of the options of commands mean.

namespace Zelk::Analysis {

/// How many values an option, or what it fills, takes.
struct Takes {
  bool is_list;
  bool may_be_absent;
  bool may_have_absent_elements;
};

/// For the text under "generic"; null if it is not a word of the format.
const Takes* TakesOf(std::string_view generic);

/// For a parameter or a field. The arity must not be kOther.
const Takes& TakesOf(Arity arity);

/// Why the name of a long option cannot be typed; null if it can.
const char* ProblemOfLong(std::string_view name);

/// The same for a short option.
const char* ProblemOfShort(std::string_view name);

/// The type of an option in one spelling, since upper and lower case are the same.
std::string TypeOfOption(std::string_view text);

}  // namespace Zelk::Analysis
