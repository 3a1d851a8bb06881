#!/usr/bin/env bash
# usage: find_package.sh PREFIX SOURCE CXX CMAKE
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cp "$2/examples/embed.cc" "$work/"
cat >"$work/CMakeLists.txt" <<'EOF'
cmake_minimum_required(VERSION 3.25)
project(consumer LANGUAGES CXX)
find_package(zelk-metadata-services 2 REQUIRED)
add_executable(embed embed.cc)
target_link_libraries(embed PRIVATE Zelk::metadata-services)
foreach(target Zelk::core Zelk::std-bindings)
  if(NOT TARGET ${target})
    message(FATAL_ERROR "${target} is missing")
  endif()
endforeach()
EOF
"$4" -S "$work" -B "$work/build" -DCMAKE_CXX_COMPILER="$3" -DCMAKE_PREFIX_PATH="$1" >/dev/null
"$4" --build "$work/build" >/dev/null
"$work/build/embed" "$2/metadata/metamodel/zelk-metadata.json" |
  grep -x 'com.orvane.zelk.metadata.metamodel.component'
