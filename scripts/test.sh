#!/usr/bin/env bash
# Sets up the machine, checks the formatting, builds with warnings as errors, runs every test
# (the layering check among them), then does the same under AddressSanitizer and
# UndefinedBehaviorSanitizer, and ends with a short fuzzing run. Exits non-zero on any failure.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
bash "$top/scripts/setup.sh"

echo "== format"
bash "$top/scripts/check-format.sh"

for flavour in release sanitize; do
    echo "== $flavour build"
    bash "$top/scripts/build.sh" "$flavour"
    dir="$top/build"
    [ "$flavour" = release ] || dir="$top/build-$flavour"
    echo "== $flavour tests"
    export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
    export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
    ctest --test-dir "$dir" --output-on-failure -j 2
done

echo "== fuzzing"
bash "$top/scripts/fuzz.sh"

bash "$top/scripts/test-ratio.sh"
