#include "analysis/lint/configuration.h"

#include <utility>

#include "analysis/near.h"

namespace Zelk::Analysis::Lint {
namespace {

/// Whether there is such a rule. If not, that is a problem.
bool IsRule(SettingsReader& reader, NodeId node, const std::string& id) {
  if (FindRule(id) != nullptr) return true;
  std::vector<std::string> known;
  for (const Rule* rule : Rules()) known.emplace_back(rule->id);
  reader.Complain(node, "unknown rule '" + id + "'" + Suggestion(id, known));
  return false;
}

void ReadRules(SettingsReader& reader, const Document& document, NodeId lint,
               Configuration& configuration) {
  const NodeId rules = reader.Member(lint, "rules", NodeKind::kObject);
  reader.ExpectOnce(rules);
  reader.EachChild(rules, [&](NodeId rule) {
    const std::string id(document.Key(rule));
    const std::string_view word = document.String(rule);
    if (!IsRule(reader, rule, id)) return;
    if (word == "off") {
      configuration.off.insert(id);
      return;
    }
    for (const Severity severity : {Severity::kError, Severity::kWarning, Severity::kNote}) {
      if (word != Word(severity)) continue;
      configuration.settings.severities[id] = severity;
      return;
    }
    reader.Complain(rule, "a severity is error, warning, note or off");
  });
}

}  // namespace

Configuration ReadConfiguration(const Document& document) {
  Configuration configuration;
  SettingsReader reader(document, configuration.problems);
  reader.ExpectProjectKeys();
  const NodeId lint = reader.Member(kRootNode, "lint", NodeKind::kObject);
  if (lint == kNoNode) return configuration;
  reader.ExpectKeys(lint, {"rules", "external", "reserved_options", "needs_reasons", "ignore"});
  ReadRules(reader, document, lint, configuration);
  configuration.settings.external = reader.Texts(lint, "external");
  if (document.Find(lint, "reserved_options") != kNoNode) {
    configuration.settings.reserved_options = reader.Texts(lint, "reserved_options");
  }
  configuration.needs_reasons = reader.IsTrue(lint, "needs_reasons");
  reader.EachChild(reader.Member(lint, "ignore", NodeKind::kArray), [&](NodeId entry) {
    if (!reader.IsObject(entry)) return;
    reader.ExpectKeys(entry, {"rule", "element", "reason", "until"});
    Ignored ignored{reader.Text(entry, "rule"), reader.Text(entry, "element"),
                    reader.Text(entry, "reason"), reader.Date(entry, "until")};
    if (ignored.element.empty()) ignored.element = "*";
    if (IsRule(reader, entry, ignored.rule)) configuration.ignored.push_back(std::move(ignored));
  });
  return configuration;
}

}  // namespace Zelk::Analysis::Lint
