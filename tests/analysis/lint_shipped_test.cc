#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/linted.h"
#include "support/file_text.h"
#include "support/source_dir.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to lint

namespace {

/// About a service whose name has one part more than its package.
std::string Nested(const std::string& domain, const std::string& service, const std::string& name) {
  const std::string package = "com.orvane.zelk.metadata." + domain;
  const std::string full_name = package + "." + service + "." + name;
  return "note service:" + full_name + ": the service '" + full_name +
         "' is listed in the package '" + package + "." + service + "', but is in '" + package +
         "'";
}

}  // namespace

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
          "'com.orvane.zelk.metadata.cli.source'",
          "note authentication: the service 'com.orvane.zelk.session' is not loaded",
          "note authentication: the service 'com.orvane.zelk.session.administrator' is not loaded",
          Nested("metamodel", "resource", "model"), Nested("metamodel", "service", "operation"),
          Nested("metamodel", "service", "hidden"),
          Nested("authentication", "service", "operation")));
}
