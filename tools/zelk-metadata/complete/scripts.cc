#include "complete/scripts.h"

#include <map>

// The program answers one line "words", "path" or "source", and below "words" one line a choice:
// the word, a tab, its meaning. Words come from metadata files, so no script ever evaluates one.

namespace Zelk::Tool {
namespace {

// bash splits words at ':' and '=', which the loop takes back, and replaces what is behind the last
// of them only. It has no place for meanings but the list of choices, so they go there (types 63
// and 33 of completion list, the others insert).
constexpr char kBash[] = R"(# Completion of zelk-metadata for bash.
_zelk_metadata() {
  local rest=${COMP_LINE:0:COMP_POINT} words=() gap word i
  for ((i = 0; i <= COMP_CWORD; ++i)); do
    gap=${rest%%[![:space:]]*}
    rest=${rest#"$gap"}
    word=${COMP_WORDS[i]}
    ((i < COMP_CWORD)) || word=$rest
    rest=${rest#"$word"}
    word=${word//[\\\'\"]/}
    if [[ -z $gap && ${#words[@]} -gt 0 ]]; then
      words[${#words[@]} - 1]+=$word
    else
      words+=("${word/#\~\//$HOME/}")
    fi
  done

  COMPREPLY=()
  local typed=${words[${#words[@]} - 1]} lines=() summaries=() kept='' width=0 line summary
  mapfile -t lines < <("${COMP_WORDS[0]/#\~\//$HOME/}" complete -- "${words[@]:1}" 2>/dev/null)
  if [[ ${lines[0]-} != words ]]; then
    [[ -z ${lines[0]-} ]] || compopt -o default
    return
  fi
  for gap in : =; do
    if [[ $COMP_WORDBREAKS == *"$gap"* && $typed == *"$gap"* ]]; then
      word=${typed%"${typed##*"$gap"}"}
      ((${#word} <= ${#kept})) || kept=$word
    fi
  done
  for line in "${lines[@]:1}"; do
    word=${line%%$'\t'*}
    printf -v word %q "${word#"$kept"}"
    COMPREPLY+=("$word")
    summaries+=("${line#*$'\t'}")
    ((${#word} <= width)) || width=${#word}
  done
  if [[ ${#COMPREPLY[@]} -gt 1 && ($COMP_TYPE == 63 || $COMP_TYPE == 33) ]]; then
    for i in "${!COMPREPLY[@]}"; do
      summary=${summaries[i]}
      [[ -z $summary ]] || printf -v COMPREPLY[i] '%-*s  (%s)' "$width" "${COMPREPLY[i]}" "$summary"
    done
  elif [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *= ]]; then
    compopt -o nospace
  fi
}
complete -F _zelk_metadata zelk-metadata
)";

constexpr char kZsh[] = R"(#compdef zelk-metadata
# Completion of zelk-metadata for zsh.
_zelk-metadata() {
  local -a lines choices
  local line word
  lines=("${(@f)$("${(Q)words[1]/#\~\//$HOME/}" complete -- "${(@Q)words[2,CURRENT-1]}" "${(Q)PREFIX}" 2>/dev/null)}")
  case $lines[1] in
    path) _files ;;
    source)
      compset -P '([^/=]##=)##'
      _files
      ;;
    words)
      for line in "${(@)lines[2,-1]}"; do
        word=${line%%$'\t'*}
        choices+=("${${word//\\/\\\\}//:/\\:}:${line#*$'\t'}")
      done
      _describe -t words 'zelk-metadata' choices
      ;;
  esac
}
if [[ $funcstack[1] == _zelk-metadata ]]; then
  _zelk-metadata "$@"
else
  compdef _zelk-metadata zelk-metadata
fi
)";

constexpr char kFish[] = R"(# Completion of zelk-metadata for fish.
function __zelk_metadata_complete
    set -l words (commandline -opc)
    set -l typed (commandline -ct)
    set -l lines (command $words[1] complete -- $words[2..] "$typed" 2>/dev/null)
    switch "$lines[1]"
        case path
            __fish_complete_path "$typed"
        case source
            set -l path (string replace -r '^([^/=]+=)+' '' -- "$typed")
            set -l before (string sub -l (math (string length -- "$typed") - (string length -- "$path")) -- "$typed")
            for found in (__fish_complete_path "$path")
                echo "$before$found"
            end
        case words
            printf '%s\n' $lines[2..]
    end
end
complete -c zelk-metadata -f -a '(__zelk_metadata_complete)'
)";

const std::map<std::string, std::string>& Scripts() {
  static const std::map<std::string, std::string> scripts{
      {"bash", kBash}, {"fish", kFish}, {"zsh", kZsh}};
  return scripts;
}

}  // namespace

std::vector<std::string> CompletedShells() {
  std::vector<std::string> shells;
  for (const auto& [shell, script] : Scripts()) shells.push_back(shell);
  return shells;
}

std::string CompletionScript(const std::string& shell) {
  const auto found = Scripts().find(shell);
  return found == Scripts().end() ? "" : found->second;
}

}  // namespace Zelk::Tool
