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

#define ZELK_EXAMPLE_TYPE(kind, name) \
  R"({"category": "USER_DEFINED", "user_defined_type": ")" kind \
  "\",\n  \"user_defined_type_name\": \"" name "\"}"

/// A field or a parameter.
#define ZELK_EXAMPLE_FIELD(name, metadata, type) \
  "\n  {\"name\": \"" name R"(", "documentation": "A part.", "metadata": {)" metadata \
  "},\n  \"type\": " type "}"

#define ZELK_EXAMPLE_STRUCTURE(name, type, fields) \
  "\n  {\"name\": \"" name "\", \"type\": \"" type "\", \"documentation\": \"Facts.\"," \
  "\n  \"metadata\": {}, \"enumerations\": [], \"constants\": [], \"fields\": [" fields "]}"

/// A file with one operation that takes and returns nothing else.
#define ZELK_EXAMPLE_OF(structures, params, result, errors) \
  ZELK_EXAMPLE_SERVICE(structures, "", ZELK_EXAMPLE_OPERATION("start", params, result, errors))

/// Built-in types.
#define ZELK_EXAMPLE_VOID ZELK_EXAMPLE_BUILTIN("VOID")

#define ZELK_EXAMPLE_LONG ZELK_EXAMPLE_BUILTIN("LONG")

/// The element path of the service.
#define ZELK_EXAMPLE_PATH "metamodel/component:acme/package:acme.power/service:acme.power.switch"

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

#define ZELK_EXAMPLE_OPTION(name, field, type, generic) \
  "\n  {\"long_option\": \"" name "\", \"field_name\": \"" field R"(", "description": "How much.",)" \
  "\n  \"type\": \"" type "\", \"generic\": \"" generic "\"}"

#define ZELK_EXAMPLE_OUTPUT(structure, field) \
  "\n  {\"structure_id\": \"" structure "\", \"output_fields\": [" \
  "\n  {\"field_name\": \"" field R"(", "display_name": "Volts"}]})"

/// A file with one command; `options` and `outputs` are lists without their brackets.
#define ZELK_EXAMPLE_STARTS(options, outputs) \
  ZELK_EXAMPLE_CLI(ZELK_EXAMPLE_COMMAND( \
    "", "start", ",\n  \"options\": [" options "], \"output_field_list\": [" outputs "]"))

// NOLINTEND(cppcoreguidelines-macro-usage)
// clang-format on
