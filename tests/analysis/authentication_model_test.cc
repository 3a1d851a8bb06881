#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/authentication/records.h>
#include <zelk/provider/metadata/authentication/metadata_container.h>

#include "analysis/compared.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): all of compared.h

namespace {

namespace Records = Bindings::Authentication;

using Zelk::Provider::Metadata::Authentication::MetadataContainer;
using ComparedSources = Compared<MetadataContainer, Records::SourceSvc::CreateSpec>;

/// The library's records as lines, each under the name that it is looked up by.
class RecordLines {
 public:
  std::string Text() const { return lines_.Text(); }

  void Add(const std::string& name, const Records::ComponentInfo& record) {
    lines_.Open("component", name, "");
    for (const auto& [package, info] : record.packages) Add(package, *info);
    lines_.Close();
  }

  void Add(const std::string& name, const Records::PackageInfo& record) {
    Open("package", name, record);
    for (const auto& [service, info] : record.services) Add(service, *info);
    lines_.Close();
  }

  void Add(const std::string& name, const Records::ServiceInfo& record) {
    Open("service", name, record);
    for (const auto& [operation, info] : record.operations) Add(name + "." + operation, *info);
    lines_.Close();
  }

  void Add(const std::string& name, const Records::OperationInfo& record) {
    Open("operation", name, record);
    lines_.Close();
  }

 private:
  template <typename Record>
  void Open(const char* word, const std::string& name, const Record& record) {
    lines_.Open(word, name, "");
    for (const auto& scheme : record.schemes) {
      lines_.Line("scheme", scheme->scheme, scheme->session_manager.value_or("none"));
    }
  }

  IndentedText lines_;
};

/// The record that the model has for an element.
void AddElement(const Model& model, ElementId id, IndentedText& lines) {
  const Element& element = model[id];
  lines.Open(Word(element.kind), element.name, "");
  for (const ElementId entry : KeptChildren(model, id, ElementKind::kEntry, false)) {
    const ElementId scheme = model[entry].target;
    EXPECT_TRUE(IsKept(model[scheme])) << model.Path(entry);
    EXPECT_EQ(model[scheme].name, model[entry].name);
    const bool has_session = TextOf(model, scheme, "type") != "SESSIONLESS";
    lines.Line("scheme", TextOf(model, scheme, "authenticationScheme"),
               has_session ? TextOf(model, scheme, "sessionManager") : "none");
  }
  for (const ElementKind kind :
       {ElementKind::kPackageList, ElementKind::kServiceList, ElementKind::kOperationList}) {
    for (const ElementId child : KeptChildren(model, id, kind, true)) {
      AddElement(model, child, lines);
    }
  }
  lines.Close();
}

template <typename Record>
void ExpectRecord(const Model& model, ElementId id, const std::shared_ptr<const Record>& record) {
  ASSERT_NE(record, nullptr) << model.Path(id);
  RecordLines expected;
  expected.Add(std::string(model[id].name), *record);
  IndentedText actual;
  AddElement(model, id, actual);
  EXPECT_EQ(actual.Text(), expected.Text());
}

void ExpectAnswer(const ComparedSources& sources, ElementId id) {
  const Model& model = *sources.model;
  const MetadataContainer& container = *sources.container;
  const std::string name(model[id].name);
  switch (model[id].kind) {
    case ElementKind::kComponent:
      return ExpectRecord(model, id, container.ComponentInfo(name)->info);
    case ElementKind::kPackageList:
      return ExpectRecord(model, id, container.PackageInfo(name));
    case ElementKind::kServiceList:
      return ExpectRecord(model, id, container.ServiceInfo(name));
    case ElementKind::kOperationList: {
      const std::string service = name.substr(0, name.rfind('.'));
      return ExpectRecord(model, id,
                          container.OperationInfo(service, std::string(model.SimpleName(id))));
    }
    default:
      return;
  }
}

void Compare(const Files& files, FateCounts& counts) {
  const ComparedSources sources(Domain::kAuthentication, files);
  const Model& model = *sources.model;
  const MetadataContainer& container = *sources.container;
  sources.ExpectSameVerdicts();
  EXPECT_EQ(KeptNames(model, ElementKind::kComponent), Sorted(container.ListComponents()));
  EXPECT_EQ(KeptNames(model, ElementKind::kPackageList), Sorted(container.ListPackages()));
  EXPECT_EQ(KeptNames(model, ElementKind::kServiceList), Sorted(container.ListServices()));
  ExpectConsistentFates(model, counts);
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    if (element.fate == Fate::kFound) ExpectAnswer(sources, id);
    // Lists are the last that have lookups of their own.
    if (element.kind == ElementKind::kEntry && element.fate != Fate::kDropped) {
      const Fate list = model[element.owner].fate;
      EXPECT_EQ(element.fate == Fate::kFound, list == Fate::kFound) << model.Path(id);
      EXPECT_EQ(element.fate == Fate::kShadowed, list == Fate::kShadowed) << model.Path(id);
    }
    // What is not in the answers at all is not found by its name either, or another one is.
    if (element.kind == ElementKind::kServiceList && !IsKept(element) &&
        model.Find(element.kind, element.name) == kNoElement) {
      EXPECT_EQ(container.ServiceInfo(std::string(element.name)), nullptr) << model.Path(id);
    }
  }
  if (testing::Test::HasFailure()) ADD_FAILURE() << AllTexts(files);
}

std::string SchemeList(Choices& choices) {
  // A list of an unknown scheme is rare, since its component is refused for it.
  if (choices.OneIn(60)) return R"(["unknown"])";
  return "[" + choices.Several(3, [&] { return choices.Of({"\"s\"", "\"t\""}); }) + "]";
}

std::string Lists(Choices& choices, const char* key, std::size_t most,
                  std::initializer_list<const char*> names) {
  return std::string(", \"") + key + "\": {" + choices.Several(most, [&] {
    return "\"" + choices.Of(names) + "\": " + SchemeList(choices);
  }) + "}";
}

std::string Scheme(Choices& choices, const std::string& name) {
  const bool has_session = choices.OneIn(2);
  return "\"" + name + R"(": {"authenticationScheme": ")" + choices.Unique() + R"(", "type": ")" +
         (has_session ? "sessionAware" : "SESSIONLESS") + R"(", "sessionManager": ")" +
         choices.Unique() + "\"}";
}

std::string Component(Choices& choices) {
  std::string text = R"({"name": ")" + choices.Of({"c", "d"}) + R"(", "schemes": {)" +
                     Scheme(choices, "s") + "," + Scheme(choices, "t");
  if (choices.OneIn(3)) text += "," + Scheme(choices, choices.Of({"s", "t"}));
  text += "}";
  // A service without a package comes up through its operations only.
  const char* const lost = choices.OneIn(3) ? "n.o" : "p.v.o";
  if (!choices.OneIn(5)) {
    text += Lists(choices, "operations", 5, {"p.v.o", "p.v.x", "p.w.o", "q.v.o", lost});
  }
  if (!choices.OneIn(5)) text += Lists(choices, "services", 3, {"p.v", "p.w", "q.v", "r.v"});
  if (!choices.OneIn(5)) text += Lists(choices, "packages", 3, {"p", "q", "z"});
  return text + "}";
}

std::string File(Choices& choices) {
  std::string parts;
  if (choices.OneIn(2)) parts += R"("product": )" + Component(choices);
  if (!choices.OneIn(4)) {
    parts += std::string(parts.empty() ? "" : ", ") + R"("component": )" + Component(choices);
  }
  return R"({"authentication": {)" + parts + "}}";
}

}  // namespace

TEST(AuthenticationModel, GeneratedFilesAreAnsweredAsItClaims) {
  FateCounts counts;
  CompareGenerated(1000, File, [&](const Files& files) { Compare(files, counts); });
  for (const Fate fate : {Fate::kFound, Fate::kDropped, Fate::kOverridden, Fate::kShadowed,
                          Fate::kIgnored, Fate::kLost}) {
    EXPECT_GT(counts[fate], 30U) << static_cast<int>(fate);
  }
}

TEST(AuthenticationModel, FilesOfTheCorpusAreAnsweredAsItClaims) {
  FateCounts counts;
  CompareCorpus("authentication_parser", [&](const Files& files) { Compare(files, counts); });
  EXPECT_GT(counts[Fate::kFound], 100U);
}
