#!/usr/bin/env bash
# What the loader and the compiler do against an overwritten memory is on in a built file.
# usage: hardening.sh FILE [REFERENCED-FUNCTION...]
set -uo pipefail
export LC_ALL=C
file=$1
shift
status=0

wrong() {
  echo "$file: $1"
  status=1
}
dynamic=$(readelf -dW "$file") || exit 1
segments=$(readelf -lW "$file") || exit 1
symbols=$(nm -D --undefined-only "$file") || exit 1

grep -q 'GNU_RELRO' <<<"$segments" || wrong 'no RELRO segment'
grep -qE '\(FLAGS\).*BIND_NOW' <<<"$dynamic" || wrong 'symbols are bound late, so RELRO is partial'
grep -qE '\(FLAGS_1\).*NOW' <<<"$dynamic" || wrong 'NOW is missing'
! grep -qE 'TEXTREL' <<<"$dynamic" || wrong 'relocations in code'
grep -q 'GNU_STACK' <<<"$segments" || wrong 'nothing says that the stack is not executable'
! grep -E 'GNU_STACK' <<<"$segments" | grep -q 'E 0x' || wrong 'executable stack'
! grep -qE ' RWE ' <<<"$segments" || wrong 'a segment is writable and executable'
grep -q '^Elf file type is DYN' <<<"$segments" || wrong 'loaded at a fixed address'
for function in "$@"; do
  grep -qE " U ${function}(@|\$)" <<<"$symbols" || wrong "never calls $function"
done
exit $status
