#!/usr/bin/env bash
# Every message of the catalog is explained, with its text.
# usage: messages.sh SOURCE
set -uo pipefail
status=0
count=0
while IFS=$'\t' read -r id text; do
  count=$((count + 1))
  if ! grep -qF "| \`$id\` | $text |" "$1/docs/messages.md"; then
    echo "docs/messages.md lacks $id with its text"
    status=1
  fi
done < <(tr -d '\n' <"$1/common/messages/message_catalog.cc" | grep -oE '\{"[^"]+", *"[^"]+"\}' |
  sed -E 's/\{"([^"]+)", *"([^"]+)"\}/\1\t\2/')
[ "$count" -eq 32 ] || { echo "$count messages found"; status=1; }
exit $status
