#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/lint/finding.h"

namespace Zelk::Analysis::Lint {

/// Reports names in Metamodel files that lead to nothing. A name that begins with one that is
/// loaded is a mistake. Any other may be of a source that is not there, so it is noted once.
class UnknownNames {
 public:
  UnknownNames(const Workspace& workspace, Findings& findings)
      : workspace_(workspace), findings_(findings) {}

  /// `place` names an element of the kind that is not loaded.
  void Report(const Place& place, ElementKind wanted, std::string_view name);

  /// The same, if the name cannot be of a source that is not there.
  void ReportMissing(const Place& place, ElementKind wanted, std::string_view name);

 private:
  /// The names of all elements of the kind.
  const std::vector<std::string>& Known(ElementKind kind);

  Remark RemarkOn(ElementKind wanted, std::string_view name);

  const Workspace& workspace_;
  Findings& findings_;
  std::set<std::string_view> noted_;
  std::map<ElementKind, std::vector<std::string>> known_;
};

/// "did you mean", with the names of the parts of the owner that are of the kind.
std::string PartHint(const Model& model, ElementId owner, ElementKind kind, std::string_view name,
                     Findings& findings);

/// Where the reference is.
Place PlaceOf(const Workspace& workspace, const Reference& reference);

}  // namespace Zelk::Analysis::Lint
