#include "analysis/schema/schema.h"

#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tool/tool_run.h"

using testing::HasSubstr;
using Zelk::Testing::RunLine;
using Zelk::Testing::ToolRun;

TEST(SchemaCommand, PrintsADifferentSchemaForEachChoice) {
  std::set<std::string> schemas;
  for (const std::string& name : Zelk::Analysis::Schema::Names()) {
    for (const char* kind : {"", " --accepts"}) {
      for (const char* draft : {"", " --draft 2020-12"}) {
        const ToolRun run = RunLine("schema " + name + kind + draft);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_THAT(run.out, HasSubstr("urn:zelk:metadata:schema:" + name + ":2:"));
        schemas.insert(run.out);
      }
    }
  }
  // Of the project file there is one kind.
  EXPECT_EQ(schemas.size(), 4U * 4U + 2U);
}

TEST(SchemaCommand, PrintsTheOneOfAllFilesForDraft7ByDefault) {
  EXPECT_EQ(RunLine("schema").out, RunLine("schema all --draft 7").out);
}

TEST(SchemaCommand, UnknownWordsAreWrongUsage) {
  const ToolRun schema = RunLine("schema metamodell");
  EXPECT_EQ(schema.status, 2);
  EXPECT_EQ(schema.out, "");
  EXPECT_EQ(schema.err,
            "zelk-metadata: unknown schema 'metamodell'; the schemas are metamodel, "
            "authentication, cli, all, project; did you mean metamodel?\n");
  const ToolRun draft = RunLine("schema cli --draft 8");
  EXPECT_EQ(draft.status, 2);
  EXPECT_EQ(draft.err, "zelk-metadata: unknown draft '8'; the drafts are 7, 2020-12\n");
}
