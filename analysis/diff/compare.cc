#include "analysis/diff/compare.h"

#include <algorithm>
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

/// What is in the file cannot be compared, so whoever accepts this accepts these texts only.
void AddLost(Changes& changes, const LostFile& file) {
  Details details;
  const bool is_gone = file.new_fingerprint.empty();
  details.message = "the file '" + Shortened(file.name) + "' does not load" +
                    (file.loads_in_old ? " any more"
                     : is_gone         ? " and was removed"
                                       : ", so the repaired file cannot be compared");
  details.old_value = "text " + file.old_fingerprint;
  if (!is_gone) details.new_value = "text " + file.new_fingerprint;
  if (!file.loads_in_old && !is_gone) {
    details.hint = "compare the file with the last version that loads, then accept this change";
  }
  details.element = PathOf(file);
  changes.Add(file.loads_in_old ? "source-lost" : "source-repaired", Domain::kMetamodel,
              {kNoElement, kNoElement}, std::move(details));
}

struct Comparer {
  Domain domain;
  void (*compare)(Changes&);
};

constexpr Comparer kComparers[] = {{Domain::kMetamodel, &CompareMetamodel},
                                   {Domain::kAuthentication, &CompareAuthentication},
                                   {Domain::kCli, &CompareCli}};

}  // namespace

std::string PathOf(const LostFile& file) {
  return "source:" + file.id;
}

Result Compare(const Workspace& old_version, const Workspace& new_version,
               const Assumptions& assumptions, const std::vector<LostFile>& lost) {
  Result result;
  Changes changes(old_version, new_version, assumptions);
  for (const LostFile& file : lost) AddLost(changes, file);
  for (const auto& [domain, compare] : kComparers) {
    const ModelPair models = changes.Models(domain);
    std::vector<std::string_view> old_texts = TextsOf(models.old_model);
    std::vector<std::string_view> new_texts = TextsOf(models.new_model);
    if (old_texts == new_texts) continue;
    const std::size_t before = changes.Count();
    compare(changes);
    CompareSources(changes, domain);
    CompareShadowed(changes, domain);
    std::sort(old_texts.begin(), old_texts.end());
    std::sort(new_texts.begin(), new_texts.end());
    if (old_texts == new_texts) continue;
    result.fingerprints_differ = true;
    if (changes.Count() != before) continue;
    Details details{"only the fingerprint changes"};
    details.element = FormatOf(domain).root_key;
    changes.Add("formatting-only", domain, {kNoElement, kNoElement}, std::move(details));
  }
  result.changes = changes.Take();
  result.unlisted = changes.Unlisted();
  return result;
}

}  // namespace Zelk::Analysis::Diff
