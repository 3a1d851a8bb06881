#!/usr/bin/env bash
# Names that the behaviour fixes, misspelt ones too, stay declared as they are.
# usage: names.sh SOURCE BUILD
set -uo pipefail
cd "$1"
status=0
while read -r file name; do
  if ! grep -qE "(^|[^A-Za-z0-9_])$name([^A-Za-z0-9_]|\$)" "$file"; then
    echo "$file no longer declares $name"
    status=1
  fi
done < <(grep -v '^#' tests/house/names.txt)
exit $status
