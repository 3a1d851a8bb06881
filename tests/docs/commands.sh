#!/usr/bin/env bash
# Runs every "$ zelk-metadata ..." of a document's console blocks and compares what it prints,
# standard error included, with the lines below it. "..." matches any lines.
# usage: commands.sh DOCUMENT BIN      Run in the folder in which the document's paths hold.
set -uo pipefail
export PATH="$2:$PATH" NO_COLOR=1
status=0
count=0

check() {
  local command=$1 expected=$2 actual pattern
  actual=$(bash -c "$command" 2>&1)
  pattern=$(printf '%s' "$expected" | sed -e 's/[][\*?]/\\&/g' -e 's/^\.\.\.$/*/')
  # shellcheck disable=SC2053
  if [[ $actual != $pattern ]]; then
    printf '$ %s\n--- the document\n%s\n--- what happens\n%s\n' "$command" "$expected" "$actual"
    status=1
  fi
  count=$((count + 1))
}

in_block=0 command='' expected=''
finish() {
  [ -z "$command" ] || check "$command" "${expected%$'\n'}"
  command='' expected=''
}
while IFS= read -r line; do
  if [[ $line == '```'* ]]; then
    finish
    in_block=0
    [[ $line == '```console' ]] && in_block=1
  elif [ "$in_block" = 1 ] && [[ $line == '$ '* ]]; then
    finish
    [[ $line =~ zelk-metadata\ (check|lint|diff|explain|tree|list|get|search|which|uses|fingerprint|usage|schema|docs|completion|help|man|--) ]] && command=${line#'$ '}
    # A session without a script needs a person who types.
    [[ $line =~ \|\ zelk-metadata\ shell ]] && command=${line#'$ '}
  elif [ -n "$command" ]; then
    expected+=$line$'\n'
  fi
done <"$1"
echo "$count commands"
[ "$count" -gt 0 ] || status=1
exit $status
