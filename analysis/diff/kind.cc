#include "analysis/diff/kind.h"

#include <unordered_map>

namespace Zelk::Analysis::Diff {

const char* Word(Class verdict) {
  constexpr std::array<const char*, 5> kWords{"not concerned", "documentation", "compatible",
                                              "dangerous", "breaking"};
  return kWords.at(static_cast<std::size_t>(verdict));
}

const char* Word(Audience audience) {
  constexpr std::array<const char*, kAudiences> kWords{"wire", "source", "cli", "auth", "metadata"};
  return kWords.at(static_cast<std::size_t>(audience));
}

const char* Word(Direction direction) {
  constexpr std::array<const char*, 5> kWords{"", "input", "output", "both", "unreached"};
  return kWords.at(static_cast<std::size_t>(direction));
}

const char* Word(Area area) {
  constexpr std::array<const char*, kAreas> kWords{"metamodel", "types", "authentication", "cli",
                                                   "sources"};
  return kWords.at(static_cast<std::size_t>(area));
}

const char* Word(Action action) {
  constexpr std::array<const char*, 5> kWords{"added", "removed", "changed", "loosened",
                                              "tightened"};
  return kWords.at(static_cast<std::size_t>(action));
}

const std::vector<const Kind*>& Kinds() {
  static const std::vector<const Kind*> kinds = [] {
    std::vector<const Kind*> all;
    for (const Rows<Kind>* area : {&kMetamodelKinds, &kDefinitionKinds, &kTypeKinds,
                                   &kAuthenticationKinds, &kCliKinds, &kSourceKinds}) {
      for (const Kind& kind : *area) all.push_back(&kind);
    }
    return all;
  }();
  return kinds;
}

const Kind* FindKind(std::string_view id) {
  static const std::unordered_map<std::string_view, const Kind*> by_id = [] {
    std::unordered_map<std::string_view, const Kind*> kinds;
    for (const Kind* kind : Kinds()) kinds.emplace(kind->id, kind);
    return kinds;
  }();
  const auto found = by_id.find(id);
  return found == by_id.end() ? nullptr : found->second;
}

}  // namespace Zelk::Analysis::Diff
