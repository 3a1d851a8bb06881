#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/linted.h"
#include "analysis/rewritten.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to lint

namespace {

using Zelk::Analysis::File;
using Zelk::Analysis::Lint::Example;
using Zelk::Analysis::Lint::Rules;

/// Rules with fingerprints, whatever the order of the findings.
using Identities = std::multiset<std::pair<std::string, std::uint64_t>>;

Identities IdentitiesOf(std::vector<File> files) {
  const Zelk::Analysis::Lint::Workspace workspace(std::move(files));
  Identities identities;
  for (const auto& finding : Zelk::Analysis::Lint::Lint(workspace, Rules()).findings) {
    identities.emplace(finding.rule->id, finding.fingerprint);
  }
  return identities;
}

Identities IdentitiesOf(const std::vector<std::string>& texts) {
  return IdentitiesOf(FilesOf(texts));
}

std::vector<std::string> TextsOf(const Example& example) {
  std::vector<std::string> texts;
  for (const std::string_view text : example.files) {
    if (!text.empty()) texts.emplace_back(text);
  }
  return texts;
}

constexpr char kNode[] = R"({"type": "namespace", "path": "", "name": "acme",
"description": "Machines."})";
constexpr char kStart[] = R"({"type": "command", "path": "acme", "name": "start",
"description": "", "owner": 1, "node_metadata": {"service_id": "a.b", "operation_id": "c",
"formatter": "tabel", "options": [
{"long_option": "-x", "field_name": "f", "description": "", "type": "STRING", "generic": "LIST"},
{"long_option": "-x", "field_name": "f", "description": "", "type": "STRING", "generic": "LIST"}]}})";
constexpr char kStop[] = R"({"type": "command", "path": "acme", "name": "stop ",
"description": "stop", "node_metadata": {"service_id": "a.b", "operation_id": "d"}})";

std::string FileWith(const std::string& nodes) {
  return R"({"cli": [)" + nodes + "]}";
}

}  // namespace

TEST(Fingerprints, StayTheSameInFilesThatAreIndentedAndReordered) {
  for (const auto* rule : Rules()) {
    const std::string id = rule->id;
    // About the order of keys, and about text that is not JSON.
    if (id == "duplicate-key" || id == "text-after-zero-byte") continue;
    const std::vector<std::string> texts = TextsOf(rule->example);
    std::vector<std::string> rewritten;
    for (const std::string& text : texts) rewritten.push_back(Rewritten(text));
    EXPECT_EQ(IdentitiesOf(rewritten), IdentitiesOf(texts)) << id;
  }
}

TEST(Fingerprints, StayTheSameInFilesThatAreMoved) {
  for (const auto* rule : Rules()) {
    const std::vector<std::string> texts = TextsOf(rule->example);
    std::vector<File> moved = FilesOf(texts);
    for (File& file : moved) file.name = file.source.id = "other/folder/" + file.name;
    EXPECT_EQ(IdentitiesOf(std::move(moved)), IdentitiesOf(texts)) << rule->id;
  }
}

TEST(Fingerprints, StayTheSameInAFileThatIsSplit) {
  const std::string comma = ",";
  const Identities whole = IdentitiesOf({FileWith(kNode + comma + kStart + comma + kStop)});
  EXPECT_GE(whole.size(), 8U);
  EXPECT_EQ(IdentitiesOf({FileWith(kNode + comma + kStart), FileWith(kNode + comma + kStop)}),
            whole);
  EXPECT_EQ(IdentitiesOf({FileWith(kNode + comma + kStop), FileWith(kNode + comma + kStart)}),
            whole);
}

TEST(Fingerprints, DifferBetweenFindings) {
  const Identities all = IdentitiesOf({FileWith(kStart), FileWith(kStop)});
  std::set<std::uint64_t> fingerprints;
  for (const auto& [rule, fingerprint] : all) fingerprints.insert(fingerprint);
  EXPECT_EQ(fingerprints.size(), all.size());
}
