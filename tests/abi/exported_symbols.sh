#!/usr/bin/env bash
# usage: exported_symbols.sh LIBRARY LIST      Set ZELK_UPDATE_GOLDEN=1 to write the list anew.
set -euo pipefail
export LC_ALL=C

symbols() {
  nm -DC --defined-only "$1" | sed -E 's/^[0-9a-f]+ . //; s/@@.*//' | sort -u
}
if [ "${ZELK_UPDATE_GOLDEN:-}" = 1 ]; then
  symbols "$1" >"$2"
fi
actual=$(symbols "$1")
diff "$2" - <<<"$actual"
