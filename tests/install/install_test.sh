#!/usr/bin/env bash
# install_test.sh BUILD SOURCE: installs what was built in BUILD into a temporary folder, and does there what a stranger
# would: builds the example add-ons of SOURCE/docs, registers them, and runs them on a schema.
set -euo pipefail
build=$1
examples=$2/docs/addons
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix
export XDG_CONFIG_HOME=$work/config LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen
unset XDG_DATA_HOME
mkdir -m 700 "$work/run"
export XDG_RUNTIME_DIR=$work/run

# Expect WHAT TEXT COMMAND...: the command must succeed and print a line that matches the pattern TEXT.
Expect() {
    local output
    output=$("${@:3}" 2>&1) || { echo "$1: it failed: $output" && exit 1; }
    grep -qE -- "$2" <<<"$output" || { echo "$1: no '$2' in: $output" && exit 1; }
}

# Refuse WHAT TEXT COMMAND...: the command must fail and say why in a line that matches.
Refuse() {
    local output
    ! output=$("${@:3}" 2>&1) || { echo "$1: it did not fail: $output" && exit 1; }
    grep -qE -- "$2" <<<"$output" || { echo "$1: no '$2' in: $output" && exit 1; }
}

InstallTree() {
    cmake --install "$build" --prefix "$prefix" >"$work/install.log"
    libdir=$(dirname "$(find "$prefix" -name 'libtessel-addon.so')")
    # The tree may be moved, and nothing in it leads back to where it was built.
    mv "$prefix" "$work/moved"
    prefix=$work/moved
    libdir=$prefix/${libdir#"$work/prefix/"}
    tessel=$prefix/bin/tessel
    local program
    for program in "$tessel" "$prefix"/libexec/tessel/tessel-addon-host "$libdir"/libtessel-addon.so \
        "$prefix"/libexec/tessel/addons/*.so; do
        if readelf -d "$program" | grep -E 'RPATH|RUNPATH' | grep -F "$build"; then
            echo "$program looks for libraries where it was built" && exit 1
        fi
    done
    Expect "a library of another second number is another one" 'SONAME.*libtessel-addon\.so\.[0-9]+\.[0-9]+]' \
        readelf -d "$libdir/libtessel-addon.so"
    if grep -rlF -e "$build/share" -e "$build/libexec" "$prefix"; then
        echo "the files above name the folder that they were built in" && exit 1
    fi
}

# A desktop opens a schema with the program, and leaves another format of the same name alone.
UseFileTypes() {
    local data=$prefix/share
    update-mime-database "$data/mime" >"$work/mime.log" 2>&1
    printf '\0\1\0\0Standard Jet DB' >other.mdb
    Expect "a schema" 'application/x-tessel-schema' \
        env XDG_DATA_HOME="$data" gio info "$work/shop/Projects/Shop/DBSCHEMA/Shop.mdb"
    Expect "another format" 'application/vnd.ms-access' env XDG_DATA_HOME="$data" gio info other.mdb
}

MakePackage() {
    cpack --config "$build/CPackConfig.cmake" -B "$work/package" >"$work/package.log"
    Expect "the package" ' \./usr/bin/tessel$' dpkg-deb --contents "$work"/package/*.deb
    Expect "what it needs" 'libqt6widgets6.*qt6-qpa-plugins|qt6-qpa-plugins.*libqt6widgets6' \
        dpkg-deb --field "$work"/package/*.deb Depends
}

FindFlags() {
    read -ra flags < <(PKG_CONFIG_PATH=$libdir/pkgconfig pkg-config --cflags --libs tessel-addon)
}

MakeSchema() {
    cd "$work"
    "$tessel" new shop --project Shop >/dev/null
    "$tessel" --workspace shop call >"$work/calls.log" <<'JSON'
{"member":"TableAdd","args":["BOOK",0,null,{"date":"2026-01-31"},null,null]}
{"member":"ColumnAdd","args":[1,"NAME",12,40,0,true,null,null,null,null,null,-1,0]}
{"member":"ColumnAdd","args":[1,"CHANGEDAT",9,0,0,true,null,null,null,null,null,1,0]}
{"member":"TableAdd","args":["LOAN",0,null,{"date":"2026-01-31"},null,null]}
{"member":"ColumnAdd","args":[2,"Name",1,20,0,true,null,null,null,null,null,-1,0]}
{"member":"TableAdd","args":["NOTE",0,null,{"date":"2026-01-31"},null,null]}
JSON
    ! grep -E '"error"|"result":false' "$work/calls.log"
}

# Columns: every column of the schema in order.
Columns() {
    "$tessel" --workspace "$work/shop" call <<'JSON'
{"on":"ProjectDB","member":"Select","args":["select group_concat(c) as list from (select T.TableName || '.' || C.ColumnName || ':' || C.TypeID as c from Tables T join Columns C on C.TabID = T.TabID order by T.TableName, C.Position)"]}
JSON
}

# The headers compile alone and without a warning.
UseHeaders() {
    local header
    for header in "$prefix"/include/tessel/*.h; do
        echo "#include <tessel/${header##*/}>"
    done | while read -r line; do
        echo "$line" | g++ -x c++ -fsyntax-only -Wall -Wextra -Wpedantic -Werror - "${flags[@]}"
    done
}

# FirstBlock LANGUAGE: the guide's first block of that language.
FirstBlock() {
    awk -v fence="\`\`\`$1" '$0 == fence {inside = 1; next} /^```$/ && inside {exit} inside' "$examples/writing.md"
}

# The guide's first tool compiles, and its lines are answered as it says.
FollowGuide() {
    FirstBlock cpp >"$work/guide.cpp"
    g++ -shared -fPIC "$work/guide.cpp" -o "$work/guide.so" "${flags[@]}"
    FirstBlock json | head -n -1 >"$work/talk"
    "$tessel" new "$work/guide" --project Guide >/dev/null
    sed -n 'p;n' "$work/talk" | "$tessel" --workspace "$work/guide" call | diff <(sed -n 'n;p' "$work/talk") -
    "$tessel" register "$work/guide.so" >/dev/null
    Expect "the guide's tool" '^{"1":{"N":1}}$' "$tessel" --workspace "$work/guide" addon run Example.CountTables
}

RunCppExample() {
    cmake -S "$examples/example-cpp" -B "$work/cpp" -DCMAKE_PREFIX_PATH="$prefix" >"$work/cpp.log"
    cmake --build "$work/cpp" >>"$work/cpp.log"
    # Whoever only has the library has no folder of it to look in.
    cp "$work/cpp/libaudit-columns.so" "$work/tool.so"
    Expect "register the library" '^Example.AuditColumns: ' "$tessel" register "$work/tool.so"
    Expect "not asked, not added" '' "$tessel" --workspace shop addon run Example.AuditColumns
    Expect "unchanged" '"BOOK.NAME:12,BOOK.CHANGEDAT:9,LOAN.Name:1"' Columns
    Expect "run the library" '^5 columns added$' "$tessel" --workspace shop addon run Example.AuditColumns ask=no
    Expect "changed" '"BOOK.NAME:12,BOOK.CHANGEDAT:9,BOOK.CreatedAt:11,LOAN.Name:1,LOAN.CreatedAt:11,LOAN.ChangedAt:11,NOTE.CreatedAt:11,NOTE.ChangedAt:11"' Columns
    Expect "run it again" 'has its audit columns' "$tessel" --workspace shop addon run Example.AuditColumns ask=no
}

RunPythonExample() {
    cp "$examples/example-python/naming_report.py" "$work/"
    Expect "register the program" '^Example.NamingReport: ' \
        "$tessel" register naming_report.py Example.NamingReport
    Expect "run the program" '^2 names with several types$' \
        "$tessel" --workspace shop addon run Example.NamingReport file=names.csv
    printf '%s\r\n' name,type,tables CHANGEDAT,DATE,BOOK 'CHANGEDAT,TIMESTAMP,"LOAN, NOTE"' 'NAME,CHAR(20),LOAN' \
        'NAME,VARCHAR(40),BOOK' | diff - names.csv
    Refuse "a file that cannot be written" 'No such file or directory' \
        "$tessel" --workspace shop addon run Example.NamingReport file=none/names.csv
}

ListClasses() {
    Expect "list" '^Example.AuditColumns: ' "$tessel" addon list
    Expect "list" '^Tessel.SqlScript: .*/libexec/tessel/addons/libtessel-sql-script.so' "$tessel" addon list
    Expect "list" '^Tessel.RecordLayout: ' "$tessel" addon list
    Expect "unregister" 'Example.AuditColumns' "$tessel" unregister Example.AuditColumns
    Refuse "run what was unregistered" 'Example.AuditColumns' \
        "$tessel" --workspace shop addon run Example.AuditColumns ask=no
}

# The installed sample, from a folder that has nothing to do with it.
UseSample() {
    cp -r "$prefix/share/tessel/sample" "$work/sample"
    chmod -R u+w "$work/sample"
    cd /
    Expect "verify the sample" 'No errors|no errors' "$tessel" --workspace "$work/sample" verify
    "$tessel" --workspace "$work/sample" report --out "$work/page" >/dev/null
    [ -n "$(find "$work/page" -name '*.htm*')" ] || { echo "no page was written" && exit 1; }
    cd "$work/sample"
    Expect "bundled tool" '.' "$tessel" addon run Tessel.SqlScript 'dialect=sqlite;file=script.sql'
    grep -qi 'create table' script.sql
    "$tessel" open --picture "$work/window.png"
    [ -s "$work/window.png" ] || { echo "no picture of the window" && exit 1; }
}

InstallTree
MakePackage
MakeSchema
UseFileTypes
FindFlags
UseHeaders
FollowGuide
RunCppExample
RunPythonExample
ListClasses
UseSample
