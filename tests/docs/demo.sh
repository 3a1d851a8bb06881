#!/usr/bin/env bash
# The first console block of docs/tour.md is what the demo prints.
# usage: demo.sh SOURCE BIN
set -euo pipefail
diff <(awk '/^```console$/ { inside = 1; next } /^```$/ { exit } inside' "$1/docs/tour.md") \
  <(ZELK_METADATA_BIN=$2 "$1/scripts/demo" 2>&1)
