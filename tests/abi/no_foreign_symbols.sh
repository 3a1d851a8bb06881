#!/usr/bin/env bash
# A library takes no part in how its host resolves the names of what it is built from: no symbol of
# its dynamic table, given or taken, is RapidJSON's, and none is unique to the process, which would
# keep the library loaded for good.
# usage: no_foreign_symbols.sh LIBRARY
set -uo pipefail
export LC_ALL=C
table=$(nm -DC "$1") && unique=$(readelf -W --dyn-syms "$1" | grep -w UNIQUE | grep -vw UND)
[ "$(wc -l <<<"$table")" -gt 50 ] || exit 1
status=0
if grep -i 'rapidjson' <<<"$table"; then
  echo "$1 shows RapidJSON"
  status=1
fi
if [ -n "$unique" ]; then
  printf '%s\n%s can never be unloaded\n' "$unique" "$1"
  status=1
fi
exit $status
