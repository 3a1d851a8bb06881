#!/usr/bin/env bash
# Every test file is built, no test is switched off or skipped without a reason, and every CTest entry has exactly one label.
# usage: test_registration.sh SOURCE BUILD
set -uo pipefail
cd "$1"
status=0
for file in $(find tests -name '*_test.cc'); do
  list=$(dirname "$file")/CMakeLists.txt
  if ! grep -qF "$(basename "$file")" "$list"; then
    echo "$file is in no target"
    status=1
  fi
done
off=$(grep -rnE 'DISABLED_|GTEST_SKIP|^ *// *TEST' tests --include='*.cc' --include='*.h' |
  grep -v 'GTEST_SKIP() << .')
if [ -n "$off" ]; then
  printf 'switched off:\n%s\n' "$off"
  status=1
fi
total=$(ctest --test-dir "$2" -N | sed -n 's/^Total Tests: //p')
labelled=0
for label in $(ctest --test-dir "$2" --print-labels | sed -n 's/^  //p'); do
  labelled=$((labelled + $(ctest --test-dir "$2" -N -L "^$label\$" | sed -n 's/^Total Tests: //p')))
done
if [ "$total" -eq 0 ] || [ "$total" -ne "$labelled" ]; then
  echo "$total tests, $labelled labels"
  status=1
fi
exit $status
