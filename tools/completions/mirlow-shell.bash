# bash completion for mirlow-shell
_mirlow_shell() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local options="--execute= --plain --json --stop-on-error --record= --watch= --no-init --limit= --color= --help --version"
  COMPREPLY=()
  case $previous in
    -e | --execute) return ;;
  esac
  if [[ $previous == --color && $current == = ]]; then
    COMPREPLY=(auto always never)
  elif [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    [[ ${COMPREPLY[0]-} == *= ]] && compopt -o nospace
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
    compopt -o filenames
  fi
}
complete -F _mirlow_shell mirlow-shell
