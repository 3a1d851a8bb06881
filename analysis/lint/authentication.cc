#include "analysis/example.h"
#include "analysis/lint/authentication_rules.h"

namespace Zelk::Analysis::Lint {
namespace {

// clang-format off
// NOLINTBEGIN(cppcoreguidelines-macro-usage): only macros join literals

#define ZELK_EXAMPLE_LISTED ZELK_EXAMPLE_SERVICE("", "", ZELK_EXAMPLE_START)

// NOLINTEND(cppcoreguidelines-macro-usage)
// clang-format on

constexpr Rule kRules[] = {
    {"unused-scheme",
     Group::kAuthentication,
     Severity::kWarning,
     DecidedBy::kFile,
     kAuthenticationOnly,
     0,
     "A scheme that no list names",
     "The scheme is defined, but no list of the component names it, so no client sees it.",
     "A scheme that was replaced, or a list that names another one.",
     "Name it in a list or remove it.",
     {{ZELK_EXAMPLE_SCHEME("")}, "authentication/component:acme/scheme:login"},
     UnusedScheme},
    {"scheme-list",
     Group::kAuthentication,
     Severity::kWarning,
     DecidedBy::kFile,
     kAuthenticationOnly,
     0,
     "A list that repeats a scheme, or is empty",
     "A list names one scheme twice, or two schemes with equal definitions. It is a note if the "
     "list is empty: the answer is then an empty list, and what that means is up to the client.",
     "Two lists that were merged.",
     "Remove what is there twice. Remove an empty list, or say what you mean with a scheme.",
     {{ZELK_EXAMPLE_SCHEME(R"(, "packages": {"acme.power": ["login", "login"]})")},
      "authentication/component:acme/package:acme.power/entry:login"},
     SchemeList},
    {"unknown-authentication-target",
     Group::kAuthentication,
     Severity::kError,
     DecidedBy::kDomains,
     kAuthenticationOnly,
     kMetamodelOnly,
     "Authentication for something that does not exist",
     "An Authentication file lists a package, a service or an operation that the component does "
     "not have, or names a session manager that is not defined. It is a note, once for each name, "
     "if a component or session manager may be described in a file that is not there.",
     "A misspelt name, or one that was changed in the Metamodel file only.",
     "Fix the name, or load the file that defines it. Names whose files are elsewhere on purpose "
     "can be listed under 'external' in the configuration.",
     {{ZELK_EXAMPLE_LISTED, ZELK_EXAMPLE_SCHEME(R"(,
  "packages": {"acme.power": ["login"]},
  "operations": {"acme.power.switch.stop": ["login"]})")},
      "authentication/component:acme/package:acme.power/service:acme.power.switch/"
      "operation:acme.power.switch.stop"},
     UnknownAuthenticationTarget},
    {"authentication-package-mismatch",
     Group::kAuthentication,
     Severity::kNote,
     DecidedBy::kDomains,
     kAuthenticationOnly,
     kMetamodelOnly,
     "A service that is listed in another package than its own",
     "The library takes the text in front of the last full stop of a service as its package. In "
     "the Metamodel file the service is in another package, so clients that go from packages to "
     "services find other lists. It is a warning if the other package has a list of its own.",
     "A service whose name has one part more than those around it.",
     "Rename the service, or list it by itself, as you do now, and expect no package around it.",
     {{R"({"metamodel": {"component": {"name": "acme", "documentation": "Controls machines.",
  "metadata": {}, "packages": [
  {"name": "acme.power", "documentation": "Power.", "metadata": {}, "enumerations": [],
  "structures": [], "services": [
  {"name": "acme.power.switch.relay", "documentation": "Relays.", "metadata": {},
  "enumerations": [], "structures": [], "constants": [], "operations": [)" ZELK_EXAMPLE_START
       "]}]}]}}}",
       ZELK_EXAMPLE_SCHEME(R"(, "services": {"acme.power.switch.relay": ["login"]})")},
      "authentication/component:acme/package:acme.power.switch/service:acme.power.switch.relay"},
     AuthenticationPackageMismatch},
    {"operation-without-scheme",
     Group::kAuthentication,
     Severity::kWarning,
     DecidedBy::kDomains,
     kMetamodelOnly,
     kAuthenticationOnly,
     "An operation without schemes",
     "The component has an Authentication file, but neither the operation nor its service nor its "
     "package is listed there. Clients do not know how to call it.",
     "An operation that was added to the Metamodel file only.",
     "List the operation, its service or its package.",
     {{ZELK_EXAMPLE_LISTED, R"({"authentication": {"component": {"name": "acme"}}})"},
      "metamodel/component:acme/package:acme.power/service:acme.power.switch/operation:start"},
     OperationWithoutScheme},
};

}  // namespace

const Rows<Rule> kAuthenticationRules = kRules;

}  // namespace Zelk::Analysis::Lint
