#!/usr/bin/env bash
# The C++ block of a document is the example, line by line.
# usage: example.sh DOCUMENT EXAMPLE
set -euo pipefail
diff <(awk '/^```cpp$/ { inside = 1; next } /^```$/ { inside = 0 } inside' "$1") "$2"
