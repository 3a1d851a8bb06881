#pragma once

#include <string>
#include <utility>
#include <vector>

#include "stateful/input.h"
#include "stateful/json_tree.h"

namespace Zelk::Fuzzing {

// Documents that load, drawn from the input.
Json MetamodelDocument(Input& input);
Json AuthenticationDocument(Input& input);
Json CliDocument(Input& input);

/// An object whose order of members does not matter: sometimes in another order, with a key that
/// is ignored, with a key given twice, or with one that differs after a zero byte.
Json Arranged(Input& input, std::vector<std::pair<std::string, Json>> members);

/// Up to `most` drawn elements.
template <typename Draw>
Json DrawnArray(Input& input, std::size_t most, Draw draw) {
  std::vector<Json> elements;
  for (auto count = input.Below(most + 1); count > 0; --count) elements.push_back(draw(input));
  return JsonArray(std::move(elements));
}

/// Takes one value out of the document or puts one of another kind in its place.
void Damage(Input& input, Json& document);

/// Changes a few bytes of a document's text.
void DamageText(Input& input, std::string& text);

/// Sometimes with other letters; all enumerators are matched in any case.
std::string AnyCase(Input& input, std::string text);

}  // namespace Zelk::Fuzzing
