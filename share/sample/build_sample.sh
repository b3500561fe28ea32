#!/usr/bin/env bash
# build_sample.sh TESSEL SQLITE3 FOLDER: makes the sample workspace in FOLDER, in place of an earlier one.
set -euo pipefail
tessel=$1
sqlite3=$2
folder=$3
source=$(dirname "$(realpath "$0")")
new=$folder.tmp

# Built under another name first: an interrupted build leaves no half workspace behind.
rm -rf "$new"
"$tessel" new "$new" --project Publishing
answers=$("$tessel" --workspace "$new" call <"$source/sample.jsonl")

# A call that succeeds answers with true or a new identifier.
if grep -E '"error": *\{|"result": *(false|-1)' <<<"$answers"; then
    echo "build_sample.sh: the calls of sample.jsonl answered above failed." >&2
    exit 1
fi
if [ "$(wc -l <<<"$answers")" -ne "$(wc -l <"$source/sample.jsonl")" ]; then
    echo "build_sample.sh: not every call of sample.jsonl was answered." >&2
    exit 1
fi

database=$(find "$new/Projects" -name '*.mdb')
"$sqlite3" -batch -bail "$database" <"$source/columns.sql"
rm -rf "$folder"
mv "$new" "$folder"
