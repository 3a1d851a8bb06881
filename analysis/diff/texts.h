#pragma once

#include <string>
#include <string_view>

#include "analysis/element_model.h"

// What the library answers of parts of Metamodel files, as texts that can be compared.

namespace Zelk::Analysis::Diff {

/// The text, in quotes if it could be taken for something else.
std::string Unambiguous(std::string_view text);

/// The members by their names, such as "max=9, names=[a, b]". Of equal names the last one is kept.
std::string AnnotationText(const Model& model, ElementId annotation);

/// Such as "PRIMITIVE STRING".
std::string ConstantType(const Model& model, ElementId constant);

/// What the element says besides its name, its documentation and its parts.
std::string OwnText(const Model& model, ElementId id);

/// Whether the library keeps elements of the kind in the order in which they are written.
bool IsOrdered(ElementKind kind);

enum class WithDocumentation : bool { kNo, kYes };

/// All that the library answers of the element of Metamodel or Authentication itself, without the
/// parts that have lookups of their own.
std::string RecordText(const Model& model, ElementId id, WithDocumentation with_documentation);

/// Only string constants have a value in the library.
std::string ConstantValue(const Model& model, ElementId constant);

}  // namespace Zelk::Analysis::Diff
