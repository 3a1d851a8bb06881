#!/usr/bin/env bash
# A built file needs exactly the libraries named, finds them only where it should, and takes every
# symbol from one of them.
# usage: dependencies.sh FILE RUNPATH plain|sanitized LIBRARY...
# In a sanitized build the sanitizers' runtime libraries and libm, which they bring, may be needed.
set -uo pipefail
export LC_ALL=C
file=$1 runpath=$2 build=$3
shift 3
status=0
runtime='^lib(asan|ubsan|tsan|m)\.so\.[0-9]+$'
[ "$build" = sanitized ] || runtime='^$'

dynamic=$(readelf -dW "$file") || exit 1
needed=$(sed -nE 's/.*\(NEEDED\).*\[(.*)\]/\1/p' <<<"$dynamic")
diff <(printf '%s\n' "$@" | sort) <(grep -vE "$runtime" <<<"$needed" | sort) || {
  echo "$file needs other libraries"
  status=1
}
# A linker keeps room for a longer path by colons.
actual=$(sed -nE 's/.*\((RPATH|RUNPATH)\).*\[([^:]*):*\]/\1 \2/p' <<<"$dynamic")
[ "$actual" = "RUNPATH $runpath" ] || {
  echo "$file: $actual, not RUNPATH $runpath"
  status=1
}

# Name and version of the symbols, of which the weak ones may have no definition.
undefined=$(nm -D --undefined-only "$file" | sed -nE 's/^ *U //p' | sort -u)
loaded=$(ldd "$file") || exit 1
defined=$(for library in $needed; do
  path=$(awk -v name="$library" '$1 == name { print $3 }' <<<"$loaded")
  nm -D --defined-only "$path" | awk '{ sub("@@", "@", $NF); print $NF }'
done | sort -u)
[ -n "$undefined" ] && [ -n "$defined" ] || exit 1
missing=$(comm -23 <(printf '%s\n' "$undefined") <(printf '%s\n' "$defined"))
# One compiler links a sanitizer's runtime into the program, where the libraries find it.
[ "$build" = plain ] || missing=$(grep -vE '^__(asan|ubsan|tsan|sanitizer|lsan)_' <<<"$missing")
if [ -n "$missing" ]; then
  printf '%s takes from no library that it needs:\n%s\n' "$file" "$missing"
  status=1
fi
exit $status
