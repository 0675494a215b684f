#!/usr/bin/env bash
# Latency of paneltunectl's everyday questions, cold (no kept facts) and warm, run by hand:
#   [DISPLAYS="ElmLarge@video Birch@ftdi"] bash bench/cli-latency.sh [paneltunectl] [runs]
# DISPLAYS holds --simulate descriptions; "system" asks the operating system's displays, which
# inside the emulated bus of bench/DisplayRig.cpp is a simulated ElmLarge behind /dev/i2c-5:
#   umockdev-wrapper build/bench/display_rig \
#       env DISPLAYS=system bash bench/cli-latency.sh build/src/cli/paneltunectl
# Every display runs on the real clock, so every wait of the wire is a real sleep. Prints the
# median wall time of the whole process (hyperfine when installed, else date) and the waits
# the protocol asked for (--timing). Figures go to docs/performance.md.
set -euo pipefail
ctl=${1:-build/src/cli/paneltunectl}
runs=${2:-5}
cache=$(mktemp -d)
trap 'rm -rf "$cache"' EXIT
export XDG_CACHE_HOME=$cache

median() { sort -n | awk '{ v[NR] = $1 } END { print (NR % 2) ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2 }'; }

# The requested waits of one run, from its --timing line.
waits() { "$ctl" "$@" --timing 2>&1 >/dev/null | sed -n 's/.*protocol waits \([0-9.]*\) ms.*/\1/p'; }

wall_ms() {
    local prepare=$1
    shift
    if command -v hyperfine >/dev/null; then
        local json
        json=$(mktemp)
        hyperfine -N --style none --runs "$runs" --prepare "$prepare" --export-json "$json" \
            "$ctl $*" >/dev/null 2>&1
        python3 -c 'import json,sys; print("%.0f" % (json.load(open(sys.argv[1]))["results"][0]["median"] * 1000))' "$json"
        rm -f "$json"
    else
        for _ in $(seq "$runs"); do
            bash -c "$prepare"
            local start end
            start=$(date +%s%N)
            "$ctl" "$@" >/dev/null 2>&1 || true
            end=$(date +%s%N)
            echo $(((end - start) / 1000000))
        done | median
    fi
}

printf '%-16s %-18s %-5s %10s %12s\n' display question start "median ms" "waits ms"
for display in ${DISPLAYS:-ElmLarge@video Birch@ftdi}; do
    for question in "get brightness" "set brightness 40" "list"; do
        # shellcheck disable=SC2086
        if [ "$display" = system ]; then set -- $question; else set -- --simulate "$display" $question; fi
        # A display that keeps its state between runs (the emulated bus) gets another value back
        # before each set, so that every set writes.
        unset_value=true
        if [ "${question%% *}" = set ]; then
            unset_value="'$ctl' ${*:1:$#-1} 41 >/dev/null 2>&1"
        fi
        cold_prepare="$unset_value; rm -rf '$cache/paneltune'"
        warm_prepare="$unset_value"
        bash -c "$cold_prepare"
        cold_waits=$(waits "$@")
        cold=$(wall_ms "$cold_prepare" "$@")
        "$ctl" "$@" >/dev/null 2>&1 || true
        bash -c "$warm_prepare"
        warm_waits=$(waits "$@")
        warm=$(wall_ms "$warm_prepare" "$@")
        printf '%-16s %-18s %-5s %10s %12s\n' "$display" "$question" cold "$cold" "$cold_waits"
        printf '%-16s %-18s %-5s %10s %12s\n' "$display" "$question" warm "$warm" "$warm_waits"
    done
done
echo "machine: $(nproc) cores, $(uptime | sed 's/.*load/load/')"
