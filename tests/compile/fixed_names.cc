// Names that the behaviour fixes, misspelt ones too. Each is named once; the compiler finds it.

#include "authentication/json_metadata_container.h"
#include "authentication/json_metadata_parser.h"
#include "authentication/source_data.h"
#include "cli/json_metadata_container.h"
#include "cli/metadata_parser.h"
#include "cli/queries.cc"  // NOLINT(bugprone-suspicious-include): PushIf is local to it
#include "cli/source_data.h"
#include "common/json/json_enum.h"
#include "common/json/json_lookup.h"
#include "common/json/json_member.h"
#include "common/messages/message_catalog.h"
#include "common/sources/source_registry.h"
#include "metamodel/json_metadata_container.h"
#include "metamodel/json_metadata_parser.h"
#include "metamodel/source_data.h"
#include "metamodel/walkers.h"

namespace Metadata = ::Zelk::Provider::Metadata;

namespace CommonNames {

using Metadata::CheckEnum;
using Metadata::FindMember;
using Metadata::JsonArrayMember;
using Metadata::JsonMember;
using Metadata::JsonObjectMember;
using Metadata::JsonOptArrayMember;
using Metadata::JsonOptMember;
using Metadata::JsonOptObjectMember;
using Metadata::JsonParseArray;
using Metadata::JsonParseString;
using Metadata::LoadSource;
using Metadata::MetadataSvc;
using Metadata::ParseEnum;
using Metadata::ParseString;
using Metadata::ValToString;

struct EnumConverter : Metadata::EnumConverter {
  using Metadata::EnumConverter::Convert;
};

}  // namespace CommonNames

namespace MetamodelNames {

using Metadata::Assign;
using Metadata::WalkComponents;
using Metadata::WalkOperations;
using Metadata::WalkPackages;
using Metadata::WalkServices;
using Metadata::Metamodel::JsonMetadataContainer;
using Metadata::Metamodel::PushName;
using Metadata::Metamodel::PushSelf;
using Metadata::Metamodel::reload;
using Metadata::Metamodel::SelectEnumeration;
using Metadata::Metamodel::WalkEnumerations;
using Metadata::Metamodel::WalkResources;
using Metadata::Metamodel::WalkStructures;

struct SourceData : Metadata::Metamodel::SourceData {
  using Metadata::Metamodel::SourceData::RegisterComponentNode;
  using Metadata::Metamodel::SourceData::RegisterModel;
  using Metadata::Metamodel::SourceData::RegisterResoure;
};

using Parser = Metadata::Metamodel::JsonMetadataParser;

struct JsonMetadataParser : Parser {
  using Parser::GetBuildinType;
  using Parser::GetGenericType;
  using Parser::GetUserDefinedType;
  using Parser::HandleModelInfo;
  using Parser::HandleResource;
  using Parser::LoadMetadata;
  using Parser::ParseBinEnum;
  using Parser::ParseCategoryEnum;
  using Parser::ParseComponent;
  using Parser::ParseConstant;
  using Parser::ParseConstantPrimitiveValue;
  using Parser::ParseConstantType;
  using Parser::ParseElementMap;
  using Parser::ParseEnumeration;
  using Parser::ParseEnumValues;
  using Parser::ParseError;
  using Parser::ParseFieldInfo;
  using Parser::ParseGenericType;
  using Parser::ParseMetadata;
  using Parser::ParseMetamodel;
  using Parser::ParseOperation;
  using Parser::ParsePackage;
  using Parser::ParsePrimitiveValue;
  using Parser::ParseResult;
  using Parser::ParseService;
  using Parser::ParseStringElementValue;
  using Parser::ParseStructure;
  using Parser::ParseType;
  using Parser::ParseUserDefinedType;
  using Parser::RegisterCallbacks;
};

}  // namespace MetamodelNames

namespace AuthenticationNames {

using Metadata::Authentication::JsonMetadataContainer;
using Metadata::Authentication::reload;

struct SourceData : Metadata::Authentication::SourceData {
  using Metadata::Authentication::SourceData::RegisterComponentNode;
};

using Parser = Metadata::Authentication::JsonMetadataParser;

struct JsonMetadataParser : Parser {
  using Parser::CreatePackagesFromServices;
  using Parser::CreateServicesFromOperations;
  using Parser::LoadMetadata;
  using Parser::ParseAuthentication;
  using Parser::ParseAuthInfo;
  using Parser::ParseComponent;
  using Parser::ParseOperations;
  using Parser::ParsePackages;
  using Parser::ParseSchemeList;
  using Parser::ParseSchemes;
  using Parser::ParseSchemeTypeEnum;
  using Parser::ParseServices;
  using Parser::RegisterCallbacks;
  using Parser::SplitFqdn;
};

}  // namespace AuthenticationNames

namespace CliNames {

using Metadata::Cli::JsonMetadataContainer;
using Metadata::Cli::PushIf;
using Metadata::Cli::reload;

struct SourceData : Metadata::Cli::SourceData {
  using Metadata::Cli::SourceData::RegisterNsNode;
  using Metadata::Cli::SourceData::RegisterWithParent;
  using Metadata::Cli::SourceData::Str2NsId;
};

using Parser = Metadata::Cli::MetadataParser;

struct MetadataParser : Parser {
  using Parser::FillMaps;
  using Parser::LoadMetadata;
  using Parser::ParseCommandMetadata;
  using Parser::ParseCommandNode;
  using Parser::ParseFieldInfo;
  using Parser::ParseInfoNode;
  using Parser::ParseMemberInfo;
  using Parser::ParseNode;
  using Parser::ParseOptionInfo;
};

}  // namespace CliNames
