#!/usr/bin/env bash
# usage: install.sh CMAKE BUILD PREFIX LIST      Set ZELK_UPDATE_GOLDEN=1 to write the list anew.
set -euo pipefail
export LC_ALL=C

rm -rf "$3"
"$1" --install "$2" --prefix "$3" >/dev/null
# One file is named after the build type; the list is the same for all of them.
installed=$(cd "$3" && find . -mindepth 1 ! -type d -printf '%P\n' |
  sed -E 's#-targets-[a-z]+\.cmake$#-targets-BUILD_TYPE.cmake#' | sort)
if [ "${ZELK_UPDATE_GOLDEN:-}" = 1 ]; then
  printf '%s\n' "$installed" >"$4"
fi
diff "$4" - <<<"$installed"
