#!/usr/bin/env bash
# Links between documents, and files that documents name in backticks with a folder, exist.
# usage: links.sh SOURCE
set -uo pipefail
cd "$1"
status=0
for document in *.md docs/*.md metadata/*.md; do
  folder=$(dirname "$document")
  prose=$(awk '/^```/ { code = !code; next } !code' "$document")
  while read -r link; do
    [ -e "$folder/${link%%#*}" ] || { echo "$document: $link is not there"; status=1; }
  done < <(grep -oE '\]\([^)]+\)' <<<"$prose" | sed -E 's/^\]\(|\)$//g' | grep -vE '^(https?:|#)')
  while read -r path; do
    compgen -G "$path" >/dev/null || compgen -G "$folder/$path" >/dev/null || { echo "$document: $path is not there"; status=1; }
  done < <(grep -oE '`(common|metamodel|authentication|cli|platform|tools|tests|docs|examples|cmake|scripts|metadata)/[A-Za-z0-9_./*-]+`' <<<"$prose" | tr -d '`')
done
exit $status
