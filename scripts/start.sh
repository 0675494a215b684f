#!/usr/bin/env bash
# Sets up the machine, builds PanelTune and starts it.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
bash "$top/scripts/setup.sh"
bash "$top/scripts/build.sh" release >/dev/null
build="$top/build"

gui="$build/src/app/paneltune"
cli="$build/src/cli/paneltunectl"
if [ -x "$gui" ] && { [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; }; then
    exec "$gui" "$@"
fi
if [ -x "$cli" ]; then
    "$cli" --simulate list && exec "$cli" --simulate get all
fi

echo "PanelTune $(cat "$build/VERSION")"
echo "Built: $(cd "$build" && find src -name '*.a' -printf '%f ' | sort)"
echo "Not built yet: paneltune (desktop program), paneltunectl (command line)"
