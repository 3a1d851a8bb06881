#!/usr/bin/env bash
# README.md has at most 150 lines, each page of docs/ at most 250.
# usage: length.sh SOURCE
set -uo pipefail
cd "$1" || exit
status=0
check() {
  local lines
  lines=$(wc -l <"$1") || status=1
  [ "$lines" -le "$2" ] || { echo "$1: $lines lines, at most $2 are allowed"; status=1; }
}
check README.md 150
for page in docs/*.md; do check "$page" 250; done
exit $status
