#!/usr/bin/env bash
# Every example of --help succeeds in the folder that --help names.
# usage: help_examples.sh PREFIX
set -euo pipefail
export PATH="$1/bin:$PATH"
zelk-metadata --help | grep -F share/zelk-metadata
cd "$1/share/zelk-metadata"
count=0
while read -r example; do
  bash -c "$example" </dev/null >/dev/null || { echo "failed: $example"; exit 1; }
  count=$((count + 1))
done < <(zelk-metadata --help | sed -n '/^Examples:$/,/^$/s/^    zelk-/zelk-/p')
echo "$count examples"
[ "$count" -gt 0 ]
