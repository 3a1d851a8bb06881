#pragma once

// The parts of examples that say nothing about their rules. The arguments are string literals.

// clang-format off
// NOLINTBEGIN(cppcoreguidelines-macro-usage): only macros join literals

/// A Metamodel file; `members` begin with a comma.
#define ZELK_EXAMPLE_COMPONENT(packages, members) \
  R"({"metamodel": {"component": {"name": "acme", "documentation": "Controls machines.",)" \
  "\n  \"metadata\": {}, \"packages\": [" packages "]" members "}}}"

/// One package with one service.
#define ZELK_EXAMPLE_SERVICE(structures, constants, operations) \
  ZELK_EXAMPLE_COMPONENT( \
    "\n  " R"({"name": "acme.power", "documentation": "Power.", "metadata": {}, "enumerations": [],)" \
    "\n  " R"("structures": [], "services": [)" \
    "\n  " R"({"name": "acme.power.switch", "documentation": "Switches.", "metadata": {},)" \
    "\n  " R"("enumerations": [], "structures": [)" structures \
    "],\n  \"constants\": [" constants "], \"operations\": [" operations "]}]}", "")

/// An operation; `params` are what it takes.
#define ZELK_EXAMPLE_OPERATION(name, params, result, errors) \
  "\n  {\"name\": \"" name R"(", "documentation": "Does it.", "metadata": {}, "params": [)" params \
  "],\n  " R"("result": {"documentation": "What it did.", "metadata": {}, "type": )" result \
  "}, \"errors\": [" errors "]}"

#define ZELK_EXAMPLE_BUILTIN(name) R"({"category": "BUILTIN", "primitive_type": ")" name "\"}"

/// An operation that takes nothing and returns nothing.
#define ZELK_EXAMPLE_START ZELK_EXAMPLE_OPERATION("start", "", ZELK_EXAMPLE_BUILTIN("VOID"), "")

/// An Authentication file with one scheme; `members` begin with a comma.
#define ZELK_EXAMPLE_SCHEME(members) \
  R"({"authentication": {"component": {"name": "acme", "schemes": {)" \
  "\n  " R"("login": {"authenticationScheme": "acme.login", "type": "SESSIONLESS"}})" members "}}}"

/// A CLI file.
#define ZELK_EXAMPLE_CLI(nodes) "{\"cli\": [" nodes "]}"

#define ZELK_EXAMPLE_NAMESPACE(path, name) \
  "\n  " R"({"type": "namespace", "path": ")" path R"(", "name": ")" name \
  R"(", "description": "Controls machines."})"

/// A command; `metadata` begins with a comma.
#define ZELK_EXAMPLE_COMMAND(path, name, metadata) \
  "\n  " R"({"type": "command", "path": ")" path R"(", "name": ")" name \
  "\", \"description\": \"Starts it.\",\n  \"node_metadata\": " \
  R"({"service_id": "acme.power.switch", "operation_id": "start")" metadata "}}"

// NOLINTEND(cppcoreguidelines-macro-usage)
// clang-format on
