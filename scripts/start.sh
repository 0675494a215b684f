#!/usr/bin/env bash
# Sets up the machine, builds PanelTune and starts it. In a graphical session the desktop
# program starts, on simulated displays when no pen display answers; without one the command
# line shows the simulated displays and their settings.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
bash "$top/scripts/setup.sh"
build="$top/build"

targets=(--target paneltunectl)
[ -f "$top/src/app/CMakeLists.txt" ] && targets+=(--target paneltune)
bash "$top/scripts/build.sh" release "${targets[@]}" >/dev/null

gui="$build/src/app/paneltune"
cli="$build/src/cli/paneltunectl"
echo "PanelTune $(cat "$build/VERSION")"

if [ -x "$gui" ] && { [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; }; then
    # Exit status 2 of a listing on the real platform means no pen display is attached.
    status=0
    "$cli" list >/dev/null 2>&1 || status=$?
    if [ "$status" -eq 2 ]; then
        echo "No pen display found: starting on simulated displays."
        exec "$gui" /simulate "$@"
    fi
    exec "$gui" "$@"
fi

echo "No graphical session: the simulated displays as the command line sees them."
echo
echo "\$ paneltunectl --simulate list"
"$cli" --simulate list
echo
echo "\$ paneltunectl --simulate get all"
"$cli" --simulate get all
echo
if [ -x "$gui" ]; then
    echo "To start the desktop program, run in a graphical session:"
    echo "  $gui            (real displays)"
    echo "  $gui /simulate  (simulated displays)"
else
    echo "The desktop program was not built (Qt 6 missing?); see scripts/packages/."
fi
echo "More: $cli --help"
