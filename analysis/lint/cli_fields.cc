#include <algorithm>
#include <set>
#include <string>

#include "analysis/call.h"
#include "analysis/format.h"
#include "analysis/lint/cli_rules.h"
#include "analysis/options.h"

// Whether options are as what they fill.

namespace Zelk::Analysis::Lint {
namespace {

/// An option, and the parameter or field that it fills.
struct Filled {
  ElementId option;
  const FieldPath& path;
  ElementId field;
};

/// Calls `look` with the options that fill something that is loaded, `pass` with the others.
template <typename Look, typename Pass>
void ForEachOption(const Workspace& workspace, const Look& look, const Pass& pass) {
  for (const Call& call : CallsOf(workspace)) {
    for (const Filling& filling : FillingsOf(workspace, call)) {
      if (filling.path.end == FieldPath::kComplete) {
        look(Filled{filling.option, filling.path, filling.path.found.back()});
      } else {
        pass(filling.option);
      }
    }
  }
}

Place PlaceOfMember(const Model& model, ElementId option, const char* key) {
  return PlaceOf(model, option, model.DocumentOf(option).Find(model[option].node, key));
}

/// What is wrong if an option that takes `option` fills `called`, which takes `field`. The message
/// is empty if nothing is.
Remark Compare(const Takes& option, const Takes& field, bool is_within_optional,
               const std::string& called) {
  if (option.is_list != field.is_list) {
    return {field.is_list ? "the option takes one value, but " + called + " is a list"
                          : "the option takes a list, but " + called + " is one value"};
  }
  if (option.may_be_absent && !field.may_be_absent && !is_within_optional) {
    return {"the option may be left out, but " + called + " is required"};
  }
  if (option.may_have_absent_elements && !field.may_have_absent_elements) {
    return {"values of the option may be absent, but not those of " + called};
  }
  if (!option.may_be_absent && field.may_be_absent && !is_within_optional) {
    return {"the option is required, but " + called + " is optional", "", "", Severity::kWarning};
  }
  return {};
}

}  // namespace

void OptionTypeMismatch(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  const Model& metamodel = workspace.ModelOf(Domain::kMetamodel);
  std::set<std::string_view> noted;
  ForEachOption(
      workspace,
      [&](const Filled& filled) {
        const std::string type = OptionTypeOf(workspace, filled.field);
        const std::string written(TextOf(model, filled.option, "type"));
        if (type.empty() || IsOptionType(written, type)) return;
        findings.Add(PlaceOfMember(model, filled.option, "type"),
                     {"the option is of type '" + written + "', but " +
                          Called(metamodel, filled.field) + " is of type '" + type + "'",
                      written});
      },
      [&](ElementId option) {
        const std::string_view written = TextOf(model, option, "type");
        const bool is_known =
            kBuiltinTypes.Find(written) != nullptr ||
            workspace.GetDefinitions().Definition(ElementKind::kNone, written) != kNoElement;
        if (is_known || workspace.IsExternal(written) || !noted.insert(written).second) return;
        Place place = PlaceOfMember(model, option, "type");
        place.element = kNoElement;
        findings.Add(place,
                     {"the type '" + std::string(written) + "' is neither built in nor loaded",
                      std::string(written), "", Severity::kNote});
      });
}

void OptionOptionalityMismatch(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  const Model& metamodel = workspace.ModelOf(Domain::kMetamodel);
  ForEachOption(
      workspace,
      [&](const Filled& filled) {
        const Takes* const option = TakesOf(TextOf(model, filled.option, "generic"));
        if (option == nullptr) return;
        const Arity arity = workspace.GetDefinitions().ContentOf(filled.field).shape.arity;
        const bool is_within_optional =
            std::any_of(filled.path.found.begin(), filled.path.found.end() - 1,
                        [&](ElementId part) { return IsOptional(workspace, part); });
        const std::string called = Called(metamodel, filled.field);
        Remark remark{"no option can fill " + called, "", "", Severity::kNote};
        if (arity != Arity::kOther) {
          const Takes& field = TakesOf(arity);
          remark = Compare(*option, field, is_within_optional, called);
        }
        if (remark.message.empty()) return;
        findings.Add(PlaceOfMember(model, filled.option, "generic"), std::move(remark));
      },
      [](ElementId) {});
}

}  // namespace Zelk::Analysis::Lint
