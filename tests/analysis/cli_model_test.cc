#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/cli/records.h>
#include <zelk/provider/metadata/cli/metadata_container.h>

#include "analysis/compared.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): all of compared.h

namespace {

namespace Records = Bindings::Cli;

using Zelk::Provider::Metadata::Cli::MetadataContainer;
using ComparedSources = Compared<MetadataContainer, Records::SourceSvc::CreateSpec>;

std::string RecordText(const Records::NamespaceSvc::Info& record) {
  IndentedText lines;
  lines.Open(record.identity->path, record.identity->name, record.description);
  for (const auto& child : record.children) lines.Line("child", child->path, child->name);
  return lines.Text();
}

std::string RecordText(const Records::CommandSvc::Info& record) {
  IndentedText lines;
  lines.Open(record.identity->path, record.identity->name, record.description);
  lines.Line("operation", record.service_id, record.operation_id);
  for (const auto& option : record.options) {
    lines.Line("option", option->long_option, option->description);
  }
  for (const auto& output : record.output_field_list) {
    lines.Open("output", output->structure_id, "");
    for (const auto& field : output->output_fields) {
      lines.Line("output-field", field->field_name, field->display_name);
    }
    lines.Close();
  }
  return lines.Text();
}

std::string Description(const Model& model, ElementId id) {
  const Element& element = model[id];
  if (!element.is_implied) return TextOf(model, id, "description");
  return element.name.empty() ? "Root namespace" : std::string(element.name) + " namespace";
}

std::string NamespaceText(const Model& model, ElementId id) {
  IndentedText lines;
  lines.Open(model[id].path, model[id].name, Description(model, id));
  for (const ElementId child : model.Children(id)) {
    lines.Line("child", model[child].path, model[child].name);
  }
  return lines.Text();
}

std::string CommandText(const Model& model, ElementId id) {
  IndentedText lines;
  lines.Open(model[id].path, model[id].name, Description(model, id));
  const auto& document = model.DocumentOf(id);
  const NodeId metadata = document.Find(model[id].node, "node_metadata");
  lines.Line("operation", document.String(document.Find(metadata, "service_id")),
             document.String(document.Find(metadata, "operation_id")));
  for (const ElementId option : KeptChildren(model, id, ElementKind::kOption, false)) {
    lines.Line("option", model[option].name, TextOf(model, option, "description"));
  }
  for (const ElementId output : KeptChildren(model, id, ElementKind::kOutput, false)) {
    lines.Open("output", model[output].name, "");
    for (const ElementId field : KeptChildren(model, output, ElementKind::kOutputField, false)) {
      lines.Line("output-field", model[field].name, TextOf(model, field, "display_name"));
    }
    lines.Close();
  }
  return lines.Text();
}

template <typename Identity>
std::vector<std::string> FullNames(const std::list<std::shared_ptr<const Identity>>& identities) {
  std::list<std::string> names;
  for (const auto& identity : identities) {
    names.push_back(identity->path.empty() ? identity->name
                                           : identity->path + "." + identity->name);
  }
  return Sorted(names);
}

template <typename Identity>
std::shared_ptr<const Identity> IdentityOf(const Element& element) {
  return std::make_shared<const Identity>(std::string(element.path), std::string(element.name));
}

void ExpectAnswer(const ComparedSources& sources, ElementId id) {
  const Model& model = *sources.model;
  const Element& element = model[id];
  if (element.kind == ElementKind::kNamespace) {
    const auto record =
        sources.container->NamespaceInfo(IdentityOf<Records::NamespaceSvc::Identity>(element));
    ASSERT_NE(record, nullptr) << model.Path(id);
    EXPECT_EQ(NamespaceText(model, id), RecordText(*record));
  } else if (element.kind == ElementKind::kCommand) {
    const auto record =
        sources.container->CommandInfo(IdentityOf<Records::CommandSvc::Identity>(element));
    ASSERT_NE(record, nullptr) << model.Path(id);
    EXPECT_EQ(CommandText(model, id), RecordText(*record));
  }
}

/// Options and outputs share the fate of their command but for those that are lost with it.
void ExpectFateOfCommand(const Model& model, ElementId id) {
  ElementId command = id;
  while (model[command].owner != kNoElement) command = model[command].owner;
  EXPECT_EQ(IsKept(model[id]), IsKept(model[command])) << model.Path(id);
  EXPECT_EQ(model[id].fate == Fate::kFound, model[command].fate == Fate::kFound);
}

void Compare(const Files& files, FateCounts& counts) {
  const ComparedSources sources(Domain::kCli, files);
  const Model& model = *sources.model;
  sources.ExpectSameVerdicts();
  EXPECT_EQ(KeptNames(model, ElementKind::kNamespace),
            FullNames(sources.container->ListNamespaces()));
  EXPECT_EQ(KeptNames(model, ElementKind::kCommand),
            FullNames(sources.container->ListCommands(boost::none)));
  ExpectConsistentFates(model, counts);
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (model[id].fate == Fate::kFound) ExpectAnswer(sources, id);
    if (!Zelk::Analysis::HasLookup(model[id].kind)) ExpectFateOfCommand(model, id);
  }
  if (testing::Test::HasFailure()) ADD_FAILURE() << AllTexts(files);
}

std::string Option(Choices& choices) {
  return R"({"long_option": ")" + choices.Of({"l", "m"}) + R"(", "field_name": "f", )" +
         R"("description": ")" + choices.Unique() + R"(", "type": "STRING", "generic": ""})";
}

std::string Output(Choices& choices) {
  std::string text = R"({"structure_id": ")" + choices.Of({"s", "t"}) + "\"";
  if (!choices.OneIn(4)) {
    text += R"(, "output_fields": [)" + choices.Several(2, [&] {
      return R"({"field_name": "f", "display_name": ")" + choices.Unique() + "\"}";
    }) + "]";
  }
  return text + "}";
}

std::string Node(Choices& choices) {
  const bool is_command = choices.OneIn(2);
  // An unknown type of node is rare, since the whole file is refused for it.
  const std::string type = choices.OneIn(200) ? "Command" : is_command ? "command" : "namespace";
  std::string text = R"({"type": ")" + type + R"(", "path": ")" +
                     choices.Of({"", "a", "a.b", "a.b.c", "a..b", "."}) + R"(", "name": ")" +
                     choices.Of({"", "a", "b", "c", "b.c"}) + R"(", "description": ")" +
                     choices.Unique() + "\"";
  if (is_command) {
    text += R"(, "node_metadata": {"service_id": "s", "operation_id": ")" + choices.Unique() + "\"";
    if (choices.OneIn(2)) {
      text += R"(, "options": [)" + choices.Several(2, [&] { return Option(choices); }) + "]";
    }
    if (choices.OneIn(2)) {
      text +=
          R"(, "output_field_list": [)" + choices.Several(2, [&] { return Output(choices); }) + "]";
    }
    text += "}";
  }
  return text + "}";
}

std::string File(Choices& choices) {
  return R"({"cli": [)" + choices.Several(12, [&] { return Node(choices); }) + "]}";
}

}  // namespace

TEST(CliModel, GeneratedFilesAreAnsweredAsItClaims) {
  FateCounts counts;
  CompareGenerated(1000, File, [&](const Files& files) { Compare(files, counts); });
  for (const Fate fate : {Fate::kFound, Fate::kOverridden, Fate::kShadowed, Fate::kLost}) {
    EXPECT_GT(counts[fate], 100U) << static_cast<int>(fate);
  }
}

TEST(CliModel, FilesOfTheCorpusAreAnsweredAsItClaims) {
  FateCounts counts;
  CompareCorpus("cli_parser", [&](const Files& files) { Compare(files, counts); });
  EXPECT_GT(counts[Fate::kFound], 100U);
}
