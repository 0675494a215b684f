#!/usr/bin/env bash
# Configures and builds one flavour of the tree: "release" (default) or "sanitize".
# Usage: scripts/build.sh [release|sanitize] [extra cmake --build arguments]
# The trees land in build/ and build-sanitize/.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
flavour=${1:-release}
shift || true
case "$flavour" in
    release) dir="$top/build"; args=(-DCMAKE_BUILD_TYPE=RelWithDebInfo) ;;
    sanitize) dir="$top/build-sanitize"; args=(-DCMAKE_BUILD_TYPE=Debug -DPANELTUNE_SANITIZE=ON) ;;
    *) echo "build.sh: unknown flavour '$flavour'" >&2; exit 1 ;;
esac
generator=()
command -v ninja >/dev/null 2>&1 && generator=(-G Ninja)
# Warnings are errors on every configure, an existing build tree's included. The generator
# is only chosen for a new tree.
[ -f "$dir/CMakeCache.txt" ] && generator=()
cmake -S "$top" -B "$dir" "${generator[@]}" "${args[@]}" -DPANELTUNE_WERROR=ON >/dev/null
cmake --build "$dir" "$@"
