#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/linted.h"
#include "support/file_text.h"
#include "support/source_dir.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to lint

TEST(ShippedMetadata, HasNotesOnly) {
  std::vector<std::string> texts;
  for (const char* domain : {"metamodel", "authentication", "cli"}) {
    texts.push_back(
        FileText(std::string(ZELK_SOURCE_DIR "/metadata/") + domain + "/zelk-metadata.json"));
  }
  EXPECT_THAT(
      Found(Zelk::Analysis::Lint::DefaultRules(), texts),
      testing::UnorderedElementsAre(
          "note metamodel: the structure 'com.orvane.zelk.std.errors.not_found' is not loaded",
          "note metamodel: the structure 'com.orvane.zelk.std.errors.already_exists' is not loaded",
          "note metamodel: the structure 'com.orvane.zelk.std.errors.invalid_argument' is not "
          "loaded",
          "note metamodel: the structure 'com.orvane.zelk.std.errors.unsupported' is not loaded",
          "note metamodel: no structure is a model of the resource "
          "'com.orvane.zelk.metadata.metamodel.resource'",
          "note metamodel: no structure is a model of the resource "
          "'com.orvane.zelk.metadata.metamodel.source'",
          "note metamodel: no structure is a model of the resource "
          "'com.orvane.zelk.metadata.authentication.source'",
          "note metamodel: no structure is a model of the resource "
          "'com.orvane.zelk.metadata.cli.source'"));
}
