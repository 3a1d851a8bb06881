#include "analysis/lint/lint.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "analysis/lint/shape.h"

namespace Zelk::Analysis::Lint {
namespace {

/// The first domain that the rule needs and that has no file.
std::optional<Domain> MissingFor(const Rule& rule, DomainSet loaded) {
  for (const Domain domain : kDomains) {
    if ((rule.needs & SetOf(domain) & ~loaded) != 0) return domain;
  }
  return std::nullopt;
}

using RunOnAll = void (*)(const Workspace&, Findings&);
using RunOnFile = void (*)(const OpenFile&, Findings&);

/// Runs those rules that look at each file by itself.
void RunOnFiles(const Workspace& workspace, const std::vector<const Rule*>& rules,
                Findings& findings) {
  for (const Domain domain : kDomains) {
    const Model& model = workspace.ModelOf(domain);
    for (std::uint32_t source = 0; source < model.Sources().size(); ++source) {
      if (!model.Loads(source)) continue;
      const OpenFile file(model, source);
      for (const Rule* rule : rules) {
        if (!std::holds_alternative<RunOnFile>(rule->run) || (rule->about & SetOf(domain)) == 0) {
          continue;
        }
        findings.Begin(*rule);
        std::get<RunOnFile>(rule->run)(file, findings);
      }
    }
  }
}

}  // namespace

Result Lint(const Workspace& workspace, const std::vector<const Rule*>& rules,
            const Suppressions& suppressions) {
  Result result;
  Findings findings(workspace);
  RunOnFiles(workspace, rules, findings);
  for (const Rule* rule : rules) {
    const auto* const run = std::get_if<RunOnAll>(&rule->run);
    if (run == nullptr || (rule->about & workspace.Loaded()) == 0) continue;
    if (const auto missing = MissingFor(*rule, workspace.Loaded())) {
      result.skipped.push_back({rule, *missing});
      continue;
    }
    findings.Begin(*rule);
    (*run)(workspace, findings);
  }
  SuppressInFiles(workspace, suppressions, rules, findings);
  result.findings = findings.Take();
  result.unlisted = findings.Unlisted();
  result.unused = SuppressElsewhere(workspace, suppressions, rules, result.findings);
  return result;
}

bool LooksAt(const Rule& rule, DomainSet loaded) {
  return (rule.about & loaded) != 0 && (rule.needs & ~loaded) == 0;
}

std::vector<const Rule*> DefaultRules() {
  std::vector<const Rule*> rules;
  std::copy_if(Rules().begin(), Rules().end(), std::back_inserter(rules),
               [](const Rule* rule) { return !rule->is_off; });
  return rules;
}

}  // namespace Zelk::Analysis::Lint
