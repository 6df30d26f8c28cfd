# Completion of qelreport's options and their values for bash.  -*- shell-script -*-

_qelreport() {
  local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]}
  # Of --option=value bash makes three words.
  if [[ $word == "=" ]]; then
    word=
  elif [[ $option == "=" ]]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi

  COMPREPLY=()
  case $option in
    --log | --output)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$word")
      ;;
    --settings | --compare | --import)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -d -- "$word"; compgen -f -X '!*.[Rr][Ee][Gg]' -- "$word")
      ;;
    --report)
      mapfile -t COMPREPLY < <(compgen -W 'summary details compare' -- "$word")
      ;;
    --format)
      mapfile -t COMPREPLY < <(compgen -W 'text csv json html' -- "$word")
      ;;
    --from | --to) ;;
    *)
      mapfile -t COMPREPLY < <(compgen -W '--log --settings --from --to --report --explain --compare --format --output --stats
        --check --follow --import --help -h --version' -- "$word")
      ;;
  esac
}

complete -F _qelreport qelreport
