#include "analysis/hint.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

#include "analysis/near.h"

namespace Zelk::Analysis {
namespace {

constexpr std::size_t kMostListed = 16;
/// More siblings than this are not compared, since a file may have millions of them.
constexpr std::size_t kMostLookedAt = 1000;

using Texts = std::vector<std::string>;

bool Has(const Texts& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// "BEGIN A, B, C.", with those first that the author of `wanted` may have meant. Of many, only
/// these.
std::string Listed(const char* begin, const std::string& wanted, const Texts& allowed) {
  Texts listed = NearNames(wanted, allowed);
  if (allowed.size() <= kMostListed) {
    const Texts near = listed;
    std::copy_if(allowed.begin(), allowed.end(), std::back_inserter(listed),
                 [&](const std::string& text) { return !Has(near, text); });
  }
  std::string text;
  for (const std::string& name : listed) text += (text.empty() ? "" : ", ") + name;
  return text.empty() ? "" : begin + text + ".";
}

Texts TextsOf(const Words& words) {
  Texts texts;
  for (const char* const* text = words.texts; *text != nullptr; ++text) texts.emplace_back(*text);
  if (words.alias != nullptr) texts.emplace_back(words.alias);
  return texts;
}

Texts TextsOf(const ObjectForm& object) {
  Texts texts;
  for (const Variant& variant : object.variants) texts.emplace_back(variant.text);
  return texts;
}

/// The keys of the component in whose lists the entry is.
Texts SchemesBeside(const Document& document, NodeId entry) {
  const NodeId list = document[entry].parent;
  const NodeId component = document[document[list].parent].parent;
  Texts schemes;
  const NodeId all = document.Find(component, "schemes");
  if (all == kNoNode) return schemes;
  for (NodeId scheme = document[all].first_child; scheme != kNoNode;
       scheme = document[scheme].next) {
    if (schemes.size() == kMostLookedAt) break;
    schemes.emplace_back(document.Key(scheme));
  }
  return schemes;
}

/// A member of the object whose key is not one of the format, but nearly the missing one.
std::string MisspeltKey(const Document& document, const Problem& problem) {
  std::size_t left = kMostLookedAt;
  for (NodeId member = document[problem.node].first_child; member != kNoNode && left > 0;
       member = document[member].next, --left) {
    const std::string key(document.Key(member));
    const bool is_known = std::any_of(problem.object->keys.begin(), problem.object->keys.end(),
                                      [&](const KeyForm& form) { return key == form.name; });
    if (is_known || NearNames(key, {problem.argument}).empty()) continue;
    const Position position = document.PositionAt(document[member].key_begin);
    return "Line " + std::to_string(position.line) + " has \"" + key +
           "\", which is not a key of the format.";
  }
  return "";
}

}  // namespace

std::string HintOf(const Document& document, const Problem& problem) {
  const std::string text(document.String(problem.node));
  if (problem.words != nullptr) return Listed("Allowed: ", text, TextsOf(*problem.words));
  if (std::string_view(problem.message_id) == kUnknownScheme) {
    return Listed("Defined: ", text, SchemesBeside(document, problem.node));
  }
  if (problem.object == nullptr) return "";
  return document[problem.node].kind == NodeKind::kString
             ? Listed("Allowed: ", text, TextsOf(*problem.object))
             : MisspeltKey(document, problem);
}

}  // namespace Zelk::Analysis
