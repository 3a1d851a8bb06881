#include "stateful/model_messages.h"

#include "stateful/answer_text.h"
#include "support/surface_recorder.h"

namespace Zelk::Fuzzing {
namespace {

struct Row {
  const char* id;
  const char* text;
};

// Written down once more, so that a text that changes by mistake is noticed. An id without a row
// has no text of its own, and that is meant.
constexpr Row kRows[] = {
    {"zelk.metada.cli.namespace.not.found", "Cli namespace not found: %1%"},
    {"zelk.metada.cli.command.not.found", "Cli command not found: %1%"},
    {"zelk.metada.cli.source.not.found", "Cli source not found: %1%"},
    {"zelk.metada.cli.source.file.not.found", "Cli source file not found: %1%"},
    {"zelk.metada.cli.source.exists", "Cli source already exists: %1%"},
    {"zelk.metadata.cli.parse.error", "Cli source file parse error : %1% at %2%"},
    {"zelk.metadata.json.invalid.field", "Json parse invalid field: %1%"},
    {"zelk.metadata.json.invalid.enum.value", "Json parse invalid enum value: %1%"},
    {"zelk.metadata.json.missing.field", "Json parse missing field: %1%"},
    {"zelk.metada.metamodel.source.not.found", "Metamodel source not found: %1%"},
    {"zelk.metada.metamodel.source.file.not.found", "Metamodel source file not found: %1%"},
    {"zelk.metada.metamodel.source.exists", "Metamodel source already exists: %1%"},
    {"zelk.metadata.metamodel.parse.error", "Metamodel source file parse error : %1% at %2%"},
    {"zelk.metada.metamodel.component.not.found", "Metamodel component not found: %1%"},
    {"zelk.metada.metamodel.package.not.found", "Metamodel package not found: %1%"},
    {"zelk.metada.metamodel.service.not.found", "Metamodel service not found: %1%"},
    {"zelk.metada.metamodel.operation.not.found", "Metamodel operation not found: %1%[%2%]"},
    {"zelk.metada.metamodel.structure.not.found", "Metamodel structure not found: %1%"},
    {"zelk.metada.metamodel.resource.not.found", "Metamodel resource not found: %1%"},
    {"zelk.metada.metamodel.enumeration.not.found", "Metamodel enumeration not found: %1%"},
    {"zelk.metada.authentication.source.not.found", "Authentication source not found: %1%"},
    {"zelk.metada.authentication.source.file.not.found",
     "Authentication source file not found: %1%"},
    {"zelk.metada.authentication.source.exists", "Authentication source already exists: %1%"},
    {"zelk.metadata.authentication.parse.error",
     "Authentication source file parse error : %1% at %2%"},
    {"zelk.metada.authentication.package.not.found", "Authentication package not found: %1%"},
    {"zelk.metada.authentication.service.not.found", "Authentication service not found: %1%"},
    {"zelk.metada.authentication.operation.not.found",
     "Authentication operation not found: %1%[%2%]"},
    {"zelk.metadata.authentication.json.unknown.schema.name",
     "Authentication unknown schema name: %1%"},
};

}  // namespace

std::string Message(const std::string& id, const std::list<std::string>& arguments) {
  for (const auto& row : kRows) {
    if (id == row.id) return Testing::MessageLine(id, row.text, arguments);
  }
  return Testing::MessageLine(id, "Unknown message.", arguments);
}

std::string NotFound(const std::string& id, const std::list<std::string>& arguments) {
  return ErrorText({Testing::kNotFoundError, Message(id, arguments)});
}

}  // namespace Zelk::Fuzzing
