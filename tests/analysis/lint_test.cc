#include "analysis/lint/lint.h"

#include <set>

#include <gmock/gmock.h>

#include "analysis/lint/rule.h"

namespace Zelk::Analysis::Lint {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

File FileOf(const std::string& name, const std::string& text) {
  const auto document = std::make_shared<const Document>(text);
  for (const Domain domain : {Domain::kMetamodel, Domain::kAuthentication, Domain::kCli}) {
    const bool is_of = document->Find(kRootNode, FormatOf(domain).root_key) != kNoNode;
    if (is_of) return {name, domain, {name, document}};
  }
  throw std::invalid_argument(text);
}

/// Each finding as "RULE PATH".
std::vector<std::string> FoundIn(const Example& example) {
  std::vector<File> files;
  for (const std::string_view text : example.files) {
    if (!text.empty())
      files.push_back(FileOf("file" + std::to_string(files.size()), std::string(text)));
  }
  const Workspace workspace(std::move(files));
  std::vector<std::string> found;
  for (const Finding& finding : Lint(workspace, Rules()).findings) {
    found.push_back(finding.rule->id + (" " + PathOf(workspace, finding.place)));
  }
  return found;
}

TEST(Rules, EachExampleRaisesItsRuleOnceAndNoOther) {
  for (const Rule* rule : Rules()) {
    EXPECT_THAT(FoundIn(rule->example),
                ElementsAre(rule->id + (std::string(" ") + rule->example.element)))
        << rule->id;
  }
}

TEST(Rules, IdsAreUniqueAndFindable) {
  std::set<std::string_view> ids;
  for (const Rule* rule : Rules()) {
    EXPECT_TRUE(ids.insert(rule->id).second) << rule->id;
    EXPECT_EQ(FindRule(rule->id), rule);
  }
  EXPECT_EQ(FindRule("no-such-rule"), nullptr);
}

}  // namespace
}  // namespace Zelk::Analysis::Lint
