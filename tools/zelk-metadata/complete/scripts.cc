#include "complete/scripts.h"

#include <map>

// The program answers one line "words", "path" or "source", and below "words" one line a choice:
// the word, a tab, its meaning. Words come from metadata files, so no script ever evaluates one.

namespace Zelk::Tool::Complete {
namespace {

// bash's own list of words keeps their quotes and splits them at ':' and '='. So the loop reads
// them from the line, as bash will: $kept is the beginning of the last one that bash does not
// replace, which is all up to a quote or a character that splits words, and $quote is the one that
// is open. It has no place for meanings but the list of choices, so they go there (types 63 and 33
// of completion list, the others insert).
constexpr char kBash[] = R"(# Completion of zelk-metadata for bash.
_zelk_metadata() {
  local text=${COMP_LINE:0:COMP_POINT} words=() n=0 quote='' kept='' char i
  for ((i = 0; i < ${#text}; ++i)); do
    char=${text:i:1}
    case $quote$char in
      [[:space:]])
        [[ -z ${words[n]+set} ]] || ((++n))
        kept=''
        continue
        ;;
      \'\' | \"\" | \' | \")
        [[ -n $quote ]] && quote='' || quote=$char
        words[n]+=''
        kept=${words[n]}
        continue
        ;;
      \\) char=${text: ++i:1} ;;
      \"\\) [[ ${text:i + 1:1} != [\"\\\$\`] ]] || char=${text: ++i:1} ;;
      \~) [[ -n ${words[n]+set} || ${text:i + 1:1} != / ]] || char=$HOME ;;
      [:=]) [[ $COMP_WORDBREAKS != *"$char"* ]] || kept=${words[n]-}$char ;;
    esac
    words[n]+=$char
  done
  words[n]+=''

  COMPREPLY=()
  local lines=() summaries=() width=0 line word summary
  mapfile -t lines < <("${words[0]}" complete -- "${words[@]:1}" 2>/dev/null)
  if [[ ${lines[0]-} != words ]]; then
    [[ -z ${lines[0]-} ]] || compopt -o default
    return
  fi
  for line in "${lines[@]:1}"; do
    word=${line%%$'\t'*} word=${word#"$kept"}
    case $quote in
      \') word=${word//\'/\'\\\'\'} ;;
      \") for char in \\ \" \$ \`; do word=${word//"$char"/"\\$char"}; done ;;
      *) printf -v word %q "$word" ;;
    esac
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
  local line word summary
  local -a before=("${(@Q)words[1,CURRENT-1]/#\~\//${(q)HOME}/}")
  lines=("${(@f)$("$before[1]" complete -- "${(@)before[2,-1]}" "${(Q)PREFIX}" 2>/dev/null)}")
  case $lines[1] in
    path) _files ;;
    source)
      compset -P '([^/=]##=)##'
      _files
      ;;
    words)
      for line in "${(@)lines[2,-1]}"; do
        word=${line%%$'\t'*}
        summary=${line#*$'\t'}
        choices+=("${${word//\\/\\\\}//:/\\:}${summary:+:$summary}")
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

// fish compares choices with what is typed as they are, and quotes them itself.
constexpr char kFish[] = R"(# Completion of zelk-metadata for fish.
function __zelk_metadata_unescape -d 'What a word says of which a quote may still be open'
    string unescape -- "$argv"
    or string unescape -- "$argv'"
    or string unescape -- "$argv\""
end
function __zelk_metadata_complete
    set -l words (string replace -r '^~(?=/)' -- $HOME (commandline -opc))
    set -l token (commandline -ct)
    set -l typed (__zelk_metadata_unescape $token)
    set -l lines (command $words[1] complete -- $words[2..] "$typed" 2>/dev/null)
    switch "$lines[1]"
        case path
            complete -C "'' $token"
        case source
            set -l parts (string match -r '^(["\']?)((?:[^/=]+=)*)(.*)' -- $token)
            set -l before (__zelk_metadata_unescape $parts[3])
            for found in (complete -C "'' $parts[2]$parts[4]")
                printf '%s\n' "$before$found"
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

}  // namespace Zelk::Tool::Complete
