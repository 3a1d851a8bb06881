#include <com/orvane/zelk/metadata/authentication/enumerations.h>

#include "analysis/format_parts.h"

namespace Zelk::Analysis {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

using SchemeType = Bindings::Authentication::AuthenticationInfoEnumerations::SchemeType;

}  // namespace

constexpr Words kSchemeTypes{SchemeType::Strings::values, "SESSIONAWARE", "SESSION_AWARE"};

namespace {

constexpr KeyForm kSessionKeys[] = {{"sessionManager", kText}};
constexpr ObjectForm kSession{kSessionKeys};
constexpr Variant kSchemeVariants[] = {{"SESSION_AWARE", &kSession}};

constexpr KeyForm kSchemeKeys[] = {
    {"authenticationScheme", kText},
    {"type", OneOf(kSchemeTypes)},
};
constexpr ObjectForm kSchemeObject{kSchemeKeys, "type", &kSchemeTypes, kSchemeVariants};
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
    {"name", kText},
    Optional("schemes", MembersOf(kScheme)),
    Optional("operations", MembersOf(kOperation)),
    Optional("services", MembersOf(kService)),
    {"packages", MembersOf(kPackage), KeyForm::kOptional, Rule::kServicesOfOperations},
};
constexpr ObjectForm kComponentObject{kComponentKeys};
constexpr ValueForm kComponent = As(ElementKind::kComponent, Object(kComponentObject));

constexpr KeyForm kAuthenticationKeys[] = {
    {"product", kComponent, KeyForm::kSeparate},
    {"component", kComponent, KeyForm::kSeparate},
};
constexpr ObjectForm kAuthentication{kAuthenticationKeys};

constexpr KeyForm kRootKeys[] = {
    {"authentication", WithRule(Object(kAuthentication), Rule::kProductOrComponent)},
};
constexpr ObjectForm kRoot{kRootKeys};

}  // namespace

const Format kAuthenticationFormat{Domain::kAuthentication, "authentication",
                                   Each(ElementKind::kNone, kRoot)};

}  // namespace Zelk::Analysis
