#!/usr/bin/env bash
# links.sh ROOT: names each link of README.md and docs/ that leads to no file, and fails when there is one.
set -euo pipefail
cd "$1"
broken=0
while IFS=: read -r page link; do
    target=${link#*](}
    target=${target%)}
    target=${target%%#*}
    case "$target" in
    '' | *://*) ;;
    *) [ -e "$(dirname "$page")/$target" ] || { echo "$page: $target is not there" && broken=1; } ;;
    esac
done < <(grep -roE --include='*.md' '\]\([^)]+\)' README.md docs)
exit $broken
