#include "authentication/json_metadata_parser.h"

#include <string_view>

#include "common/json/json_member.h"

namespace Zelk::Provider::Metadata::Authentication {
namespace {

using SchemeType = Bindings::Authentication::AuthenticationInfoEnumerations::SchemeType;

/// Adds records to the tables of their owners; of a repeated key, the first record stays. Files
/// list the records of one owner together, so the table of the last record is tried first.
template <typename Record>
class TablesByOwner {
 public:
  explicit TablesByOwner(JsonMetadataParser::Unclaimed<Record>& records)
      : records_(records), last_(records.end()) {}

  void Add(std::string_view owner, std::string_view key, std::shared_ptr<const Record> record) {
    if (last_ == records_.end() || last_->first != owner) {
      last_ = records_.try_emplace(std::string(owner)).first;
    }
    last_->second.emplace(key, std::move(record));
  }

 private:
  JsonMetadataParser::Unclaimed<Record>& records_;
  typename JsonMetadataParser::Unclaimed<Record>::iterator last_;
};

/// Removes the table of `owner` from `records` and returns it; empty if there is none.
template <typename Record>
JsonMetadataParser::Table<Record> Claim(JsonMetadataParser::Unclaimed<Record>& records,
                                        std::string_view owner) {
  const auto claimed = records.find(owner);
  if (claimed == records.end()) return {};
  return std::move(records.extract(claimed).mapped());
}

using Parts = std::pair<std::string_view, std::string_view>;

/// Returns the parts before and after the last full stop. Without one, the first part is empty.
Parts Split(std::string_view id) {
  const auto dot = id.rfind('.');
  if (dot == std::string_view::npos) return {std::string_view(), id};
  return {id.substr(0, dot), id.substr(dot + 1)};
}

/// Splits an id. Returns false and appends the message if one of the parts is empty.
bool SplitId(std::string_view id, const char* message_id, Parts& parts, Errors& errors) {
  parts = Split(id);
  if (!parts.first.empty() && !parts.second.empty()) return true;
  errors.push_back(CatalogMessage(message_id) % std::string(id));
  return false;
}

/// Returns a function that the member helpers can call: it passes `arguments` to `parse` after the
/// value.
template <typename Parse, typename... Arguments>
auto With(Parse parse, Arguments&... arguments) {
  return [parse, &arguments...](const JsonValue& value, auto& result, Errors& errors) {
    return parse(value, arguments..., result, errors);
  };
}

}  // namespace

bool JsonMetadataParser::LoadMetadata(std::istream& in, const RegisterCallbacks& callbacks,
                                      Errors& errors) {
  return LoadMetadata(TextBuffer(ReadAll(in)), callbacks, errors);
}

bool JsonMetadataParser::LoadMetadata(TextBuffer text, const RegisterCallbacks& callbacks,
                                      Errors& errors) {
  JsonDocument document(std::move(text));
  if (!document.Parse(MessageId::kAuthenticationParseError, errors)) return false;
  return JsonObjectMember<void>(document.Root(), "authentication",
                                WithCallbacks(callbacks, ParseAuthentication), errors)
      .Ok();
}

bool JsonMetadataParser::ParseAuthentication(const RegisterCallbacks& callbacks,
                                             const JsonValue& value, Errors& errors) {
  const auto parse = WithCallbacks(callbacks, ParseComponent);
  const bool product = JsonOptObjectMember<void>(value, "product", parse, errors).Ok();
  const bool component = JsonOptObjectMember<void>(value, "component", parse, errors).Ok();
  // Intended(auth-broken-component): a good product is enough for a file whose component is broken.
  // An absent product is not: the file would load, register nothing and report nothing.
  return component || (product && FindMember(value, "product") != nullptr);
}

bool JsonMetadataParser::ParseComponent(const RegisterCallbacks& callbacks, const JsonValue& value,
                                        Errors& errors) {
  JsonMember<std::string> name(value, "name", errors);
  if (!name.Ok()) return false;
  JsonOptObjectMember<SchemeTable> schemes(value, "schemes", ParseSchemes, errors);
  if (!schemes.Ok()) return false;
  const SchemeTable table = schemes.Take();
  JsonOptObjectMember<Unclaimed<Bindings::Authentication::OperationInfo>> operation_list(
      value, "operations", With(ParseOperations, table), errors);
  if (!operation_list.Ok()) return false;
  auto operations = operation_list.Take();
  JsonOptObjectMember<Unclaimed<Bindings::Authentication::ServiceInfo>> service_list(
      value, "services", With(ParseServices, table, operations), errors);
  if (!service_list.Ok()) return false;
  auto services = service_list.Take();
  // Intended(auth-service-without-package): the result is not checked. The component keeps the
  // services that were made before the first one that has no package.
  CreateServicesFromOperations(operations, services, errors);
  JsonOptObjectMember<Table<Bindings::Authentication::PackageInfo>> package_table(
      value, "packages", With(ParsePackages, table, services), errors);
  if (!package_table.Ok()) return false;
  auto packages = package_table.Take();
  CreatePackagesFromServices(services, packages);
  callbacks(name.Value(),
            std::make_shared<Bindings::Authentication::ComponentInfo>(std::move(packages)));
  return true;
}

bool JsonMetadataParser::ParseSchemes(const JsonValue& value, SchemeTable& schemes,
                                      Errors& errors) {
  for (const auto& member : JsonMembers(value)) {
    auto scheme = ParseAuthInfo(member.value, errors);
    if (!scheme) return false;
    // Intended(auth-last-scheme-counts): of two schemes with the same name, the last one is kept.
    schemes.insert_or_assign(ValToString(member.name), std::move(scheme));
  }
  return true;
}

JsonMetadataParser::Scheme JsonMetadataParser::ParseAuthInfo(const JsonValue& value,
                                                             Errors& errors) {
  JsonMember<std::string> scheme(value, "authenticationScheme", errors);
  if (!scheme.Ok()) return nullptr;
  JsonMember<SchemeType, ParseSchemeTypeEnum> type(value, "type", errors);
  if (!type.Ok()) return nullptr;
  boost::optional<std::string> session_manager;
  if (type.Value() == SchemeType::SESSION_AWARE) {
    JsonMember<std::string> manager(value, "sessionManager", errors);
    if (!manager.Ok()) return nullptr;
    session_manager = manager.Take();
  }
  return std::make_shared<Bindings::Authentication::AuthenticationInfo>(
      type.Take(), std::move(session_manager), scheme.Take());
}

bool JsonMetadataParser::ParseSchemeTypeEnum(const JsonValue& value, const char* name,
                                             SchemeType& result, Errors& errors) {
  // Intended(auth-session-aware-alias): files have both spellings.
  return ParseAliasedEnum(value, name, "SESSIONAWARE", SchemeType::SESSION_AWARE, result, errors);
}

bool JsonMetadataParser::ParseSchemeList(const JsonValue& value, const SchemeTable& schemes,
                                         SchemeList& list, Errors& errors) {
  // Intended(auth-message-words): messages have "packages" for the lists of all levels, and "id"
  // for every unknown scheme.
  constexpr char kPackages[] = "packages";
  const auto find_scheme = [&](const JsonValue& element, Errors&) -> Scheme {
    if (!CheckType(element, JsonType::kString, kPackages, errors)) return nullptr;
    const auto scheme = schemes.find(TextOf(element));
    if (scheme != schemes.end()) return scheme->second;
    errors.push_back(CatalogMessage(MessageId::kAuthenticationUnknownSchemaName) % "id");
    return nullptr;
  };
  return JsonParseArray(value, kPackages, find_scheme, list, errors);
}

bool JsonMetadataParser::ParseOperations(
    const JsonValue& value, const SchemeTable& schemes,
    Unclaimed<Bindings::Authentication::OperationInfo>& operations, Errors& errors) {
  TablesByOwner tables(operations);
  for (const auto& member : JsonMembers(value)) {
    SchemeList list;
    if (!ParseSchemeList(member.value, schemes, list, errors)) return false;
    Parts parts;
    if (!SplitId(TextOf(member.name), MessageId::kAuthenticationJsonInvalidOperationId, parts,
                 errors)) {
      return false;
    }
    auto operation =
        std::make_shared<const Bindings::Authentication::OperationInfo>(std::move(list));
    tables.Add(parts.first, parts.second, std::move(operation));
  }
  return true;
}

bool JsonMetadataParser::ParseServices(
    const JsonValue& value, const SchemeTable& schemes,
    Unclaimed<Bindings::Authentication::OperationInfo>& operations,
    Unclaimed<Bindings::Authentication::ServiceInfo>& services, Errors& errors) {
  TablesByOwner tables(services);
  for (const auto& member : JsonMembers(value)) {
    SchemeList list;
    if (!ParseSchemeList(member.value, schemes, list, errors)) return false;
    const std::string_view id = TextOf(member.name);
    Parts parts;
    if (!SplitId(id, MessageId::kAuthenticationJsonInvalidServiceId, parts, errors)) return false;
    auto service = std::make_shared<const Bindings::Authentication::ServiceInfo>(
        std::move(list), Claim(operations, id));
    tables.Add(parts.first, id, std::move(service));
  }
  return true;
}

bool JsonMetadataParser::ParsePackages(const JsonValue& value, const SchemeTable& schemes,
                                       Unclaimed<Bindings::Authentication::ServiceInfo>& services,
                                       Table<Bindings::Authentication::PackageInfo>& packages,
                                       Errors& errors) {
  for (const auto& member : JsonMembers(value)) {
    SchemeList list;
    if (!ParseSchemeList(member.value, schemes, list, errors)) return false;
    std::string name = ValToString(member.name);
    auto package = std::make_shared<const Bindings::Authentication::PackageInfo>(
        std::move(list), Claim(services, name));
    // Intended(auth-repeated-package): the last one is kept, and the first one took the services.
    packages.insert_or_assign(std::move(name), std::move(package));
  }
  return true;
}

bool JsonMetadataParser::CreateServicesFromOperations(
    Unclaimed<Bindings::Authentication::OperationInfo>& operations,
    Unclaimed<Bindings::Authentication::ServiceInfo>& services, Errors& errors) {
  TablesByOwner tables(services);
  while (!operations.empty()) {
    auto taken = operations.extract(operations.begin());
    const std::string& id = taken.key();
    Parts parts;
    if (!SplitId(id, MessageId::kAuthenticationJsonInvalidServiceId, parts, errors)) return false;
    auto service = std::make_shared<const Bindings::Authentication::ServiceInfo>(
        SchemeList(), std::move(taken.mapped()));
    tables.Add(parts.first, id, std::move(service));
  }
  return true;
}

bool JsonMetadataParser::CreatePackagesFromServices(
    Unclaimed<Bindings::Authentication::ServiceInfo>& services,
    Table<Bindings::Authentication::PackageInfo>& packages) {
  while (!services.empty()) {
    auto taken = services.extract(services.begin());
    auto package = std::make_shared<const Bindings::Authentication::PackageInfo>(
        SchemeList(), std::move(taken.mapped()));
    packages.insert_or_assign(std::move(taken.key()), std::move(package));
  }
  return true;
}

std::pair<std::string, std::string> JsonMetadataParser::SplitFqdn(const std::string& fqdn) {
  const auto [owner, name] = Split(fqdn);
  return {std::string(owner), std::string(name)};
}

}  // namespace Zelk::Provider::Metadata::Authentication
