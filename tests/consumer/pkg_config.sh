#!/usr/bin/env bash
# usage: pkg_config.sh PREFIX SOURCE CXX CMAKE
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# A prefix that was moved after the installation still works.
cp -a "$1" "$work/moved"
export PKG_CONFIG_PATH=$work/moved/lib/pkgconfig
pkg-config --exact-version=2.0.0 zelk-metadata-services
read -ra flags <<<"$(pkg-config --cflags --libs zelk-metadata-services)"
"$3" -std=c++17 "$2/examples/embed.cc" "${flags[@]}" -Wl,-rpath,"$work/moved/lib" -o "$work/embed"
"$work/embed" "$2/metadata/metamodel/zelk-metadata.json" |
  grep -x 'com.orvane.zelk.metadata.metamodel.component'
"$work/moved/bin/zelk-metadata" --version
