#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/metamodel/records.h>
#include <zelk/provider/metadata/metamodel/metadata_container.h>

#include "analysis/compared.h"
#include "analysis/generated_metamodel.h"
#include "analysis/resources.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): all of compared.h

namespace {

namespace Records = Bindings::Metamodel;

using Zelk::Provider::Metadata::Metamodel::MetadataContainer;
using ComparedSources = Compared<MetadataContainer, Records::SourceSvc::CreateSpec>;

/// The library's records as lines. The parts of each are in the order of kPartKinds.
class RecordLines {
 public:
  std::string Text() const { return lines_.Text(); }

  void Add(const Records::ComponentInfo& record) {
    Open("component", record.name, record);
    AddAll(record.packages);
    lines_.Close();
  }

  void Add(const Records::PackageInfo& record) {
    Open("package", record.name, record);
    AddAll(record.enumerations);
    AddAll(record.structures);
    AddAll(record.services);
    lines_.Close();
  }

  void Add(const Records::ServiceInfo& record) {
    Open("service", record.name, record);
    AddAll(record.enumerations);
    AddAll(record.structures);
    AddConstants(record.constants);
    AddAll(record.operations);
    lines_.Close();
  }

  void Add(const Records::OperationInfo& record) {
    Open("operation", record.name, record);
    for (const auto& param : record.params) AddField("parameter", *param);
    Open("result", "result", *record.output);
    lines_.Close();
    for (const auto& error : record.errors) {
      lines_.Line("error", error->structure_name, error->documentation);
    }
    lines_.Close();
  }

  void Add(const Records::StructureInfo& record) {
    Open("structure", record.name, record);
    AddAll(record.enumerations);
    AddConstants(record.constants);
    for (const auto& field : record.fields) AddField("field", *field);
    lines_.Close();
  }

  void Add(const Records::EnumerationInfo& record) {
    Open("enumeration", record.name, record);
    for (const auto& value : record.values) {
      Open("value", value->value, *value);
      lines_.Close();
    }
    lines_.Close();
  }

 private:
  template <typename Record>
  void Open(const char* word, const std::string& name, const Record& record) {
    lines_.Open(word, name, record.documentation);
    for (const auto& [annotation, elements] : record.metadata) {
      std::string text;
      for (const auto& [element, value] : elements->elements) {
        text += element + "=";
        if (value->string_value) text += *value->string_value;
        for (const auto& item : value->list_value.value_or(std::list<std::string>())) {
          text += "[" + item + "]";
        }
        text += ";";
      }
      lines_.Line("annotation", annotation, text);
    }
  }

  template <typename Map>
  void AddAll(const Map& records) {
    for (const auto& record : records) Add(*record.second);
  }

  void AddConstants(
      const std::map<std::string, std::shared_ptr<const Records::ConstantInfo>>& constants) {
    for (const auto& [name, constant] : constants) {
      lines_.Line("constant", name, constant->documentation);
    }
  }

  void AddField(const char* word, const Records::FieldInfo& field) {
    Open(word, field.name, field);
    lines_.Close();
  }

  IndentedText lines_;
};

struct PartKind {
  ElementKind kind;
  bool by_name;
};

constexpr PartKind kPartKinds[] = {
    {ElementKind::kAnnotation, true},  {ElementKind::kPackage, true},
    {ElementKind::kEnumeration, true}, {ElementKind::kStructure, true},
    {ElementKind::kService, true},     {ElementKind::kConstant, true},
    {ElementKind::kOperation, true},   {ElementKind::kParameter, false},
    {ElementKind::kResult, false},     {ElementKind::kError, false},
    {ElementKind::kField, false},      {ElementKind::kValue, false},
};

/// What an annotation says, the last of each element.
std::string AnnotationText(const Model& model, ElementId id) {
  const auto& document = model.DocumentOf(id);
  std::map<std::string, std::string> elements;
  for (NodeId node = document[model[id].node].first_child; node != kNoNode;
       node = document[node].next) {
    std::string text(document.String(node));
    for (NodeId item = document[node].first_child; item != kNoNode; item = document[item].next) {
      text += "[" + std::string(document.String(item)) + "]";
    }
    elements[std::string(document.Key(node))] = text;
  }
  std::string text;
  for (const auto& [name, value] : elements) text += name + "=" + value + ";";
  return text;
}

/// The record that the model has for an element. The parts that are answered with it and by nothing
/// else are added to `parts`.
void AddElement(const Model& model, ElementId id, IndentedText& lines, std::set<ElementId>* parts) {
  const Element& element = model[id];
  const bool is_annotation = element.kind == ElementKind::kAnnotation;
  lines.Open(Word(element.kind), element.name,
             is_annotation ? AnnotationText(model, id) : TextOf(model, id, "documentation"));
  for (const PartKind& row : kPartKinds) {
    for (const ElementId child : KeptChildren(model, id, row.kind, row.by_name)) {
      const bool is_part = parts != nullptr && !Zelk::Analysis::HasLookup(row.kind);
      if (is_part) parts->insert(child);
      AddElement(model, child, lines, is_part ? parts : nullptr);
    }
  }
  lines.Close();
}

template <typename Record>
void ExpectRecord(const Model& model, ElementId id, const std::shared_ptr<const Record>& record,
                  std::set<ElementId>& parts) {
  ASSERT_NE(record, nullptr) << model.Path(id);
  RecordLines expected;
  expected.Add(*record);
  IndentedText actual;
  AddElement(model, id, actual, &parts);
  EXPECT_EQ(actual.Text(), expected.Text());
}

void ExpectAnswer(const ComparedSources& sources, ElementId id, std::set<ElementId>& parts) {
  const Model& model = *sources.model;
  const MetadataContainer& container = *sources.container;
  const std::string name(model[id].name);
  switch (model[id].kind) {
    case ElementKind::kComponent:
      return ExpectRecord(model, id, container.ComponentInfo(name)->info, parts);
    case ElementKind::kPackage:
      return ExpectRecord(model, id, container.PackageInfo(name), parts);
    case ElementKind::kService:
      return ExpectRecord(model, id, container.ServiceInfo(name), parts);
    case ElementKind::kStructure:
      return ExpectRecord(model, id, container.StructureInfo(name), parts);
    case ElementKind::kEnumeration:
      return ExpectRecord(model, id, container.EnumerationInfo(name), parts);
    case ElementKind::kOperation: {
      std::set<ElementId> not_counted;
      const std::string service(model[model[id].owner].name);
      return ExpectRecord(model, id, container.OperationInfo(service, name), not_counted);
    }
    default:
      return;
  }
}

/// Returns how many models there are.
std::size_t ExpectResources(const Model& model, const MetadataContainer& container) {
  std::set<std::string> resources;
  // By resource: the last source that names it, and the models that it declares.
  std::map<std::string, std::uint32_t> last;
  std::map<std::string, std::set<std::string>> models;
  std::size_t count = 0;
  for (const auto& use : Zelk::Analysis::ResourceUses(model)) {
    const std::string resource(use.resource);
    resources.insert(resource);
    if (last.try_emplace(resource, use.source).first->second != use.source) {
      last[resource] = use.source;
      models[resource].clear();
    }
    if (use.model == kNoElement) continue;
    models[resource].insert(std::string(model[use.model].name));
    ++count;
  }
  EXPECT_EQ(resources, container.ListResources());
  for (const std::string& resource : resources) {
    EXPECT_EQ(models[resource], *container.ListModels(resource)) << resource;
  }
  return count;
}

void Compare(const Files& files, FateCounts& counts, std::size_t& models) {
  const ComparedSources sources(Domain::kMetamodel, files);
  const Model& model = *sources.model;
  const MetadataContainer& container = *sources.container;
  sources.ExpectSameVerdicts();
  EXPECT_EQ(KeptNames(model, ElementKind::kComponent), Sorted(container.ListComponents()));
  EXPECT_EQ(KeptNames(model, ElementKind::kPackage), Sorted(container.ListPackages()));
  EXPECT_EQ(KeptNames(model, ElementKind::kService), Sorted(container.ListServices()));
  EXPECT_EQ(KeptNames(model, ElementKind::kStructure), Sorted(container.ListStructures()));
  EXPECT_EQ(KeptNames(model, ElementKind::kEnumeration), Sorted(container.ListEnumerations()));
  ExpectConsistentFates(model, counts);
  models += ExpectResources(model, container);
  std::set<ElementId> parts;
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (model[id].fate == Fate::kFound) ExpectAnswer(sources, id, parts);
  }
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (Zelk::Analysis::HasLookup(model[id].kind)) continue;
    EXPECT_EQ(parts.count(id) != 0, model[id].fate == Fate::kFound) << model.Path(id);
  }
  if (testing::Test::HasFailure()) ADD_FAILURE() << AllTexts(files);
}

}  // namespace

TEST(MetamodelModel, GeneratedFilesAreAnsweredAsItClaims) {
  FateCounts counts;
  std::size_t models = 0;
  CompareGenerated(400, Generated::MetamodelText,
                   [&](const Files& files) { Compare(files, counts, models); });
  EXPECT_GT(models, 50U);
  for (const Fate fate :
       {Fate::kFound, Fate::kDropped, Fate::kOverridden, Fate::kShadowed, Fate::kLost}) {
    EXPECT_GT(counts[fate], 100U) << static_cast<int>(fate);
  }
}

TEST(MetamodelModel, FilesOfTheCorpusAreAnsweredAsItClaims) {
  FateCounts counts;
  std::size_t models = 0;
  CompareCorpus("metamodel_parser", [&](const Files& files) { Compare(files, counts, models); });
  EXPECT_GT(counts[Fate::kFound], 100U);
}
