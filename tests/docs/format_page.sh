#!/usr/bin/env bash
# The JSON blocks of a page are files: the line above each names it ("`lending.json`:"). All of them
# load, and the page's commands, run in their folder, print what the page shows.
# usage: format_page.sh PAGE BIN
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

awk -v folder="$work" '
  /^```json$/ {
    if (!match(above, /`[a-z-]+\.json`:$/)) {
      print "the JSON block in line " NR " has no name"
      exit 1
    }
    file = folder "/" substr(above, RSTART + 1, RLENGTH - 3)
    next
  }
  /^```/ { file = "" }
  file != "" { print >file }
  NF { above = $0 }' "$1"
page=$(realpath "$1")
commands=$(realpath "$(dirname "$0")")/commands.sh
cd "$work"
export PATH="$2:$PATH"
zelk-metadata check -- *.json
"$commands" "$page" "$2"
