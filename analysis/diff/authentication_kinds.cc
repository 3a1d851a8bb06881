#include "analysis/diff/verdicts.h"
#include "analysis/example.h"

namespace Zelk::Analysis::Diff {
namespace {

// clang-format off
// NOLINTBEGIN(cppcoreguidelines-macro-usage): only macros join literals

#define ZELK_SLOT(slot, name, schemes, packages) \
  "\"" slot R"(": {"name": ")" name "\", \"schemes\": {\n  " schemes "},\n  \"packages\": {" packages "}}"

#define ZELK_FILE(slots) "{\"authentication\": {" slots "}}"

#define ZELK_COMPONENT(name, schemes, packages) \
  ZELK_FILE(ZELK_SLOT("component", name, schemes, packages))

/// Two components in one file, so that one of them can come or go.
#define ZELK_TWO(packages, spare_packages) \
  ZELK_FILE(ZELK_SLOT("component", "acme", ZELK_LOGIN, packages) ",\n " \
            ZELK_SLOT("product", "acme.spare", ZELK_LOGIN, spare_packages))

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
constexpr char kOne[] = ZELK_COMPONENT("acme", ZELK_LOGIN, R"("acme.power": ["login"])");
constexpr char kTwo[] = ZELK_TWO(R"("acme.power": ["login"])", R"("acme.spare.parts": ["login"])");
constexpr char kPowerInFirst[] = ZELK_TWO(R"("acme.power": ["login"])", "");
constexpr char kPowerInSecond[] = ZELK_TWO("", R"("acme.power": ["login"])");
constexpr char kCardOfSession[] = ZELK_LISTED(ZELK_SESSION_AWARE("card", "acme.card", "acme.a"));

constexpr Kind kRows[] = {
    {"authentication-list-removed",
     Area::kAuthentication,
     "authentication list",
     Action::kRemoved,
     Always(kN, kN, kN, kD, kC),
     "A list of schemes is gone or empty",
     "Callers without a scheme get access if the element inherits no schemes; such changes are "
     "always shown first. No caller is turned away, so it is dangerous, not breaking. It is "
     "breaking if the element inherits schemes that callers do not have, or if the list is gone, "
     "not empty: programs that ask for it get an error then.",
     "If access is to be open, list a scheme that everybody has, such as one for anonymous calls.",
     {{kLogin}, {kEmptyList}, kPackage}},
    {"authentication-list-added",
     Area::kAuthentication,
     "authentication list",
     Action::kAdded,
     Always(kN, kN, kN, kB, kC),
     "A list of schemes is new or no longer empty",
     "Callers without one of the schemes are turned away, unless the element inherited the same "
     "schemes. It concerns no caller if what the list is for is new in the Metamodel files, too.",
     "List a scheme for anonymous calls as well until all callers have one of the others.",
     {{kEmptyList}, {kLogin}, kPackage}},
    {"authentication-scheme-removed",
     Area::kAuthentication,
     "authentication scheme",
     Action::kRemoved,
     Always(kN, kN, kN, kB, kC),
     "A scheme was removed from a list",
     "Callers with this scheme alone are turned away. If callers need all schemes of a list, it is "
     "dangerous instead: callers without this one get access.",
     "Remove it when no caller uses it any more.",
     {{kLoginAndCard}, {kLogin}, kPackage}},
    {"authentication-scheme-added",
     Area::kAuthentication,
     "authentication scheme",
     Action::kAdded,
     Always(kN, kN, kN, kD, kC),
     "A scheme was added to a list",
     "Callers with this scheme get access. If callers need all schemes of a list, it is breaking "
     "instead: callers without this one are turned away.",
     "Check that callers with this scheme are meant to have access.",
     {{kLogin}, {kLoginAndCard}, kPackage}},
    {"authentication-schemes-replaced",
     Area::kAuthentication,
     "authentication schemes",
     Action::kChanged,
     Always(kN, kN, kN, kB, kC),
     "All schemes of a list were replaced",
     "No scheme of the list is left, so callers that have only the old schemes are turned away.",
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
     "An empty list was removed",
     "Who may call does not change, unless what the element is in has schemes: some hosts inherit "
     "these only now. Programs that ask for the schemes get an error in place of an empty list.",
     "Keep the empty list.",
     {{kEmptyList}, {kNoList}, kPackage}},
    {"authentication-entry-added",
     Area::kAuthentication,
     "authentication entry",
     Action::kAdded,
     Always(kN, kN, kN, kN, kC),
     "An empty list was added",
     "Who may call does not change, unless what the element is in has schemes: some hosts let "
     "everybody in where a list is empty. Then the change is dangerous and is shown first. "
     "Programs that ask for the schemes get an empty list in place of an error.",
     "List the schemes that callers need, or no list.",
     {{kNoList}, {kEmptyList}, kPackage}},
    {"authentication-component-removed",
     Area::kAuthentication,
     "authentication component",
     Action::kRemoved,
     Always(kN, kN, kN, kD, kB),
     "A component with lists was removed",
     "Callers without a scheme get access to what it listed. Such changes are always shown first. "
     "Programs that ask for the schemes get an error.",
     "Keep the lists as long as the component can be called.",
     {{kTwo}, {kOne}, "authentication/component:acme.spare"}},
    {"authentication-component-added",
     Area::kAuthentication,
     "authentication component",
     Action::kAdded,
     Always(kN, kN, kN, kB, kC),
     "A component with lists was added",
     "Callers without one of the schemes are turned away, as for any list that is added. It "
     "concerns no caller if the component is new in the Metamodel files, too.",
     "Add the lists together with the component.",
     {{kOne}, {kTwo}, "authentication/component:acme.spare"}},
    {"authentication-package-moved",
     Area::kAuthentication,
     "authentication package",
     Action::kChanged,
     Always(kN, kN, kN, kN, kD),
     "A package was moved to another component",
     "Who may call does not change. Programs that go from components to packages do not find it "
     "where it was.",
     "No action is needed if it was moved in the Metamodel file, too.",
     {{kPowerInFirst}, {kPowerInSecond}, kPackage}},
};

}  // namespace

const Rows<Kind> kAuthenticationKinds = kRows;

}  // namespace Zelk::Analysis::Diff
