#include <array>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/choices.h"
#include "analysis/diffed.h"
#include "analysis/generated_metamodel.h"
#include "analysis/mirrored.h"
#include "analysis/rewritten.h"

// What holds for all versions of all files.

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to compare

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Zelk::Analysis::Document;
using Zelk::Analysis::Domain;
using Zelk::Analysis::ElementId;
using Zelk::Analysis::ElementKind;
using Zelk::Analysis::File;
using Zelk::Analysis::kNoNode;
using Zelk::Analysis::Model;
using Zelk::Analysis::NodeId;
using Zelk::Analysis::Workspace;
using Zelk::Analysis::Diff::Compare;
using Zelk::Analysis::Diff::Kind;
using Zelk::Analysis::Diff::Kinds;
using Zelk::Analysis::Diff::Result;

/// The library's own metadata.
std::string Shipped(const std::string& domain) {
  return FileText(ZELK_SOURCE_DIR "/metadata/" + domain + "/zelk-metadata.json");
}

/// With a blank after each bracket, colon and comma, so that no object has the same text.
std::string Spaced(const std::string& text) {
  std::string spaced;
  bool is_quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    spaced += text[i];
    if (is_quoted && text[i] == '\\' && i + 1 < text.size()) {
      spaced += text[++i];
    } else if (text[i] == '"') {
      is_quoted = !is_quoted;
    } else if (!is_quoted && std::string_view("{[:,").find(text[i]) != std::string_view::npos) {
      spaced += ' ';
    }
  }
  return spaced;
}

/// The ids of what changed, but for the one that says that only the formatting did.
std::vector<std::string> IdsOf(const Result& result) {
  std::vector<std::string> ids;
  for (const Change& change : result.changes) {
    const std::string id = change.kind->id;
    if (id != "formatting-only") ids.push_back(id + " " + change.element);
  }
  return ids;
}

std::vector<std::string> IdsOf(const std::vector<std::string>& old_texts,
                               const std::vector<std::string>& new_texts) {
  std::vector<std::string> ids;
  LookAtChanges(old_texts, new_texts, [&](const Result& result) { ids = IdsOf(result); });
  return ids;
}

std::vector<std::string> TextsOf(const Zelk::Analysis::Diff::ExampleFiles& files) {
  std::vector<std::string> texts;
  for (const std::string_view text : files) {
    if (!text.empty()) texts.emplace_back(text);
  }
  return texts;
}

/// The text with other bytes in place of the node.
std::string With(const Document& document, NodeId node, const std::string& replacement) {
  std::string text(document.Text());
  return text.replace(document[node].begin, document[node].end - document[node].begin, replacement);
}

/// The text without an element of an array.
std::string Without(const Document& document, NodeId node) {
  std::string text(document.Text());
  std::size_t begin = document[node].begin;
  std::size_t end = document[node].end;
  const std::size_t next = text.find_first_not_of(" \n", end);
  const std::size_t last = text.find_last_not_of(" \n", begin - 1);
  if (text[next] == ',') {
    end = next + 1;
  } else if (text[last] == ',') {
    begin = last;
  }
  return text.erase(begin, end - begin);
}

/// Whether it is a consequence of what happened to an annotation or to what has one.
bool IsConsequence(const Change& change) {
  const std::string about = change.kind->about;
  return about == "resource" || about == "model" || about == "model key";
}

/// Edits the shipped file in random places, and looks at what is reported.
class RandomEdits : public testing::Test {
 protected:
  RandomEdits() {
    for (ElementId id = 0; id < Old().Size(); ++id) {
      if (Old()[id].kind != ElementKind::kAnnotation) ids_.push_back(id);
    }
  }

  const Model& Old() const { return old_.ModelOf(Domain::kMetamodel); }

  /// Some elements that have the key.
  std::vector<ElementId> Some(const char* key) {
    constexpr std::size_t kMost = 60;
    std::vector<ElementId> some;
    while (some.size() < kMost) {
      const ElementId id = ids_[choices_.Below(ids_.size())];
      if (Old().DocumentOf(id).Find(Old()[id].node, key) != kNoNode) some.push_back(id);
    }
    return some;
  }

  void ExpectChange(ElementId id, const std::string& text, const std::string& action) {
    const Workspace new_version(FilesOf({text}));
    std::vector<std::string> elements;
    for (const Change& change : Compare(old_, new_version).changes) {
      if (IsConsequence(change)) continue;
      elements.push_back(Word(change.kind->action) + (" " + change.element));
    }
    EXPECT_THAT(elements, ElementsAre(action + " " + Old().Path(id)));
  }

 private:
  Workspace old_{FilesOf({Shipped("metamodel")})};
  Choices choices_{20240229};
  std::vector<ElementId> ids_;
};

}  // namespace

TEST(Changes, DoNotCountBlanks) {
  for (const char* domain : {"metamodel", "authentication", "cli"}) {
    const std::string text = Shipped(domain);
    EXPECT_THAT(IdsOf({text}, {Spaced(text)}), IsEmpty()) << domain;
  }
  for (const char* corpus : {"metamodel_parser", "authentication_parser", "cli_parser"}) {
    for (const std::string& text : Corpus(corpus)) {
      if (!Document(text).IsJson() || !Document(Spaced(text)).IsJson()) continue;
      EXPECT_THAT(IdsOf({text}, {Spaced(text)}), IsEmpty()) << text;
    }
  }
}

TEST(Changes, DoNotCountTheOrderOfKeys) {
  for (const char* domain : {"metamodel", "authentication", "cli"}) {
    const std::string text = Shipped(domain);
    EXPECT_THAT(IdsOf({text}, {Rewritten(text)}), IsEmpty()) << domain;
  }
  for (const Kind* kind : Kinds()) {
    for (const std::string_view text : kind->example.new_files) {
      if (text.empty()) continue;
      EXPECT_THAT(IdsOf({std::string(text)}, {Rewritten(std::string(text))}), IsEmpty()) << text;
    }
  }
}

TEST(Changes, DoNotCountWhereFilesAre) {
  std::vector<std::string> texts;
  for (const char* domain : {"metamodel", "authentication", "cli"}) {
    texts.push_back(Shipped(domain));
  }
  std::vector<File> moved = FilesOf(texts);
  for (File& file : moved) file.name = file.source.id = "other/" + file.name;
  const Result result = Compare(Workspace(FilesOf(texts)), Workspace(std::move(moved)));
  EXPECT_TRUE(result.changes.empty());
  EXPECT_FALSE(result.fingerprints_differ);
}

TEST(Changes, AreMirroredByThoseInTheOtherDirection) {
  Choices choices(20240229);
  std::size_t changed = 0;
  for (int i = 0; i < 100 && !HasFailure(); ++i) {
    const std::vector<std::string> old_texts{Generated::MetamodelText(choices),
                                             Generated::MetamodelText(choices)};
    const std::vector<std::string> new_texts{Generated::MetamodelText(choices), old_texts[1]};
    const Tally tally = TallyOf(old_texts, new_texts, false);
    changed += tally.size();
    EXPECT_EQ(TallyOf(new_texts, old_texts, true), tally) << old_texts[0] << '\n' << new_texts[0];
  }
  EXPECT_GT(changed, 1000U);
}

TEST(Changes, OfExamplesAreMirroredByThoseInTheOtherDirection) {
  for (const Kind* kind : Kinds()) {
    const std::vector<std::string> old_texts = TextsOf(kind->example.old_files);
    const std::vector<std::string> new_texts = TextsOf(kind->example.new_files);
    EXPECT_EQ(TallyOf(new_texts, old_texts, true), TallyOf(old_texts, new_texts, false))
        << kind->id;
  }
}

TEST_F(RandomEdits, OfDocumentationAreReportedAsThat) {
  for (const ElementId id : Some("documentation")) {
    const Document& document = Old().DocumentOf(id);
    const NodeId node = document.Find(Old()[id].node, "documentation");
    ExpectChange(id, With(document, node, "\"another text\""), "changed");
  }
}

TEST_F(RandomEdits, OfTypesAreReportedAsThat) {
  for (const ElementId id : Some("type")) {
    const ElementKind kind = Old()[id].kind;
    if (kind == ElementKind::kStructure || kind == ElementKind::kConstant) continue;
    const Document& document = Old().DocumentOf(id);
    const NodeId node = document.Find(Old()[id].node, "type");
    const NodeId builtin = document.Find(node, "primitive_type");
    const bool was_void = builtin != kNoNode && document.String(builtin) == "VOID";
    ExpectChange(id, With(document, node, R"({"category": "BUILTIN", "primitive_type": "OPAQUE"})"),
                 was_void ? "added" : "changed");
  }
}

TEST_F(RandomEdits, ThatRemoveAnElementAreReportedAsThat) {
  for (const ElementId id : Some("name")) {
    if (Old()[id].kind == ElementKind::kComponent) continue;
    ExpectChange(id, Without(Old().DocumentOf(id), Old()[id].node), "removed");
  }
}
