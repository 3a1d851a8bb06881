#!/usr/bin/env bash
# usage: soname.sh LIBRARY SONAME
set -euo pipefail
readelf -d "$1" | grep -F "Library soname: [$2]"
