# SPDX-License-Identifier: MIT
# Completion of the tarnwick command for bash.

# Ids of the notes in a state, shortened to what is still easy to read.
_tarnwick_ids() {
  tarnwick list --state "$1" --json 2>/dev/null | grep -o '"id": *"[^"]*"' | sed 's/.*"\([^"]*\)"$/\1/'
}

_tarnwick_settings() {
  tarnwick settings 2>/dev/null | sed 's/=.*//'
}

_tarnwick() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} verb=${COMP_WORDS[1]}
  local verbs='toggle board new quit add edit list show crush undo check revive sweep tear redock export import
    settings status'
  local note='--board --color --theme --stamp --tag --repeat --due --pin --repo --private'
  COMPREPLY=()

  if [ "$COMP_CWORD" -eq 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W "$verbs --background --open --version --help" -- "$current")
    return
  fi
  local values=
  case $previous in
    --theme) values='plain graph lined parchment construction' ;;
    --stamp) values='none urgent focus priority star idea approved' ;;
    --tag) values='none red orange yellow green blue pink' ;;
    --repeat) values='none daily weekdays weekly every3Days monthly' ;;
    --due) values='today tomorrow' ;;
    --state) values='active sleeping completed burned all' ;;
    --format) values='json markdown ics' ;;
    --color) values='FFE169 FF7597 FFA647 06D6A0 4CC9F0 3A86FF C77DFF' ;;
    --repo) mapfile -t COMPREPLY < <(compgen -d -- "$current"); return ;;
    --output) mapfile -t COMPREPLY < <(compgen -f -- "$current"); return ;;
    --board|--pin|--search|--text) return ;;
  esac
  if [ -n "$values" ]; then
    mapfile -t COMPREPLY < <(compgen -W "$values" -- "$current")
    return
  fi

  local words='--help'
  case $verb in
    add) words+=" $note --tear --no-tear" ;;
    edit)
      words+=" $note --text --no-due --no-pin --no-repo --no-private"
      [ "$COMP_CWORD" -eq 2 ] && words+=" $(_tarnwick_ids all)" ;;
    list) words+=' --state --board --search --tag --json' ;;
    show) words+=" --json $(_tarnwick_ids all)" ;;
    status) words+=' --json' ;;
    crush|check|tear|redock) [ "$COMP_CWORD" -eq 2 ] && words+=" $(_tarnwick_ids active)" ;;
    revive) words+=" --all $(_tarnwick_ids burned)" ;;
    sweep) words+=' --yes' ;;
    export) words+=' --format --output' ;;
    import) mapfile -t COMPREPLY < <(compgen -f -- "$current"; compgen -W '--help --preview' -- "$current"); return ;;
    settings) [ "$COMP_CWORD" -eq 2 ] && words+=" $(_tarnwick_settings)" ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

complete -F _tarnwick tarnwick
