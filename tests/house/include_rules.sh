#!/usr/bin/env bash
# include_rules.sh ROOT: names each #include below ROOT/include and ROOT/src that its room may not make, and fails when
# there is one.
set -euo pipefail
export LC_ALL=C
cd "$1"
ls include src >/dev/null

platform='platform/text platform/component platform/files platform/xml platform/settings platform/db platform/diagram'
# Each room with the other rooms that it may include; include/tessel is open to all.
declare -A mayInclude=(
    [tessel]=''
    [platform/text]=''
    [platform/component]='platform/text'
    [platform/files]='platform/text platform/component'
    [platform/xml]='platform/text platform/component platform/files'
    [platform/settings]='platform/text platform/component platform/files'
    [platform/db]='platform/text platform/component platform/files'
    [platform/diagram]='platform/text platform/component platform/files platform/xml'
    [lines]="$platform"
    [host]="$platform"
    [schema]="$platform host"
    [verify]="$platform host schema"
    [import]="$platform host schema"
    [report]="$platform host schema"
    [engine]="$platform host schema verify import report"
    [runner]="$platform lines host schema verify import report engine"
    [addon_host]='platform/text platform/component platform/files lines'
    [workbench]="$platform host"
    [ui/rules]="$platform host schema verify import report engine"
    [ui/controls]="$platform host schema verify import report engine ui/rules"
    [ui/dialogs]="$platform host schema verify import report engine ui/rules ui/controls"
    [ui/main]="$platform host schema verify import report engine ui/rules ui/controls ui/dialogs lines runner"
    [cli]="$platform host schema verify import report engine lines runner workbench ui/main"
)

# Sets `room` to the room that the path below src/ (or include/) belongs to.
FindRoom() {
    local rest=${1#*/}
    room=${1%%/*}
    case "$room" in platform | ui) room+=/${rest%%/*} ;; esac
}

Blame() {
    echo "$file:$line: $1"
    blamed=1
}

# BelongsTo LIBRARY PLACE...: only these places, each a pattern, may see the library.
BelongsTo() {
    local library=$1 place
    for place in "${@:2}"; do
        # shellcheck disable=SC2053  # a place is a pattern
        [[ $file != $place ]] || return 0
    done
    Blame "$library belongs to ${*:2}"
}

CheckLibrary() {
    case "$included" in
    '<Q'[A-Za-z]* | '"Q'[A-Z]* | '<q'*'.h>') BelongsTo Qt 'src/ui/controls/*' 'src/ui/dialogs/*' 'src/ui/main/*' ;;
    ?sqlite3*.h?) BelongsTo sqlite3.h 'src/platform/db/*.cpp' ;;
    ?libpq*.h? | ?postgres_ext.h?) BelongsTo libpq-fe.h 'src/platform/db/*.cpp' ;;
    ?pugi*.hpp?) BelongsTo pugixml.hpp 'src/platform/xml/*.cpp' ;;
    ?gvc.h? | ?cgraph.h?) BelongsTo gvc.h 'src/platform/diagram/*.cpp' ;;
    esac
}

CheckRoom() {
    local room own path=${included:1:-1}
    FindRoom "${file#*/}"
    own=$room
    FindRoom "$path"
    if [ -z "${mayInclude[$own]+known}" ]; then
        Blame "src/$own is no room of the house"
    elif [[ $path == *../* ]]; then
        Blame "$included is not a path below src"
    elif [ -n "${mayInclude[$room]+known}" ]; then
        [[ " tessel $own ${mayInclude[$own]} " == *" $room "* ]] || Blame "$own may not include $room"
    fi
}

blamed=0
while IFS=: read -r file line text; do
    [[ $text =~ include[[:space:]]*([\<\"][^\>\"]+[\>\"]) ]] || continue
    included=${BASH_REMATCH[1]}
    CheckLibrary
    CheckRoom
done < <(grep -rnE --include='*.h' --include='*.cpp' '^[[:space:]]*#[[:space:]]*include' include src |
    sort -t: -k1,1 -k2,2n)
exit $blamed
