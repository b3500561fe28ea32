#!/usr/bin/env bash
# Runs include_rules.sh on a made-up tree with one violation of each kind beside what is allowed.
set -euo pipefail
rules=$(dirname "$(realpath "$0")")/include_rules.sh
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT

# AddFile FILE INCLUDED...
AddFile() {
    mkdir -p "$(dirname "$tree/$1")"
    printf '#include %s\n' "${@:2}" >"$tree/$1"
}

AddFile include/tessel/value.h '<string>' '"tessel/error.h"'
AddFile src/platform/db/query.cpp '<sqlite3.h>' '"platform/db/query.h"' '"platform/text/utf8.h"'
AddFile src/platform/xml/document.cpp '<pugixml.hpp>' '"platform/files/file_service.h"'
AddFile src/schema/tables.h '<fmt/format.h>' '"tessel/vntws.h"' '"host/frontend.h"' '"platform/db/database.h"'
AddFile src/ui/main/main_window.cpp '<QMainWindow>' '"main_window.h"' '"engine/engine.h"'
AddFile src/cli/main.cpp '"workbench/workspace.h"' '"ui/main/main_window.h"'
if ! "$rules" "$tree"; then
    echo "The lines above were named although they are allowed."
    exit 1
fi

AddFile include/tessel/object.h '"schema/tables.h"'
AddFile src/attic/old.h '<string>'
AddFile src/host/questions.h '<vector>' '<QtCore/qobject.h>' '"QString"' '<qglobal.h>'
AddFile src/platform/db/database.h '<sqlite3.h>'
AddFile src/platform/text/texts.h '"platform/xml/document.h"'
AddFile src/schema/columns.cpp '"pugixml.hpp"' '"ui/main/main_window.h"' '"../host/questions.h"'
AddFile src/verify/rules.cpp '"import/import.h"'
AddFile src/workbench/workspace.cpp '"schema/tables.h"'
printf '  #  include  <sqlite3.h>  // indented\n' >"$tree/src/verify/list.cpp"

expected='include/tessel/object.h:1: tessel may not include schema
src/attic/old.h:1: src/attic is no room of the house
src/host/questions.h:2: Qt belongs to src/ui/controls/* src/ui/dialogs/* src/ui/main/*
src/host/questions.h:3: Qt belongs to src/ui/controls/* src/ui/dialogs/* src/ui/main/*
src/host/questions.h:4: Qt belongs to src/ui/controls/* src/ui/dialogs/* src/ui/main/*
src/platform/db/database.h:1: sqlite3.h belongs to src/platform/db/*.cpp
src/platform/text/texts.h:1: platform/text may not include platform/xml
src/schema/columns.cpp:1: pugixml.hpp belongs to src/platform/xml/*.cpp
src/schema/columns.cpp:2: schema may not include ui/main
src/schema/columns.cpp:3: "../host/questions.h" is not a path below src
src/verify/list.cpp:1: sqlite3.h belongs to src/platform/db/*.cpp
src/verify/rules.cpp:1: verify may not include import
src/workbench/workspace.cpp:1: workbench may not include schema'
code=0
named=$("$rules" "$tree") || code=$?
diff <(echo "$expected") <(echo "$named")
[ $code -eq 1 ]
