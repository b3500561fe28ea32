#!/usr/bin/env bash
# build_sample.sh TESSEL FOLDER: makes the sample workspace in FOLDER, in place of an earlier one.
set -euo pipefail
tessel=$1
folder=$2
source=$(dirname "$(realpath "$0")")
new=$folder.tmp

# Built under another name first: an interrupted build leaves no half workspace behind.
rm -rf "$new"
"$tessel" new "$new" --project Publishing
answers=$("$tessel" --workspace "$new" call <"$source/sample.jsonl")

# A call that succeeds answers with true, a new identifier or a number of rows.
if grep -E '"error": *\{|"result": *(false|-1|0)\b' <<<"$answers"; then
    echo "build_sample.sh: the calls of sample.jsonl answered above failed." >&2
    exit 1
fi
if [ "$(wc -l <<<"$answers")" -ne "$(wc -l <"$source/sample.jsonl")" ]; then
    echo "build_sample.sh: not every call of sample.jsonl was answered." >&2
    exit 1
fi

rm -rf "$folder"
mv "$new" "$folder"
