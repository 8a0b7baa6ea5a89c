# bash completion for strativo and strativo-cli

_strativo_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local commands="show check rewrite import-glass build export report thermal library materials"
    local options="--standard --user-library --json --user --sort --csv --thermal --inside --outside
        --flow --rsi --rse --first-layer --jsonl --jobs --files-from --null --dry-run --force --format
        --opaque-only --output --strict --rule --no-rule --help --version"
    local rules="zero-thickness zero-absorption unlinked-material unknown-cavity no-layers
        duplicate-glass-name glass-value-range glass-energy-balance density-heat-swapped
        thickness-range negative-value u-range thin-conductive absorption-range absorption-sum
        duplicate-name rounded-thickness cavity-resistance conductivity-range density-range
        heat-range no-conductivity no-heat-storage line-not-read too-many-materials duplicate-code
        code-range reserved-name empty-name name-changed name-cut text-after-number undefined-byte"
    case $previous in
    --rule | --no-rule)
        mapfile -t COMPREPLY < <(compgen -W "$rules" -- "$current")
        return
        ;;
    --sort)
        mapfile -t COMPREPLY < <(compgen -W "name conductivity density specific-heat file" -- "$current")
        return
        ;;
    --flow)
        mapfile -t COMPREPLY < <(compgen -W "horizontal up down all" -- "$current")
        return
        ;;
    --format)
        mapfile -t COMPREPLY < <(compgen -W "epjson" -- "$current")
        return
        ;;
    --first-layer)
        mapfile -t COMPREPLY < <(compgen -W "outside inside" -- "$current")
        return
        ;;
    --inside | --outside | --rsi | --rse | --jobs)
        return
        ;;
    --files-from | --output | -o)
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
        return
        ;;
    --standard | --user-library)
        mapfile -t COMPREPLY < <(compgen -f -X '!*.[lL][bB][yY]' -- "$current"; compgen -d -- "$current")
        return
        ;;
    esac
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        return
    fi
    local word command=
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        [[ " $commands " == *" $word "* ]] && command=$word
    done
    case $command in
    "") mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current") ;;
    materials) mapfile -t COMPREPLY < <(compgen -f -X '!*.[lL][bB][yY]' -- "$current"; compgen -d -- "$current") ;;
    check) mapfile -t COMPREPLY < <(compgen -f -X '!*.[cC][oO][nN]' -- "$current"; compgen -f -X '!*.[lL][bB][yY]' -- "$current"; compgen -d -- "$current") ;;
    build) mapfile -t COMPREPLY < <(compgen -f -X '!*.[jJ][sS][oO][nN]' -- "$current"; compgen -f -X '!*.[cC][oO][nN]' -- "$current"; compgen -d -- "$current") ;;
    library) mapfile -t COMPREPLY < <(compgen -f -X '!*.[cC][sS][vV]' -- "$current"; compgen -f -X '!*.[lL][bB][yY]' -- "$current"; compgen -d -- "$current") ;;
    *) mapfile -t COMPREPLY < <(compgen -f -X '!*.[cC][oO][nN]' -- "$current"; compgen -d -- "$current") ;;
    esac
}

_strativo() {
    local current=${COMP_WORDS[COMP_CWORD]}
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--help --version" -- "$current")
    else
        mapfile -t COMPREPLY < <(compgen -f -X '!*.[cC][oO][nN]' -- "$current"; compgen -d -- "$current")
    fi
}

complete -o filenames -F _strativo_cli strativo-cli
complete -o filenames -F _strativo strativo
