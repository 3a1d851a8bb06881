#include "analysis/lint/rule.h"

#include <algorithm>
#include <array>

namespace Zelk::Analysis::Lint {

const char* Word(Group group) {
  constexpr std::array<const char*, kGroups> kWords{
      "loader", "references", "names", "documentation", "authentication", "cli", "sources"};
  return kWords.at(static_cast<std::size_t>(group));
}

const char* Word(DecidedBy decided_by) {
  constexpr std::array<const char*, 4> kWords{"file", "sources", "domains", "convention"};
  return kWords.at(static_cast<std::size_t>(decided_by));
}

const char* Word(Severity severity) {
  constexpr std::array<const char*, 3> kWords{"error", "warning", "note"};
  return kWords.at(static_cast<std::size_t>(severity));
}

const std::vector<const Rule*>& Rules() {
  static const std::vector<const Rule*> rules = [] {
    std::vector<const Rule*> all;
    for (const Rows<Rule>* group :
         {&kLoaderRules, &kReferencesRules, &kNamesRules, &kDocumentationRules,
          &kAuthenticationRules, &kCliRules, &kSourcesRules, &kSuppressionRules}) {
      for (const Rule& rule : *group) all.push_back(&rule);
    }
    return all;
  }();
  return rules;
}

const Rule* FindRule(std::string_view id) {
  const auto found = std::find_if(Rules().begin(), Rules().end(),
                                  [&](const Rule* rule) { return rule->id == id; });
  return found == Rules().end() ? nullptr : *found;
}

}  // namespace Zelk::Analysis::Lint
