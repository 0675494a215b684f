#!/usr/bin/env bash
# Fails when a C++ file of the tree is not as clang-format with the project's .clang-format
# leaves it; prints what it would change.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$top"
dirs=()
for dir in src tests bench; do [ -d "$dir" ] && dirs+=("$dir"); done
find "${dirs[@]}" -type f \( -name '*.cpp' -o -name '*.h' \) -print0 | sort -z |
    xargs -0 clang-format --dry-run --Werror
