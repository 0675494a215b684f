#!/usr/bin/env bash
# Time from the desktop program's start to its visible main window, cold (no kept facts) and
# warm, on simulated displays under Xvfb, run by hand:
#   bash bench/desktop-start.sh [paneltune] [description] [runs]
# Needs Xvfb and xdotool. Prints each start's time in ms; figures go to docs/performance.md.
set -euo pipefail
program=${1:-build/src/app/paneltune}
description=${2:-Birch@ftdi}
runs=${3:-3}
for tool in Xvfb xdotool; do
    command -v "$tool" >/dev/null || { echo "$tool is not installed" >&2; exit 1; }
done
work=$(mktemp -d)
xvfb=""
cleanup() {
    [ -n "$xvfb" ] && kill "$xvfb" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT
mkdir -m 700 "$work/run"
export HOME="$work" XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work/run"
export XDG_CACHE_HOME="$work/cache" QT_QPA_PLATFORM=xcb
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
xvfb=$!
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.1; done
export DISPLAY=":$(cat "$work/display")"

start_ms() {
    local begin end pid
    begin=$(date +%s%N)
    "$program" /simulate "$description" >/dev/null 2>&1 &
    pid=$!
    timeout 120 xdotool search --sync --onlyvisible --name '^Vorex Display Settings$' >/dev/null
    end=$(date +%s%N)
    kill "$pid" 2>/dev/null
    wait "$pid" 2>/dev/null || true
    echo $(((end - begin) / 1000000))
}

for run in $(seq "$runs"); do
    rm -rf "$XDG_CACHE_HOME"
    cold=$(start_ms)
    warm=$(start_ms)
    echo "$description run $run: cold $cold ms, warm $warm ms"
done
echo "machine: $(nproc) cores, $(uptime | sed 's/.*load/load/')"
