#include "analysis/example.h"
#include "analysis/lint/cli_rules.h"

namespace Zelk::Analysis::Lint {
namespace {

/// An operation that takes a number.
constexpr char kTakesVolts[] =
    ZELK_EXAMPLE_OF("", ZELK_EXAMPLE_FIELD("volts", "", ZELK_EXAMPLE_LONG), ZELK_EXAMPLE_VOID, "");

/// An operation that returns a structure.
constexpr char kReturnsState[] =
    ZELK_EXAMPLE_OF(ZELK_EXAMPLE_STRUCTURE("acme.power.switch.state", "STRUCTURE",
                                           ZELK_EXAMPLE_FIELD("volts", "", ZELK_EXAMPLE_LONG)),
                    "", ZELK_EXAMPLE_TYPE("Structure", "acme.power.switch.state"), "");

constexpr char kReturnsNothing[] = ZELK_EXAMPLE_SERVICE("", "", ZELK_EXAMPLE_START);

constexpr Rule kRules[] = {
    {"unknown-command-target",
     Group::kCli,
     Severity::kError,
     DecidedBy::kDomains,
     kCliOnly,
     kMetamodelOnly,
     "A command whose service or operation does not exist",
     "No source defines the service that the command calls, or the service does not have the "
     "operation. It is a note, once for each service, if the service may be described in a file "
     "that is not there.",
     "A misspelt name, an operation that was renamed, or a file that is missing.",
     "Fix the name, or load the file that defines the service. Names whose files are elsewhere on "
     "purpose can be listed under 'external' in the configuration.",
     {{ZELK_EXAMPLE_SERVICE("", "",
                            ZELK_EXAMPLE_OPERATION("stop", "", ZELK_EXAMPLE_BUILTIN("VOID"), "")),
       ZELK_EXAMPLE_STARTS("", "")},
      "cli/command:start"},
     UnknownCommandTarget},
    {"unknown-option-field",
     Group::kCli,
     Severity::kError,
     DecidedBy::kDomains,
     kCliOnly,
     kMetamodelOnly,
     "An option that fills no parameter or field",
     "The first part of the option's 'field_name' is not a parameter of the operation, or a later "
     "part is not a field of the structure in front of it.",
     "A misspelt or renamed field, or the name of the option in its place.",
     "Write the name of the parameter, then the names of the fields, with full stops between.",
     {{kReturnsNothing,
       ZELK_EXAMPLE_STARTS(ZELK_EXAMPLE_OPTION("volts", "volts", "LONG", "NONE"), "")},
      "cli/command:start/option:volts"},
     UnknownOptionField},
    {"option-type-mismatch",
     Group::kCli,
     Severity::kError,
     DecidedBy::kDomains,
     kCliOnly,
     kMetamodelOnly,
     "An option of another type than what it fills",
     "The type of the option is not that of the parameter or field. It is a note, once for each "
     "name, if what the option fills is not known and its type is neither built in nor loaded.",
     "A type that was changed in the Metamodel file only.",
     "Write the type of the parameter or field, without the generics around it.",
     {{kTakesVolts,
       ZELK_EXAMPLE_STARTS(ZELK_EXAMPLE_OPTION("volts", "volts", "STRING", "NONE"), "")},
      "cli/command:start/option:volts"},
     OptionTypeMismatch},
    {"option-optionality-mismatch",
     Group::kCli,
     Severity::kError,
     DecidedBy::kDomains,
     kCliOnly,
     kMetamodelOnly,
     "An option that takes more or fewer values than what it fills",
     "The option takes one value where the operation takes many, or the reverse; or it may be left "
     "out, but what it fills is required. It is a warning if the option is required and what it "
     "fills is optional, and a note if no option can fill it, as with a MAP.",
     "A type that was changed in the Metamodel file only.",
     "Write as 'generic' what is around the type: OPTIONAL, LIST, OPTIONAL_LIST, LIST_OPTIONAL or "
     "NONE.",
     {{kTakesVolts, ZELK_EXAMPLE_STARTS(ZELK_EXAMPLE_OPTION("volts", "volts", "LONG", "LIST"), "")},
      "cli/command:start/option:volts"},
     OptionOptionalityMismatch},
    {"parameter-without-option",
     Group::kCli,
     Severity::kError,
     DecidedBy::kDomains,
     kCliOnly,
     kMetamodelOnly,
     "A command that cannot pass what its operation requires",
     "A parameter is not optional and no option fills it, or options fill a part of a structure "
     "but not a field that is required. So the operation always fails. It is a warning for lists "
     "and for structures that can be empty. At most ten are reported for a command.",
     "A parameter that was added to the Metamodel file only.",
     "Add an option for it, or make it optional.",
     {{kTakesVolts, ZELK_EXAMPLE_STARTS("", "")}, "cli/command:start"},
     ParameterWithoutOption},
    {"unknown-output-field",
     Group::kCli,
     Severity::kError,
     DecidedBy::kDomains,
     kCliOnly,
     kMetamodelOnly,
     "An output whose structure or field does not exist",
     "No source defines the structure, or the structure does not have the field. It is a note, "
     "once for each structure, if the structure may be defined in a file that is not there.",
     "A misspelt or renamed field.",
     "Write the full name of the structure, and the names of its own fields.",
     {{kReturnsState,
       ZELK_EXAMPLE_STARTS("", ZELK_EXAMPLE_OUTPUT("acme.power.switch.state", "amps"))},
      "cli/command:start/output:acme.power.switch.state/output-field:amps"},
     UnknownOutputField},
    {"unreachable-output",
     Group::kCli,
     Severity::kWarning,
     DecidedBy::kDomains,
     kCliOnly,
     kMetamodelOnly,
     "An output that the result never has",
     "The structure is not in what the operation returns; or the operation returns nothing and "
     "there is a formatter; or the formatter makes columns of a structure and no fields are given.",
     "The structure of another operation, or a command that was copied.",
     "Name the structures that the result consists of, and remove a formatter with nothing to "
     "show.",
     {{kReturnsNothing,
       ZELK_EXAMPLE_CLI(ZELK_EXAMPLE_COMMAND("", "start", R"(, "formatter": "TABLE")"))},
      "cli/command:start"},
     UnreachableOutput},
    {"duplicate-option",
     Group::kCli,
     Severity::kError,
     DecidedBy::kFile,
     kCliOnly,
     0,
     "Two options with the same name",
     "A command has a long or a short option twice. It is a warning if two options fill the same "
     "field, or if an output has a field or a title twice.",
     "An option that was copied.",
     "Rename or remove one of them.",
     {{ZELK_EXAMPLE_STARTS(
          ZELK_EXAMPLE_OPTION("volts", "volts", "LONG", "NONE") "," ZELK_EXAMPLE_OPTION(
              "volts", "amps", "LONG", "NONE"),
          "")},
      "cli/command:start/option:volts"},
     DuplicateOption},
    {"malformed-option",
     Group::kCli,
     Severity::kError,
     DecidedBy::kFile,
     kCliOnly,
     0,
     "An option that cannot be typed",
     "A long option is empty, begins with a dash, or has a blank or '=' in it; or a short option "
     "is not one character. It is a warning if clients have the option themselves, such as 'help'.",
     "Dashes as users type them.",
     "Write the name alone, without dashes.",
     {{ZELK_EXAMPLE_STARTS(ZELK_EXAMPLE_OPTION("--volts", "volts", "LONG", "NONE"), "")},
      "cli/command:start/option:--volts"},
     MalformedOption},
    {"command-namespace-missing",
     Group::kCli,
     Severity::kWarning,
     DecidedBy::kSources,
     kCliOnly,
     0,
     "A namespace that is not described",
     "Commands are in a namespace that no source describes. They can be called, but no list of "
     "namespaces leads to them. It is a note if the namespace has other namespaces in it: then the "
     "library makes it, with a description of its own.",
     "A misspelt path, or a node that was forgotten.",
     "Write a node of type 'namespace' for it, in front of what is in it.",
     {{ZELK_EXAMPLE_CLI(ZELK_EXAMPLE_COMMAND("acme", "start", ""))}, "cli"},
     CommandNamespaceMissing},
    {"command-is-namespace",
     Group::kCli,
     Severity::kWarning,
     DecidedBy::kSources,
     kCliOnly,
     0,
     "A command and a namespace with the same name",
     "A command has the same full name as a namespace, so what a user types is both.",
     "A command that was moved into a namespace of its name.",
     "Rename one of them.",
     {{ZELK_EXAMPLE_CLI(
          ZELK_EXAMPLE_NAMESPACE("", "start") "," ZELK_EXAMPLE_COMMAND("", "start", ""))},
      "cli/command:start"},
     CommandIsNamespace},
};

}  // namespace

const Rows<Rule> kCliRules = kRules;

}  // namespace Zelk::Analysis::Lint
