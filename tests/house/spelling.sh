#!/usr/bin/env bash
# What has several spellings in C++ has one here: the alias of the bindings' namespaces, the include
# of boost::optional, and the comment above a declaration of a public header.
# usage: spelling.sh SOURCE BUILD
set -uo pipefail
cd "$1" || exit 1
status=0

# report WHY LIST: fails for what the list has
report() {
  if [ -n "$2" ]; then
    printf '%s:\n%s\n' "$1" "$2"
    status=1
  fi
}
mapfile -t files < <(find . -path ./build -prune -o \( -name '*.h' -o -name '*.cc' -o -name '*.md' \) -print)
report 'the alias is "Bindings", of Com::Orvane::Zelk::Metadata' \
  "$(grep -E 'namespace [A-Za-z]+ = (::)?Com::Orvane::Zelk::Metadata' "${files[@]}" |
    grep -v 'namespace Bindings = [A-Za-z:]*::Metadata;')"
report 'the include is <boost/optional.hpp>' "$(grep -F '<boost/optional/optional.hpp>' "${files[@]}")"
report 'a declaration of a public header is documented with ///' \
  "$(grep -rhE -A1 '^ *// ' include platform/*/include | grep -E '^ *(class|struct|virtual|using|static|explicit) ')"
exit $status
