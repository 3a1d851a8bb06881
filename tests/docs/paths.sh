#!/usr/bin/env bash
# Files of the repository that documents name in backticks, with a folder, exist. So do those in the
# layers of ARCHITECTURE.md.
# usage: paths.sh SOURCE
set -uo pipefail
cd "$1" || exit
folders=$(printf '%s\n' .ci/ */ | grep -vx build/ | tr -d /)
status=0
count=0
for document in *.md */*.md; do
  folder=$(dirname "$document")
  while read -r path; do
    count=$((count + 1))
    compgen -G "$path" >/dev/null || compgen -G "$folder/$path" >/dev/null ||
      { echo "$document: $path does not exist"; status=1; }
  done < <(awk '/^```/ { code = !code; next } !code' "$document" |
    grep -oE "\`(${folders//$'\n'/|})/[A-Za-z0-9_./*-]+\`" | tr -d '`')
done
layers=$(awk '/^## / { inside = /Layers/ } inside' ARCHITECTURE.md)
for domain in metamodel authentication cli; do
  while read -r path; do
    count=$((count + 1))
    compgen -G "$path" >/dev/null || { echo "ARCHITECTURE.md: $path does not exist"; status=1; }
  done < <(grep -oE '(DOMAIN|common|metamodel|authentication|cli)/[a-z_/]+\.(h|cc|\*)' <<<"${layers//DOMAIN/$domain}")
done
echo "$count paths"
[ "$count" -gt 0 ] || status=1
exit $status
