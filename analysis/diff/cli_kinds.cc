#include "analysis/diff/verdicts.h"
#include "analysis/example.h"

namespace Zelk::Analysis::Diff {
namespace {

// clang-format off
// NOLINTBEGIN(cppcoreguidelines-macro-usage): only macros join literals

/// A command that is there in both versions; the arguments are lists without their brackets.
#define ZELK_START(options) ZELK_EXAMPLE_STARTS(options, "")

#define ZELK_VOLTS ZELK_EXAMPLE_OPTION("volts", "volts", "LONG", "NONE")

#define ZELK_AMPS(generic) ZELK_EXAMPLE_OPTION("amps", "amps", "LONG", generic)

#define ZELK_SHORT(name, letter) \
  "\n  {\"long_option\": \"" name R"(", "short_option": ")" letter R"(", "field_name": ")" name \
  "\",\n  \"description\": \"How much.\", \"type\": \"LONG\", \"generic\": \"OPTIONAL\"}"

/// An optional option without a short form.
#define ZELK_LONG(name) ZELK_EXAMPLE_OPTION(name, name, "LONG", "OPTIONAL")

#define ZELK_DESCRIBED(description) \
  "\n  " R"({"long_option": "volts", "field_name": "volts", "description": ")" description \
  "\",\n  \"type\": \"LONG\", \"generic\": \"NONE\"}"

#define ZELK_CALLS(description, operation) \
  ZELK_EXAMPLE_CLI( \
    "\n  " R"({"type": "command", "path": "", "name": "start", "description": ")" description \
    "\",\n  " R"("node_metadata": {"service_id": "acme.power.switch", "operation_id": ")" operation \
    "\"}}")

#define ZELK_DESCRIBED_NAMESPACE(description) \
  ZELK_EXAMPLE_CLI( \
    "\n  " R"({"type": "namespace", "path": "", "name": "", "description": ")" description "\"}")

/// A command with a formatter and outputs; `members` begin with a comma.
#define ZELK_SHOWS(members) ZELK_EXAMPLE_CLI(ZELK_EXAMPLE_COMMAND("", "start", members))

#define ZELK_TABLE(outputs) \
  ZELK_SHOWS(",\n  \"formatter\": \"TABLE\", \"output_field_list\": [" outputs "]")

#define ZELK_FIELDS(fields) \
  "\n  {\"structure_id\": \"acme.power.switch.state\", \"output_fields\": [" fields "]}"

#define ZELK_FIELD(name, heading) \
  "\n  {\"field_name\": \"" name "\", \"display_name\": \"" heading "\"}"

#define ZELK_OTHER ZELK_EXAMPLE_OUTPUT("acme.power.switch.level", "volts")

/// An operation that returns the type, in a file with the structure that commands show.
#define ZELK_RETURNS(type) \
  ZELK_EXAMPLE_OF(ZELK_EXAMPLE_STRUCTURE("acme.power.switch.state", "STRUCTURE", \
                                         ZELK_EXAMPLE_FIELD("volts", "", ZELK_EXAMPLE_LONG)), \
                  "", type, "")

#define ZELK_OUTER ZELK_EXAMPLE_NAMESPACE("", "acme")

#define ZELK_INNER ZELK_EXAMPLE_NAMESPACE("acme", "power")

#define ZELK_ROOT ZELK_EXAMPLE_NAMESPACE("", "")

// NOLINTEND(cppcoreguidelines-macro-usage)
// clang-format on

constexpr char kCommand[] = "cli/command:start";
constexpr char kVolts[] = "cli/command:start/option:volts";
constexpr char kAmps[] = "cli/command:start/option:amps";
constexpr char kState[] = "cli/command:start/output:acme.power.switch.state";

constexpr char kShownAmps[] = "cli/command:start/output:acme.power.switch.state/output-field:amps";

constexpr char kReturnsState[] =
    ZELK_RETURNS(ZELK_EXAMPLE_TYPE("Structure", "acme.power.switch.state"));
constexpr char kReturnsNumber[] = ZELK_RETURNS(ZELK_EXAMPLE_LONG);

constexpr char kNothing[] = ZELK_EXAMPLE_CLI("");
constexpr char kStart[] = ZELK_START("");
constexpr char kTakesVolts[] = ZELK_START(ZELK_VOLTS);
constexpr char kTakesMaybeAmps[] = ZELK_START(ZELK_VOLTS "," ZELK_AMPS("OPTIONAL"));
constexpr char kTakesAmps[] = ZELK_START(ZELK_VOLTS "," ZELK_AMPS("NONE"));
constexpr char kLong[] = ZELK_START(ZELK_LONG("volts"));
constexpr char kShort[] = ZELK_START(ZELK_SHORT("volts", "v"));
constexpr char kPlain[] = ZELK_SHOWS("");
constexpr char kAsTable[] = ZELK_TABLE("");
constexpr char kAsJson[] = ZELK_SHOWS(R"(, "formatter": "JSON")");
constexpr char kVoltsShown[] = ZELK_TABLE(ZELK_FIELDS(ZELK_FIELD("volts", "Volts")));
constexpr char kBothShown[] =
    ZELK_TABLE(ZELK_FIELDS(ZELK_FIELD("volts", "Volts") "," ZELK_FIELD("amps", "Amps")));

constexpr Kind kRows[] = {
    {"command-removed",
     Area::kCli,
     "command",
     Action::kRemoved,
     Always(kN, kN, kB, kN, kB),
     "A command is gone",
     "Scripts and people that type it get an error.",
     "Keep the old command beside the new one, and say in its description what to use.",
     {{kStart}, {kNothing}, kCommand}},
    {"command-added",
     Area::kCli,
     "command",
     Action::kAdded,
     Always(kN, kN, kC, kN, kC),
     "A command is new",
     "Nothing that worked before changes.",
     "No action is needed.",
     {{kNothing}, {kStart}, kCommand}},
    {"command-operation-changed",
     Area::kCli,
     "command operation",
     Action::kChanged,
     Always(kN, kN, kB, kN, kC),
     "A command calls another operation",
     "The same words do something else.",
     "Add a command for the other operation.",
     {{ZELK_CALLS("Starts it.", "start")}, {ZELK_CALLS("Starts it.", "stop")}, kCommand}},
    {"namespace-removed",
     Area::kCli,
     "namespace",
     Action::kRemoved,
     Always(kN, kN, kD, kN, kD),
     "A namespace is gone",
     "Trees of commands and help no longer lead there. Commands keep their names: they are "
     "removed only if that is reported, too.",
     "Keep the namespace as long as there are commands in it.",
     {{ZELK_EXAMPLE_CLI(ZELK_ROOT "," ZELK_OUTER)},
      {ZELK_EXAMPLE_CLI(ZELK_ROOT)},
      "cli/namespace:acme"}},
    {"namespace-added",
     Area::kCli,
     "namespace",
     Action::kAdded,
     Always(kN, kN, kC, kN, kC),
     "A namespace is new",
     "Trees of commands and help show it.",
     "No action is needed.",
     {{ZELK_EXAMPLE_CLI(ZELK_ROOT)},
      {ZELK_EXAMPLE_CLI(ZELK_ROOT "," ZELK_OUTER)},
      "cli/namespace:acme"}},
    {"namespace-list-changed",
     Area::kCli,
     "namespace list",
     Action::kChanged,
     Always(kN, kN, kD, kN, kC),
     "A namespace lists other namespaces than before",
     "Trees of commands and help do not lead to all namespaces, or lead to some again. If only the "
     "order has changed, it is documentation.",
     "Write each namespace in front of those that are in it.",
     {{ZELK_EXAMPLE_CLI(ZELK_OUTER "," ZELK_INNER "," ZELK_ROOT)},
      {ZELK_EXAMPLE_CLI(ZELK_INNER "," ZELK_OUTER "," ZELK_ROOT)},
      "cli/namespace:acme"}},
    {"option-removed",
     Area::kCli,
     "option",
     Action::kRemoved,
     Always(kN, kN, kB, kN, kC),
     "An option is gone",
     "Command lines that have it get an error.",
     "Keep it beside the option that replaces it.",
     {{kTakesMaybeAmps}, {kTakesVolts}, kAmps}},
    {"option-added-required",
     Area::kCli,
     "option",
     Action::kAdded,
     Always(kN, kN, kB, kN, kC),
     "An option is new and must be given",
     "All command lines that worked get an error. It is dangerous if the file has a generic that "
     "is not one of the format, since it may be required then.",
     "Make it optional, or add another command.",
     {{kTakesVolts}, {kTakesAmps}, kAmps}},
    {"option-added-optional",
     Area::kCli,
     "option",
     Action::kAdded,
     Always(kN, kN, kC, kN, kC),
     "An option is new and may be left out",
     "Nothing that worked before changes.",
     "No action is needed.",
     {{kTakesVolts}, {kTakesMaybeAmps}, kAmps}},
    {"option-short-removed",
     Area::kCli,
     "option short",
     Action::kRemoved,
     Always(kN, kN, kB, kN, kC),
     "An option no longer has its short form",
     "Command lines with the short form get an error. It is compatible if an earlier option has "
     "the same one, since it never meant this option.",
     "Keep the short form.",
     {{kShort}, {kLong}, kVolts}},
    {"option-short-added",
     Area::kCli,
     "option short",
     Action::kAdded,
     Always(kN, kN, kC, kN, kC),
     "An option has a new short form",
     "Nothing that worked before changes.",
     "No action is needed.",
     {{kLong}, {kShort}, kVolts}},
    {"option-short-reassigned",
     Area::kCli,
     "option short owner",
     Action::kChanged,
     Always(kN, kN, kB, kN, kC),
     "A short form means another option",
     "Command lines with it are accepted, but their value goes to another field. It is compatible "
     "if both options fill the same field with the same type.",
     "Give the other option a short form that was never used.",
     {{ZELK_START(ZELK_SHORT("volts", "v") "," ZELK_LONG("vars"))},
      {ZELK_START(ZELK_LONG("volts") "," ZELK_SHORT("vars", "v"))},
      "cli/command:start/short-option:v"}},
    {"option-field-changed",
     Area::kCli,
     "option field",
     Action::kChanged,
     Always(kN, kN, kB, kN, kC),
     "An option fills another field",
     "Command lines are accepted, but the value goes elsewhere.",
     "Give the option for the other field another name.",
     {{kTakesVolts},
      {ZELK_START(ZELK_EXAMPLE_OPTION("volts", "level.volts", "LONG", "NONE"))},
      kVolts}},
    {"option-type-changed",
     Area::kCli,
     "option type",
     Action::kChanged,
     Always(kN, kN, kB, kN, kC),
     "An option has another type",
     "Values that were accepted may be refused or mean something else. It is compatible between "
     "ID and STRING, and if only upper and lower case differ. It is dangerous if both types are "
     "enumerations and the new one has all values of the old one.",
     "Add an option of the other type.",
     {{kTakesVolts},
      {ZELK_START(ZELK_EXAMPLE_OPTION("volts", "volts", "DOUBLE", "NONE"))},
      kVolts}},
    {"option-generic-changed",
     Area::kCli,
     "option generic",
     Action::kChanged,
     Always(kN, kN, kB, kN, kC),
     "An option takes more or fewer values",
     "It breaks command lines if the option was optional and is required, or took a list and takes "
     "one value. It is compatible in the other direction, and dangerous if values of a list may be "
     "absent, or if the file has a generic that is not one of the format.",
     "Loosen what an option takes, and do not tighten it.",
     {{kTakesMaybeAmps}, {kTakesAmps}, kAmps}},
    {"option-order-changed",
     Area::kCli,
     "option order",
     Action::kChanged,
     Always(kN, kN, kT, kN, kN),
     "The options of a command are in another order",
     "Help shows them in another order. Command lines have options in any order.",
     "No action is needed.",
     {{ZELK_START(ZELK_LONG("volts") "," ZELK_LONG("amps"))},
      {ZELK_START(ZELK_LONG("amps") "," ZELK_LONG("volts"))},
      kCommand}},
    {"option-description-changed",
     Area::kCli,
     "option description",
     Action::kChanged,
     Always(kN, kN, kT, kN, kN),
     "The description of an option has changed",
     "Help shows another text.",
     "No action is needed.",
     {{ZELK_START(ZELK_DESCRIBED("How much."))},
      {ZELK_START(ZELK_DESCRIBED("How many volts."))},
      kVolts}},
    {"command-description-changed",
     Area::kCli,
     "command description",
     Action::kChanged,
     Always(kN, kN, kT, kN, kN),
     "The description of a command has changed",
     "Help shows another text.",
     "No action is needed.",
     {{ZELK_CALLS("Starts it.", "start")}, {ZELK_CALLS("Starts a machine.", "start")}, kCommand}},
    {"namespace-description-changed",
     Area::kCli,
     "namespace description",
     Action::kChanged,
     Always(kN, kN, kT, kN, kN),
     "The description of a namespace has changed",
     "Help shows another text.",
     "No action is needed.",
     {{ZELK_DESCRIBED_NAMESPACE("Machines.")},
      {ZELK_DESCRIBED_NAMESPACE("All machines.")},
      "cli/namespace:"}},
    {"formatter-changed",
     Area::kCli,
     "formatter",
     Action::kChanged,
     Always(kN, kN, kB, kN, kC),
     "A command prints its result in another form",
     "What reads the printed result can no longer read it.",
     "Add a command with the other form.",
     {{kAsTable}, {kAsJson}, kCommand}},
    {"formatter-removed",
     Area::kCli,
     "formatter",
     Action::kRemoved,
     Always(kN, kN, kB, kN, kC),
     "The form of a result is left to clients",
     "What reads the printed result may no longer be able to read it.",
     "Keep the formatter.",
     {{kAsJson}, {kPlain}, kCommand}},
    {"formatter-added",
     Area::kCli,
     "formatter",
     Action::kAdded,
     Always(kN, kN, kB, kN, kC),
     "The form of a result is no longer left to clients",
     "What reads the printed result may no longer be able to read it.",
     "Add a command with the form.",
     {{kPlain}, {kAsJson}, kCommand}},
    {"output-structure-removed",
     Area::kCli,
     "output structure",
     Action::kRemoved,
     Always(kN, kN, kB, kN, kC),
     "A command no longer lists the fields of a structure that it shows",
     "What reads the printed result may not find what it looks for.",
     "Keep the output as long as the operation returns the structure.",
     {{ZELK_TABLE(ZELK_OTHER)}, {kAsTable}, "cli/command:start/output:acme.power.switch.level"}},
    {"output-structure-added",
     Area::kCli,
     "output structure",
     Action::kAdded,
     Always(kN, kN, kD, kN, kC),
     "A command lists the fields of a structure that it shows",
     "The printed result may have other columns than before. It is compatible with the formatters "
     "JSON, XML and HTML if the command listed the fields of another structure before.",
     "Show all that was shown before, in its order.",
     {{kAsTable}, {ZELK_TABLE(ZELK_OTHER)}, "cli/command:start/output:acme.power.switch.level"}},
    {"output-structure-order-changed",
     Area::kCli,
     "output structure order",
     Action::kChanged,
     Always(kN, kN, kT, kN, kN),
     "The outputs of a command are in another order",
     "Help shows them in another order. Clients look up a structure by its name. It is dangerous "
     "if outputs of one structure are in another order, since clients may use only the first one.",
     "No action is needed.",
     {{ZELK_TABLE(ZELK_OTHER "," ZELK_FIELDS(""))},
      {ZELK_TABLE(ZELK_FIELDS("") "," ZELK_OTHER)},
      kCommand}},
    {"output-became-unreachable",
     Area::kCli,
     "output reach",
     Action::kRemoved,
     Always(kN, kN, kB, kN, kN),
     "The result no longer has a structure that a command lists the fields of",
     "The command is the same, but what it calls returns something else. What reads the printed "
     "result does not find the fields.",
     "Add another operation that returns something else, and a command for it.",
     {{kReturnsState, kVoltsShown}, {kReturnsNumber, kVoltsShown}, kState, "result-type-changed"}},
    {"output-became-reachable",
     Area::kCli,
     "output reach",
     Action::kAdded,
     Always(kN, kN, kD, kN, kN),
     "The result now has a structure that a command lists the fields of",
     "The command is the same, but what it calls returns something else. The printed result may "
     "have other columns than before. It is compatible with the formatters JSON, XML and HTML.",
     "No action is needed if the output was meant for this.",
     {{kReturnsNumber, kVoltsShown}, {kReturnsState, kVoltsShown}, kState, "result-type-changed"}},
    {"output-field-removed",
     Area::kCli,
     "output field",
     Action::kRemoved,
     Always(kN, kN, kB, kN, kC),
     "A command no longer shows a field",
     "What reads the printed result does not find the field.",
     "Keep the field.",
     {{kBothShown}, {kVoltsShown}, kShownAmps}},
    {"output-field-added",
     Area::kCli,
     "output field",
     Action::kAdded,
     Always(kN, kN, kD, kN, kC),
     "A command shows one more field",
     "Columns move in plain text, tables and CSV. It is compatible with the formatters JSON, XML "
     "and HTML.",
     "Add it after the other fields.",
     {{kVoltsShown}, {kBothShown}, kShownAmps}},
    {"output-field-order-changed",
     Area::kCli,
     "output field order",
     Action::kChanged,
     Always(kN, kN, kB, kN, kC),
     "The fields of a result are in another order",
     "What reads columns by their positions reads others. It is compatible with the formatters "
     "JSON, XML and HTML, and dangerous without a formatter.",
     "Keep the order, and add fields at the end.",
     {{kBothShown},
      {ZELK_TABLE(ZELK_FIELDS(ZELK_FIELD("amps", "Amps") "," ZELK_FIELD("volts", "Volts")))},
      kState}},
    {"output-heading-changed",
     Area::kCli,
     "output heading",
     Action::kChanged,
     Always(kN, kN, kB, kN, kC),
     "A field of a result has another heading",
     "What finds columns of tables and CSV by their headings does not find it. It is documentation "
     "with the formatter HTML, and dangerous with others.",
     "Keep the heading.",
     {{kVoltsShown},
      {ZELK_TABLE(ZELK_FIELDS(ZELK_FIELD("volts", "Tension")))},
      "cli/command:start/output:acme.power.switch.state/output-field:volts"}},
};

}  // namespace

const Rows<Kind> kCliKinds = kRows;

}  // namespace Zelk::Analysis::Diff
