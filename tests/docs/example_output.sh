#!/usr/bin/env bash
# The example lists what the host program lists, and prints the error of a file it cannot load.
# usage: example_output.sh EMBED TOOL
set -euo pipefail
source=metadata/metamodel/zelk-metadata.json
diff <("$1" "$source") <("$2" --source "$source" list services)
"$1" "$source" | grep -q .
diff - <("$1" no-such-file 2>&1 || echo "exit status $?") <<'EOF'
com.orvane.zelk.std.errors.not_found
  Metamodel source file not found: %1% | no-such-file
exit status 1
EOF
