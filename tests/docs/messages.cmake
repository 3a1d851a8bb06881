# Compares the table of docs/messages.md with what zelk-metadata explains. ZELK_UPDATE_GOLDEN=1
# rewrites it.
# usage: cmake -DTOOL=PROGRAM -DPAGE=docs/messages.md -P messages.cmake
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${TOOL} explain --output json
  OUTPUT_VARIABLE messages COMMAND_ERROR_IS_FATAL ANY)
string(JSON messages GET "${messages}" messages)
string(JSON count LENGTH "${messages}")
math(EXPR last "${count} - 1")
set(table "| Id | Default text | Means | Usual cause | What to do |\n|---|---|---|---|---|\n")
foreach(index RANGE ${last})
  foreach(key id text meaning cause fix)
    string(JSON ${key} GET "${messages}" ${index} ${key})
  endforeach()
  string(APPEND table "| `${id}` | ${text} | ${meaning} | ${cause} | ${fix} |\n")
endforeach()

# The page around the table is written by hand.
file(READ ${PAGE} page)
set(first_row "| Id | Default text |")
string(FIND "${page}" "${first_row}" begin)
if(begin EQUAL -1)
  message(FATAL_ERROR "${PAGE} has no table that begins with '${first_row}'")
endif()
string(SUBSTRING "${page}" 0 ${begin} before)
string(SUBSTRING "${page}" ${begin} -1 rest)
string(FIND "${rest}" "\n\n" end)
string(SUBSTRING "${rest}" ${end} -1 after)
set(expected "${before}${table}")
string(SUBSTRING "${after}" 1 -1 after)
string(APPEND expected "${after}")
if("$ENV{ZELK_UPDATE_GOLDEN}" STREQUAL 1)
  file(WRITE ${PAGE} "${expected}")
elseif(NOT page STREQUAL expected)
  message(FATAL_ERROR "The table of ${PAGE} is not what 'zelk-metadata explain --output json' says. "
    "ZELK_UPDATE_GOLDEN=1 writes it anew.")
endif()
message("${count} messages")
