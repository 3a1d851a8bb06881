#!/usr/bin/env bash
# Every behaviour that docs/intended-behaviour.md lists is marked in the code with its id, and every
# mark is listed there.
# usage: intended.sh SOURCE BUILD
set -uo pipefail
cd "$1"
code='include platform common metamodel authentication cli analysis tools'
status=0

# report WHY LIST: fails for what the list has
report() {
  if [ -n "$2" ]; then
    printf '%s:\n%s\n' "$1" "$2"
    status=1
  fi
}
# shellcheck disable=SC2086
marks=$(grep -rhoE 'Intended\([a-z0-9-]+\): ' $code | sed -E 's/.*\((.*)\).*/\1/' | sort)
# shellcheck disable=SC2086
report 'marks without an id and a reason' "$(grep -rnE 'Intended' $code | grep -vE 'Intended\([a-z0-9-]+\): [^ ]')"
entries=$(sed -nE 's/^- `([a-z0-9-]+)`: .*/\1/p' docs/intended-behaviour.md | sort)
report 'entries without an id' "$(grep -nE '^- ' docs/intended-behaviour.md | grep -vE '^[0-9]+:- `[a-z0-9-]+`: ')"
report 'entries that occur twice' "$(uniq -d <<<"$entries")"
report 'marked in the code, but not in docs/intended-behaviour.md' \
  "$(comm -23 <(uniq <<<"$marks") <(uniq <<<"$entries"))"
report 'in docs/intended-behaviour.md, but not marked in the code' \
  "$(comm -13 <(uniq <<<"$marks") <(uniq <<<"$entries"))"
exit $status
