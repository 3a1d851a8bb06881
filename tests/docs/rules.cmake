# Compares docs/lint-rules.md with the rules of zelk-metadata. ZELK_UPDATE_GOLDEN=1 rewrites it.
# usage: cmake -DTOOL=PROGRAM -DPAGE=docs/lint-rules.md -P rules.cmake
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${TOOL} lint --list-rules --output json
  OUTPUT_VARIABLE rules COMMAND_ERROR_IS_FATAL ANY)
string(JSON count LENGTH "${rules}" rules)
math(EXPR last "${count} - 1")
set(expected "# The rules of `zelk-metadata lint`

This page is made from what `zelk-metadata lint --list-rules --output json` prints.
`zelk-metadata explain RULE` shows a rule with an example. [ci.md](ci.md) shows how to lint.
")
set(before "")
foreach(index RANGE ${last})
  foreach(key id group severity default decided_by title meaning cause fix)
    string(JSON ${key} GET "${rules}" rules ${index} ${key})
  endforeach()
  if(NOT group STREQUAL before)
    string(APPEND expected "\n## Group `${group}`\n\n"
      "| Rule | Severity | Decided by | Checks | Means | What to do |\n|---|---|---|---|---|---|\n")
    set(before ${group})
  endif()
  if(NOT default)
    set(severity "off")
  endif()
  string(APPEND expected
    "| `${id}` | ${severity} | ${decided_by} | ${title} | ${meaning} | ${fix} |\n")
endforeach()

if("$ENV{ZELK_UPDATE_GOLDEN}" STREQUAL 1)
  file(WRITE ${PAGE} "${expected}")
else()
  file(READ ${PAGE} page)
  if(NOT page STREQUAL expected)
    message(FATAL_ERROR "${PAGE} is not what 'zelk-metadata lint --list-rules' says. "
      "ZELK_UPDATE_GOLDEN=1 writes it anew.")
  endif()
endif()
message("${count} rules")
