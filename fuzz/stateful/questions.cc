#include "stateful/questions.h"

#include <cstddef>

#include "stateful/names.h"

namespace Zelk::Fuzzing {
namespace {

using Names = std::vector<std::string>;

/// The names of a pool and the one that no document has.
template <typename Pool>
Names Known(const Pool& pool) {
  Names names(pool.begin(), pool.end());
  names.push_back(kUnknownName);
  return names;
}

void Add(Questions& questions, Operation operation, const Names& keys) {
  for (const auto& key : keys) questions.push_back({operation, key, ""});
}

void Add(Questions& questions, Operation operation, const Names& keys, const Names& second_keys) {
  for (const auto& key : keys) {
    for (const auto& second : second_keys) questions.push_back({operation, key, second});
  }
}

void Add(Questions& questions, Operation operation) {
  questions.push_back({operation, "", ""});
}

Questions SourceQuestions() {
  Questions questions;
  Add(questions, Operation::kListSources);
  Add(questions, Operation::kFingerprintOfAllSources);
  Add(questions, Operation::kGetSource, Known(kSourceIds));
  Add(questions, Operation::kFingerprintOfSource, Known(kSourceIds));
  return questions;
}

/// What Metamodel and Authentication have in common.
Questions TreeQuestions(const Names& packages, const Names& services, const Names& operations) {
  Questions questions = SourceQuestions();
  Add(questions, Operation::kListComponents);
  Add(questions, Operation::kGetComponent, Known(kNames));
  Add(questions, Operation::kFingerprintOfComponent, Known(kNames));
  Add(questions, Operation::kListPackages);
  Add(questions, Operation::kGetPackage, packages);
  Add(questions, Operation::kListServices);
  Add(questions, Operation::kGetService, services);
  Add(questions, Operation::kListOperations, services);
  Add(questions, Operation::kGetOperation, services, operations);
  return questions;
}

}  // namespace

const char* OperationName(Operation operation) {
  constexpr const char* kOperationNames[] = {
      "SourceSvc.List",           "SourceSvc.Get",
      "SourceSvc.Fingerprint",    "SourceSvc.Fingerprint of all",
      "ComponentSvc.List",        "ComponentSvc.Get",
      "ComponentSvc.Fingerprint", "PackageSvc.List",
      "PackageSvc.Get",           "ServiceSvc.List",
      "ServiceSvc.Get",           "OperationSvc.List",
      "OperationSvc.Get",         "HiddenSvc.List",
      "EnumerationSvc.List",      "EnumerationSvc.Get",
      "StructureSvc.List",        "StructureSvc.Get",
      "ResourceSvc.List",         "ModelSvc.List",
      "NamespaceSvc.List",        "NamespaceSvc.Get",
      "NamespaceSvc.Fingerprint", "CommandSvc.List of all",
      "CommandSvc.List",          "CommandSvc.Get",
      "CommandSvc.Fingerprint"};
  return kOperationNames[static_cast<std::size_t>(operation)];
}

const Questions& MetamodelQuestions() {
  static const Questions kQuestions = [] {
    const Names names = Known(kNames);
    Questions questions = TreeQuestions(names, names, names);
    Add(questions, Operation::kListHiddens);
    Add(questions, Operation::kListEnumerations);
    Add(questions, Operation::kGetEnumeration, names);
    Add(questions, Operation::kListStructures);
    Add(questions, Operation::kGetStructure, names);
    Add(questions, Operation::kListResources);
    Add(questions, Operation::kListModels, Known(kResources));
    return questions;
  }();
  return kQuestions;
}

const Questions& AuthenticationQuestions() {
  static const Questions kQuestions =
      TreeQuestions(Known(kPackages), Known(kServices), Known(kOperations));
  return kQuestions;
}

const Questions& CliQuestions() {
  static const Questions kQuestions = [] {
    Questions questions = SourceQuestions();
    Add(questions, Operation::kListNamespaces);
    Add(questions, Operation::kGetNamespace, Known(kPaths), Known(kLeaves));
    Add(questions, Operation::kFingerprintOfNamespaces);
    Add(questions, Operation::kListAllCommands);
    Add(questions, Operation::kListCommands, Known(kPaths));
    Add(questions, Operation::kGetCommand, Known(kPaths), Known(kLeaves));
    Add(questions, Operation::kFingerprintOfCommands);
    return questions;
  }();
  return kQuestions;
}

}  // namespace Zelk::Fuzzing
