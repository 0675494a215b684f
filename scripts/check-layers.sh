#!/usr/bin/env bash
# Checks the layering of docs/architecture.md over every #include under src/: a layer includes
# its own headers and those of the layers its row may call, never one above; and only the
# platforms, the desktop program, the command line and the foundation's *Posix files include
# operating-system, hidapi, udev or Qt headers. Prints each offending line; exits 1 when any.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$top"
grep -rn --include='*.cpp' --include='*.h' '^#include' src | LC_ALL=C sort |
    awk -v table=docs/architecture.md '
function trim(s) { gsub(/^[ \t]+|[ \t]+$/, "", s); return s }
# The longest layer whose folder prefixes the path, or "" for none.
function layer_of(path,    i, best) {
    best = ""
    for (i = 1; i <= count; ++i) {
        if (index(path, layers[i] "/") == 1 && length(layers[i]) > length(best)) best = layers[i]
    }
    return best
}
BEGIN {
    # The rows of the layer table, top (calls the most) to bottom.
    while ((getline row < table) > 0) {
        if (row !~ /^\| `src\/[a-z\/]+\/` \|/) continue
        match(row, /`src\/[a-z\/]+\/`/)
        name = substr(row, RSTART + 5, RLENGTH - 7)
        split(row, cols, "|")
        layers[++count] = name
        calls[name] = trim(cols[4])
    }
    if (count == 0) { print "check-layers: no layer table in " table > "/dev/stderr"; exit 2 }
    for (i = 1; i <= count; ++i) {
        name = layers[i]; c = calls[name]
        allowed[name, name] = 1
        if (c ~ /^everything below/) {
            for (j = i + 1; j <= count; ++j) {
                if (index(c, "`" layers[j] "`") == 0) allowed[name, layers[j]] = 1
            }
            continue
        }
        gsub(/\([^)]*\)/, "", c); gsub(/`/, "", c); gsub(/ only/, "", c)
        n = split(c, items, ",")
        for (k = 1; k <= n; ++k) allowed[name, trim(items[k])] = 1
    }
    system_header = "<(Q[A-Za-z]*|sys/[a-z_]+\\.h|unistd\\.h|fcntl\\.h|termios\\.h|dlfcn\\.h|pthread\\.h|libudev\\.h|hidapi[^>]*|linux/[a-z0-9_-]+\\.h|libftdi1?/[a-z_]+\\.h)>"
}
{
    first = index($0, ":"); file = substr($0, 1, first - 1); rest = substr($0, first + 1)
    second = index(rest, ":"); line = substr(rest, 1, second - 1); text = substr(rest, second + 1)
    layer = layer_of(substr(file, 5))
    if (layer == "") next
    if (match(text, /^#include "[^"]+"/)) {
        target = substr(text, RSTART + 10, RLENGTH - 11)
        used = layer_of(target)
        if (used != "" && !((layer, used) in allowed)) {
            print file ":" line ": " layer " includes " target " of " used; bad = 1
        }
    } else if (match(text, system_header)) {
        if (layer == "app" || layer == "cli" || layer ~ /^platform\//) next
        if (layer == "foundation" && file ~ /Posix\.cpp$/) next
        print file ":" line ": " layer " includes the system header " substr(text, RSTART, RLENGTH); bad = 1
    }
}
END { exit bad }'
