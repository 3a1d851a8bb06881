#include "analysis/diff/example_fields.h"
#include "analysis/diff/verdicts.h"

// The kinds of changes of structures, enumerations, constants and resources.

// clang-format off
// NOLINTBEGIN(cppcoreguidelines-macro-usage): only macros join literals

#define ZELK_SPEC_PATH ZELK_EXAMPLE_PATH "/structure:acme.power.switch.spec"
#define ZELK_STATE_PATH ZELK_EXAMPLE_PATH "/enumeration:acme.power.switch.state"

#define ZELK_SPEC(fields) ZELK_EXAMPLE_STRUCTURE("acme.power.switch.spec", "STRUCTURE", fields)

/// A service with a structure of these fields.
#define ZELK_FIELDS(fields) ZELK_EXAMPLE_SERVICE(ZELK_SPEC(fields), "", "")

#define ZELK_VALUE(name) \
  "\n  {\"name\": \"" name R"(", "documentation": "A state.", "metadata": {}})"

#define ZELK_STATE(values) \
  "\n  " R"({"name": "acme.power.switch.state", "documentation": "States.", "metadata": {},)" \
  "\n  \"values\": [" values "]}"

/// A package and its service, each with definitions.
#define ZELK_TWO(enumerations, structures, service_enumerations, service_structures) \
  ZELK_EXAMPLE_COMPONENT( \
    "\n  " R"({"name": "acme.power", "documentation": "Power.", "metadata": {}, "enumerations": [)" \
    enumerations "],\n  \"structures\": [" structures "], \"services\": [" \
    "\n  " R"({"name": "acme.power.switch", "documentation": "Switches.", "metadata": {},)" \
    "\n  \"enumerations\": [" service_enumerations "], \"structures\": [" service_structures \
    "],\n  \"constants\": [], \"operations\": []}]}", "")

/// A service with an enumeration of these values.
#define ZELK_VALUES(values) ZELK_TWO("", "", ZELK_STATE(values), "")

#define ZELK_CONSTANT(type, value) \
  "\n  " R"({"name": "limit", "documentation": "A limit.", "value": )" value \
  ",\n  \"type\": {\"category\": \"PRIMITIVE\", \"type\": \"" type "\"}}"

#define ZELK_CONSTANTS(constants) ZELK_EXAMPLE_SERVICE("", constants, "")

#define ZELK_ID_OF(name, resource, more) \
  ZELK_EXAMPLE_FIELD(name, "\"Resource\": {\"value\": \"" resource "\"}" more, \
                     ZELK_EXAMPLE_BUILTIN("ID"))

/// A service with a structure that is a model of a resource, if `metadata` says so.
#define ZELK_MODEL(metadata, fields) \
  ZELK_EXAMPLE_SERVICE("\n  " R"({"name": "acme.power.switch.spec", "type": "STRUCTURE",)" \
    "\n  \"documentation\": \"Facts.\", \"metadata\": {" metadata "}, \"enumerations\": []," \
    "\n  \"constants\": [], \"fields\": [" fields "]}", "", "")

#define ZELK_KEY ZELK_ID_OF("id", "acme.machine", R"(, "ModelKey": {})")

/// An operation that has the id of a resource.
#define ZELK_TAKES_ID(field) ZELK_EXAMPLE_OF("", field, ZELK_EXAMPLE_VOID, "")

// NOLINTEND(cppcoreguidelines-macro-usage)
// clang-format on

namespace Zelk::Analysis::Diff {
namespace {

constexpr Kind kRows[] = {
    {"structure-removed",
     Area::kMetamodel,
     "structure",
     Action::kRemoved,
     Always(kN, kB, kN, kN, kB),
     "A structure is gone",
     "Lookups of the structure find nothing, and code that names it does not compile. If something "
     "still names it, calls with it break, too.",
     "Keep it as long as something names it.",
     {{ZELK_FIELDS("")}, {ZELK_EXAMPLE_SERVICE("", "", "")}, ZELK_SPEC_PATH}},
    {"structure-added",
     Area::kMetamodel,
     "structure",
     Action::kAdded,
     Always(kN, kC, kN, kN, kC),
     "A structure is new",
     "Lists of structures have one more name.",
     "No action is needed.",
     {{ZELK_EXAMPLE_SERVICE("", "", "")}, {ZELK_FIELDS("")}, ZELK_SPEC_PATH}},
    {"structure-moved",
     Area::kMetamodel,
     "structure owner",
     Action::kChanged,
     Always(kN, kD, kN, kN, kD),
     "A structure is in another package or service",
     "Lookups by its name find it, but another structure of that name may come first. Generated "
     "code may be in another place.",
     "Keep the structure where it is.",
     {{ZELK_TWO("", ZELK_SPEC(""), "", "")},
      {ZELK_TWO("", "", "", ZELK_SPEC(""))},
      "metamodel/component:acme/package:acme.power/structure:acme.power.switch.spec"}},
    {"structure-kind-changed",
     Area::kMetamodel,
     "structure kind",
     Action::kChanged,
     Always(kB, kB, kN, kN, kB),
     "A structure became an error, or an error a structure",
     "Errors are thrown and structures are passed, so code for one does not work for the other.",
     "Add another structure.",
     {{ZELK_FIELDS("")},
      {ZELK_EXAMPLE_SERVICE(ZELK_EXAMPLE_STRUCTURE("acme.power.switch.spec", "ERROR", ""), "", "")},
      ZELK_SPEC_PATH}},
    {"field-removed",
     Area::kMetamodel,
     "field",
     Action::kRemoved,
     Always(kB, kB, kB, kN, kC),
     "A field is gone",
     "Callers that send or read it fail, and code that names it does not compile. Command lines "
     "notice if an option fills it or the command shows it.",
     "Mark it as deprecated first. If callers send it, make it OPTIONAL and ignore it.",
     {{ZELK_FIELDS(ZELK_VOLTS)}, {ZELK_FIELDS("")}, ZELK_SPEC_PATH "/field:volts"}},
    {"field-added-required",
     Area::kMetamodel,
     "field",
     Action::kAdded,
     Directed(kB, kC, kD, kC, kC),
     "A new field must have a value",
     "Callers that send the structure without it are refused. Those that receive it may ignore "
     "it. In front of other fields, it may move columns that commands print.",
     "Make its type OPTIONAL.",
     {{ZELK_FIELDS("")}, {ZELK_FIELDS(ZELK_VOLTS)}, ZELK_SPEC_PATH "/field:volts"}},
    {"field-added-optional",
     Area::kMetamodel,
     "field",
     Action::kAdded,
     Always(kC, kD, kC, kN, kC),
     "A new field may be absent",
     "Calls without it work. Constructors in generated code may have one more parameter. In front "
     "of other fields, it may move columns that commands print.",
     "Add it after all other fields.",
     {{ZELK_FIELDS("")}, {ZELK_FIELDS(ZELK_VOLTS_OPTIONAL)}, ZELK_SPEC_PATH "/field:volts"}},
    {"field-order-changed",
     Area::kMetamodel,
     "field order",
     Action::kChanged,
     Always(kC, kB, kD, kN, kC),
     "Fields are in another order",
     "Code that passes them by position passes the wrong ones, or does not compile. Tables have "
     "their columns in another order.",
     "Keep the order, and add fields at the end.",
     {{ZELK_FIELDS(ZELK_VOLTS "," ZELK_AMPERES)},
      {ZELK_FIELDS(ZELK_AMPERES "," ZELK_VOLTS)},
      ZELK_SPEC_PATH}},
    {"field-became-optional",
     Area::kMetamodel,
     "field requirement",
     Action::kLoosened,
     Directed(kC, kB, kB, kD, kC),
     "A field became optional",
     "Callers that send it may leave it out. Callers that receive it may fail if it is absent.",
     "Keep sending it to callers, or add another structure for them.",
     {{ZELK_FIELDS(ZELK_VOLTS)},
      {ZELK_FIELDS(ZELK_VOLTS_OPTIONAL)},
      ZELK_SPEC_PATH "/field:volts"}},
    {"field-became-required",
     Area::kMetamodel,
     "field requirement",
     Action::kTightened,
     Directed(kB, kC, kB, kB, kC),
     "A field became required",
     "Callers that leave it out are refused. Callers that receive it may rely on it. Command lines "
     "notice if an option fills it.",
     "Keep it OPTIONAL, and use a value of your own if it is absent.",
     {{ZELK_FIELDS(ZELK_VOLTS_OPTIONAL)},
      {ZELK_FIELDS(ZELK_VOLTS)},
      ZELK_SPEC_PATH "/field:volts"}},
    {"enumeration-removed",
     Area::kMetamodel,
     "enumeration",
     Action::kRemoved,
     Always(kN, kB, kN, kN, kB),
     "An enumeration is gone",
     "Lookups of the enumeration find nothing, and code that names it does not compile. If "
     "something still names it, calls with it break, too.",
     "Keep it as long as something names it.",
     {{ZELK_VALUES("")}, {ZELK_TWO("", "", "", "")}, ZELK_STATE_PATH}},
    {"enumeration-added",
     Area::kMetamodel,
     "enumeration",
     Action::kAdded,
     Always(kN, kC, kN, kN, kC),
     "An enumeration is new",
     "Lists of enumerations have one more name.",
     "No action is needed.",
     {{ZELK_TWO("", "", "", "")}, {ZELK_VALUES("")}, ZELK_STATE_PATH}},
    {"enumeration-moved",
     Area::kMetamodel,
     "enumeration owner",
     Action::kChanged,
     Always(kN, kD, kN, kN, kD),
     "An enumeration is in another package, service or structure",
     "Lookups by its name find it, but another enumeration of that name may come first. Generated "
     "code may be in another place.",
     "Keep the enumeration where it is.",
     {{ZELK_TWO(ZELK_STATE(""), "", "", "")},
      {ZELK_VALUES("")},
      "metamodel/component:acme/package:acme.power/enumeration:acme.power.switch.state"}},
    {"enumeration-value-removed",
     Area::kMetamodel,
     "enumeration value",
     Action::kRemoved,
     Directed(kB, kC, kB, kB, kC),
     "A value of an enumeration is gone",
     "Callers that send it are refused. If values are sent as their positions, all later ones "
     "change their meaning, and so does a value that is added at its position.",
     "Keep the value, and mark it as deprecated.",
     {{ZELK_VALUES(ZELK_VALUE("ON") "," ZELK_VALUE("OFF"))},
      {ZELK_VALUES(ZELK_VALUE("ON"))},
      ZELK_STATE_PATH "/value:OFF"}},
    {"enumeration-value-appended",
     Area::kMetamodel,
     "enumeration value",
     Action::kAdded,
     Directed(kC, kD, kD, kC, kC),
     "An enumeration has a new value after the others",
     "Callers that receive it do not know it, and may fail unless they are prepared for that.",
     "Document from the start that callers must expect unknown values.",
     {{ZELK_VALUES(ZELK_VALUE("ON"))},
      {ZELK_VALUES(ZELK_VALUE("ON") "," ZELK_VALUE("OFF"))},
      ZELK_STATE_PATH "/value:OFF"}},
    {"enumeration-value-inserted",
     Area::kMetamodel,
     "enumeration value",
     Action::kAdded,
     Always(kB, kB, kC, kN, kC),
     "An enumeration has a new value in front of others",
     "If values are sent as their positions, all later ones change their meaning.",
     "Add values after all others.",
     {{ZELK_VALUES(ZELK_VALUE("ON"))},
      {ZELK_VALUES(ZELK_VALUE("OFF") "," ZELK_VALUE("ON"))},
      ZELK_STATE_PATH "/value:OFF"}},
    {"enumeration-order-changed",
     Area::kMetamodel,
     "enumeration order",
     Action::kChanged,
     Always(kB, kB, kC, kN, kC),
     "The values of an enumeration are in another order",
     "If values are sent as their positions, they change their meaning.",
     "Keep the order, and add values at the end.",
     {{ZELK_VALUES(ZELK_VALUE("ON") "," ZELK_VALUE("OFF"))},
      {ZELK_VALUES(ZELK_VALUE("OFF") "," ZELK_VALUE("ON"))},
      ZELK_STATE_PATH}},
    {"constant-removed",
     Area::kMetamodel,
     "constant",
     Action::kRemoved,
     Always(kN, kB, kN, kN, kB),
     "A constant is gone",
     "Code that names it does not compile.",
     "Announce it in its documentation first, and remove it when no code names it.",
     {{ZELK_CONSTANTS(ZELK_CONSTANT("STRING", "\"9\""))},
      {ZELK_CONSTANTS("")},
      ZELK_EXAMPLE_PATH "/constant:limit"}},
    {"constant-added",
     Area::kMetamodel,
     "constant",
     Action::kAdded,
     Always(kN, kC, kN, kN, kC),
     "A constant is new",
     "The service or structure has one more constant.",
     "No action is needed.",
     {{ZELK_CONSTANTS("")},
      {ZELK_CONSTANTS(ZELK_CONSTANT("STRING", "\"9\""))},
      ZELK_EXAMPLE_PATH "/constant:limit"}},
    {"constant-type-changed",
     Area::kMetamodel,
     "constant type",
     Action::kChanged,
     Always(kN, kB, kN, kN, kB),
     "A constant has another type",
     "Code that uses it may not compile, or may behave differently.",
     "Add another constant.",
     {{ZELK_CONSTANTS(ZELK_CONSTANT("STRING", "\"9\""))},
      {ZELK_CONSTANTS(ZELK_CONSTANT("LONG", "9"))},
      ZELK_EXAMPLE_PATH "/constant:limit"}},
    {"constant-value-changed",
     Area::kMetamodel,
     "constant value",
     Action::kChanged,
     Always(kD, kD, kN, kN, kD),
     "A constant has another value",
     "Programs that were built before have the old value. Only the values of STRING constants are "
     "known.",
     "Add another constant, unless both values work.",
     {{ZELK_CONSTANTS(ZELK_CONSTANT("STRING", "\"9\""))},
      {ZELK_CONSTANTS(ZELK_CONSTANT("STRING", "\"8\""))},
      ZELK_EXAMPLE_PATH "/constant:limit"}},
    {"resource-removed",
     Area::kMetamodel,
     "resource",
     Action::kRemoved,
     Always(kN, kN, kD, kN, kB),
     "A resource is no longer named",
     "Lists of resources do not have it any more, and lookups of its models find nothing.",
     "Keep a place that names it as long as programs ask for it.",
     {{ZELK_TAKES_ID(ZELK_ID_OF("id", "acme.machine", ""))},
      {ZELK_TAKES_ID(ZELK_EXAMPLE_FIELD("id", "", ZELK_EXAMPLE_BUILTIN("ID")))},
      "metamodel/resource:acme.machine",
      "identifier-resource-changed"}},
    {"resource-added",
     Area::kMetamodel,
     "resource",
     Action::kAdded,
     Always(kN, kN, kC, kN, kC),
     "A resource is named for the first time",
     "Lists of resources have one more name.",
     "No action is needed.",
     {{ZELK_TAKES_ID(ZELK_EXAMPLE_FIELD("id", "", ZELK_EXAMPLE_BUILTIN("ID")))},
      {ZELK_TAKES_ID(ZELK_ID_OF("id", "acme.machine", ""))},
      "metamodel/resource:acme.machine",
      "identifier-resource-changed"}},
    {"identifier-resource-changed",
     Area::kTypes,
     "identifier resource",
     Action::kChanged,
     Always(kN, kN, kD, kN, kB),
     "An id is of another resource",
     "Ids that callers have may be of the wrong resource. Programs that show or complete ids use "
     "the new one. If all uses of a resource have another name, only the resource is reported, as "
     "removed and added.",
     "Add another parameter or field.",
     {{ZELK_TAKES_ID(ZELK_ID_OF("id", "acme.machine", "") "," ZELK_ID_OF("to", "acme.engine", ""))},
      {ZELK_TAKES_ID(
          ZELK_EXAMPLE_FIELD("id", R"("Resource": {"value": ["acme.machine", "acme.engine"]})",
                             ZELK_EXAMPLE_BUILTIN("ID")) "," ZELK_ID_OF("to", "acme.engine", ""))},
      ZELK_EXAMPLE_PATH "/operation:start/parameter:id"}},
    {"model-removed",
     Area::kMetamodel,
     "model",
     Action::kRemoved,
     Always(kN, kN, kN, kN, kB),
     "A structure is no longer a model of a resource",
     "Lookups of the models of the resource do not list it.",
     "Keep the annotations 'Model' and 'ModelKey'.",
     {{ZELK_MODEL(R"("Model": {})", ZELK_KEY)},
      {ZELK_MODEL("", ZELK_KEY)},
      ZELK_SPEC_PATH "/resource:acme.machine"}},
    {"model-added",
     Area::kMetamodel,
     "model",
     Action::kAdded,
     Always(kN, kN, kN, kN, kC),
     "A structure became a model of a resource",
     "Lookups of the models of the resource list it.",
     "No action is needed.",
     {{ZELK_MODEL("", ZELK_KEY)},
      {ZELK_MODEL(R"("Model": {})", ZELK_KEY)},
      ZELK_SPEC_PATH "/resource:acme.machine"}},
    {"model-key-changed",
     Area::kMetamodel,
     "model key",
     Action::kChanged,
     Always(kN, kN, kN, kN, kB),
     "The id of a model is in another field",
     "Programs that take the id from the field take something else.",
     "Keep 'ModelKey' where it is.",
     {{ZELK_MODEL(R"("Model": {})", ZELK_KEY "," ZELK_ID_OF("name", "acme.machine", ""))},
      {ZELK_MODEL(R"("Model": {})", ZELK_ID_OF("id", "acme.machine", "") "," ZELK_ID_OF(
                                        "name", "acme.machine", R"(, "ModelKey": {})"))},
      ZELK_SPEC_PATH "/resource:acme.machine"}},
};

}  // namespace

const Rows<Kind> kDefinitionKinds = kRows;

}  // namespace Zelk::Analysis::Diff
