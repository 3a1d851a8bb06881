#pragma once

#include <string>
#include <vector>

namespace Zelk::Fuzzing {

/// The operations that change nothing. Those of one name in two domains are one here.
enum class Operation {
  kListSources,
  kGetSource,
  kFingerprintOfSource,
  kFingerprintOfAllSources,
  kListComponents,
  kGetComponent,
  kFingerprintOfComponent,
  kListPackages,
  kGetPackage,
  kListServices,
  kGetService,
  kListOperations,
  kGetOperation,
  kListHiddens,
  kListEnumerations,
  kGetEnumeration,
  kListStructures,
  kGetStructure,
  kListResources,
  kListModels,
  kListNamespaces,
  kGetNamespace,
  kFingerprintOfNamespaces,
  kListAllCommands,
  kListCommands,
  kGetCommand,
  kFingerprintOfCommands,
};

const char* OperationName(Operation operation);

/// An operation with up to two keys: the second is an operation of a service, or the name of what
/// has the first as its path.
struct Question {
  Operation operation;
  std::string key;
  std::string second_key;
};

using Questions = std::vector<Question>;

// Every operation, with every name that documents use and one that none uses.
const Questions& MetamodelQuestions();
const Questions& AuthenticationQuestions();
const Questions& CliQuestions();

}  // namespace Zelk::Fuzzing
