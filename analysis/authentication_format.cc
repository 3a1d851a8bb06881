#include <iterator>

#include <com/orvane/zelk/metadata/authentication/enumerations.h>

#include "analysis/format_parts.h"

namespace Zelk::Analysis {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

using SchemeType = Bindings::Authentication::AuthenticationInfoEnumerations::SchemeType;

constexpr const char* kSchemeTexts[] = {
    "Every call is authenticated by itself.",
    "Calls are authenticated through a session.",
};
static_assert(std::size(kSchemeTexts) == SchemeType::UNKNOWN, "one text an enumerator");
}  // namespace

constexpr Words kSchemeTypes{SchemeType::Strings::values, "SESSIONAWARE", "SESSION_AWARE",
                             kSchemeTexts};

namespace {

constexpr KeyForm kSessionKeys[] = {
    {"sessionManager", Text(Style::kFullName), "The service that manages the sessions."}};
constexpr ObjectForm kSession{nullptr, kSessionKeys};
constexpr Variant kSchemeVariants[] = {{"SESSION_AWARE", &kSession}};

constexpr KeyForm kSchemeKeys[] = {
    {"authenticationScheme", Text(Style::kFullName), "Id of the scheme, which clients know."},
    {"type", OneOf(kSchemeTypes), "Whether calls need a session."},
};
constexpr ObjectForm kSchemeObject{"scheme", kSchemeKeys, "type", &kSchemeTypes, kSchemeVariants};
constexpr ValueForm kScheme =
    WithRule(Each(ElementKind::kScheme, kSchemeObject), Rule::kDefinesScheme);

// Whatever the level, messages about its lists call them packages.
constexpr char kPackagesWord[] = "packages";
constexpr ValueForm kEntry{Form::kSchemeName, ElementKind::kEntry, nullptr, nullptr,
                           nullptr,           kPackagesWord};
constexpr ValueForm kSchemeList = Called(ListOf(kEntry), kPackagesWord);

constexpr ValueForm kOperation =
    WithRule(As(ElementKind::kOperationList, kSchemeList), Rule::kOperationId);
constexpr ValueForm kService =
    WithRule(As(ElementKind::kServiceList, kSchemeList), Rule::kServiceId);
constexpr ValueForm kPackage = As(ElementKind::kPackageList, kSchemeList);

constexpr KeyForm kComponentKeys[] = {
    {"name", Text(Style::kFullName), "Full name of the component, as in the Metamodel file."},
    Optional("schemes", MembersOf(kScheme), "Schemes by names that only this component uses."),
    Optional("operations", MembersOf(kOperation, Style::kOperationId),
             "Names of `schemes` by the id of an operation: full name of the service, a full stop, "
             "simple name of the operation."),
    Optional("services", MembersOf(kService, Style::kServiceId),
             "Names of `schemes` by the full name of a service."),
    {"packages", MembersOf(kPackage, Style::kFullName),
     "Names of `schemes` by the full name of a package.", KeyForm::kOptional,
     Rule::kServicesOfOperations},
};
constexpr ObjectForm kComponentObject{"component", kComponentKeys};
constexpr ValueForm kComponent = As(ElementKind::kComponent, Object(kComponentObject));

constexpr KeyForm kAuthenticationKeys[] = {
    {"product", kComponent,
     "A second component. A mistake in it is not reported if the file loads without it.",
     KeyForm::kSeparate},
    {"component", kComponent, "The component that the file describes.", KeyForm::kSeparate},
};
constexpr ObjectForm kAuthentication{"authentication", kAuthenticationKeys};

constexpr KeyForm kRootKeys[] = {
    {"authentication", WithRule(Object(kAuthentication), Rule::kProductOrComponent),
     "Marks an Authentication file: the schemes that calls of a component need."},
};
constexpr ObjectForm kRoot{"document", kRootKeys};

}  // namespace

const Format kAuthenticationFormat{Domain::kAuthentication, "authentication", "Authentication file",
                                   Each(ElementKind::kNone, kRoot), true};

}  // namespace Zelk::Analysis
