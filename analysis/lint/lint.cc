#include "analysis/lint/lint.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace Zelk::Analysis::Lint {
namespace {

/// The first domain that the rule needs and that has no file.
std::optional<Domain> MissingFor(const Rule& rule, DomainSet loaded) {
  for (const Domain domain : {Domain::kMetamodel, Domain::kAuthentication, Domain::kCli}) {
    if ((rule.needs & SetOf(domain) & ~loaded) != 0) return domain;
  }
  return std::nullopt;
}

}  // namespace

Result Lint(const Workspace& workspace, const std::vector<const Rule*>& rules) {
  Result result;
  Findings findings(workspace);
  for (const Rule* rule : rules) {
    if ((rule->about & workspace.Loaded()) == 0) continue;
    if (const auto missing = MissingFor(*rule, workspace.Loaded())) {
      result.skipped.push_back({rule, *missing});
      continue;
    }
    findings.Begin(*rule);
    rule->run(workspace, findings);
  }
  result.findings = findings.Take();
  result.unlisted = findings.Unlisted();
  return result;
}

std::vector<const Rule*> DefaultRules() {
  std::vector<const Rule*> rules;
  std::copy_if(Rules().begin(), Rules().end(), std::back_inserter(rules),
               [](const Rule* rule) { return !rule->is_off; });
  return rules;
}

}  // namespace Zelk::Analysis::Lint
