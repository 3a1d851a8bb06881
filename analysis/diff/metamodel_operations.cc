#include <string>

#include "analysis/diff/metamodel.h"
#include "analysis/diff/verdicts.h"
#include "analysis/place.h"

namespace Zelk::Analysis::Diff {
namespace {

constexpr std::size_t kWire = static_cast<std::size_t>(Audience::kWire);

std::string_view OuterWord(const Model& model, ElementId id) {
  const Document& document = model.DocumentOf(id);
  return ReadType(document, document.Find(model[id].node, "type")).word;
}

std::string ParametersText(const Metamodel& metamodel) {
  return IsPositional(metamodel) ? "parameters: positional" : "parameters: named";
}

void AddParameter(Metamodel& metamodel, Pair operation, const OrderedParts& all, Pair pair) {
  const Model& model = metamodel.models.Of(pair);
  const bool is_optional = OuterWord(model, pair.Id()) == "OPTIONAL";
  const Assumptions& assumptions = metamodel.changes.GetAssumptions();
  Details details;
  details.direction = Direction::kInput;
  details.identity = PositionOf(metamodel, all, pair);
  if (pair.IsAdded()) {
    const char* const id = is_optional ? "parameter-added-optional" : "parameter-added-required";
    details.message = metamodel.CalledIn(pair) + " was added";
    details.hint = metamodel.renames.HintOf(pair);
    if (is_optional) {
      details.assumption = ParametersText(metamodel);
      if (IsPositional(metamodel) && all.MayMove(pair)) {
        details.verdicts = FindKind(id)->verdicts.input;
        (*details.verdicts)[kWire] = kB;
      }
    } else {
      details.breaks =
          metamodel.commands.NamesOf(metamodel.commands.Lacking(operation, pair.new_id));
    }
    return metamodel.Add(id, pair, std::move(details));
  }
  // Code passes those after it by their positions.
  if (!all.IsLast(pair)) details.others_broken = SetOf(Audience::kSource);
  // Everyone passes it, or passes something in its place.
  if (IsPositional(metamodel)) details.others_broken |= SetOf(Audience::kWire);
  if (is_optional) {
    const bool is_ignored = assumptions.unknown_fields == Assumptions::UnknownFields::kIgnored;
    details.assumption = is_ignored ? "unknown_fields: ignored" : "unknown_fields: refused";
    if (is_ignored && !IsPositional(metamodel)) {
      details.verdicts = FindKind("parameter-removed")->verdicts.input;
      (*details.verdicts)[kWire] = kD;
    }
  }
  metamodel.AddWhole("parameter", pair, std::move(details));
}

void CompareParameters(Metamodel& metamodel, Pair operation) {
  const OrderedParts parameters(PartPairs(metamodel.models, operation, ElementKind::kParameter));
  metamodel.renames.Look(parameters.All());
  for (const Pair& parameter : parameters.All()) {
    if (!parameter.IsMatched()) {
      AddParameter(metamodel, operation, parameters, parameter);
    } else if (!IsSameText(metamodel.models, parameter)) {
      CompareTexts(metamodel, parameter);
      CompareTypesOf(metamodel, "parameter", parameter, Direction::kInput);
    }
  }
  PartOrder order = OrderOf(metamodel.models, parameters.All());
  if (!order.is_changed) return;
  Details details{"the parameters of " + metamodel.CalledIn(operation) + " are in another order",
                  std::move(order.old_names), std::move(order.new_names), Direction::kInput};
  details.assumption = ParametersText(metamodel);
  if (IsPositional(metamodel)) details.verdicts = Verdicts{kB, kB, kN, kN, kC};
  metamodel.Add("parameter-order-changed", operation, std::move(details));
}

void CompareResult(Metamodel& metamodel, Pair result) {
  CompareTexts(metamodel, result);
  const std::string_view old_word = OuterWord(metamodel.models.old_model, result.old_id);
  const std::string_view new_word = OuterWord(metamodel.models.new_model, result.new_id);
  if ((old_word == "VOID") == (new_word == "VOID")) {
    return CompareTypesOf(metamodel, "result", result, Direction::kOutput);
  }
  const auto text = [](const Model& model, ElementId id) {
    const Document& document = model.DocumentOf(id);
    return TypeText(document, document.Find(model[id].node, "type"));
  };
  const bool is_void = new_word == "VOID";
  const Pair operation{metamodel.models.old_model[result.old_id].owner,
                       metamodel.models.new_model[result.new_id].owner};
  Details details{
      metamodel.CalledIn(operation) +
          (is_void ? " no longer returns anything" : " returned nothing and returns something"),
      text(metamodel.models.old_model, result.old_id),
      text(metamodel.models.new_model, result.new_id), Direction::kOutput};
  if (is_void) {
    details.breaks = metamodel.commands.NamesOf(metamodel.commands.Naming(operation.old_id));
  }
  metamodel.Add(is_void ? "result-became-void" : "result-no-longer-void", result,
                std::move(details));
}

}  // namespace

bool IsPositional(const Metamodel& metamodel) {
  return metamodel.changes.GetAssumptions().parameters == Assumptions::Parameters::kPositional;
}

std::string PositionOf(const Metamodel& metamodel, const OrderedParts& parts, Pair pair) {
  if (IsPositional(metamodel)) return parts.PositionOf(metamodel.models, pair, true);
  // Code passes those after it by their positions.
  return parts.IsLast(pair) ? "" : "in front of others";
}

void CompareOperation(Metamodel& metamodel, Pair operation) {
  CompareParameters(metamodel, operation);
  for (const Pair& result : PartPairs(metamodel.models, operation, ElementKind::kResult)) {
    if (!IsSameText(metamodel.models, result)) CompareResult(metamodel, result);
  }
  const auto errors = PartPairs(metamodel.models, operation, ElementKind::kError);
  for (const Pair& error : errors) {
    if (error.IsMatched()) {
      CompareTexts(metamodel, error);
    } else {
      metamodel.AddWhole("error", error);
    }
  }
  PartOrder order = OrderOf(metamodel.models, errors);
  if (!order.is_changed) return;
  metamodel.Add("error-order-changed", operation,
                {"the errors of " + metamodel.CalledIn(operation) + " are in another order",
                 std::move(order.old_names), std::move(order.new_names)});
}

}  // namespace Zelk::Analysis::Diff
