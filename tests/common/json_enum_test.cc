#include "common/json/json_enum.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/metamodel/enumerations.h>

#include "support/json_text.h"
#include "support/message_texts.h"

namespace Zelk::Provider::Metadata {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
using Bindings::Metamodel::GenericInstantiationEnumerations::GenericType;
using Bindings::Metamodel::TypeEnumerations::BuiltinType;
using Bindings::Metamodel::TypeEnumerations::Category;
using Testing::InvalidEnumValue;
using Testing::Json;
using Testing::Lines;
using Testing::MessageTexts;

TEST(ToUpper, ChangesLowerCaseLettersOnly) {
  EXPECT_EQ(ToUpper("string"), "STRING");
  EXPECT_EQ(ToUpper("dAtE_tImE"), "DATE_TIME");
  EXPECT_EQ(ToUpper("A-1 .\t"), "A-1 .\t");
  EXPECT_EQ(ToUpper(""), "");
}

TEST(ToUpper, KeepsZeroBytesAndBytesBeyondAscii) {
  EXPECT_EQ(ToUpper(std::string("a\0b", 3)), std::string("A\0B", 3));
  EXPECT_EQ(ToUpper("\xc3\xa4\xff"), "\xc3\xa4\xff");
}

/// The texts of an enumeration, each at its value.
template <typename E>
struct Texts;

template <>
struct Texts<Category> {
  static std::vector<std::string> Get() { return {"BUILTIN", "USER_DEFINED", "GENERIC"}; }
};

template <>
struct Texts<BuiltinType> {
  static std::vector<std::string> Get() {
    return {"VOID",   "BOOLEAN",   "LONG", "DOUBLE", "STRING",    "BINARY",
            "SECRET", "DATE_TIME", "ID",   "URI",    "ANY_ERROR", "DYNAMIC_STRUCTURE",
            "OPAQUE"};
  }
};

template <>
struct Texts<GenericType> {
  static std::vector<std::string> Get() { return {"LIST", "MAP", "OPTIONAL", "SET"}; }
};

template <>
struct Texts<Bindings::Metamodel::StructureInfoEnumerations::Type> {
  static std::vector<std::string> Get() { return {"STRUCTURE", "ERROR"}; }
};

template <>
struct Texts<Bindings::Metamodel::ConstantValueEnumerations::Category> {
  static std::vector<std::string> Get() { return {"PRIMITIVE", "LIST"}; }
};

template <typename E>
class EnumConverterOf : public testing::Test {};

using FileEnumerations = testing::Types<Category, BuiltinType, GenericType,
                                        Bindings::Metamodel::StructureInfoEnumerations::Type,
                                        Bindings::Metamodel::ConstantValueEnumerations::Category>;
TYPED_TEST_SUITE(EnumConverterOf, FileEnumerations);

TYPED_TEST(EnumConverterOf, IgnoresCase) {
  const auto texts = Texts<TypeParam>::Get();
  for (std::size_t value = 0; value < texts.size(); ++value) {
    const std::string& upper = texts[value];
    std::string lower = upper;
    for (char& letter : lower) letter = static_cast<char>(std::tolower(letter));
    const std::string mixed = upper.substr(0, 1) + lower.substr(1);
    for (const auto& text : {upper, lower, mixed}) {
      const auto converted = EnumConverter::Convert<TypeParam>(text);
      EXPECT_EQ(converted.Value(), static_cast<int>(value)) << text;
      EXPECT_EQ(converted.Text(), "") << text;
    }
  }
}

TYPED_TEST(EnumConverterOf, KeepsAnUnknownTextInUpperCase) {
  const auto converted = EnumConverter::Convert<TypeParam>("Foo bar");
  EXPECT_EQ(converted.Value(), static_cast<int>(Texts<TypeParam>::Get().size()));
  EXPECT_EQ(converted.Text(), "FOO BAR");
}

TYPED_TEST(EnumConverterOf, MatchesWholeTextsOnly) {
  const std::string text = Texts<TypeParam>::Get().front();
  for (const auto& other : {text + " ", " " + text, text + '\0', text.substr(1), std::string()}) {
    const auto converted = EnumConverter::Convert<TypeParam>(other);
    EXPECT_EQ(converted.Value(), TypeParam::UNKNOWN) << other;
    EXPECT_EQ(converted.Text(), other);
  }
}

TYPED_TEST(EnumConverterOf, IsUnknownByDefault) {
  EXPECT_EQ(TypeParam().Value(), static_cast<int>(Texts<TypeParam>::Get().size()));
}

TEST(CheckEnum, AcceptsAKnownValueSilently) {
  Errors errors;
  EXPECT_TRUE(CheckEnum(GenericType(GenericType::LIST), "foo", errors));
  EXPECT_TRUE(CheckEnum(GenericType(GenericType::SET), "foo", errors));
  EXPECT_EQ(MessageTexts(errors), Lines());
}

TEST(CheckEnum, ReportsAnUnknownValueByTheKey) {
  Errors errors;
  EXPECT_FALSE(CheckEnum(GenericType::Unknown("BAR"), "foo", errors));
  EXPECT_EQ(MessageTexts(errors), Lines{InvalidEnumValue("foo")});
}

TEST(ParseEnum, ReadsAJsonString) {
  Errors errors;
  GenericType result;
  EXPECT_TRUE(ParseEnum(Json(R"("optional")"), "foo", result, errors));
  EXPECT_EQ(result, GenericType::OPTIONAL);
  EXPECT_EQ(MessageTexts(errors), Lines());
}

TEST(ParseEnum, ReportsAnUnknownTextOnceByTheKey) {
  for (const auto* json : {R"("bar")", R"("")", R"("list ")", R"("list\u0000")"}) {
    Errors errors;
    GenericType result;
    EXPECT_FALSE(ParseEnum(Json(json), "foo", result, errors)) << json;
    EXPECT_EQ(result.Value(), GenericType::UNKNOWN) << json;
    EXPECT_EQ(MessageTexts(errors), Lines{InvalidEnumValue("foo")}) << json;
  }
}

TEST(ParseEnum, AcceptsNoAlias) {
  Errors errors;
  Category category;
  BuiltinType type;
  EXPECT_FALSE(ParseEnum(Json(R"("PRIMITIVE")"), "foo", category, errors));
  EXPECT_FALSE(ParseEnum(Json(R"("EXCEPTION")"), "bar", type, errors));
  EXPECT_EQ(MessageTexts(errors), (Lines{InvalidEnumValue("foo"), InvalidEnumValue("bar")}));
}

TEST(ParseAliasedEnum, AcceptsTheAliasInAnyCase) {
  for (const auto* json : {R"("ALIAS")", R"("alias")", R"("aLiAs")", R"("map")", R"("MAP")"}) {
    Errors errors;
    GenericType result;
    EXPECT_TRUE(ParseAliasedEnum(Json(json), "foo", "ALIAS", GenericType::MAP, result, errors))
        << json;
    EXPECT_EQ(result, GenericType::MAP) << json;
    EXPECT_EQ(MessageTexts(errors), Lines()) << json;
  }
}

TEST(ParseAliasedEnum, AcceptsTheOtherTexts) {
  Errors errors;
  GenericType result;
  EXPECT_TRUE(ParseAliasedEnum(Json(R"("Set")"), "foo", "ALIAS", GenericType::MAP, result, errors));
  EXPECT_EQ(result, GenericType::SET);
}

TEST(ParseAliasedEnum, ReportsAnUnknownTextOnce) {
  for (const auto* json : {R"("ALIAS ")", R"("ALIA")", R"("ALIAS\u0000")", R"("bar")"}) {
    Errors errors;
    GenericType result;
    EXPECT_FALSE(ParseAliasedEnum(Json(json), "foo", "ALIAS", GenericType::MAP, result, errors))
        << json;
    EXPECT_EQ(MessageTexts(errors), Lines{InvalidEnumValue("foo")}) << json;
  }
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
