# Completion for customstyle in bash: subcommands, their options, and what options and arguments name.

_customstyle_subcommands="check query dump explain diff test schema format minify"

declare -A _customstyle_options=(
    [check]="--mapping --format --werror --effects --codes --help"
    [query]="--mapping --style --id --level --help"
    [dump]="--mapping --style --format --help"
    [explain]="--mapping --style --id --level --field --format --help"
    [diff]="--mapping --format --help"
    [test]="--mapping --help"
    [schema]="--help"
    [format]="--check --stdout --output --help"
    [minify]="--mapping --stdout --output --help"
)

declare -A _customstyle_formats=(
    [check]="text json sarif"
    [dump]="text csv json"
    [explain]="text json"
    [diff]="text json"
)

_customstyle_choose() {  # _customstyle_choose WORDS CURRENT
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
}

_customstyle_fields() {  # a field a line, blanks within
    printf '%s\n' "fill" "stroke" "top surface" "text fill" "text stroke" "fill weight" "stroke weight" \
        "text fill weight" "text stroke weight" "font size" "icon" "land background" "grid background"
}

_customstyle_choose_field() {
    local field
    COMPREPLY=()
    while read -r field; do
        [[ $field == "$1"* ]] && COMPREPLY+=("$(printf %q "$field")")
    done < <(_customstyle_fields)
}

_customstyle_paths() {  # _customstyle_paths -f|-d CURRENT
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$1" -- "$2")
}

_customstyle() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} subcommand=${COMP_WORDS[1]}
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        _customstyle_choose "$_customstyle_subcommands --help --version" "$current"
        return
    fi
    case $previous in
        --mapping) _customstyle_paths -d "$current" ;;
        --style | --output | -o) _customstyle_paths -f "$current" ;;
        --format) _customstyle_choose "${_customstyle_formats[$subcommand]}" "$current" ;;
        --level) _customstyle_choose "$(echo {4..21})" "$current" ;;
        --field) _customstyle_choose_field "$current" ;;
        --id) ;;
        *)
            if [[ $current == -* ]]; then
                _customstyle_choose "${_customstyle_options[$subcommand]}" "$current"
            else
                _customstyle_paths -f "$current"
            fi
            ;;
    esac
}

complete -F _customstyle customstyle
