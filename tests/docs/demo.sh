#!/usr/bin/env bash
# The first console block of README.md after the one with scripts/demo is what the demo prints.
# usage: demo.sh SOURCE BIN
set -euo pipefail
diff <(awk '/^```console$/ && seen { inside = 1; next } /^```$/ { if (inside) exit; inside = 0 }
            /scripts\/demo/ { seen = 1 } inside' "$1/README.md") \
  <(ZELK_METADATA_BIN=$2 "$1/scripts/demo" 2>&1)
