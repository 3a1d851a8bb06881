#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iterator>
#include <map>
#include <random>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/linted.h"
#include "concurrency/all_answers.h"
#include "support/file_text.h"
#include "support/temp_folder.h"

// A finding of the group 'loader' claims that the library does not use a text. So the text is
// removed, or replaced by another one that would not be used either, and the library must give the
// same answers.

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to lint

namespace {

using Zelk::Analysis::Document;
using Zelk::Analysis::kNoNode;
using Zelk::Analysis::kRootNode;
using Zelk::Analysis::Node;
using Zelk::Analysis::NodeId;
using Zelk::Analysis::NodeKind;
using Zelk::Analysis::Lint::Finding;
using Zelk::Analysis::Lint::FindRule;

/// A part of a text and what replaces it.
struct Edit {
  std::size_t begin;
  std::size_t end;
  std::string text;
  bool is_removal;
};

Edit RemovalOf(const Document& document, NodeId node) {
  return {document[node].key_begin, document[node].end, "", true};
}

Edit ReplacementOf(const Document& document, NodeId node, std::string text) {
  return {document[node].begin, document[node].end, std::move(text), false};
}

/// Removes a member or an element with the comma after it, or else the one before it.
void Remove(std::string& text, const Edit& edit) {
  std::size_t begin = edit.begin;
  std::size_t end = edit.end;
  const std::size_t next = text.find_first_not_of(" \t\r\n", end);
  if (next != std::string::npos && text[next] == ',') {
    end = next + 1;
  } else {
    const std::size_t before = text.find_last_not_of(" \t\r\n", begin - 1);
    if (text[before] == ',') begin = before;
  }
  text.erase(begin, end - begin);
}

std::string Edited(std::string text, std::vector<Edit> edits) {
  // From the last one to the first one. What is in another one goes with it.
  std::sort(edits.begin(), edits.end(), [](const Edit& left, const Edit& right) {
    return std::pair(left.begin, right.end) < std::pair(right.begin, left.end);
  });
  std::vector<Edit> outer;
  for (const Edit& edit : edits) {
    if (outer.empty() || edit.begin >= outer.back().end) outer.push_back(edit);
  }
  for (auto edit = outer.rbegin(); edit != outer.rend(); ++edit) {
    if (edit->is_removal) {
      Remove(text, *edit);
    } else {
      text.replace(edit->begin, edit->end - edit->begin, edit->text);
    }
  }
  return text;
}

bool Says(const Finding& finding, const char* words) {
  return finding.remark.message.find(words) != std::string::npos;
}

/// The edit that changes no answer if the finding is true. None if it does not claim that.
std::vector<Edit> EditsOf(const Document& document, const Finding& finding) {
  const std::string rule = finding.rule->id;
  const NodeId node = finding.place.node;
  static const std::set<std::string> members{"duplicate-key",
                                             "misspelt-key",
                                             "unknown-key",
                                             "ignored-component",
                                             "ignored-session-manager",
                                             "operation-without-package"};
  if (members.count(rule) != 0) return {RemovalOf(document, node)};
  const bool is_dropped = rule == "duplicate-command" ||
                          (rule == "duplicate-definition" && Says(finding, "this one is dropped"));
  if (is_dropped) return {RemovalOf(document, document[node].parent)};
  if (rule == "constant-without-value") return {ReplacementOf(document, node, "1")};
  if (rule == "noncanonical-spelling") {
    const std::string& message = finding.remark.message;
    const std::size_t word = message.rfind(" '") + 2;
    const std::string meant = message.substr(word, message.size() - word - 1);
    return {ReplacementOf(document, node, "\"" + meant + "\"")};
  }
  if (rule == "text-after-zero-byte") {
    return {{finding.place.offset, document.Text().size(), "", false}};
  }
  return {};
}

constexpr const char* kDecisive[] = {
    "duplicate-key",          "misspelt-key",          "unknown-key",
    "ignored-component",      "duplicate-definition",  "ignored-session-manager",
    "duplicate-command",      "text-after-zero-byte",  "operation-without-package",
    "constant-without-value", "noncanonical-spelling",
};

/// How many texts were edited because of each rule.
using Counts = std::map<std::string, std::size_t>;

template <typename UnderTest>
class Oracle {
 public:
  /// Looks at the text if it loads.
  void LookAt(const std::string& text) {
    const std::string before = Answers(text);
    if (before.empty()) return;
    const Zelk::Analysis::Lint::Workspace workspace(FilesOf({text}));
    for (const char* const rule : kDecisive) {
      std::vector<Edit> edits;
      for (const Finding& finding :
           Zelk::Analysis::Lint::Lint(workspace, {FindRule(rule)}).findings) {
        for (Edit& edit : EditsOf(DocumentOf(workspace, finding.place), finding)) {
          edits.push_back(std::move(edit));
        }
      }
      if (edits.empty()) continue;
      ++counts_[rule];
      const std::string edited = Edited(text, edits);
      EXPECT_EQ(Answers(edited), before) << rule << "\n" << text << "\n" << edited;
    }
  }

  const Counts& Edits() const { return counts_; }

 private:
  /// All that the library answers about the file but fingerprints; empty if it does not load.
  std::string Answers(const std::string& text) {
    const auto container = UnderTest::Container::GetInstance();
    const auto spec = std::make_shared<const typename UnderTest::CreateSpec>(
        "", Bindings::SourceType::LOCAL_FILE, folder_.Write("a.json", text), boost::none);
    if (container->CreateSource("a", spec) != nullptr) return "";
    static const std::regex fingerprint("[0-9a-f]{32}\n");
    return std::regex_replace(AllAnswers(*container), fingerprint, "fingerprint\n");
  }

  TempFolder folder_;
  Counts counts_;
};

/// Makes the mistakes that people make.
class Mistakes {
 public:
  std::string In(const std::string& text) {
    const Document document(text);
    const NodeId node = Any(document, [&](NodeId id) { return id != kRootNode; });
    switch (Below(6)) {
      case 0:
        return Inserted(text, document, node, Whole(document, node));
      case 1:
        return Inserted(text, document, node, Misspelt(document, node));
      case 2:
        // Beside itself, with what another one has.
        return Inserted(text, document, node, WithOtherValue(document, node));
      case 3:
        return OtherValue(text, document, node);
      case 4:
        return Replaced(text, document, node, Misspelt(document, node));
      default:
        return OtherCase(text, document);
    }
  }

  std::size_t Below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
  }

 private:
  template <typename Fits>
  NodeId Any(const Document& document, const Fits& fits) {
    for (int tries = 0; tries < 100; ++tries) {
      const auto node = static_cast<NodeId>(Below(document.Size()));
      if (fits(node)) return node;
    }
    return kRootNode;
  }

  static std::string Part(const Document& document, std::size_t begin, std::size_t end) {
    return std::string(document.Text().substr(begin, end - begin));
  }

  static std::string Whole(const Document& document, NodeId node) {
    return Part(document, document[node].key_begin, document[node].end);
  }

  static std::string Value(const Document& document, NodeId node) {
    return Part(document, document[node].begin, document[node].end);
  }

  static std::string KeyOf(const Document& document, NodeId node) {
    return Part(document, document[node].key_begin, document[node].begin);
  }

  static std::string Inserted(std::string text, const Document& document, NodeId node,
                              const std::string& part) {
    return text.insert(document[node].end, ", " + part);
  }

  static std::string Replaced(std::string text, const Document& document, NodeId node,
                              const std::string& part) {
    const Node& place = document[node];
    return text.replace(place.key_begin, place.end - place.key_begin, part);
  }

  std::string Misspelt(const Document& document, NodeId node) {
    std::string whole = Whole(document, node);
    const std::string key(document.Key(node));
    if (key.size() > 2) std::swap(whole[1 + Below(key.size() - 1)], whole[1]);
    return whole;
  }

  std::string WithOtherValue(const Document& document, NodeId node) {
    const NodeId other = Any(document, [&](NodeId id) {
      return document[id].kind == document[node].kind && document.Key(id) == document.Key(node);
    });
    return KeyOf(document, node) + Value(document, other);
  }

  std::string OtherValue(std::string text, const Document& document, NodeId node) {
    constexpr const char* kValues[] = {"7", "\"tabel\"", "\"\"", "[]", "{}", "\"SESSIONLESS\""};
    const Node& place = document[node];
    return text.replace(place.begin, place.end - place.begin, kValues[Below(std::size(kValues))]);
  }

  std::string OtherCase(std::string text, const Document& document) {
    const NodeId node =
        Any(document, [&](NodeId id) { return document[id].kind == NodeKind::kString; });
    for (std::size_t at = document[node].begin; at < document[node].end; ++at) {
      text[at] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[at])));
    }
    return text;
  }

  std::mt19937 random_{20240229};
};

/// Files that people could have written, for the domain.
std::vector<std::string> Seeds(const char* root_key, const char* file) {
  std::vector<std::string> seeds{FileText(std::string(ZELK_SOURCE_DIR "/tests/data/tool/") + file)};
  for (const auto* rule : Zelk::Analysis::Lint::Rules()) {
    for (const std::string_view text : rule->example.files) {
      const bool is_of = text.find(std::string("{\"") + root_key) != std::string_view::npos;
      if (is_of) seeds.emplace_back(text);
    }
  }
  return seeds;
}

/// Each of the rules must have been tried.
template <typename UnderTest>
void LookAtAll(const char* file, const char* corpus, std::size_t count,
               const std::vector<const char*>& rules) {
  Oracle<UnderTest> oracle;
  const std::string folder = std::string(ZELK_SOURCE_DIR "/fuzz/corpus/") + corpus;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    oracle.LookAt(FileText(entry.path().string()));
  }
  const std::vector<std::string> seeds = Seeds(UnderTest::kRootKey, file);
  Mistakes mistakes;
  for (std::size_t i = 0; i < count && !testing::Test::HasFailure(); ++i) {
    std::string text = seeds[mistakes.Below(seeds.size())];
    for (std::size_t more = 1 + mistakes.Below(3); more > 0; --more) text = mistakes.In(text);
    oracle.LookAt(text);
  }
  for (const char* const rule : rules) {
    const auto found = oracle.Edits().find(rule);
    EXPECT_GE(found == oracle.Edits().end() ? 0U : found->second, 10U) << rule;
  }
}

}  // namespace

TEST(LoaderRules, WhatIsDroppedOfMetamodelFilesIsInNoAnswer) {
  LookAtAll<MetamodelUnderTest>("inventory.json", "metamodel_parser", 500,
                                {"duplicate-key", "unknown-key", "duplicate-definition",
                                 "constant-without-value", "noncanonical-spelling"});
}

TEST(LoaderRules, WhatIsDroppedOfAuthenticationFilesIsInNoAnswer) {
  LookAtAll<AuthenticationUnderTest>(
      "schemes.json", "authentication_parser", 600,
      {"duplicate-key", "unknown-key", "misspelt-key", "ignored-component",
       "ignored-session-manager", "operation-without-package", "noncanonical-spelling"});
}

TEST(LoaderRules, WhatIsDroppedOfCliFilesIsInNoAnswer) {
  LookAtAll<CliUnderTest>("commands.json", "cli_parser", 1000,
                          {"duplicate-key", "unknown-key", "misspelt-key", "duplicate-command",
                           "noncanonical-spelling"});
}
