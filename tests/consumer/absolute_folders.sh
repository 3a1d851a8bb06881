#!/usr/bin/env bash
# Folders given as absolute paths, outside the prefix, are where pkg-config says that they are.
# usage: absolute_folders.sh SOURCE CXX CMAKE
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$3" -S "$1" -B "$work/build" -DCMAKE_CXX_COMPILER="$2" -DBUILD_TESTING=OFF \
  -DCMAKE_INSTALL_PREFIX="$work/prefix" -DCMAKE_INSTALL_LIBDIR="$work/libraries" \
  -DCMAKE_INSTALL_INCLUDEDIR="$work/headers" >/dev/null
pc=$work/build/package/zelk-metadata-services.pc
variable() {
  pkg-config --variable="$1" "$pc"
}
[ "$(variable prefix)" = "$work/prefix" ]
[ "$(variable libdir)" = "$work/libraries" ]
[ "$(variable includedir)" = "$work/headers" ]
# It is installed beside the libraries.
grep -qF "\"$work/libraries/pkgconfig\"" "$work/build/cmake_install.cmake"
