#!/usr/bin/env bash
# The example lists what the host program lists.
# usage: example_output.sh EMBED TOOL
set -euo pipefail
source=metadata/metamodel/zelk-metadata.json
diff <("$1" "$source") <("$2" --source "$source" list services)
"$1" "$source" | grep -q .
"$1" no-such-file 2>&1 >/dev/null | grep -x 'com.orvane.zelk.std.errors.not_found'
