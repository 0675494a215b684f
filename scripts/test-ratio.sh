#!/usr/bin/env bash
# Prints the size of the tests against the size of the code they test, in non-blank C++ lines
# that are not comment lines. Tests count with their fuzz targets and support code.
# docs/testing.md says what the figure should be.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$top"

lines() {
    if git rev-parse --git-dir >/dev/null 2>&1; then
        git ls-files "$1/*"
    else
        find "$1" -type f
    fi | grep -E '\.(cpp|h)$' | tr '\n' '\0' | xargs -0 cat | grep -c -v -E '^\s*(//.*)?$'
}

tests=$(lines tests)
code=$(lines src)
awk -v t="$tests" -v s="$code" 'BEGIN {
    printf "tests: %d lines, src: %d lines, ratio %.3f (wanted: at most 0.350)\n", t, s, t / s
}'
