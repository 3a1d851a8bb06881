#include <algorithm>
#include <regex>
#include <set>
#include <string>

#include <gmock/gmock.h>

#include "domains/table.h"
#include "explain/explanations.h"
#include "support/file_text.h"
#include "support/source_dir.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// What explain says is held to the library: its ids and texts to the documented catalog, and every
// example to what the services do with it.

using testing::HasSubstr;
using Zelk::Testing::FileText;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
using Zelk::Testing::Words;
using Zelk::Tool::Domain;
using Zelk::Tool::DomainRow;
using Zelk::Tool::Ids;
using Zelk::Tool::Kind;
using Zelk::Tool::ServiceError;
using Zelk::Tool::Explain::Example;
using Zelk::Tool::Explain::Explanation;
using Zelk::Tool::Explain::Explanations;

namespace {

bool IsReserved(const Explanation& explanation) {
  return explanation.example.command.empty() && explanation.example.create_in.empty();
}

std::unique_ptr<Domain> NewDomain(const std::string& name) {
  for (const DomainRow& row : Zelk::Tool::Domains()) {
    if (row.name == name) return row.make();
  }
  ADD_FAILURE() << "no domain " << name;
  return nullptr;
}

std::set<std::string> IdsOf(const std::optional<ServiceError>& error) {
  std::set<std::string> ids;
  if (!error) return ids;
  for (const auto& message : error->messages) ids.insert(message.id);
  return ids;
}

/// Asks the services what "get DOMAIN:KIND ID..." or "list DOMAIN:KIND ID..." asks them.
std::set<std::string> AskedFor(const std::vector<std::string>& words) {
  const std::size_t colon = words[1].find(':');
  const auto domain = NewDomain(words[1].substr(0, colon));
  const Ids ids(words.begin() + 2, words.end());
  for (const Kind& kind : domain->Kinds()) {
    if (kind.name != words[1].substr(colon + 1)) continue;
    return words[0] == "get" ? IdsOf(kind.get.call(ids).error) : IdsOf(kind.list.call(ids).error);
  }
  return {};
}

/// The ids in what the program prints: "[ID]", "[ID: ARGUMENT]".
std::set<std::string> PrintedIds(const std::string& text) {
  std::set<std::string> ids;
  const std::regex pattern(R"(\[(zelk\.[a-z.]+))");
  for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match) {
    ids.insert((*match)[1]);
  }
  return ids;
}

std::set<std::string> Provoked(const Example& example) {
  const TempFolder folder;
  if (!example.create_in.empty()) {
    return IdsOf(NewDomain(example.create_in)->CreateSource("a", folder.Path("nope.json")));
  }
  std::vector<std::string> words = Words(example.command);
  const bool asks = words[0] == "get" || (words[0] == "list" && example.file.empty());
  if (asks) return AskedFor(words);
  const std::string path = folder.Write("example.json", example.file);
  for (std::string& word : words) word = std::regex_replace(word, std::regex("FILE"), path);
  const ToolRun run = RunTool(words);
  return PrintedIds(run.out + run.err);
}

}  // namespace

TEST(Explain, ExamplesRaiseTheirMessages) {
  std::size_t provoked = 0;
  for (const Explanation& explanation : Explanations()) {
    if (IsReserved(explanation)) continue;
    EXPECT_EQ(Provoked(explanation.example).count(explanation.id), 1U) << explanation.id;
    ++provoked;
  }
  EXPECT_EQ(provoked, 32U);
}

TEST(Explain, MessagesAreThoseOfTheCatalog) {
  const std::string document = FileText(ZELK_SOURCE_DIR "/docs/messages.md");
  std::set<std::string> documented;
  const std::regex row(R"(\n\| `(zelk\.[a-z.]+)` \| ([^|]+) \|)");
  for (std::sregex_iterator match(document.begin(), document.end(), row), end; match != end;
       ++match) {
    documented.insert((*match)[1].str() + ": " + (*match)[2].str());
  }
  std::set<std::string> explained;
  for (const auto& explanation : Explanations()) {
    explained.insert(explanation.id + ": " + explanation.text);
  }
  EXPECT_EQ(explained, documented);
  EXPECT_EQ(Explanations().size(), 36U);
}

TEST(Explain, ReservedMessagesHaveNoExample) {
  std::set<std::string> reserved;
  for (const auto& explanation : Explanations()) {
    if (IsReserved(explanation)) reserved.insert(explanation.id);
  }
  EXPECT_EQ(reserved, (std::set<std::string>{"zelk.metadata.json.invalid.node.type",
                                             "zelk.metada.authentication.component.not.found",
                                             "zelk.metada.authentication.invalid.service.id",
                                             "zelk.metada.authentication.invalid.operation.id"}));
}

TEST(Explain, AllIdsAreListedWithTheirTexts) {
  std::string expected;
  for (const auto& explanation : Explanations()) {
    const bool has_text = explanation.text != "Unknown message.";
    const std::string first = explanation.meaning.substr(0, explanation.meaning.find(". ") + 1);
    expected += explanation.id + "\t" + (has_text ? explanation.text : first) + "\n";
  }
  const ToolRun run = RunTool({"explain"});
  EXPECT_EQ(run.out, expected);
  EXPECT_THAT(run.out, testing::Not(HasSubstr("Unknown message")));
  EXPECT_EQ(run.status, 0);
}

TEST(Explain, UnrelatedWordGetsNoSuggestion) {
  EXPECT_EQ(RunTool({"explain", "nope"}).err,
            "zelk-metadata: unknown message, rule or change 'nope'\n");
}

TEST(Explain, PageHasMeaningCauseExampleAndFix) {
  const ToolRun run = RunTool({"explain", "zelk.metadata.cli.json.invalid.node.type"});
  EXPECT_EQ(run.out, R"(zelk.metadata.cli.json.invalid.node.type
    Unknown message.

Means:
    The type of a node is neither namespace nor command. The argument is always
    type.

Usual cause:
    A misspelt word, or one in upper case.

Example:
    With this text in FILE:
        {"cli": [{"type": "Command"}]}
    zelk-metadata check FILE

Fix:
    Use one of the two words, in lower case.
)");
  EXPECT_EQ(run.status, 0);
}

TEST(Explain, UnknownIdGetsSuggestions) {
  const ToolRun run = RunTool({"explain", "zelk.metadata.json.missing.fiels"});
  EXPECT_EQ(run.err,
            "zelk-metadata: unknown message, rule or change 'zelk.metadata.json.missing.fiels'; "
            "did you mean "
            "zelk.metadata.json.missing.field?\n");
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.status, 3);
}

TEST(Explain, JsonOfAnExplanationIsAnArrayOfOne) {
  const ToolRun run = RunTool({"explain", "--json", "zelk.metadata.json.missing.field"});
  EXPECT_THAT(run.out, testing::StartsWith(R"({"version":1,"messages":[{"id":)"
                                           R"("zelk.metadata.json.missing.field","text":)"));
  EXPECT_THAT(run.out, HasSubstr(R"("command":"check FILE")"));
}

TEST(Explain, JsonOfAllExplanationsIsAnArray) {
  const ToolRun run = RunTool({"explain", "--json"});
  EXPECT_THAT(run.out, testing::StartsWith(R"({"version":1,"messages":[{"id":)"));
  for (const auto& explanation : Explanations()) {
    EXPECT_THAT(run.out, HasSubstr(R"({"id":")" + explanation.id + "\""));
  }
  EXPECT_EQ(run.status, 0);
}

TEST(Explain, ExampleMayBeACallOfAService) {
  EXPECT_THAT(RunTool({"explain", "zelk.metada.cli.source.file.not.found"}).out,
              HasSubstr("Example:\n"
                        "    SourceSvc.Create of cli, with a path that does not exist\n"));
}

TEST(Explain, PageOfAReservedMessageHasNoExample) {
  for (const auto& explanation : Explanations()) {
    const ToolRun run = RunTool({"explain", explanation.id});
    EXPECT_EQ(run.out.find("Example:") == std::string::npos, IsReserved(explanation))
        << explanation.id;
  }
}
