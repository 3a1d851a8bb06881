#!/usr/bin/env bash
# A program that is linked by hand runs; the libraries find each other.
# usage: by_hand.sh PREFIX SOURCE CXX CMAKE
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$3" -std=c++17 -I"$1/include" "$2/examples/embed.cc" -L"$1/lib" \
  -lzelk-metadata-services -lzelk-std-bindings -lzelk-core -Wl,-rpath,"$1/lib" -o "$work/embed"
"$work/embed" "$2/metadata/metamodel/zelk-metadata.json" |
  grep -x 'com.orvane.zelk.metadata.metamodel.component'
for library in core std-bindings metadata-services; do
  readelf -d "$1/lib/libzelk-$library.so.2" | grep -F 'RUNPATH' | grep -F '[$ORIGIN]'
done
! readelf -d "$1/bin/zelk-metadata" | grep -F "$2"
