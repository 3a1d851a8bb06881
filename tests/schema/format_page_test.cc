#include <cstdlib>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/format.h"
#include "support/file_text.h"
#include "support/source_dir.h"

// The tables of keys in the pages about the formats are made from the tables that files are read
// by.

using Zelk::Analysis::Form;
using Zelk::Analysis::Format;
using Zelk::Analysis::FormatOf;
using Zelk::Analysis::KeyForm;
using Zelk::Analysis::ObjectForm;
using Zelk::Analysis::Style;
using Zelk::Analysis::ValueForm;
using Zelk::Analysis::Words;
using Zelk::Testing::FileText;

namespace {

constexpr char kHead[] = "| Object | Key | Value | Meaning |\n|---|---|---|---|\n";

std::string Code(const std::string& text) {
  return "`" + text + "`";
}

/// What values are called: "array of services".
std::string TypeText(const ValueForm& form, const std::string& plural = "") {
  switch (form.form) {
    case Form::kAnything:
      return "any value";
    case Form::kText:
    case Form::kWord:
      return "string" + plural;
    case Form::kSchemeName:
      return "scheme name" + plural;
    case Form::kTextOrList:
      return "string" + plural + " or array" + plural + " of strings";
    case Form::kList:
      return "array" + plural + " of " + TypeText(*form.each, "s");
    case Form::kMembers:
      return "object" + plural + " of " + TypeText(*form.each, "s");
    case Form::kObject:
    case Form::kElement:
      break;
  }
  return form.object->name + plural;
}

class KeysTable {
 public:
  explicit KeysTable(const Format& format) : text_(kHead) {
    Add(format.root);
    for (std::size_t next = 0; next < objects_.size(); ++next) {
      const ObjectForm& object = *objects_[next];
      AddRows(object.name, object);
    }
  }

  const std::string& Text() const { return text_; }

 private:
  /// The object that the value is or holds is described, too.
  void Add(const ValueForm& form) {
    if (form.each != nullptr) return Add(*form.each);
    if (form.object != nullptr && known_.insert(form.object).second) {
      objects_.push_back(form.object);
    }
  }

  void AddRows(const std::string& title, const ObjectForm& object) {
    std::string repeated;
    for (const KeyForm& key : object.keys) {
      Add(key.value);
      if (described_.insert(std::string(key.name) + ": " + key.documentation).second) {
        AddRow(title, key);
      } else {
        repeated += (repeated.empty() ? "" : ", ") + Code(key.name);
      }
    }
    if (!repeated.empty()) text_ += "| " + title + " | " + repeated + " | | As above. |\n";
    // Several texts may lead to the same keys.
    for (std::size_t i = 0; i < object.variants.Size(); ++i) {
      if (!known_.insert(object.variants[i].object).second) continue;
      std::string texts;
      for (const auto& variant : object.variants) {
        if (variant.object != object.variants[i].object) continue;
        texts += (texts.empty() ? "" : ", ") + Code(variant.text);
      }
      AddRows(texts, *object.variants[i].object);
    }
  }

  void AddRow(const std::string& title, const KeyForm& key) {
    const std::string optional = key.presence == KeyForm::kRequired ? "" : ", optional";
    text_ += "| " + title + " | " + Code(key.name) + " | " + TypeText(key.value) + optional +
             " | " + key.documentation + WordsText(key.value) + " |\n";
  }

  std::string WordsText(const ValueForm& form) {
    const Words* const words = form.words;
    if (words == nullptr || form.style == Style::kExamples) return "";
    std::string text;
    if (known_.insert(words->documentation).second) {
      for (std::size_t i = 0; words->texts[i] != nullptr; ++i) {
        text += " " + Code(words->texts[i]) + ": " + words->documentation[i];
      }
    } else {
      text += " The words are those above.";
    }
    if (words->alias == nullptr) return text;
    return text + " " + Code(words->alias) + " is taken for " + Code(words->meaning) + ".";
  }

  std::string text_;
  std::vector<const ObjectForm*> objects_;
  /// Objects and words that are in the table.
  std::set<const void*> known_;
  /// Keys with their texts.
  std::set<std::string> described_;
};

class FormatPage : public testing::TestWithParam<Zelk::Analysis::Domain> {};

}  // namespace

TEST_P(FormatPage, HasTheKeysOfTheFormat) {
  const Format& format = FormatOf(GetParam());
  const std::string path = std::string(ZELK_SOURCE_DIR "/docs/") + format.root_key + "-format.md";
  const std::string page = FileText(path);
  const std::size_t begin = page.find(kHead);
  ASSERT_NE(begin, std::string::npos) << path;
  const std::size_t end = page.find("\n\n", begin) + 1;
  const std::string table = KeysTable(format).Text();
  if (std::getenv("ZELK_UPDATE_GOLDEN") == nullptr) {
    EXPECT_EQ(page.substr(begin, end - begin), table);
  } else {
    std::ofstream(path, std::ios::binary) << page.substr(0, begin) << table << page.substr(end);
  }
}

INSTANTIATE_TEST_SUITE_P(OfEachDomain, FormatPage,
                         testing::Values(Zelk::Analysis::Domain::kMetamodel,
                                         Zelk::Analysis::Domain::kAuthentication,
                                         Zelk::Analysis::Domain::kCli),
                         [](const auto& domain) {
                           return std::string(FormatOf(domain.param).root_key);
                         });
