#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "analysis/call.h"
#include "analysis/diff/metamodel.h"
#include "analysis/diff/texts.h"
#include "analysis/diff/verdicts.h"
#include "analysis/place.h"

namespace Zelk::Analysis::Diff {
namespace {

constexpr std::size_t kWire = static_cast<std::size_t>(Audience::kWire);
constexpr std::size_t kCli = static_cast<std::size_t>(Audience::kCli);

/// The verdicts of the kind for the direction, with another one on the wire.
Verdicts WithWire(const char* id, Direction direction, Class wire) {
  Verdicts verdicts = ByDirection(FindKind(id)->verdicts, direction);
  verdicts[kWire] = wire;
  return verdicts;
}

bool IsSent(Direction direction) {
  return direction != Direction::kOutput;
}

bool IsReceived(Direction direction) {
  return direction != Direction::kInput;
}

/// Adds what the change `id` means for commands that print all fields of the structure.
void AddReaders(Metamodel& metamodel, Details& details, const char* id, Pair structure,
                Class Reading::*meaning) {
  const CommandReach::Readers& readers = metamodel.commands.ReadersOf(structure.old_id, meaning);
  if (!readers.broken.IsEmpty()) details.breaks = metamodel.commands.NamesOf(readers.broken);
  const CommandNames endangered = metamodel.commands.NamesOf(readers.endangered);
  if (endangered.text.empty() && !readers.is_exhausted) return;
  if (!details.verdicts) details.verdicts = ByDirection(FindKind(id)->verdicts, details.direction);
  Class& verdict = (*details.verdicts)[kCli];
  verdict = std::max(verdict, kD);
  if (endangered.text.empty()) return;
  details.message += "; this may move columns of " + endangered.text;
  details.identity += " " + std::to_string(endangered.digest);
}

void RemoveField(Metamodel& metamodel, Pair structure, const OrderedParts& fields, Pair pair) {
  const CommandReach::Readers& readers = metamodel.commands.ReadersOf(structure.old_id, nullptr);
  Details details;
  details.direction = metamodel.reach.Of(structure);
  details.verdicts = FindKind("field-removed")->verdicts.input;
  // Unless a command uses it.
  (*details.verdicts)[kCli] = readers.is_exhausted ? kD : kN;
  Commands broken = metamodel.commands.UsingGone(pair);
  broken.Add(readers.broken);
  details.breaks = metamodel.commands.NamesOf(broken);
  if (!fields.IsLast(pair)) details.others_broken = SetOf(Audience::kSource);
  if (IsPositional(metamodel) && fields.MayMove(pair)) {
    details.assumption = "parameters: positional";
    details.others_broken |= SetOf(Audience::kWire);
    if (fields.IsReplaced(pair)) details.message = ", and another field has its position";
  }
  details.identity = PositionOf(metamodel, fields, pair);
  metamodel.AddWhole("field", pair, std::move(details));
}

void AddField(Metamodel& metamodel, Pair structure, const OrderedParts& fields, Pair pair) {
  if (pair.IsRemoved()) return RemoveField(metamodel, structure, fields, pair);
  const Direction direction = metamodel.reach.Of(structure);
  Details details;
  details.direction = direction;
  const bool is_optional = IsOptional(metamodel.changes.New(), pair.new_id);
  const char* const id = is_optional ? "field-added-optional" : "field-added-required";
  details.message = metamodel.CalledIn(pair) + " was added";
  details.identity = PositionOf(metamodel, fields, pair);
  details.hint = metamodel.renames.HintOf(pair);
  if (!is_optional) {
    details.breaks = metamodel.commands.NamesOf(metamodel.commands.Lacking(structure, pair.new_id));
  }
  const bool is_refused =
      metamodel.changes.GetAssumptions().unknown_fields == Assumptions::UnknownFields::kRefused;
  if (is_refused && IsReceived(direction)) {
    details.verdicts = WithWire(id, direction, kB);
    details.assumption = "unknown_fields: refused";
  } else if (IsPositional(metamodel) && fields.MayMove(pair)) {
    details.verdicts = WithWire(id, direction, kB);
    details.assumption = "parameters: positional";
  } else {
    details.assumption = "unknown_fields: ignored";
  }
  if (!fields.IsLast(pair)) {
    AddReaders(metamodel, details, id, structure, &Reading::field_added);
  }
  metamodel.Add(id, pair, std::move(details));
}

void CompareFields(Metamodel& metamodel, Pair structure) {
  const Direction direction = metamodel.reach.Of(structure);
  const OrderedParts fields(PartPairs(metamodel.models, structure, ElementKind::kField));
  metamodel.renames.Look(fields.All());
  for (const Pair& field : fields.All()) {
    if (!field.IsMatched()) {
      AddField(metamodel, structure, fields, field);
    } else if (!IsSameText(metamodel.models, field)) {
      CompareTexts(metamodel, field);
      CompareTypesOf(metamodel, "field", field, direction);
    }
  }
  PartOrder order = OrderOf(metamodel.models, fields.All());
  if (!order.is_changed) return;
  Details details{"the fields of " + metamodel.CalledIn(structure) + " are in another order",
                  std::move(order.old_names), std::move(order.new_names), direction};
  const bool is_positional = IsPositional(metamodel);
  details.assumption = is_positional ? "parameters: positional" : "parameters: named";
  if (is_positional) details.verdicts = WithWire("field-order-changed", direction, kB);
  AddReaders(metamodel, details, "field-order-changed", structure, &Reading::order);
  metamodel.Add("field-order-changed", structure, std::move(details));
}

bool IsOpen(const Metamodel& metamodel) {
  return metamodel.changes.GetAssumptions().enumerations == Assumptions::Enumerations::kOpen;
}

/// What a value means that callers do not know.
Class UnknownValue(const Metamodel& metamodel, Direction direction) {
  return IsOpen(metamodel) || !IsReceived(direction) ? kC : kD;
}

bool IsOrdinal(const Metamodel& metamodel) {
  return metamodel.changes.GetAssumptions().enumeration_form ==
         Assumptions::EnumerationForm::kOrdinal;
}

/// What the class of a change of a value depends on.
const char* AssumedOfValues(const Metamodel& metamodel, bool may_move) {
  if (may_move) {
    return IsOrdinal(metamodel) ? "enumeration_form: ordinal" : "enumeration_form: text";
  }
  return IsOpen(metamodel) ? "enumerations: open" : "enumerations: closed";
}

/// `breaks` are the commands with options of the enumeration, if a value was removed.
void AddValue(Metamodel& metamodel, const OrderedParts& values, Pair pair, Direction direction,
              const CommandNames& breaks) {
  const bool is_last = values.IsLast(pair);
  const bool is_replaced = values.IsReplaced(pair);
  const bool may_move = values.MayMove(pair);
  const bool moves_others = IsOrdinal(metamodel) && may_move;
  Details details;
  details.direction = direction;
  details.assumption = AssumedOfValues(metamodel, may_move);
  details.identity = values.PositionOf(metamodel.models, pair, IsOrdinal(metamodel));
  if (pair.IsRemoved()) {
    const Class wire = moves_others || IsSent(direction) ? kB : kC;
    details.verdicts = WithWire("enumeration-value-removed", direction, wire);
    if (moves_others) details.others_broken = SetOf(Audience::kWire);
    details.breaks = breaks;
    if (is_replaced) details.message = ", and another value has its position";
    return metamodel.AddWhole("enumeration-value", pair, std::move(details));
  }
  const char* const id = is_last ? "enumeration-value-appended" : "enumeration-value-inserted";
  const Class unknown = UnknownValue(metamodel, direction);
  details.verdicts = WithWire(id, direction, moves_others ? kB : unknown);
  (*details.verdicts)[static_cast<std::size_t>(Audience::kSource)] = moves_others ? kB : kD;
  details.message = metamodel.CalledIn(pair) + " was added" +
                    (is_replaced ? " at the position of a removed one"
                     : is_last   ? ""
                                 : " between others");
  details.hint = metamodel.renames.HintOf(pair);
  metamodel.Add(id, pair, std::move(details));
}

}  // namespace

void CompareStructure(Metamodel& metamodel, Pair structure) {
  const auto kind_of = [](const Model& model, ElementId id) {
    return std::string(kStructureTypes.Find(TextOf(model, id, "type")));
  };
  const std::string old_kind = kind_of(metamodel.models.old_model, structure.old_id);
  const std::string new_kind = kind_of(metamodel.models.new_model, structure.new_id);
  if (old_kind != new_kind) {
    metamodel.Add("structure-kind-changed", structure,
                  {metamodel.CalledIn(structure) + " changed from " + old_kind + " to " + new_kind,
                   old_kind, new_kind, metamodel.reach.Of(structure)});
  }
  CompareConstants(metamodel, structure);
  CompareFields(metamodel, structure);
}

void CompareEnumeration(Metamodel& metamodel, Pair enumeration) {
  const Direction direction = metamodel.reach.Of(enumeration);
  const OrderedParts values(PartPairs(metamodel.models, enumeration, ElementKind::kValue));
  metamodel.renames.Look(values.All());
  const bool is_shorter = std::any_of(values.All().begin(), values.All().end(),
                                      [](const Pair& value) { return value.IsRemoved(); });
  CommandNames breaks;
  if (is_shorter)
    breaks = metamodel.commands.NamesOf(metamodel.commands.Naming(enumeration.old_id));
  for (const Pair& value : values.All()) {
    if (!value.IsMatched()) {
      AddValue(metamodel, values, value, direction, breaks);
    } else if (!IsSameText(metamodel.models, value)) {
      CompareTexts(metamodel, value);
    }
  }
  PartOrder order = OrderOf(metamodel.models, values.All());
  if (!order.is_changed) return;
  Details details{"the values of " + metamodel.CalledIn(enumeration) + " are in another order",
                  std::move(order.old_names), std::move(order.new_names), direction};
  details.assumption =
      IsOrdinal(metamodel) ? "enumeration_form: ordinal" : "enumeration_form: text";
  if (!IsOrdinal(metamodel)) details.verdicts = Verdicts{kC, kC, kC, kN, kC};
  metamodel.Add("enumeration-order-changed", enumeration, std::move(details));
}

void CompareConstants(Metamodel& metamodel, Pair owner) {
  const ModelPair& models = metamodel.models;
  const auto constants = PartPairs(models, owner, ElementKind::kConstant);
  metamodel.renames.Look(constants);
  for (const Pair& constant : constants) {
    if (!constant.IsMatched()) {
      metamodel.AddWhole("constant", constant);
      continue;
    }
    if (IsSameText(models, constant)) continue;
    CompareTexts(metamodel, constant);
    const auto compare = [&](const char* what, std::string old_value, std::string new_value) {
      if (old_value == new_value) return false;
      metamodel.Add(
          std::string("constant-") + what + "-changed", constant,
          {std::string("the ") + what + " of " + metamodel.CalledIn(constant) + " changed from '" +
               Shortened(old_value) + "' to '" + Shortened(new_value) + "'",
           std::move(old_value), std::move(new_value)});
      return true;
    };
    if (compare("type", ConstantType(models.old_model, constant.old_id),
                ConstantType(models.new_model, constant.new_id))) {
      continue;
    }
    compare("value", ConstantValue(models.old_model, constant.old_id),
            ConstantValue(models.new_model, constant.new_id));
  }
}

}  // namespace Zelk::Analysis::Diff
