#include "analysis/diff/change.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "analysis/diff/texts.h"
#include "analysis/fingerprint.h"
#include "analysis/resources.h"

namespace Zelk::Analysis::Diff {
namespace {

auto Order(const Change& change) {
  const int worst = static_cast<int>(ClassOf(change));
  return std::tuple(!OpensAccess(change), -worst, change.kind->area,
                    std::string_view(change.element), std::string_view(change.kind->id));
}

/// What came or went with an element. Documentation does not matter, nor does the order of parts.
std::string IdentityOf(const ModelPair& models, Pair pair) {
  const Model& model = models.Of(pair);
  // Stands for where each is. Its path would repeat the names around it, which may be long.
  std::unordered_map<ElementId, std::string> places{
      {pair.Id(), std::to_string(FingerprintOf(model.Path(pair.Id())))}};
  std::uint64_t sum = FingerprintOf(places[pair.Id()] + '\0' + OwnText(model, pair.Id()));
  // Each comes after what it is in.
  for (const ElementId id : PartsWith(models, pair)) {
    const Element& part = model[id];
    std::string& place = places[id];
    place = std::to_string(
        FingerprintOf(places[part.owner] + '/' + Word(part.kind) + ':' + std::string(part.name)));
    sum += FingerprintOf(place + '\0' + OwnText(model, id));
  }
  return std::to_string(sum);
}

std::optional<Place> PlaceIn(const Model& model, ElementId id, NodeId node) {
  if (id == kNoElement) return std::nullopt;
  return node == kNoNode ? PlaceOf(model, id) : PlaceOf(model, id, node);
}

// With what each message of a removal begins.
constexpr std::string_view kThe = "the ";

/// Makes the verdicts dangerous at most, but for some audiences. Returns whether one changed.
bool Excuse(Verdicts& verdicts, AudienceSet except) {
  bool is_changed = false;
  for (std::size_t i = 0; i < kAudiences; ++i) {
    const bool is_excused = (except & SetOf(static_cast<Audience>(i))) == 0;
    if (!is_excused || verdicts.at(i) != Class::kBreaking) continue;
    verdicts.at(i) = Class::kDangerous;
    is_changed = true;
  }
  return is_changed;
}

}  // namespace

Class ClassOf(const Verdicts& verdicts, AudienceSet audiences) {
  Class worst = Class::kNotConcerned;
  for (std::size_t i = 0; i < kAudiences; ++i) {
    if ((audiences & SetOf(static_cast<Audience>(i))) != 0) worst = std::max(worst, verdicts.at(i));
  }
  return worst;
}

bool Changes::WasDeprecated(ElementId id) {
  const Model& model = old_version_.ModelOf(Domain::kMetamodel);
  for (; id != kNoElement; id = model[id].owner) {
    const auto [known, is_new] = deprecated_.try_emplace(id, false);
    if (is_new) {
      known->second = std::any_of(
          assumptions_.deprecated.begin(), assumptions_.deprecated.end(),
          [&](const std::string& name) { return AnnotationOf(model, id, name) != kNoElement; });
    }
    if (known->second) return true;
  }
  return false;
}

void Changes::Add(std::string_view id, Domain domain, Pair pair, Details details) {
  ++count_;
  const Kind& kind = *FindKind(id);
  const ModelPair models = Models(domain);
  Verdicts verdicts = details.verdicts.value_or(ByDirection(kind.verdicts, details.direction));
  // The other formats have no annotations.
  const bool may_be_deprecated = domain == Domain::kMetamodel && kind.action == Action::kRemoved &&
                                 ClassOf(verdicts, kAllAudiences) == Class::kBreaking;
  const bool is_excused =
      may_be_deprecated && WasDeprecated(pair.old_id) && Excuse(verdicts, details.others_broken);
  const bool breaks_commands = !details.breaks.text.empty();
  if (breaks_commands) {
    verdicts[static_cast<std::size_t>(Audience::kCli)] = Class::kBreaking;
  }
  if (IsFull()) {
    ++unlisted_[verdicts];
    return;
  }
  if (is_excused) details.message.insert(kThe.size(), "deprecated ");
  if (breaks_commands) details.message += "; this breaks " + details.breaks.text;
  std::string path = details.element;
  if (path.empty()) path = models.Of(pair).Path(pair.Id());
  std::string identity = kind.id;
  for (const std::string* part :
       {&path, &details.old_value, &details.new_value, &details.identity}) {
    (identity += '\0') += *part;
  }
  identity += '\0';
  if (breaks_commands) identity += std::to_string(details.breaks.digest);
  for (const Class verdict : verdicts) identity += static_cast<char>(verdict);
  details.identity.clear();
  const bool is_whole = !pair.IsMatched() && details.element.empty();
  if (is_whole && domain != Domain::kAuthentication) identity += IdentityOf(models, pair);
  details.old_value = Shortened(details.old_value, 1000);
  details.new_value = Shortened(details.new_value, 1000);
  const std::size_t size =
      path.size() + details.message.size() + details.old_value.size() + details.new_value.size();
  if (size > text_left_) {
    text_left_ = 0;
    ++unlisted_[verdicts];
    return;
  }
  text_left_ -= size;
  all_.push_back({&kind, verdicts, std::move(path),
                  PlaceIn(models.old_model, pair.old_id, details.old_node),
                  PlaceIn(models.new_model, pair.new_id, details.new_node), std::move(details),
                  FingerprintOf(identity)});
}

std::list<Change> Changes::Take() {
  all_.sort([](const Change& left, const Change& right) { return Order(left) < Order(right); });
  return std::move(all_);
}

}  // namespace Zelk::Analysis::Diff
