#include "analysis/diff/verdicts.h"
#include "analysis/example.h"

namespace Zelk::Analysis::Diff {
namespace {

// clang-format off
// NOLINTBEGIN(cppcoreguidelines-macro-usage): only macros join literals

#define ZELK_COMPONENT(name, schemes, packages) \
  R"({"authentication": {"component": {"name": ")" name "\", \"schemes\": {\n  " schemes \
  "},\n  \"packages\": {" packages "}}}}"

#define ZELK_SESSIONLESS(name, id) \
  "\"" name R"(": {"authenticationScheme": ")" id R"(", "type": "SESSIONLESS"})"

#define ZELK_SESSION_AWARE(name, id, manager) \
  "\"" name R"(": {"authenticationScheme": ")" id R"(", "type": "SESSION_AWARE", "sessionManager": ")" \
  manager "\"}"

#define ZELK_LOGIN ZELK_SESSIONLESS("login", "acme.login")

#define ZELK_SCHEMES ZELK_LOGIN ",\n  " ZELK_SESSION_AWARE("card", "acme.card", "acme.session")

/// A component with two schemes and one package.
#define ZELK_LISTS(list) ZELK_COMPONENT("acme", ZELK_SCHEMES, "\"acme.power\": [" list "]")

/// A component with one scheme, which its list names.
#define ZELK_LISTED(scheme) ZELK_COMPONENT("acme", scheme, "\"acme.power\": [\"card\"]")

// NOLINTEND(cppcoreguidelines-macro-usage)
// clang-format on

constexpr char kPackage[] = "authentication/component:acme/package:acme.power";
constexpr char kScheme[] = "authentication/component:acme/scheme:card";

constexpr char kEmptyList[] = ZELK_LISTS("");
constexpr char kLogin[] = ZELK_LISTS(R"("login")");
constexpr char kCard[] = ZELK_LISTS(R"("card")");
constexpr char kLoginAndCard[] = ZELK_LISTS(R"("login", "card")");
constexpr char kCardAndLogin[] = ZELK_LISTS(R"("card", "login")");
constexpr char kNoList[] = ZELK_COMPONENT("acme", ZELK_SCHEMES, "");
constexpr char kOtherComponent[] =
    ZELK_COMPONENT("acme.spare", ZELK_LOGIN, R"("acme.spare.parts": ["login"])");
constexpr char kSpareWithout[] = ZELK_COMPONENT("acme.spare", ZELK_LOGIN, "");
constexpr char kSpareWithPower[] =
    ZELK_COMPONENT("acme.spare", ZELK_LOGIN, R"("acme.power": ["login"])");
constexpr char kCardOfSession[] = ZELK_LISTED(ZELK_SESSION_AWARE("card", "acme.card", "acme.a"));

constexpr Kind kRows[] = {
    {"authentication-list-removed",
     Area::kAuthentication,
     "authentication list",
     Action::kRemoved,
     Always(kN, kN, kN, kD, kC),
     "A list of schemes is gone or empty",
     "Callers without a scheme may get access, since nothing says any more what they need. These "
     "changes are always shown first.",
     "List a scheme that everybody has, such as one for anonymous calls, if access is to be open.",
     {{kLogin}, {kEmptyList}, kPackage}},
    {"authentication-list-added",
     Area::kAuthentication,
     "authentication list",
     Action::kAdded,
     Always(kN, kN, kN, kB, kC),
     "A list of schemes is new or no longer empty",
     "Callers without one of the schemes are turned away.",
     "List a scheme for anonymous calls as well until all callers have one of the others.",
     {{kEmptyList}, {kLogin}, kPackage}},
    {"authentication-scheme-removed",
     Area::kAuthentication,
     "authentication scheme",
     Action::kRemoved,
     Always(kN, kN, kN, kB, kC),
     "A list has a scheme less",
     "Callers with this scheme alone are turned away. If callers need all schemes of a list, it is "
     "dangerous instead: callers without this one get access.",
     "Remove it when no caller uses it any more.",
     {{kLoginAndCard}, {kLogin}, kPackage}},
    {"authentication-scheme-added",
     Area::kAuthentication,
     "authentication scheme",
     Action::kAdded,
     Always(kN, kN, kN, kD, kC),
     "A list has one more scheme",
     "Callers with this scheme get access. If callers need all schemes of a list, it is breaking "
     "instead: callers without this one are turned away.",
     "Check that callers with this scheme are meant to have access.",
     {{kLogin}, {kLoginAndCard}, kPackage}},
    {"authentication-schemes-replaced",
     Area::kAuthentication,
     "authentication schemes",
     Action::kChanged,
     Always(kN, kN, kN, kB, kC),
     "A list has other schemes",
     "Not one of the schemes is left, so all callers are turned away.",
     "List the old and the new schemes together until all callers have a new one.",
     {{kLogin}, {kCard}, kPackage}},
    {"authentication-scheme-order-changed",
     Area::kAuthentication,
     "authentication scheme order",
     Action::kChanged,
     Always(kN, kN, kN, kD, kC),
     "The schemes of a list are in another order",
     "Clients that take the first scheme that they know may take another one. If callers need all "
     "schemes of a list, or if a scheme is only repeated, it is compatible.",
     "Keep the order, and add schemes at the end.",
     {{kLoginAndCard}, {kCardAndLogin}, kPackage}},
    {"authentication-scheme-id-changed",
     Area::kAuthentication,
     "authentication scheme id",
     Action::kChanged,
     Always(kN, kN, kN, kB, kC),
     "A scheme has another id",
     "Clients that know the old id cannot call. It is one change for all lists that name the "
     "scheme.",
     "Add the new scheme to the lists, and remove the old one when no caller uses it any more.",
     {{ZELK_LISTED(ZELK_SESSIONLESS("card", "acme.card"))},
      {ZELK_LISTED(ZELK_SESSIONLESS("card", "acme.badge"))},
      kScheme}},
    {"authentication-scheme-type-changed",
     Area::kAuthentication,
     "authentication scheme type",
     Action::kChanged,
     Always(kN, kN, kN, kB, kC),
     "A scheme has another type",
     "Clients that open no session must open one, or the reverse.",
     "Add a new scheme with an id of its own.",
     {{ZELK_LISTED(ZELK_SESSIONLESS("card", "acme.card"))}, {kCardOfSession}, kScheme}},
    {"authentication-session-manager-changed",
     Area::kAuthentication,
     "authentication session manager",
     Action::kChanged,
     Always(kN, kN, kN, kB, kC),
     "A scheme has another session manager",
     "Sessions that the old service opened are not valid any more.",
     "Let the old service open sessions of the new one, or add a new scheme.",
     {{kCardOfSession}, {ZELK_LISTED(ZELK_SESSION_AWARE("card", "acme.card", "acme.b"))}, kScheme}},
    {"authentication-entry-removed",
     Area::kAuthentication,
     "authentication entry",
     Action::kRemoved,
     Always(kN, kN, kN, kN, kB),
     "An empty list is gone",
     "Who may call does not change. Programs that ask for the schemes get an error in place of an "
     "empty list.",
     "Keep the empty list.",
     {{kEmptyList}, {kNoList}, kPackage}},
    {"authentication-entry-added",
     Area::kAuthentication,
     "authentication entry",
     Action::kAdded,
     Always(kN, kN, kN, kN, kC),
     "An empty list is new",
     "Who may call does not change. Programs that ask for the schemes get an empty list in place "
     "of an error.",
     "Say what you mean with a scheme.",
     {{kNoList}, {kEmptyList}, kPackage}},
    {"authentication-component-removed",
     Area::kAuthentication,
     "authentication component",
     Action::kRemoved,
     Always(kN, kN, kN, kD, kB),
     "A component has no lists any more",
     "Callers without a scheme may get access, since nothing says any more what they need. "
     "Programs that ask for the component get an error.",
     "Keep the file as long as the component can be called.",
     {{kLogin, kOtherComponent}, {kLogin}, "authentication/component:acme.spare"}},
    {"authentication-component-added",
     Area::kAuthentication,
     "authentication component",
     Action::kAdded,
     Always(kN, kN, kN, kD, kC),
     "A component has lists now",
     "Callers that knew nothing of schemes may be turned away, if the component could be called "
     "before.",
     "Add the lists when the component is new.",
     {{kLogin}, {kLogin, kOtherComponent}, "authentication/component:acme.spare"}},
    {"authentication-package-moved",
     Area::kAuthentication,
     "authentication package",
     Action::kChanged,
     Always(kN, kN, kN, kN, kD),
     "A package is listed in another component",
     "Who may call does not change. Programs that go from components to packages do not find it "
     "where it was.",
     "Nothing, if it has moved in the Metamodel file, too.",
     {{kLogin, kSpareWithout}, {kNoList, kSpareWithPower}, kPackage}},
};

}  // namespace

const Rows<Kind> kAuthenticationKinds = kRows;

}  // namespace Zelk::Analysis::Diff
