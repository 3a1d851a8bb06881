#include "analysis/diff/verdicts.h"
#include "analysis/example.h"

namespace Zelk::Analysis::Diff {
namespace {

constexpr Kind kRows[] = {
    {"operation-removed",
     Area::kMetamodel,
     "operation",
     Action::kRemoved,
     Always(kB, kB, kN, kN, kB),
     "An operation is gone",
     "Calls of the operation fail, and code that has them does not compile.",
     "Mark the operation as deprecated first, and remove it when no caller is left.",
     {{ZELK_EXAMPLE_SERVICE("", "", ZELK_EXAMPLE_START)},
      {ZELK_EXAMPLE_SERVICE("", "", "")},
      ZELK_EXAMPLE_PATH "/operation:start"}},
    {"operation-added",
     Area::kMetamodel,
     "operation",
     Action::kAdded,
     Always(kC, kB, kN, kN, kC),
     "An operation is new",
     "Callers may use it. Code that implements the service must add it.",
     "Tell those who implement the service.",
     {{ZELK_EXAMPLE_SERVICE("", "", "")},
      {ZELK_EXAMPLE_SERVICE("", "", ZELK_EXAMPLE_START)},
      ZELK_EXAMPLE_PATH "/operation:start"}},
};

}  // namespace

const Rows<Kind> kMetamodelKinds = kRows;

}  // namespace Zelk::Analysis::Diff
