#include "analysis/example.h"
#include "analysis/lint/references_rules.h"

namespace Zelk::Analysis::Lint {
namespace {

constexpr Rule kRules[] = {
    {"unresolved-reference",
     Group::kReferences,
     Severity::kError,
     DecidedBy::kSources,
     kMetamodelOnly,
     0,
     "A type or an error that is not defined",
     "A user-defined type or an error of an operation has a name that no source defines. It is a "
     "note, once for each name, if no component, package or service that is loaded has the first "
     "part of the name: then the definition may be in a source that is not there.",
     "A misspelt name, a definition that was renamed, or a file that is missing.",
     "Fix the name, or load the file that defines it. Names whose files are elsewhere on purpose "
     "can be listed under 'external' in the configuration.",
     {{ZELK_EXAMPLE_OF("", "", ZELK_EXAMPLE_TYPE("Structure", "acme.power.switch.state"), "")},
      ZELK_EXAMPLE_PATH "/operation:start/result:result"},
     UnresolvedReference},
    {"reference-kind-mismatch",
     Group::kReferences,
     Severity::kError,
     DecidedBy::kSources,
     kMetamodelOnly,
     0,
     "A structure that is called an enumeration, or the reverse",
     "The type is called a structure, but its name is that of an enumeration, or the reverse. "
     "Clients look it up as what it is called, and do not find it.",
     "A definition that was changed from one kind to the other.",
     "Write the other word as the 'user_defined_type'.",
     {{ZELK_EXAMPLE_OF(ZELK_EXAMPLE_STRUCTURE("acme.power.switch.state", "STRUCTURE",
                                              ZELK_EXAMPLE_FIELD("volts", "", ZELK_EXAMPLE_LONG)),
                       "", ZELK_EXAMPLE_TYPE("Enumeration", "acme.power.switch.state"), "")},
      ZELK_EXAMPLE_PATH "/operation:start/result:result"},
     ReferenceKindMismatch},
    {"not-an-error",
     Group::kReferences,
     Severity::kError,
     DecidedBy::kSources,
     kMetamodelOnly,
     0,
     "A structure in a list of errors that is not an error",
     "An operation names a structure of the type STRUCTURE among its errors. It is a warning if a "
     "parameter is a structure of the type ERROR.",
     "The wrong structure, or the wrong type of it.",
     "Name a structure of the type ERROR, or change the type of the structure.",
     {{ZELK_EXAMPLE_OF(ZELK_EXAMPLE_STRUCTURE("acme.power.switch.failure", "STRUCTURE",
                                              ZELK_EXAMPLE_FIELD("volts", "", ZELK_EXAMPLE_LONG)),
                       "", ZELK_EXAMPLE_VOID,
                       "\n  "
                       R"({"user_defined_type_name": "acme.power.switch.failure",)"
                       "\n  "
                       R"("documentation": "It failed."})")},
      ZELK_EXAMPLE_PATH "/operation:start/error:acme.power.switch.failure"},
     NotAnError},
    {"infinite-structure",
     Group::kReferences,
     Severity::kError,
     DecidedBy::kSources,
     kMetamodelOnly,
     0,
     "A structure that contains itself",
     "The type of a field is the structure itself, or a structure that contains it. None of these "
     "fields can be empty, so a value of the structure would never be complete.",
     "A field of a tree that should be a LIST or OPTIONAL.",
     "Make one of the fields OPTIONAL, LIST, SET or MAP.",
     {{ZELK_EXAMPLE_OF(
          ZELK_EXAMPLE_STRUCTURE(
              "acme.power.switch.state", "STRUCTURE",
              ZELK_EXAMPLE_FIELD("before", "",
                                 ZELK_EXAMPLE_TYPE("Structure", "acme.power.switch.state"))),
          "", ZELK_EXAMPLE_TYPE("Structure", "acme.power.switch.state"), "")},
      ZELK_EXAMPLE_PATH "/structure:acme.power.switch.state"},
     InfiniteStructure},
    {"suspicious-type",
     Group::kReferences,
     Severity::kWarning,
     DecidedBy::kFile,
     kMetamodelOnly,
     0,
     "A type that makes no sense",
     "VOID is the type of a parameter or a field, or is within another type; an OPTIONAL is in an "
     "OPTIONAL; the elements of a SET or the keys of a MAP are structures, lists, sets or maps, or "
     "of a type that is not known; or a type has more than eight levels.",
     "A typing error, or a generated file.",
     "Choose a simpler type, or define a structure.",
     {{ZELK_EXAMPLE_OF("",
                       ZELK_EXAMPLE_FIELD("volts", "",
                                          R"({"category": "GENERIC", "generic_type": "LIST",)"
                                          "\n  \"element_type\": " ZELK_EXAMPLE_VOID "}"),
                       ZELK_EXAMPLE_VOID, "")},
      ZELK_EXAMPLE_PATH "/operation:start/parameter:volts"},
     SuspiciousType},
    {"duplicate-member",
     Group::kReferences,
     Severity::kError,
     DecidedBy::kFile,
     kMetamodelOnly,
     0,
     "Two members with the same name in a list",
     "An operation has two parameters or errors, a structure two fields, or an enumeration two "
     "values of one name. The library keeps both, so clients choose one.",
     "A part that was copied.",
     "Rename or remove one of them.",
     {{ZELK_EXAMPLE_OF("",
                       ZELK_EXAMPLE_FIELD("volts", "", ZELK_EXAMPLE_LONG) "," ZELK_EXAMPLE_FIELD(
                           "volts", "", ZELK_EXAMPLE_BUILTIN("DOUBLE")),
                       ZELK_EXAMPLE_VOID, "")},
      ZELK_EXAMPLE_PATH "/operation:start/parameter:volts"},
     DuplicateMember},
    {"empty-definition",
     Group::kReferences,
     Severity::kWarning,
     DecidedBy::kFile,
     kMetamodelOnly,
     0,
     "A definition with nothing in it",
     "An enumeration has no values, so that no value of its type is possible. It is a note if a "
     "service has no operations or if a package has nothing in it.",
     "A definition that was begun or moved.",
     "Complete it or remove it.",
     {{ZELK_EXAMPLE_COMPONENT("\n  "
                              R"({"name": "acme.power", "documentation": "Power.", "metadata": {},)"
                              "\n  "
                              R"("enumerations": [], "structures": [], "services": []})",
                              "")},
      "metamodel/component:acme/package:acme.power"},
     EmptyDefinition},
    {"unused-definition",
     Group::kReferences,
     Severity::kNote,
     DecidedBy::kSources,
     kMetamodelOnly,
     0,
     "A definition that no operation uses",
     "No operation of any source names the structure or enumeration, nor anything that leads to "
     "it. Models of resources count as used.",
     "A leftover from an older version, or a misspelt name where it should be used.",
     "Use it or remove it.",
     {{ZELK_EXAMPLE_OF(ZELK_EXAMPLE_STRUCTURE("acme.power.switch.state", "STRUCTURE",
                                              ZELK_EXAMPLE_FIELD("volts", "", ZELK_EXAMPLE_LONG)),
                       "", ZELK_EXAMPLE_VOID, "")},
      ZELK_EXAMPLE_PATH "/structure:acme.power.switch.state"},
     UnusedDefinition},
    {"resource-without-model",
     Group::kReferences,
     Severity::kNote,
     DecidedBy::kSources,
     kMetamodelOnly,
     0,
     "A resource that no structure describes",
     "An annotation names a resource, and no structure is a model of it.",
     "A misspelt resource, or a model without 'Model' or 'ModelKey'.",
     "Fix the name, or mark the structure and its key.",
     {{ZELK_EXAMPLE_OF("",
                       ZELK_EXAMPLE_FIELD("device", R"("Resource": {"value": "acme.device"})",
                                          ZELK_EXAMPLE_BUILTIN("ID")),
                       ZELK_EXAMPLE_VOID, "")},
      "metamodel"},
     ResourceWithoutModel},
};

}  // namespace

const Rows<Rule> kReferencesRules = kRules;

}  // namespace Zelk::Analysis::Lint
