# Compares docs/diff-changes.md with the changes that zelk-metadata knows. ZELK_UPDATE_GOLDEN=1
# rewrites it.
# usage: cmake -DTOOL=PROGRAM -DPAGE=docs/diff-changes.md -P changes.cmake
cmake_minimum_required(VERSION 3.25)

# A word for each audience: the first letters of both directions if they differ.
function(verdict kind audience result)
  foreach(direction input output)
    string(JSON ${direction} ERROR_VARIABLE missing GET "${kind}" ${direction} ${audience})
    if(missing)
      set(${direction} "")
    endif()
  endforeach()
  if(NOT input STREQUAL output)
    set(input "${input} / ${output}")
  endif()
  set(${result} "${input}" PARENT_SCOPE)
endfunction()

execute_process(COMMAND ${TOOL} diff --list-changes --output json
  OUTPUT_VARIABLE kinds COMMAND_ERROR_IS_FATAL ANY)
string(JSON count LENGTH "${kinds}" kinds)
math(EXPR last "${count} - 1")
set(expected "# The changes that `zelk-metadata diff` finds

This page is made from what `zelk-metadata diff --list-changes --output json` prints.
`zelk-metadata explain CHANGE` shows a change with an example. [evolving.md](evolving.md) shows how
to change metadata without breaking callers.

An empty field means that the audience is not concerned. Of two words, the first one is for what
callers send and the second one for what they receive. Some changes have other classes, such as by
the types that they are about, or because commands fail that did not change. The report shows them.
")
set(before "")
foreach(index RANGE ${last})
  string(JSON kind GET "${kinds}" kinds ${index})
  foreach(key id area title meaning advice)
    string(JSON ${key} GET "${kind}" ${key})
  endforeach()
  if(NOT area STREQUAL before)
    string(APPEND expected "\n## Area `${area}`\n\n"
      "| Change | wire | source | cli | auth | metadata | Means | What to do |\n"
      "|---|---|---|---|---|---|---|---|\n")
    set(before ${area})
  endif()
  string(APPEND expected "| `${id}`")
  foreach(audience wire source cli auth metadata)
    verdict("${kind}" ${audience} text)
    string(APPEND expected " | ${text}")
  endforeach()
  string(APPEND expected " | ${title}. ${meaning} | ${advice} |\n")
endforeach()

if("$ENV{ZELK_UPDATE_GOLDEN}" STREQUAL 1)
  file(WRITE ${PAGE} "${expected}")
else()
  file(READ ${PAGE} page)
  if(NOT page STREQUAL expected)
    message(FATAL_ERROR "${PAGE} is not what 'zelk-metadata diff --list-changes' says. "
      "ZELK_UPDATE_GOLDEN=1 writes it anew.")
  endif()
endif()
message("${count} changes")
