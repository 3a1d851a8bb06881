#include <algorithm>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/metamodel/records.h>
#include <zelk/provider/metadata/metamodel/metadata_container.h>
#include <zelk/provider/metadata/metamodel/services.h>

#include "support/cli_text.h"
#include "support/source_dir.h"
#include "surface/cli_under_test.h"

// The commands for the library's own services, held against the description of these services.

namespace Zelk::Testing {
namespace {

namespace Provided = Provider::Metadata;
using Bindings::Cli::CommandSvc::FormatterType;
using Bindings::Metamodel::TypeEnumerations::BuiltinType;
using CommandService = Provided::Cli::CommandSvc::AsyncServiceImpl;
using OperationService = Provided::Metamodel::Service::OperationSvc::AsyncServiceImpl;
using SourceService = Provided::Metamodel::SourceSvc::AsyncServiceImpl;
using StructureService = Provided::Metamodel::StructureSvc::AsyncServiceImpl;
using TypePtr = std::shared_ptr<const Bindings::Metamodel::Type>;
using OperationPtr = std::shared_ptr<const Bindings::Metamodel::OperationInfo>;
using StructurePtr = std::shared_ptr<const Bindings::Metamodel::StructureInfo>;
using CommandPtr = std::shared_ptr<const Bindings::Cli::CommandSvc::Info>;
using Fields = std::list<std::shared_ptr<const Bindings::Metamodel::FieldInfo>>;

/// Where an option can go: the parameter, or its field after a full stop, and the type there.
using Leaves = std::map<std::string, TypePtr>;

/// The structure that a type is, or is a collection of; empty for other types.
std::string StructureIn(const TypePtr& type) {
  if (type->user_defined_type) {
    const bool is_structure = type->user_defined_type->resource_type == "com.orvane.zelk.structure";
    return is_structure ? type->user_defined_type->resource_id : "";
  }
  if (!type->generic_instantiation) return "";
  const auto& generic = *type->generic_instantiation;
  return StructureIn(generic.element_type ? generic.element_type : generic.map_value_type);
}

/// The type and the generic kind that an option of this type has.
std::string OptionTypeText(const TypePtr& type) {
  if (type->builtin_type) return EnumText(*type->builtin_type) + " NONE";
  if (type->user_defined_type) return type->user_defined_type->resource_id + " NONE";
  const auto& generic = *type->generic_instantiation;
  const std::string inner = generic.element_type ? OptionTypeText(generic.element_type) : "";
  const auto plain = inner.find(" NONE");
  if (plain == std::string::npos) return "no option can have this type";
  return inner.substr(0, plain) + " " + EnumText(generic.generic_type);
}

/// Both files, loaded and asked through their services.
class CliOwnMetadata : public testing::Test {
 protected:
  CliOwnMetadata() {
    const std::string folder = ZELK_SOURCE_DIR "/metadata/";
    const auto error = cli_->CreateSource("own", CliSources::At(folder + "cli/zelk-metadata.json"));
    if (error) throw std::invalid_argument(ErrorLines(error).back());
    const auto spec = std::make_shared<const Bindings::Metamodel::SourceSvc::CreateSpec>(
        "", SourceType::LOCAL_FILE, folder + "metamodel/zelk-metadata.json", boost::none);
    SourceService service(metamodel_);
    const auto delivery = Ask(service, &SourceService::Create, "own", spec);
    if (delivery.error) throw std::invalid_argument(ErrorLines(delivery.error).back());
  }

  void SetUp() override { ASSERT_FALSE(Commands().empty()); }

  std::vector<CommandPtr> Commands() const {
    CommandService service(cli_);
    std::vector<CommandPtr> commands;
    for (const auto& identity : ValueOf(Ask(service, &CommandService::List, boost::none))) {
      commands.push_back(ValueOf(Ask(service, &CommandService::Get, identity)));
    }
    return commands;
  }

  OperationPtr Operation(const CommandPtr& command) const {
    OperationService service(metamodel_);
    return Ask(service, &OperationService::Get, command->service_id, command->operation_id)
        .value.value_or(nullptr);
  }

  StructurePtr Structure(const std::string& id) const {
    StructureService service(metamodel_);
    return Ask(service, &StructureService::Get, id).value.value_or(nullptr);
  }

  Leaves LeavesOf(const Fields& fields, const std::string& prefix = "") const {
    Leaves leaves;
    for (const auto& field : fields) {
      const auto structure = Structure(StructureIn(field->type));
      if (structure) leaves.merge(LeavesOf(structure->fields, prefix + field->name + "."));
      if (!structure) leaves[prefix + field->name] = field->type;
    }
    return leaves;
  }

  /// The structure and those of its fields, theirs, and so on.
  void Reach(const std::string& id, std::set<std::string>& reached) const {
    const auto structure = Structure(id);
    if (!structure || !reached.insert(id).second) return;
    for (const auto& field : structure->fields) Reach(StructureIn(field->type), reached);
  }

  std::shared_ptr<Provided::Cli::MetadataContainer> cli_ =
      Provided::Cli::MetadataContainer::GetInstance();
  std::shared_ptr<Provided::Metamodel::MetadataContainer> metamodel_ =
      Provided::Metamodel::MetadataContainer::GetInstance();
};

TEST_F(CliOwnMetadata, HasOneCommandForEachOperation) {
  std::multiset<std::pair<std::string, std::string>> commands;
  for (const auto& command : Commands()) {
    commands.emplace(command->service_id, command->operation_id);
  }
  std::multiset<std::pair<std::string, std::string>> operations;
  for (const auto& service : metamodel_->ListServices()) {
    const auto names = metamodel_->ListOperations(service);
    for (const auto& name : names.value()) operations.emplace(service, name);
  }
  EXPECT_FALSE(operations.empty());
  EXPECT_EQ(commands, operations);
}

TEST_F(CliOwnMetadata, NamesCommandsAfterTheirServicesAndOperations) {
  for (const auto& command : Commands()) {
    EXPECT_EQ("com.orvane.zelk." + command->identity->path, command->service_id);
    EXPECT_EQ(command->identity->name, command->operation_id) << command->service_id;
    EXPECT_NE(command->description, "") << CliText(*command);
  }
}

TEST_F(CliOwnMetadata, HasAnOptionForEachParameter) {
  for (const auto& command : Commands()) {
    const auto operation = Operation(command);
    ASSERT_TRUE(operation) << CliText(*command);
    std::map<std::string, std::string> expected;
    for (const auto& [name, type] : LeavesOf(operation->params)) {
      expected[name] = OptionTypeText(type);
    }
    std::map<std::string, std::string> options;
    for (const auto& option : command->options) {
      EXPECT_TRUE(
          options.emplace(option->field_name, option->type + " " + EnumText(option->generic))
              .second)
          << CliText(*option);
    }
    EXPECT_EQ(options, expected) << CliText(*command);
  }
}

TEST_F(CliOwnMetadata, HasNoRepeatedOptions) {
  for (const auto& command : Commands()) {
    std::set<std::string> names;
    for (const auto& option : command->options) {
      EXPECT_TRUE(names.insert("--" + option->long_option).second) << CliText(*command);
      EXPECT_GT(option->long_option.size(), 1u) << CliText(*command);
      EXPECT_NE(option->description, "") << CliText(*command);
      if (!option->short_option) continue;
      EXPECT_TRUE(names.insert("-" + *option->short_option).second) << CliText(*command);
      EXPECT_EQ(option->short_option->size(), 1u) << CliText(*command);
    }
  }
}

TEST_F(CliOwnMetadata, ShowsOnlyKnownFields) {
  for (const auto& command : Commands()) {
    for (const auto& output : command->output_field_list) {
      const auto structure = Structure(output->structure_id);
      ASSERT_TRUE(structure) << CliText(*output);
      EXPECT_FALSE(output->output_fields.empty()) << CliText(*output);
      for (const auto& field : output->output_fields) {
        const auto& known = structure->fields;
        EXPECT_TRUE(std::any_of(
            known.begin(), known.end(),
            [&](const auto& candidate) { return candidate->name == field->field_name; }))
            << field->field_name << " of " << CliText(*output);
        EXPECT_NE(field->display_name, "") << CliText(*output);
      }
    }
  }
}

TEST_F(CliOwnMetadata, ShowsTheStructureOfTheResultFirst) {
  for (const auto& command : Commands()) {
    const auto operation = Operation(command);
    ASSERT_TRUE(operation) << CliText(*command);
    const std::string result = StructureIn(operation->output->type);
    EXPECT_EQ(command->output_field_list.empty(), result.empty()) << CliText(*command);
    if (command->output_field_list.empty()) continue;
    EXPECT_EQ(command->output_field_list.front()->structure_id, result) << CliText(*command);
    std::set<std::string> reached;
    Reach(result, reached);
    for (const auto& output : command->output_field_list) {
      EXPECT_EQ(reached.erase(output->structure_id), 1u) << CliText(*output);
    }
  }
}

TEST_F(CliOwnMetadata, HasAFormatterForEachResult) {
  for (const auto& command : Commands()) {
    const auto operation = Operation(command);
    ASSERT_TRUE(operation) << CliText(*command);
    const auto& result = *operation->output->type;
    const bool is_void = result.builtin_type && *result.builtin_type == BuiltinType::VOID;
    EXPECT_EQ(command->formatter.has_value(), !is_void) << CliText(*command);
    if (!command->formatter) continue;
    EXPECT_NE(command->formatter->Value(), FormatterType::UNKNOWN) << CliText(*command);
  }
}

TEST_F(CliOwnMetadata, DeclaresEachNamespaceBeforeItsChildren) {
  std::set<std::string> names;
  for (const auto& identity : cli_->ListNamespaces()) {
    const auto info = cli_->NamespaceInfo(identity);
    // Named after its children, a namespace would have lost some and be listed twice by its parent.
    for (const auto& child : info->children) {
      EXPECT_TRUE(names.insert(CliText(*child)).second) << CliText(*info);
    }
    if (identity->name.empty()) continue;
    EXPECT_NE(info->description, identity->name + " namespace");
    EXPECT_NE(info->description, "") << CliText(*info);
  }
  EXPECT_EQ(names.size(), cli_->ListNamespaces().size());
}

TEST_F(CliOwnMetadata, DeclaresTheNamespacesOfItsCommands) {
  std::set<std::string> full_names;
  for (const auto& identity : cli_->ListNamespaces()) {
    full_names.insert(identity->path.empty() ? identity->name
                                             : identity->path + "." + identity->name);
  }
  for (const auto& command : Commands()) {
    EXPECT_EQ(full_names.count(command->identity->path), 1u) << CliText(*command);
  }
}

}  // namespace
}  // namespace Zelk::Testing
