#pragma once

#include <set>
#include <string>
#include <vector>

#include "analysis/document.h"
#include "analysis/lint/settings.h"
#include "analysis/lint/suppression.h"
#include "analysis/settings_reader.h"

// What projects choose, under the key "lint" of their own file:
//
//   {"lint": {
//     "rules": {"unused-definition": "off", "missing-documentation": "error"},
//     "external": ["com.acme.other.*"],
//     "reserved_options": ["help", "h", "verbose"],
//     "needs_reasons": true,
//     "ignore": [{"rule": "unknown-key", "element": "metamodel/component:com.acme*",
//                 "reason": "read by another program", "until": "2030-01-31"}]}}

namespace Zelk::Analysis::Lint {

struct Configuration {
  Settings settings;
  std::vector<Ignored> ignored;
  bool needs_reasons = false;
  /// The ids of rules that do not run, unless they are asked for by their ids.
  std::set<std::string> off;
  SettingsProblems problems;
};

Configuration ReadConfiguration(const Document& document);

}  // namespace Zelk::Analysis::Lint
