# bash completion for trillomat.
_trillomat() {
  local cur prev words cword
  _init_completion || return
  if [[ $prev == --screenshot ]]; then
    _filedir png
  elif [[ $cur == -* ]]; then
    COMPREPLY=($(compgen -W '--help --version --screenshot' -- "$cur"))
  else
    _filedir '@(imy|emy|rtx|mel)'
  fi
} &&
  complete -F _trillomat trillomat
