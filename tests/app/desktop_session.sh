#!/usr/bin/env bash
# Runs the real program under Xvfb with openbox as a user would: three starts must leave the
# window where the last close left it. Then the dialog pictures are taken under the same X server
# in German and at scale 2, into the build tree, for people to look at.
# Usage: desktop_session.sh <paneltune> <app_tests> <picture folder>; exits 77 (skipped) when
# Xvfb, openbox or xdotool is missing.
set -euo pipefail
program=$1
tests=$2
pictures=$3
for tool in Xvfb openbox xdotool; do
    command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
done
work=$(mktemp -d)
pids=()
cleanup() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    rm -rf "$work"
}
trap cleanup EXIT
mkdir -m 700 "$work/run"
export HOME="$work" XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work/run"
# Under the sanitizers, D-Bus keeps a buffer to the end that only a real session reaches.
export LSAN_OPTIONS="suppressions=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/desktop-session.supp:print_suppressions=0"

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
pids+=($!)
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.1; done
export DISPLAY=":$(cat "$work/display")"
openbox --startup "touch $work/wm-ready" >/dev/null 2>&1 &
pids+=($!)
for _ in $(seq 100); do [ -e "$work/wm-ready" ] && break; sleep 0.1; done
[ -e "$work/wm-ready" ] || { echo "openbox did not start"; exit 1; }

# The program's main window; Qt may replace a native window while it sets one up.
main_window() {
    timeout 60 xdotool search --sync --onlyvisible --name '^Vorex Display Settings$' | tail -1
}

# The client area's position of the program's main window once it stops moving.
settled_position() {
    local last="" now
    for _ in $(seq 50); do
        now=$(xdotool getwindowgeometry "$(main_window)" 2>/dev/null |
            sed -n 's/ *Position: \([0-9-]*,[0-9-]*\).*/\1/p')
        [ -n "$now" ] && [ "$now" = "$last" ] && { echo "$now"; return; }
        last=$now
        sleep 0.2
    done
    echo "$last"
}

positions=()
for start in 1 2 3; do
    QT_QPA_PLATFORM=xcb "$program" /simulate Birch@ftdi >"$work/trace-$start" 2>&1 &
    pid=$!
    position=$(settled_position)
    positions+=("$position")
    echo "start $start: $position"
    xdotool key --window "$(main_window)" Escape
    timeout 30 tail --pid="$pid" -f /dev/null
done
if [ "${positions[0]}" != "${positions[1]}" ] || [ "${positions[1]}" != "${positions[2]}" ]; then
    echo "the window moved between starts: ${positions[*]}"
    exit 1
fi

mkdir -p "$pictures"
QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=2 PANELTUNE_SCREENSHOT_DIR="$pictures" \
    "$tests" --gtest_filter='DialogScreenshotTest.*' \
    >"$work/pictures.log" 2>&1 || { tail -40 "$work/pictures.log"; exit 1; }
echo "pictures in $pictures"
