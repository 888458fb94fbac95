# bash completion for trillomat-cli. What there is to complete, the program's own --help tells.

# The options of a command, or the commands: the first words of the lines that begin with two blanks.
_trillomat_cli_listed() {
  "$1" ${2:+"$2"} --help 2>/dev/null | sed -n "/^$3:/,/^\$/s/^  \([a-z-][a-z,-]*\).*/\1/p" | tr , ' '
}

# What an option takes: "--mode TEXT:{imelody,rtttl}" takes one of two words; "--report" takes nothing.
_trillomat_cli_taken() {
  "$1" "$2" --help 2>/dev/null | sed -n "s/^  \(-h,\)\{0,1\}$3 \([A-Z][A-Z]*\S*\).*/\2/p"
}

_trillomat_cli() {
  local cur prev words cword
  _init_completion || return
  local command= word taken
  for word in "${words[@]:1:cword-1}"; do
    if [[ $word != -* ]]; then command=$word; break; fi
  done

  if [[ -z $command ]]; then
    local section=Subcommands
    [[ $cur == -* ]] && section=Options
    COMPREPLY=($(compgen -W "$(_trillomat_cli_listed "${words[0]}" '' $section)" -- "$cur"))
    return
  fi
  if [[ $prev == --* ]]; then
    taken=$(_trillomat_cli_taken "${words[0]}" "$command" "$prev")
    case $taken in
      *{*}*)
        taken=${taken#*\{} taken=${taken%%\}*}
        COMPREPLY=($(compgen -W "${taken//,/ }" -- "$cur"))
        return
        ;;
    esac
    if [[ $prev == --to-folder ]]; then _filedir -d; return; fi
    [[ -n $taken ]] && return
  fi
  if [[ $cur == -* ]]; then
    COMPREPLY=($(compgen -W "$(_trillomat_cli_listed "${words[0]}" "$command" Options)" -- "$cur"))
    return
  fi
  case $command in
    import) _filedir ;;
    *) _filedir '@(imy|emy|rtx|mel|mid|midi|wav)' ;;
  esac
} &&
  complete -F _trillomat_cli trillomat-cli
