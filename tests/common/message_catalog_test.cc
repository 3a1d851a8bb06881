#include "common/messages/message_catalog.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/error/error.h>

#include "support/file_text.h"
#include "support/source_dir.h"

namespace Zelk::Provider::Metadata {
namespace {

using Arguments = std::list<std::string>;

struct Row {
  std::string id;
  std::string text;
};

const std::vector<Row> kRows = {
    {"zelk.metada.cli.namespace.not.found", "Cli namespace not found: %1%"},
    {"zelk.metada.cli.command.not.found", "Cli command not found: %1%"},
    {"zelk.metada.cli.source.not.found", "Cli source not found: %1%"},
    {"zelk.metada.cli.source.file.not.found", "Cli source file not found: %1%"},
    {"zelk.metada.cli.source.exists", "Cli source already exists: %1%"},
    {"zelk.metadata.cli.parse.error", "Cli source file parse error : %1% at %2%"},
    {"zelk.metadata.json.invalid.field", "Json parse invalid field: %1%"},
    {"zelk.metadata.json.invalid.node.type", "Json parse invalid node type: %1%"},
    {"zelk.metadata.json.invalid.enum.value", "Json parse invalid enum value: %1%"},
    {"zelk.metadata.json.missing.field", "Json parse missing field: %1%"},
    {"zelk.metada.metamodel.source.not.found", "Metamodel source not found: %1%"},
    {"zelk.metada.metamodel.source.file.not.found", "Metamodel source file not found: %1%"},
    {"zelk.metada.metamodel.source.exists", "Metamodel source already exists: %1%"},
    {"zelk.metadata.metamodel.parse.error", "Metamodel source file parse error : %1% at %2%"},
    {"zelk.metada.metamodel.component.not.found", "Metamodel component not found: %1%"},
    {"zelk.metada.metamodel.package.not.found", "Metamodel package not found: %1%"},
    {"zelk.metada.metamodel.service.not.found", "Metamodel service not found: %1%"},
    {"zelk.metada.metamodel.operation.not.found", "Metamodel operation not found: %1%[%2%]"},
    {"zelk.metada.metamodel.structure.not.found", "Metamodel structure not found: %1%"},
    {"zelk.metada.metamodel.resource.not.found", "Metamodel resource not found: %1%"},
    {"zelk.metada.metamodel.enumeration.not.found", "Metamodel enumeration not found: %1%"},
    {"zelk.metada.authentication.source.not.found", "Authentication source not found: %1%"},
    {"zelk.metada.authentication.source.file.not.found",
     "Authentication source file not found: %1%"},
    {"zelk.metada.authentication.source.exists", "Authentication source already exists: %1%"},
    {"zelk.metadata.authentication.parse.error",
     "Authentication source file parse error : %1% at %2%"},
    {"zelk.metada.authentication.component.not.found", "Authentication component not found: %1%"},
    {"zelk.metada.authentication.package.not.found", "Authentication package not found: %1%"},
    {"zelk.metada.authentication.service.not.found", "Authentication service not found: %1%"},
    {"zelk.metada.authentication.operation.not.found",
     "Authentication operation not found: %1%[%2%]"},
    {"zelk.metada.authentication.invalid.service.id", "Authentication invalid service id: %1%"},
    {"zelk.metada.authentication.invalid.operation.id", "Authentication invalid operation id: %1%"},
    {"zelk.metadata.authentication.json.unknown.schema.name",
     "Authentication unknown schema name: %1%"},
};

std::string TextOf(const std::string& id) {
  return CatalogMessage::DefaultMessageForId(id);
}

TEST(MessageCatalog, HasTheTextOfEveryId) {
  EXPECT_EQ(kRows.size(), 32U);
  for (const auto& row : kRows) {
    EXPECT_EQ(TextOf(row.id), row.text) << row.id;
  }
}

TEST(MessageCatalog, HasExactlyTheseRowsInOrder) {
  const CatalogRow* row = kCatalog;
  for (const auto& expected : kRows) {
    ASSERT_NE(row->id, nullptr) << expected.id;
    EXPECT_EQ(row->id, expected.id);
    EXPECT_EQ(row->text, expected.text);
    ++row;
  }
  EXPECT_EQ(row->id, nullptr);
}

TEST(MessageCatalog, IsDocumented) {
  const std::string page = Testing::FileText(ZELK_SOURCE_DIR "/docs/messages.md");
  for (const auto& row : kRows) {
    EXPECT_THAT(page, testing::HasSubstr("\n| `" + row.id + "` | " + row.text + " | ")) << row.id;
  }
}

TEST(MessageCatalog, HasNoTextForIdsWithoutARow) {
  for (const auto* id :
       {"zelk.metadata.authentication.json.invalid.operation.id",
        "zelk.metadata.authentication.json.invalid.service.id",
        "zelk.metadata.cli.json.invalid.field", "zelk.metadata.cli.json.invalid.node.type"}) {
    EXPECT_EQ(TextOf(id), "Unknown message.") << id;
  }
}

TEST(MessageCatalog, HasNoTextForTheEmptyId) {
  EXPECT_EQ(TextOf(""), "Unknown message.");
}

TEST(MessageCatalog, IsCaseSensitive) {
  for (const auto& row : kRows) {
    std::string id = row.id;
    id.back() = static_cast<char>(std::toupper(id.back()));
    EXPECT_EQ(TextOf(id), "Unknown message.") << id;
  }
}

TEST(MessageCatalog, HasOneSpellingOfEachId) {
  const std::string shortened = "zelk.metada.";
  const std::string spelt_out = "zelk.metadata.";
  for (const auto& row : kRows) {
    const bool is_short = row.id.compare(0, shortened.size(), shortened) == 0;
    const std::string respelt = is_short ? spelt_out + row.id.substr(shortened.size())
                                         : shortened + row.id.substr(spelt_out.size());
    EXPECT_EQ(TextOf(respelt), "Unknown message.") << respelt;
  }
}

TEST(MessageCatalog, ComparesWholeIds) {
  for (const auto& row : kRows) {
    const std::string shorter = row.id.substr(0, row.id.size() - 1);
    EXPECT_EQ(TextOf(shorter), "Unknown message.") << shorter;
    EXPECT_EQ(TextOf(row.id + "x"), "Unknown message.") << row.id;
    EXPECT_EQ(TextOf(row.id + '\0'), "Unknown message.") << row.id;
  }
}

TEST(CatalogMessage, StartsWithoutArguments) {
  const CatalogMessage message("zelk.metadata.cli.parse.error");
  EXPECT_EQ(message.Id(), "zelk.metadata.cli.parse.error");
  EXPECT_EQ(message.DefaultText(), "Cli source file parse error : %1% at %2%");
  EXPECT_EQ(message.Arguments(), Arguments());
}

TEST(CatalogMessage, KeepsAnUnknownIdAsGiven) {
  const CatalogMessage message("foo.bar");
  EXPECT_EQ(message.Id(), "foo.bar");
  EXPECT_EQ(message.DefaultText(), "Unknown message.");
}

TEST(CatalogMessage, KeepsTheOrderOfItsArguments) {
  CatalogMessage message("zelk.metadata.metamodel.parse.error");
  message % std::string("a") % 7U;
  EXPECT_EQ(message.Arguments(), (Arguments{"a", "7"}));
  EXPECT_EQ(message.DefaultText(), "Metamodel source file parse error : %1% at %2%");
}

TEST(CatalogMessage, WritesNumbersAsPlainDigits) {
  CatalogMessage message("foo");
  message % std::uint64_t{0} % std::uint64_t{1234567} % std::numeric_limits<std::uint64_t>::max();
  EXPECT_EQ(message.Arguments(), (Arguments{"0", "1234567", "18446744073709551615"}));
}

TEST(CatalogMessage, WritesAnOptionalAfterASpaceOrAsTwoDashes) {
  CatalogMessage message("foo");
  message % boost::optional<std::string>("x") % boost::optional<std::string>() %
      boost::optional<std::string>("");
  EXPECT_EQ(message.Arguments(), (Arguments{" x", "--", " "}));
}

TEST(CatalogMessage, WritesAParseErrorCodeAsItsNumber) {
  CatalogMessage message("foo");
  message % rapidjson::kParseErrorNone % rapidjson::kParseErrorValueInvalid %
      rapidjson::kParseErrorUnspecificSyntaxError;
  EXPECT_EQ(message.Arguments(), (Arguments{"0", "3", "17"}));
}

TEST(CatalogMessage, KeepsEveryByteOfStringsLiteralsAndPointers) {
  const char* const name = "params";
  CatalogMessage message("foo");
  message % std::string("a\0b %1%", 7) % "name" % "packages" % "documentation" % name;
  EXPECT_EQ(message.Arguments(),
            (Arguments{std::string("a\0b %1%", 7), "name", "packages", "documentation", "params"}));
}

TEST(CatalogMessage, CopiesItsArguments) {
  CatalogMessage message("zelk.metadata.metamodel.parse.error");
  message % "foo";
  Errors errors{message};
  message % "bar";
  EXPECT_EQ(errors.front().Id(), "zelk.metadata.metamodel.parse.error");
  EXPECT_EQ(errors.front().DefaultText(), "Metamodel source file parse error : %1% at %2%");
  EXPECT_EQ(errors.front().Arguments(), Arguments{"foo"});
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
