#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "analysis/diff/cli_comparers.h"
#include "analysis/format.h"
#include "analysis/options.h"

// The options of a command.

namespace Zelk::Analysis::Diff {
namespace {

/// An option as it is answered; the default stands for one that is not there.
struct Option {
  ElementId id = kNoElement;
  std::string_view name;
  std::string_view letter;
  std::string_view field;
  std::string_view type;
  std::string_view generic;
  /// Null for an unknown generic.
  const Takes* takes = nullptr;
  /// Whether an earlier option has its name, so that clients do not know it.
  bool is_hidden = false;
};

Option OptionOf(const Model& model, ElementId id) {
  if (id == kNoElement) return {};
  const std::string_view generic = TextOf(model, id, "generic");
  return {id,
          model[id].name,
          TextOf(model, id, "short_option"),
          TextOf(model, id, "field_name"),
          TextOf(model, id, "type"),
          generic,
          TakesOf(generic)};
}

std::string LongWord(const Option& option) {
  return "--" + std::string(option.name);
}

std::string ShortWord(std::string_view letter) {
  return "-" + std::string(letter);
}

/// As messages show it. Clients put dashes in front of what has none.
std::string ShownShort(std::string_view letter) {
  const char* const dashes = letter.front() == '-'               ? ""
                             : ProblemOfShort(letter) == nullptr ? "-"
                                                                 : "--";
  return "'" + Shortened(dashes + std::string(letter)) + "'";
}

/// Whether values of both types are the same on command lines. Ids are texts.
bool IsSameType(std::string_view left, std::string_view right) {
  const auto typed = [](std::string_view text) {
    const std::string type = TypeOfOption(text);
    return type == "ID" ? "STRING" : type;
  };
  return typed(left) == typed(right);
}

/// As the library answers it.
std::string GenericText(const Option& option) {
  return option.generic.empty() ? "NONE" : ToUpper(option.generic);
}

/// Whether command lines may need the option.
bool IsRequired(const Option& option) {
  return option.takes == nullptr || !option.takes->may_be_absent;
}

Class ClassOfGeneric(const Takes* before, const Takes* after) {
  if (before == nullptr || after == nullptr) return Class::kDangerous;
  if (before->may_be_absent && !after->may_be_absent) return Class::kBreaking;
  if (before->is_list && !after->is_list) return Class::kBreaking;
  const bool is_same = before->may_have_absent_elements == after->may_have_absent_elements;
  return is_same ? Class::kCompatible : Class::kDangerous;
}

class OptionsComparer {
 public:
  explicit OptionsComparer(CommandPair& command) : command_(command), models_(command.Models()) {}

  void Compare() {
    const auto parts = PartPairs(models_, command_.Command(), ElementKind::kOption);
    for (const Pair& pair : parts) {
      pairs_.emplace_back(OptionOf(models_.old_model, pair.old_id),
                          OptionOf(models_.new_model, pair.new_id));
    }
    FindHidden();
    IndexLetters();
    for (const auto& [before, after] : pairs_) {
      if (before.id == kNoElement) added_.emplace(after.field, after.name);
    }
    for (const auto& [before, after] : pairs_) {
      if (before.id == kNoElement) {
        Added(after);
      } else if (after.id == kNoElement) {
        Removed(before);
      } else {
        Matched(before, after);
      }
    }
    CompareOwnersOfLetters();
    CompareOrder(parts);
  }

 private:
  /// The first option of a version that has a letter.
  struct Owner {
    /// The position in pairs_.
    std::size_t pair = 0;
    ElementId id = kNoElement;

    // Options of a command are in the order of their ids.
    void Take(std::size_t of_pair, ElementId option) {
      if (option < id) *this = {of_pair, option};
    }

    bool IsThere() const { return id != kNoElement; }
  };

  struct Letter {
    Owner before;
    Owner after;
  };

  /// Of options of one name clients know the first one, which is the first one in pairs_, too.
  void FindHidden() {
    std::set<std::string_view> old_names;
    std::set<std::string_view> new_names;
    for (auto& [before, after] : pairs_) {
      before.is_hidden = before.id != kNoElement && !old_names.insert(before.name).second;
      after.is_hidden = after.id != kNoElement && !new_names.insert(after.name).second;
    }
  }

  void IndexLetters() {
    for (std::size_t i = 0; i < pairs_.size(); ++i) {
      const auto& [before, after] = pairs_[i];
      if (HasLetter(before)) letters_[before.letter].before.Take(i, before.id);
      if (HasLetter(after)) letters_[after.letter].after.Take(i, after.id);
    }
  }

  /// Whether clients know the option by a letter.
  static bool HasLetter(const Option& option) {
    return option.id != kNoElement && !option.is_hidden && !option.letter.empty();
  }

  void Add(std::string_view id, const Option& before, const Option& after, Class verdict,
           Details details) {
    const bool is_hidden = (before.id == kNoElement || before.is_hidden) &&
                           (after.id == kNoElement || after.is_hidden);
    if (is_hidden) {
      verdict = std::min(verdict, Class::kCompatible);
      details.witness.clear();
    }
    command_.Add(id, {before.id, after.id}, verdict, std::move(details));
  }

  /// A change of one member of an option.
  Details ChangeOf(const Option& before, const Option& after, const char* key,
                   const std::string& message) const {
    Details details{Called(models_.old_model, before.id) + message};
    details.old_node = MemberOf(models_.old_model, before.id, key);
    details.new_node = MemberOf(models_.new_model, after.id, key);
    return details;
  }

  void Added(const Option& option) {
    const std::string called = Called(models_.new_model, option.id);
    if (!IsRequired(option)) {
      return Add("option-added-optional", {}, option, Class::kCompatible, {called + " was added"});
    }
    const bool is_known = option.takes != nullptr;
    Details details{called + " was added and is required"};
    if (!is_known) details.message = called + " was added, and may be required";
    if (is_known) details.witness = command_.Witness("", 0, LongWord(option));
    Add("option-added-required", {}, option, is_known ? Class::kBreaking : Class::kDangerous,
        std::move(details));
  }

  void Removed(const Option& option) {
    Details details{Called(models_.old_model, option.id) + " was removed"};
    details.witness = command_.Witness(LongWord(option), 1);
    details.hint = RenameHint(option);
    Add("option-removed", option, {}, Class::kBreaking, std::move(details));
  }

  std::string RenameHint(const Option& removed) const {
    const auto found = added_.find(removed.field);
    if (found == added_.end()) return "";
    return "possibly renamed to '" + Shortened(found->second) + "'";
  }

  void Matched(const Option& before, const Option& after) {
    CompareField(before, after);
    CompareType(before, after);
    CompareGeneric(before, after);
    CompareLetter(before, after);
    command_.CompareDescriptions("option-description-changed", {before.id, after.id});
  }

  void CompareField(const Option& before, const Option& after) {
    if (before.field == after.field) return;
    Details details = ChangeOf(before, after, "field_name", " fills another field");
    details.old_value = before.field;
    details.new_value = after.field;
    details.witness = command_.Witness(LongWord(before), 1);
    Add("option-field-changed", before, after, Class::kBreaking, std::move(details));
  }

  void CompareType(const Option& before, const Option& after) {
    if (before.type == after.type) return;
    const bool is_same = IsSameType(before.type, after.type);
    Details details = ChangeOf(before, after, "type", " has another type");
    details.old_value = before.type;
    details.new_value = after.type;
    if (!is_same) details.witness = command_.Witness(LongWord(before), 1);
    const Class verdict = is_same                                  ? Class::kCompatible
                          : command_.KeepsValues(LongWord(before)) ? Class::kDangerous
                                                                   : Class::kBreaking;
    Add("option-type-changed", before, after, verdict, std::move(details));
  }

  void CompareGeneric(const Option& before, const Option& after) {
    Details details = ChangeOf(before, after, "generic", " takes another number of values");
    details.old_value = GenericText(before);
    details.new_value = GenericText(after);
    if (details.old_value == details.new_value) return;
    const Class verdict = ClassOfGeneric(before.takes, after.takes);
    if (verdict == Class::kBreaking) {
      const bool became_required = before.takes->may_be_absent && !after.takes->may_be_absent;
      details.witness = became_required ? command_.Witness("", 0, LongWord(before))
                                        : command_.Witness(LongWord(before), 2);
    }
    Add("option-generic-changed", before, after, verdict, std::move(details));
  }

  void CompareLetter(const Option& before, const Option& after) {
    if (before.letter == after.letter) return;
    if (!before.letter.empty()) {
      const Letter& letter = letters_[before.letter];
      const bool is_own = letter.before.id == before.id;
      if (!is_own || !letter.after.IsThere()) LostLetter(before, after, is_own);
    }
    if (!after.letter.empty()) {
      const Letter& letter = letters_[after.letter];
      if (letter.after.id != after.id || !letter.before.IsThere()) GotLetter(before, after);
    }
  }

  void LostLetter(const Option& before, const Option& after, bool is_own) {
    Details details = ChangeOf(before, after, "short_option",
                               " no longer has the short form " + ShownShort(before.letter));
    details.old_value = before.letter;
    if (is_own) details.witness = command_.Witness(ShortWord(before.letter), 1);
    // The letter of an earlier option never meant this one.
    Add("option-short-removed", before, after, is_own ? Class::kBreaking : Class::kCompatible,
        std::move(details));
  }

  void GotLetter(const Option& before, const Option& after) {
    Details details = ChangeOf(before, after, "short_option",
                               " has the new short form " + ShownShort(after.letter));
    details.new_value = after.letter;
    Add("option-short-added", before, after, Class::kCompatible, std::move(details));
  }

  /// Letters that mean another option than before.
  void CompareOwnersOfLetters() {
    for (const auto& [letter, owners] : letters_) {
      if (!owners.before.IsThere() || !owners.after.IsThere()) continue;
      if (owners.before.pair == owners.after.pair) continue;
      Reassigned(letter, owners);
    }
  }

  /// Whether command lines with a letter mean the same though it is that of another option.
  bool IsUnnoticed(const Letter& letter) const {
    const auto& [before, before_later] = pairs_[letter.before.pair];
    const auto& [after_earlier, after] = pairs_[letter.after.pair];
    if (before.field != after.field || !IsSameType(before.type, after.type)) return false;
    if (before.takes == nullptr || after.takes == nullptr) return false;
    // The option that had it must not wait for a value, and the other one may get several.
    const bool is_needed = before_later.id != kNoElement && IsRequired(before_later);
    const bool is_shared = after_earlier.id != kNoElement || before.takes->is_list;
    return !is_needed && (after.takes->is_list || !is_shared) &&
           before.takes->may_have_absent_elements == after.takes->may_have_absent_elements;
  }

  void Reassigned(std::string_view letter, const Letter& owners) {
    const Option& before = pairs_[owners.before.pair].first;
    const Option& after = pairs_[owners.after.pair].second;
    const std::string word = ShortWord(letter);
    Details details{ShownShort(letter) + " is the short form of '" + Shortened(after.name) +
                    "' and no longer of '" + Shortened(before.name) + "'"};
    details.old_value = before.name;
    details.new_value = after.name;
    details.old_node = MemberOf(models_.old_model, before.id, "short_option");
    details.new_node = MemberOf(models_.new_model, after.id, "short_option");
    details.element =
        models_.old_model.Path(command_.Command().old_id) + "/short-option:" + std::string(letter);
    const bool is_same = IsUnnoticed(owners);
    if (!is_same) details.witness = command_.Witness(word, 1);
    const bool may_lack = !is_same && details.witness.empty();
    if (may_lack) details.witness = command_.Witness(word, 1, LongWord(before));
    command_.Add("option-short-reassigned", command_.Command(),
                 is_same ? Class::kCompatible : Class::kBreaking, std::move(details));
  }

  void CompareOrder(const std::vector<Pair>& parts) {
    PartOrder order = OrderOf(models_, parts);
    if (!order.is_changed) return;
    command_.Add("option-order-changed", command_.Command(), Class::kDocumentation,
                 {"the options of " + Called(models_.old_model, command_.Command().old_id) +
                      " are in another order",
                  std::move(order.old_names), std::move(order.new_names)});
  }

  CommandPair& command_;
  ModelPair models_;
  /// Those of the old version in its order, then those that were added.
  std::vector<std::pair<Option, Option>> pairs_;
  std::map<std::string_view, Letter> letters_;
  /// The first option that was added for each field.
  std::map<std::string_view, std::string_view> added_;
};

}  // namespace

void CompareOptions(CommandPair& command) {
  OptionsComparer(command).Compare();
}

}  // namespace Zelk::Analysis::Diff
