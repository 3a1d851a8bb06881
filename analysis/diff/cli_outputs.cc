#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "analysis/diff/cli_comparers.h"
#include "analysis/diff/ordered_parts.h"
#include "analysis/diff/reading.h"
#include "analysis/diff/verdicts.h"

// How a command shows its result.

namespace Zelk::Analysis::Diff {
namespace {

/// Whether outputs of one structure are in another order.
bool IsRepetitionMoved(const ModelPair& models, const std::vector<Pair>& outputs) {
  std::unordered_map<std::string_view, ElementId> last;
  for (const Pair& output : outputs) {
    if (!output.IsMatched()) continue;
    ElementId& before = last[models.old_model[output.old_id].name];
    if (output.new_id < before) return true;
    before = output.new_id;
  }
  return false;
}

class OutputsComparer {
 public:
  explicit OutputsComparer(CommandPair& command)
      : command_(command),
        models_(command.Models()),
        old_formatter_(FormatterOf(models_.old_model, command.Command().old_id)),
        new_formatter_(FormatterOf(models_.new_model, command.Command().new_id)),
        reading_(ReadingOf(new_formatter_)) {}

  void Compare() {
    CompareFormatters();
    const std::vector<Pair> outputs =
        PartPairsByText(models_, command_.Command(), ElementKind::kOutput);
    // Without outputs clients show all fields.
    const bool shows_all = std::all_of(outputs.begin(), outputs.end(),
                                       [](const Pair& pair) { return pair.IsAdded(); });
    const Class added = shows_all ? std::max(reading_.field_added, kD) : reading_.field_added;
    for (const Pair& pair : outputs) {
      if (pair.IsMatched()) {
        CompareFields(pair);
      } else if (pair.IsAdded()) {
        command_.Add("output-structure-added", pair, added,
                     {Command(pair) + " lists the fields of " + Structure(pair)});
      } else {
        command_.Add("output-structure-removed", pair, kB,
                     {Command(pair) + " no longer lists the fields of " + Structure(pair)});
      }
    }
    // Each structure is looked up by its name, in any order unless it is listed again.
    const Class order = IsRepetitionMoved(models_, outputs) ? kD : kT;
    CompareOrder(outputs, command_.Command(), order, "output-structure-order-changed",
                 "the outputs");
  }

 private:
  void CompareFormatters() {
    if (old_formatter_ == new_formatter_) return;
    const Pair pair = command_.Command();
    const char* const id = !old_formatter_   ? "formatter-added"
                           : !new_formatter_ ? "formatter-removed"
                                             : "formatter-changed";
    Details details{"the result of " + Called(models_.old_model, pair.old_id) +
                    " is printed in another form"};
    details.old_value = old_formatter_.value_or("");
    details.new_value = new_formatter_.value_or("");
    details.old_node = FormatterNode(models_.old_model, pair.old_id);
    details.new_node = FormatterNode(models_.new_model, pair.new_id);
    command_.Add(id, pair, kB, std::move(details));
  }

  /// What is called so in the version that has the part.
  std::string Command(Pair part) const {
    const ElementId command =
        part.IsAdded() ? command_.Command().new_id : command_.Command().old_id;
    return Called(models_.Of(part), command);
  }

  std::string Structure(Pair output) const {
    return "'" + Shortened(models_.Of(output)[output.Id()].name) + "'";
  }

  void AddField(Pair output, const OrderedParts& fields, Pair field) {
    const std::string name = "'" + Shortened(models_.Of(field)[field.Id()].name) + "'";
    Details details{Command(field) + (field.IsAdded() ? " now" : " no longer") +
                    " shows the field " + name + " of " + Structure(output)};
    const bool has_columns = reading_.order != kC;
    if (has_columns) details.identity = fields.PositionOf(models_, field, has_columns);
    if (field.IsAdded()) {
      command_.Add("output-field-added", field, reading_.field_added, std::move(details));
    } else {
      command_.Add("output-field-removed", field, kB, std::move(details));
    }
  }

  void CompareFields(Pair output) {
    if (IsSameText(models_, output)) return;
    const OrderedParts fields(PartPairs(models_, output, ElementKind::kOutputField));
    for (const Pair& pair : fields.All()) {
      if (pair.IsMatched()) {
        CompareHeadings(pair);
      } else {
        AddField(output, fields, pair);
      }
    }
    CompareOrder(fields.All(), output, reading_.order, "output-field-order-changed", "the fields");
  }

  void CompareHeadings(Pair pair) {
    Details details{Called(models_.old_model, pair.old_id) + " has another heading"};
    details.old_value = TextOf(models_.old_model, pair.old_id, "display_name");
    details.new_value = TextOf(models_.new_model, pair.new_id, "display_name");
    if (details.old_value == details.new_value) return;
    details.old_node = MemberOf(models_.old_model, pair.old_id, "display_name");
    details.new_node = MemberOf(models_.new_model, pair.new_id, "display_name");
    command_.Add("output-heading-changed", pair, reading_.heading, std::move(details));
  }

  void CompareOrder(const std::vector<Pair>& parts, Pair owner, Class verdict, const char* id,
                    const std::string& called) {
    PartOrder order = OrderOf(models_, parts);
    if (!order.is_changed) return;
    command_.Add(
        id, owner, verdict,
        {called + " of " + Called(models_.old_model, owner.old_id) + " are in another order",
         std::move(order.old_names), std::move(order.new_names)});
  }

  CommandPair& command_;
  ModelPair models_;
  std::optional<std::string> old_formatter_;
  std::optional<std::string> new_formatter_;
  Reading reading_;
};

}  // namespace

void CompareOutputs(CommandPair& command) {
  OutputsComparer(command).Compare();
}

}  // namespace Zelk::Analysis::Diff
