#!/usr/bin/env bash
# commands.sh TESSEL ROOT: every command and option of the program stands in its manual page, in the shell completion and
# in the documents, every command in the help of each language; every command line of the documents is one that the
# program takes, and what needs no server and no display is run.
set -euo pipefail
export LC_ALL=C
tessel=$(realpath "$1")
root=$(realpath "$2")
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
export XDG_CONFIG_HOME=$place/config XDG_DATA_HOME=$place/data
failed=0

Blame() {
    echo "$*" >&2
    failed=1
}

# Words CHOICE [COMMAND...]: the options or the subcommands that the help of a command lists.
Words() {
    local choice=$1
    shift
    local help="$place/help $*"
    [ -e "$help" ] || "$tessel" "$@" --help >"$help"
    if [ "$choice" = options ]; then
        grep -oE -- '--[a-z]+' "$help" | sort -u
    else
        sed -n '/^Subcommands:/,$s/^  \([a-z]\+\) .*/\1/p' "$help"
    fi
}

# What the completion offers after these words.
. "$root/packaging/tessel.bash"
Completed() {
    COMP_WORDS=(tessel "$@" '')
    COMP_CWORD=$(($# + 1))
    _tessel
    echo "${COMPREPLY[*]}"
}

manual=$(sed 's/\\-/-/g' "$root/packaging/tessel.1" | grep -A1 '^\.TP' | grep '^\.B')
document=$(<"$root/docs/command-line.md")

# Expect FILE WORDS: they stand in what the file says, which is the input.
Expect() {
    grep -qP -- "(?<![\w-])$2(?![\w-])" || Blame "$1 does not know $2"
}

# CheckCommand COMMAND...: it has an entry wherever commands are listed, its options are named there too.
CheckCommand() {
    local help
    Expect tessel.1 "$*" <<<"$manual"
    Expect command-line.md "$*" <<<"$(grep '^## ' <<<"$document")"
    Expect tessel.bash "${!#}" <<<"$(Completed "${@:1:$#-1}")"
    for help in "$root"/share/help/*/command_line.md; do
        Expect "$help" "$*" <<<"$(grep -oP '`tessel[^`]*' "$help")"
    done
    CheckOptions "$@"
}

# CheckOptions [COMMAND...]
CheckOptions() {
    local option
    for option in $(Words options "$@"); do
        Expect tessel.1 "$option" <<<"$manual"
        Expect command-line.md "$option" <<<"$document"
        Expect tessel.bash "$option" <<<"$(Completed "$@" FILE)"
    done
}

CheckOptions
for command in $(Words subcommands); do
    CheckCommand "$command"
    for word in $(Words subcommands "$command"); do CheckCommand "$command" "$word"; done
done

# A workspace with what the documents name.
"$tessel" new "$place/works" --project Main >"$place/answers"
cd "$place/works"
mkdir layouts
printf '       01 CUSTOMER.\n          05 NAME PIC X(30).\n' >layouts/customer.cpy
sqlite3 shop.db 'create table item (id integer primary key)'
cp "$root"/docs/addons/example-python/naming_report.py .
: >calls.jsonl

# The lines of a document that begin with the program's name, without what is said beside them.
Documented() {
    sed -nE 's/^ {4}tessel /tessel /p' "$1" | sed -E 's/ {2,}.*//; s/ \(or .*//'
}

# Whether the program takes the line: each option in it is one of its command.
CheckLine() {
    local words=() word command=()
    read -ra words <<<"${1//[\[\]]/}"
    for word in "${words[@]:1}"; do
        if grep -qx -- "$word" <<<"$(Words subcommands "${command[@]}")"; then command+=("$word"); fi
    done
    for word in "${words[@]}"; do
        [[ $word != --* ]] || grep -qx -- "${word%%=*}" <<<"$(Words options; Words options "${command[@]}")" ||
            Blame "the program does not know $word in: $1"
    done
}

RunLine() {
    local code=0
    local line=${1//--workspace DIR/--workspace .}
    line=${line//--workspace works/--workspace .}
    line=${line//new DIR/new $place/new}
    line=${line//sqlite:PATH/sqlite:shop.db}
    line=${line//--project NAME/--project Main}
    case $line in *'['* | *'|'* | *postgresql:* | *open | *[A-Z][A-Z][A-Z]* | *'.so'* | *Example.*) return ;; esac
    eval "$tessel ${line#tessel }" </dev/null >"$place/answers" 2>&1 || code=$?
    [ "$code" -lt 2 ] || { Blame "this fails: $line"; cat "$place/answers" >&2; }
    ran=$((ran + 1))
}

ran=0
while IFS= read -r line; do
    CheckLine "$line"
    RunLine "$line"
done < <(for document in "$root"/README.md "$root"/docs/*.md "$root"/docs/addons/*.md "$root"/docs/addons/*/README.md; do
    Documented "$document"
done)
[ "$ran" -ge 8 ] || Blame "only $ran command lines of the documents could be run"
exit $failed
