#!/usr/bin/env bash
# usage: install.sh CMAKE BUILD PREFIX LIST      Set ZELK_UPDATE_GOLDEN=1 to write the list anew.
set -euo pipefail
export LC_ALL=C

rm -rf "$3"
"$1" --install "$2" --prefix "$3" >/dev/null
# What a package of another build type is called is not part of the contract.
files() {
  (cd "$1" && find . -mindepth 1 ! -type d) | sed -E 's|^\./||; s|-(release|debug)\.cmake$|-*.cmake|' | sort
}
if [ "${ZELK_UPDATE_GOLDEN:-}" = 1 ]; then
  files "$3" >"$4"
fi
diff "$4" <(files "$3")
