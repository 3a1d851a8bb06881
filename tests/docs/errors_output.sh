#!/usr/bin/env bash
# What the example shows of errors with no, one and several messages.
# usage: errors_output.sh ERRORS
set -euo pipefail
program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

unsupported=com.orvane.zelk.std.errors.unsupported
diff - <("$program" metadata/cli/zelk-metadata.json) <<EOF
loaded metadata/cli/zelk-metadata.json
com.orvane.zelk.std.errors.already_exists
  zelk.metada.cli.source.exists
    default text: Cli source already exists: %1%
    argument:     client
    filled in:    Cli source already exists: client
$unsupported
EOF

# Nothing was loaded, so both creates of the file print the same. This shows it once.
first_error() {
  "$program" "$1" | awk -v last="$unsupported" '$0 == last { exit } { lines[++n] = $0 }
    END { for (i = 1; i <= n / 2; ++i) { print lines[i]; if (lines[i] != lines[n / 2 + i]) exit 1 } }'
}
cd "$work"
diff - <(first_error 'no%1%.json') <<'EOF'
com.orvane.zelk.std.errors.not_found
  zelk.metada.cli.source.file.not.found
    default text: Cli source file not found: %1%
    argument:     no%1%.json
    filled in:    Cli source file not found: no%1%.json
EOF
echo '{"cli": [}' >broken.json
diff - <(first_error broken.json) <<'EOF'
com.orvane.zelk.std.errors.invalid_argument
  zelk.metadata.cli.parse.error
    default text: Cli source file parse error : %1% at %2%
    argument:     3
    argument:     9
    filled in:    Cli source file parse error : 3 at 9
EOF
cat >options.json <<'EOF'
{"cli": [{"type": "command", "path": "", "name": "go", "description": "",
          "node_metadata": {"service_id": "s", "operation_id": "o", "options": [1]}}]}
EOF
diff - <(first_error options.json) <<'EOF'
com.orvane.zelk.std.errors.invalid_argument
  zelk.metadata.json.missing.field
    default text: Json parse missing field: %1%
    argument:     formatter
    filled in:    Json parse missing field: formatter
  zelk.metadata.cli.json.invalid.field
    default text: Unknown message.
    argument:     options_entry
    filled in:    Unknown message.
EOF
