#include "analysis/reader.h"

#include <gtest/gtest.h>

#include "analysis/compared.h"
#include "analysis/hint.h"

using Zelk::Analysis::Document;
using Zelk::Analysis::Extent;
using Zelk::Analysis::Format;
using Zelk::Analysis::Problem;
using Zelk::Analysis::Read;
using Zelk::Analysis::Reading;

namespace {

/// The messages of the library, each with its place.
std::vector<std::string> Reported(const Document& document, const Reading& reading) {
  std::vector<std::string> texts;
  for (const Problem& problem : reading.problems) {
    if (problem.is_further) continue;
    texts.push_back(std::string(problem.message_id) + " " + problem.argument + " at " +
                    document.Pointer(problem.node));
  }
  return texts;
}

}  // namespace

TEST(Reader, WholeFileHasTheMessagesOfTheLibraryAmongItsProblems) {
  const std::pair<const char*, const Format*> rows[] = {
      {"metamodel_parser", &Zelk::Analysis::kMetamodelFormat},
      {"authentication_parser", &Zelk::Analysis::kAuthenticationFormat},
      {"cli_parser", &Zelk::Analysis::kCliFormat},
  };
  std::size_t further = 0;
  for (const auto& [corpus, format] : rows) {
    for (const std::string& text : Zelk::Testing::Corpus(corpus)) {
      const Document document(text);
      if (!document.IsJson()) continue;
      const Reading first = Read(document, *format);
      const Reading whole = Read(document, *format, Extent::kWholeFile);
      EXPECT_EQ(first.loads, whole.loads) << text;
      EXPECT_EQ(Reported(document, first), Reported(document, whole)) << text;
      further += whole.problems.size() - first.problems.size();
      for (const Problem& problem : whole.problems) HintOf(document, problem);
    }
  }
  EXPECT_GT(further, 30U);
}
