#include "analysis/diff/configuration.h"

#include <string>

namespace Zelk::Analysis::Diff {
namespace {

template <auto kMember, auto kSecond>
Choice ChoiceOf(const char* key, const char* first, const char* second) {
  return {key,
          {first, second},
          [](const Assumptions& assumptions) { return assumptions.*kMember == kSecond; },
          [](Assumptions& assumptions) { assumptions.*kMember = kSecond; }};
}

/// The classes that a change of an annotation can have.
constexpr std::array<Class, 4> kClasses{Class::kDocumentation, Class::kCompatible,
                                        Class::kDangerous, Class::kBreaking};

void ReadAnnotations(SettingsReader& reader, const Document& document, NodeId diff,
                     Assumptions& assumptions) {
  const NodeId annotations = reader.Member(diff, "annotations", NodeKind::kObject);
  reader.ExpectOnce(annotations);
  reader.EachChild(annotations, [&](NodeId annotation) {
    const std::string_view word = document.String(annotation);
    for (const Class verdict : kClasses) {
      if (word != Word(verdict)) continue;
      assumptions.annotations[std::string(document.Key(annotation))] = verdict;
      return;
    }
    reader.Complain(annotation, "a class is documentation, compatible, dangerous or breaking");
  });
}

}  // namespace

const std::vector<Choice>& Choices() {
  using All = Assumptions;
  static const std::vector<Choice> choices{
      ChoiceOf<&All::parameters, All::Parameters::kPositional>("parameters", "named", "positional"),
      ChoiceOf<&All::unknown_fields, All::UnknownFields::kRefused>("unknown_fields", "ignored",
                                                                   "refused"),
      ChoiceOf<&All::enumerations, All::Enumerations::kOpen>("enumerations", "closed", "open"),
      ChoiceOf<&All::enumeration_form, All::EnumerationForm::kText>("enumeration_form", "ordinal",
                                                                    "text"),
      ChoiceOf<&All::schemes, All::Schemes::kAll>("schemes", "any", "all"),
      ChoiceOf<&All::inheritance, All::Inheritance::kNearest>("inheritance", "none", "nearest"),
  };
  return choices;
}

Assumptions ReadAssumptions(const Document& document, SettingsProblems& problems) {
  Assumptions assumptions;
  SettingsReader reader(document, problems);
  reader.ExpectProjectKeys();
  const NodeId diff = reader.Member(kRootNode, "diff", NodeKind::kObject);
  if (diff == kNoNode) return assumptions;
  std::vector<std::string> keys{"deprecated", "annotations"};
  for (const Choice& choice : Choices()) {
    keys.emplace_back(choice.key);
    const std::string word = reader.Choice(diff, choice.key, choice.words);
    if (word == choice.words[1]) choice.set_second(assumptions);
  }
  reader.ExpectKeys(diff, keys);
  if (document.Find(diff, "deprecated") != kNoNode) {
    const std::vector<std::string> names = reader.Texts(diff, "deprecated");
    assumptions.deprecated = {names.begin(), names.end()};
  }
  ReadAnnotations(reader, document, diff, assumptions);
  return assumptions;
}

}  // namespace Zelk::Analysis::Diff
