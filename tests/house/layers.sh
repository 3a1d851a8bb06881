#!/usr/bin/env bash
# Includes go only downwards: services -> container -> parser -> binding -> catalog -> platform.
# usage: layers.sh SOURCE BUILD
set -uo pipefail
cd "$1"
status=0

# forbid WHERE PATTERN WHY: no file in WHERE includes what matches PATTERN
forbid() {
  local where=$1 pattern=$2 why=$3 found
  # shellcheck disable=SC2086
  found=$(grep -rnE "#include [<\"]$pattern" $where 2>/dev/null)
  if [ -n "$found" ]; then
    printf '%s:\n%s\n' "$why" "$found"
    status=1
  fi
}
forbid 'include platform/*/include' '(rapidjson|openssl|common|metamodel|authentication|cli)/' \
  'a public header shows what is private'
forbid common '(metamodel|authentication|cli)/|zelk/provider/' 'common/ knows a domain'
forbid metamodel '(authentication|cli)/' 'domains know each other'
forbid authentication '(metamodel|cli)/' 'domains know each other'
forbid cli '(metamodel|authentication)/' 'domains know each other'
forbid platform/core 'com/' 'the core knows the bindings'
forbid common/messages 'common/(json|sources|queries)/' 'messages know a layer above them'
forbid common/json 'common/(sources|queries)/' 'the JSON binding knows a layer above it'
forbid common/sources 'common/queries/' 'sources know the queries'
for domain in metamodel authentication cli; do
  forbid "$domain/*parser*" \
    "(common/(sources|queries)/|$domain/(json_metadata_container|walkers|source_data|queries))" \
    'a parser looks up'
  forbid "$domain/json_metadata_container.* $domain/queries.cc" '(common/queries/service_frame|.*/services\.h)' \
    'a container looks up'
done
forbid 'common metamodel authentication cli include platform' 'analysis/' 'the library knows the analysis'
forbid analysis \
  '(common|metamodel|authentication|cli|tools|commands|shell|complete|check|explain|language|domains|host|render)/' \
  'the analysis bypasses the public headers, or knows the tool'
forbid analysis '(iostream|ostream|fstream|cstdio|fmt/|rapidjson/document)' \
  'the analysis prints, reads files, or takes the tree that recurses'
forbid tools '(common|metamodel|authentication|cli)/' 'the host bypasses the public headers'

# The folders of the tool, from the top. None includes one before it. Each has a namespace of its
# name, except commands/ and what all commands are made of.
above=
for folder in commands shell complete lint diff docs check language domains host explain render; do
  [ -d "tools/zelk-metadata/$folder" ] || { echo "the tool has no $folder/"; status=1; }
  [ -z "$above" ] || forbid "tools/zelk-metadata/$folder" "($above)/" "$folder/ knows a layer above it"
  above=${above:+$above|}$folder
  case $folder in
    commands|language|domains|host) namespace=Zelk::Tool ;;
    *) namespace=Zelk::Tool::${folder^} ;;
  esac
  elsewhere=$(grep -LxF "namespace $namespace {" "tools/zelk-metadata/$folder"/*.{h,cc})
  if [ -n "$elsewhere" ]; then
    printf 'not in the namespace %s:\n%s\n' "$namespace" "$elsewhere"
    status=1
  fi
done

forbid tests/surface '(common|metamodel|authentication|cli)/' 'a surface test looks inside'

# RapidJSON asserts where a lookup or a type is wrong, so only checked lookups touch it.
# A line that has been checked says so: "// checked: WHERE".
unchecked='MemberBegin|FindMember\("|HasMember|\.Get(Object|Array|Bool|Double|Float|Int|Int64|Uint|Uint64|String)\('
found=$(grep -nE "$unchecked" {common/*,metamodel,authentication,cli}/*.{h,cc} |
  grep -vE '^common/json/json_lookup|// checked: ')
if [ -n "$found" ]; then
  printf 'unchecked JSON access:\n%s\n' "$found"
  status=1
fi
exit $status
