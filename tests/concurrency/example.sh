#!/usr/bin/env bash
# The example's last answer is the whole one, and a change that fails ends it with an error.
# usage: example.sh SHARED-MUTEX
set -euo pipefail
diff <(printf '%s\n' fingerprint get list) <("$1")
status=0
error=$("$1" no-such-file 2>&1 >/dev/null) || status=$?
[ "$status" -eq 1 ]
grep -qx 'com.orvane.zelk.std.errors.not_found' <<<"$error"
