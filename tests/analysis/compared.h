#pragma once

#include <algorithm>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/source_type.h>

#include "analysis/choices.h"
#include "analysis/element_model.h"
#include "analysis/fates.h"
#include "support/temp_folder.h"

// What the model claims is compared with what the library answers: both are written as the same
// kind of text, the library's from its records, the model's from the nodes of its elements.

namespace Zelk::Testing {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

using Analysis::Domain;
using Analysis::Element;
using Analysis::ElementId;
using Analysis::ElementKind;
using Analysis::Fate;
using Analysis::kNoElement;
using Analysis::kNoNode;
using Analysis::Model;
using Analysis::NodeId;

/// Sources by their ids.
using Files = std::map<std::string, std::string>;

/// IndentedText that are indented by what they are in.
class IndentedText {
 public:
  const std::string& Text() const { return text_; }

  void Open(std::string_view word, std::string_view name, std::string_view text) {
    text_ += std::string(2 * depth_++, ' ');
    for (const std::string_view part : {word, name, text}) text_.append(part).append(" | ");
    text_ += '\n';
  }

  void Close() { --depth_; }

  void Line(std::string_view word, std::string_view name, std::string_view text) {
    Open(word, name, text);
    Close();
  }

 private:
  std::string text_;
  std::size_t depth_ = 0;
};

/// The text under the key of the element's node, or an empty text.
inline std::string TextOf(const Model& model, ElementId id, const char* key) {
  const auto& document = model.DocumentOf(id);
  const NodeId found = document.Find(model[id].node, key);
  return found == kNoNode ? std::string() : std::string(document.String(found));
}

/// The children of the kind that are kept; those of kinds that the library keeps in maps by name.
inline std::vector<ElementId> KeptChildren(const Model& model, ElementId owner, ElementKind kind,
                                           bool by_name) {
  std::vector<ElementId> kept;
  for (const ElementId id : model.Children(owner)) {
    if (model[id].kind == kind && IsKept(model[id])) kept.push_back(id);
  }
  if (by_name) {
    std::sort(kept.begin(), kept.end(), [&](ElementId left, ElementId right) {
      return model[left].name < model[right].name;
    });
  }
  return kept;
}

/// The names of all elements of the kind that are kept, as lists of the library have them but
/// sorted.
inline std::vector<std::string> KeptNames(const Model& model, ElementKind kind) {
  std::vector<std::string> names;
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (model[id].kind == kind && IsKept(model[id])) names.push_back(model.FullName(id));
  }
  std::sort(names.begin(), names.end());
  return names;
}

inline std::vector<std::string> Sorted(const std::list<std::string>& names) {
  std::vector<std::string> sorted(names.begin(), names.end());
  std::sort(sorted.begin(), sorted.end());
  return sorted;
}

/// How many elements have had each fate.
using FateCounts = std::map<Fate, std::size_t>;

/// What fates say of each other, whatever the domain.
inline void ExpectConsistentFates(const Model& model, FateCounts& counts) {
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    ++counts[element.fate];
    const bool has_lookup = Analysis::HasLookup(element.kind);
    switch (element.fate) {
      case Fate::kFound:
        EXPECT_EQ(element.by, kNoElement) << model.Path(id);
        if (has_lookup) {
          EXPECT_EQ(model.Find(element.kind, element.name, element.path), id) << model.Path(id);
        }
        break;
      case Fate::kShadowed:
        ASSERT_NE(element.by, kNoElement) << model.Path(id);
        EXPECT_EQ(model[element.by].fate, Fate::kFound) << model.Path(id);
        if (has_lookup) {
          EXPECT_EQ(model.Find(element.kind, element.name, element.path), element.by);
        }
        break;
      case Fate::kDropped:
      case Fate::kOverridden:
        ASSERT_NE(element.by, kNoElement) << model.Path(id);
        EXPECT_TRUE(IsKept(model[element.by])) << model.Path(id);
        EXPECT_EQ(model[element.by].name, element.name);
        EXPECT_EQ(model[element.by].path, element.path);
        EXPECT_EQ(model[element.by].source, element.source);
        // Implied elements are after all others, whatever they come from.
        if (!element.is_implied) {
          EXPECT_EQ(element.by < id, element.fate == Fate::kDropped) << model.Path(id);
        }
        break;
      case Fate::kIgnored:
        EXPECT_EQ(element.by, kNoElement) << model.Path(id);
        break;
      case Fate::kLost:
        ASSERT_NE(element.by, kNoElement) << model.Path(id);
        EXPECT_FALSE(IsKept(model[element.by])) << model.Path(id);
        break;
    }
  }
}

/// The sources in a container of the library and in a model.
template <typename Container, typename CreateSpec>
class Compared {
 public:
  Compared(Domain domain, const Files& files) : container(Container::GetInstance()) {
    std::vector<Analysis::Source> sources;
    for (const auto& [id, text] : files) {
      const std::string path = folder_.Write(id + ".json", text);
      const auto spec = std::make_shared<const CreateSpec>("", Bindings::SourceType::LOCAL_FILE,
                                                           path, boost::none);
      accepted_.push_back(container->CreateSource(id, spec) == nullptr);
      sources.push_back({id, std::make_shared<const Analysis::Document>(text)});
    }
    // The model sorts them itself.
    std::reverse(sources.begin(), sources.end());
    model = std::make_unique<const Model>(domain, std::move(sources));
  }

  void ExpectSameVerdicts() const {
    for (std::size_t i = 0; i < accepted_.size(); ++i) {
      EXPECT_EQ(model->Loads(i), accepted_[i]) << model->Sources()[i].document->Text();
    }
  }

  std::shared_ptr<Container> container;
  std::unique_ptr<const Model> model;

 private:
  TempFolder folder_;
  std::vector<bool> accepted_;
};

/// Calls `compare` with each file of the corpus by itself, and with each together with its
/// neighbours as three sources.
template <typename Compare>
void CompareCorpus(const std::string& name, const Compare& compare) {
  const std::vector<std::string> texts = Corpus(name);
  ASSERT_GT(texts.size(), 100U);
  for (std::size_t i = 0; i < texts.size() && !testing::Test::HasFailure(); ++i) {
    compare({{"a", texts[i]}});
    compare({{"a", texts[i]},
             {"b", texts[(i + 1) % texts.size()]},
             {"c", texts[(i + 2) % texts.size()]}});
  }
}

/// Calls `compare` with one to three sources that `make` writes, `count` times.
template <typename Make, typename Compare>
void CompareGenerated(std::size_t count, const Make& make, const Compare& compare) {
  Choices choices(20240229);
  for (std::size_t i = 0; i < count && !testing::Test::HasFailure(); ++i) {
    Files files;
    for (std::size_t sources = 1 + choices.Below(3); sources > 0; --sources) {
      files[std::string(1, static_cast<char>('a' + choices.Below(5)))] = make(choices);
    }
    compare(files);
  }
}

inline std::string AllTexts(const Files& files) {
  std::string texts;
  for (const auto& [id, text] : files) texts += id + ": " + text + '\n';
  return texts;
}

}  // namespace Zelk::Testing
