#!/usr/bin/env bash
# Builds the fuzz targets with clang and libFuzzer in build-fuzz/ and runs each for a short,
# bounded time from its seed corpus. New inputs land in build-fuzz/corpus/, crashes in
# build-fuzz/artifacts/; the committed seeds stay as they are. Exits non-zero on any finding.
# Usage: scripts/fuzz.sh [seconds per target, default 20]
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
seconds=${1:-20}
dir="$top/build-fuzz"

generator=()
command -v ninja >/dev/null 2>&1 && generator=(-G Ninja)
[ -f "$dir/CMakeCache.txt" ] || CC=clang CXX=clang++ cmake -S "$top" -B "$dir" "${generator[@]}" \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo -DPANELTUNE_FUZZ=ON -DPANELTUNE_WERROR=ON >/dev/null
cmake --build "$dir" --target fuzz_targets

mkdir -p "$dir/artifacts"
failed=()
while read -r name corpus; do
    [ -n "$name" ] || continue
    echo "== fuzz $name for ${seconds}s"
    mkdir -p "$dir/corpus/$name"
    "$dir/fuzz/${name}_fuzz" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="$dir/artifacts/${name}-" \
        "$dir/corpus/$name" "$corpus" || failed+=("$name")
done <"$dir/fuzz_targets.txt"
if [ ${#failed[@]} -gt 0 ]; then
    echo "fuzz.sh: findings in ${failed[*]}; inputs in $dir/artifacts" >&2
    exit 1
fi
