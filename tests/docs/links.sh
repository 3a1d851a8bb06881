#!/usr/bin/env bash
# Every file that a document links to exists.
# usage: links.sh FOLDER
set -uo pipefail
shopt -s nullglob
cd "$1" || exit
status=0
count=0
for document in *.md */*.md; do
  folder=$(dirname "$document")
  while read -r link; do
    count=$((count + 1))
    [ -e "$folder/${link%%#*}" ] || { echo "$document: $link does not exist"; status=1; }
  done < <(awk '/^```/ { code = !code; next } !code' "$document" | grep -oE '\]\([^)]+\)' |
    sed -E 's/^\]\(|\)$//g' | grep -vE '^(https?:|#)')
done
echo "$count links"
[ "$count" -gt 0 ] || status=1
exit $status
