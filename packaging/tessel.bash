# Completion of tessel for bash.

_tessel() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local word command='' options='--workspace --project --lang --help'
    COMPREPLY=()
    case $previous in
    --workspace | --out | new)
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
        return
        ;;
    --picture | open | register)
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
        return
        ;;
    --lang)
        mapfile -t COMPREPLY < <(compgen -W 'en ja ko' -- "$current")
        return
        ;;
    repository)
        mapfile -t COMPREPLY < <(compgen -W 'load' -- "$current")
        return
        ;;
    addon)
        mapfile -t COMPREPLY < <(compgen -W 'list run' -- "$current")
        return
        ;;
    run | unregister)
        mapfile -t COMPREPLY < <(compgen -W "$(tessel addon list 2>/dev/null | cut -d: -f1)" -- "$current")
        return
        ;;
    load)
        mapfile -t COMPREPLY < <(compgen -W 'sqlite: postgresql:' -- "$current")
        compopt -o nospace
        return
        ;;
    esac
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case $word in
        open | new | verify | import | report | repository | call | register | unregister | addon) command=$word ;;
        esac
    done
    case $command in
    '') options+=' --version open new verify import report repository call register unregister addon' ;;
    open) options+=' --picture' ;;
    verify) options+=' --json' ;;
    report) options+=' --out' ;;
    register | unregister) options+=' --system' ;;
    addon) options+=' --verify --keep --answers' ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
}
complete -o filenames -F _tessel tessel
