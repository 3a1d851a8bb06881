#pragma once

#include <list>
#include <memory>
#include <string>
#include <vector>

#include <boost/none.hpp>

#include "support/record_dump.h"
#include "support/source_dir.h"
#include "surface/domains_under_test.h"

// What every const operation of a container answers, in one text: for all that it lists, and for
// an id that nothing has.

namespace Zelk::Testing {

inline constexpr char kNoSuchId[] = "no such id";

/// Where the library's own services are described in the domain's format.
template <typename Domain>
std::string OwnMetadata() {
  return std::string(ZELK_SOURCE_DIR "/metadata/") + Domain::kRootKey + "/zelk-metadata.json";
}

class AnswerLog {
 public:
  const std::vector<std::string>& All() const { return answers_; }

  std::string Text() const {
    std::string text;
    for (const std::string& answer : answers_) text += answer + "\n";
    return text;
  }

  void Add(const std::string& answer) { answers_.push_back(answer); }

  void AddUnless(bool expected_nothing, const std::string& call) {
    if (!expected_nothing) Add("something for an unknown id from " + call);
  }

  template <typename Names>
  void AddNames(const Names& names) {
    for (const auto& name : names) Add(name);
  }

 private:
  std::vector<std::string> answers_;
};

/// The operations that all containers have.
template <typename Container>
void AddSourceAnswers(const Container& container, AnswerLog& answers) {
  for (const auto& id : container.ListSources()) {
    const auto info = container.SourcesInfo(id);
    answers.Add(id + " " + info->description + " " + *info->file_path);
    answers.Add(container.SourceFingerprint(id));
  }
  answers.Add(container.SourceFingerprint(boost::none));
  answers.AddUnless(container.SourcesInfo(kNoSuchId) == nullptr, "SourcesInfo");
  answers.AddUnless(container.SourceFingerprint(Some(kNoSuchId)).empty(), "SourceFingerprint");
}

/// The operations that the containers of components, packages and services have.
template <typename Container, typename RecordText>
void AddTreeAnswers(const Container& container, const RecordText& text, AnswerLog& answers) {
  for (const auto& id : container.ListComponents()) {
    const auto data = container.ComponentInfo(id);
    answers.Add(id + " " + text(*data->info) + data->fingerprint);
    answers.Add(container.ComponentFingerprint(id));
  }
  for (const auto& id : container.ListPackages()) {
    answers.Add(id + " " + text(*container.PackageInfo(id)));
  }
  for (const auto& id : container.ListServices()) {
    answers.Add(id + " " + text(*container.ServiceInfo(id)));
    const auto operations = container.ListOperations(id);
    for (const auto& operation : operations.value()) {
      answers.Add(operation + " " + text(*container.OperationInfo(id, operation)));
    }
  }
  answers.AddUnless(container.ComponentInfo(kNoSuchId) == nullptr, "ComponentInfo");
  answers.AddUnless(container.ComponentFingerprint(kNoSuchId).empty(), "ComponentFingerprint");
  answers.AddUnless(container.PackageInfo(kNoSuchId) == nullptr, "PackageInfo");
  answers.AddUnless(container.ServiceInfo(kNoSuchId) == nullptr, "ServiceInfo");
  answers.AddUnless(!container.ListOperations(kNoSuchId), "ListOperations");
  answers.AddUnless(container.OperationInfo(kNoSuchId, kNoSuchId) == nullptr, "OperationInfo");
}

inline AnswerLog AnswersOf(const MetamodelUnderTest::Container& container) {
  AnswerLog answers;
  AddSourceAnswers(container, answers);
  AddTreeAnswers(
      container, [](const auto& record) { return Dump(record); }, answers);
  answers.AddNames(container.ListHiddens());
  for (const auto& id : container.ListEnumerations()) {
    answers.Add(id + " " + Dump(*container.EnumerationInfo(id)));
  }
  for (const auto& id : container.ListStructures()) {
    answers.Add(id + " " + Dump(*container.StructureInfo(id)));
  }
  for (const auto& id : container.ListResources()) {
    answers.Add(id);
    answers.AddNames(*container.ListModels(id));
  }
  answers.AddUnless(container.EnumerationInfo(kNoSuchId) == nullptr, "EnumerationInfo");
  answers.AddUnless(container.StructureInfo(kNoSuchId) == nullptr, "StructureInfo");
  answers.AddUnless(!container.ListModels(kNoSuchId), "ListModels");
  return answers;
}

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

inline std::string SchemesText(
    const std::list<std::shared_ptr<const Bindings::Authentication::AuthenticationInfo>>& list) {
  std::string text;
  for (const auto& scheme : list) {
    text += EnumText(scheme->scheme_type) + " " + Quoted(scheme->session_manager) + " " +
            Quoted(scheme->scheme) + "\n";
  }
  return text;
}

inline std::string SchemesText(const Bindings::Authentication::OperationInfo& operation) {
  return SchemesText(operation.schemes);
}

inline std::string SchemesText(const Bindings::Authentication::ServiceInfo& service) {
  std::string text = SchemesText(service.schemes);
  for (const auto& [id, operation] : service.operations) text += id + SchemesText(*operation);
  return text;
}

inline std::string SchemesText(const Bindings::Authentication::PackageInfo& package) {
  std::string text = SchemesText(package.schemes);
  for (const auto& [id, service] : package.services) text += id + SchemesText(*service);
  return text;
}

inline std::string SchemesText(const Bindings::Authentication::ComponentInfo& component) {
  std::string text;
  for (const auto& [id, package] : component.packages) text += id + SchemesText(*package);
  return text;
}

inline AnswerLog AnswersOf(const AuthenticationUnderTest::Container& container) {
  AnswerLog answers;
  AddSourceAnswers(container, answers);
  AddTreeAnswers(
      container, [](const auto& record) { return SchemesText(record); }, answers);
  return answers;
}

inline std::string CommandText(const Bindings::Cli::CommandSvc::Info& command) {
  std::string text = CliUnderTest::Text(command);
  for (const auto& option : command.options) {
    text += "\n" + option->long_option + Quoted(option->short_option) + option->field_name +
            option->description + option->type + EnumText(option->generic);
  }
  if (command.formatter) text += EnumText(*command.formatter);
  for (const auto& output : command.output_field_list) {
    text += "\n" + output->structure_id;
    for (const auto& field : output->output_fields) text += field->field_name + field->display_name;
  }
  return text;
}

inline AnswerLog AnswersOf(const CliUnderTest::Container& container) {
  AnswerLog answers;
  AddSourceAnswers(container, answers);
  for (const auto& identity : container.ListNamespaces()) {
    const auto found = container.NamespaceInfo(identity);
    std::string text = identity->path + "." + identity->name + " " + found->description;
    for (const auto& child : found->children) text += "\n" + child->path + "." + child->name;
    answers.Add(text);
    for (const auto& command : container.ListCommands(Some(identity->path))) {
      answers.Add(command->path + "." + command->name);
    }
  }
  for (const auto& identity : container.ListCommands(boost::none)) {
    answers.Add(CommandText(*container.CommandInfo(identity)));
  }
  answers.Add(container.NamespaceFingerprint());
  answers.Add(container.CommandFingerprint());
  const auto command = std::make_shared<const Bindings::Cli::CommandSvc::Identity>(kNoSuchId, "");
  answers.AddUnless(container.CommandInfo(command) == nullptr, "CommandInfo");
  const auto name_space =
      std::make_shared<const Bindings::Cli::NamespaceSvc::Identity>(kNoSuchId, "");
  answers.AddUnless(container.NamespaceInfo(name_space) == nullptr, "NamespaceInfo");
  return answers;
}

template <typename Container>
std::string AllAnswers(const Container& container) {
  return AnswersOf(container).Text();
}

}  // namespace Zelk::Testing
