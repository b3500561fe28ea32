#!/usr/bin/env bash
# format.sh ROOT: names each source file that is not in the form that .clang-format describes, and fails when there is
# one.
set -euo pipefail
cd "$1"
find src include tests bench tools addons docs fuzz \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 -r -n 32 -P 2 clang-format --dry-run -Werror 2>&1 |
    { grep -E '^[^ ]+: ' || true; } | sort -u -t: -k1,1
