#!/usr/bin/env bash
# browser.sh TESSEL SAMPLE: opens the report of the workspace SAMPLE in a browser, in each language, names what is
# wrong with it, and fails when there is anything.
set -euo pipefail
tessel=$1
sample=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

cp -r "$sample" "$folder/workspace"
for language in en ja ko; do
    "$tessel" --workspace "$folder/workspace" --lang $language report --out "$folder/$language" >/dev/null
done
cp "$(dirname "$(realpath "$0")")/browser.js" "$folder"
# In a character set of its own: a page in a frame that does not name one is read in that of the page around it.
cat >"$folder/browser.html" <<'HTML'
<!DOCTYPE html>
<meta charset="windows-1252">
<iframe src="en/Publishing/Main.htm"></iframe>
<iframe src="ja/Publishing/Main.htm"></iframe>
<iframe src="ko/Publishing/Main.htm"></iframe>
<pre id="faults">not done</pre>
<script src="browser.js" charset="utf-8"></script>
HTML

chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run --disable-background-networking \
    --disable-component-update --disable-sync --user-data-dir="$folder/profile" --allow-file-access-from-files \
    --enable-logging=stderr --dump-dom "file://$folder/browser.html" >"$folder/dom" 2>"$folder/log"

if grep CONSOLE "$folder/log"; then exit 1; fi
faults=$(sed -n 's/<pre id="faults">//; /^<iframe/,/^<\/pre>/{/^<iframe\|^<\/pre>/!p}' "$folder/dom")
[ "$faults" = none ] || { echo "$faults" && exit 1; }
