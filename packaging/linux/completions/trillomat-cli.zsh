#compdef trillomat-cli
# What there is to complete, the program's own --help tells.

# The entries of a section of the help, one a line: the description of an option that takes something stands in
# the line below, and is put behind it.
_trillomat_cli_section() {
  local section=$1
  shift
  ${words[1]} "$@" --help 2>/dev/null | sed -n "/^$section:/,/^\$/p" | sed -e 1d -e '/^$/d' -e ':a;$!{N;ba};s/\n    */   /g'
}

_trillomat_cli_commands() {
  local -a commands
  local line
  for line in ${(f)"$(_trillomat_cli_section Subcommands)"}; do
    commands+=("${${line#  }%% *}:${line##*   }")
  done
  _describe command commands
}

_trillomat_cli_options() {
  local -a options
  local line name taken said
  for line in ${(f)"$(_trillomat_cli_section Options $1)"}; do
    line=${line#  }
    name=${${line%% *}#-h,}
    said=${${line##*   }//[\[\]:]/ }
    taken=${${line#* }%%   *}
    case $taken in
      *\{*\}*) options+=("$name=[$said]: :(${${${taken#*\{}%%\}*}//,/ })") ;;
      [A-Z]*) [[ $name == --to-folder ]] && options+=("$name=[$said]:folder:_files -/") || options+=("$name=[$said]: : ") ;;
      *) options+=("${name}[$said]") ;;
    esac
  done
  local files='*.(imy|emy|rtx|mel|mid|midi)(-.)'
  [[ $1 == import ]] && files='*(-.)'
  _arguments $options "*:file:_files -g '$files'"
}

_trillomat_cli() {
  local command=${${words[2,CURRENT-1]:#-*}[1]}
  if [[ -z $command ]]; then
    [[ $PREFIX == -* ]] && _trillomat_cli_options || _trillomat_cli_commands
  else
    _trillomat_cli_options $command
  fi
}

_trillomat_cli "$@"
