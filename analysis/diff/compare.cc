#include "analysis/diff/compare.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "analysis/diff/comparers.h"

namespace Zelk::Analysis::Diff {
namespace {

/// The texts in the order in which the library walks the sources, which decides what it answers.
std::vector<std::string_view> TextsOf(const Model& model) {
  std::vector<std::string_view> texts;
  for (std::size_t source = 0; source < model.Sources().size(); ++source) {
    if (model.Loads(source)) texts.push_back(model.Sources()[source].document->Text());
  }
  return texts;
}

/// In the order of Domain.
constexpr std::array<void (*)(Changes&), 1> kComparers{&CompareMetamodel};

}  // namespace

Result Compare(const Workspace& old_version, const Workspace& new_version,
               const Assumptions& assumptions) {
  Result result;
  Changes changes(old_version, new_version, assumptions);
  for (std::size_t domain = 0; domain < kComparers.size(); ++domain) {
    const ModelPair models = changes.Models(kDomains.at(domain));
    std::vector<std::string_view> old_texts = TextsOf(models.old_model);
    std::vector<std::string_view> new_texts = TextsOf(models.new_model);
    if (old_texts == new_texts) continue;
    kComparers.at(domain)(changes);
    std::sort(old_texts.begin(), old_texts.end());
    std::sort(new_texts.begin(), new_texts.end());
    if (old_texts != new_texts) result.fingerprints_differ = true;
  }
  result.changes = changes.Take();
  result.unlisted = changes.Unlisted();
  return result;
}

}  // namespace Zelk::Analysis::Diff
