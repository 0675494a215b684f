#!/usr/bin/env bash
# Installs the build tree with prefix /usr into a staging folder, as a package build does, and
# checks that every file of an installation is there, that nothing lands outside the prefix, and
# that the desktop entry passes desktop-file-validate.
# Usage: check-install-tree.sh BUILD_DIR SOURCE_DIR
set -euo pipefail
build=$1
source=$2
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
# DESTDIR also catches a rule with an absolute destination, which would otherwise write into
# the running system.
DESTDIR="$stage" cmake --install "$build" --prefix /usr >/dev/null
prefix="$stage/usr"

expected=(
    bin/paneltunectl
    share/applications/paneltune.desktop
    share/icons/hicolor/scalable/apps/paneltune.svg
    share/man/man1/paneltune.1.gz
    share/man/man1/paneltunectl.1.gz
    share/doc/paneltune/copyright
    share/doc/paneltune/changelog.Debian.gz
    lib/modules-load.d/paneltune.conf
)
[ -e "$build/src/app/paneltune" ] && expected+=(bin/paneltune)
for rules in "$source"/data/udev/*.rules; do
    [ -e "$rules" ] && expected+=("lib/udev/rules.d/$(basename "$rules")")
done

missing=0
for file in "${expected[@]}"; do
    if [ ! -s "$prefix/$file" ]; then
        echo "missing from the installation: $file"
        missing=1
    fi
done
while IFS= read -r stray; do
    echo "installed outside the prefix or its usual folders: ${stray#"$stage"}"
    missing=1
done < <(find "$stage" -type f ! -path "$prefix/bin/*" ! -path "$prefix/share/*" \
    ! -path "$prefix/lib/udev/rules.d/*" ! -path "$prefix/lib/modules-load.d/*")
[ -x "$prefix/bin/paneltunectl" ] || { echo "bin/paneltunectl is not executable"; missing=1; }
"$prefix/bin/paneltunectl" --version | grep -q '^paneltunectl ' ||
    { echo "the installed paneltunectl does not run"; missing=1; }
desktop-file-validate "$prefix/share/applications/paneltune.desktop" || missing=1
# Every manual page must be well-formed roff.
for page in "$prefix"/share/man/man1/*.1.gz; do
    if command -v groff >/dev/null; then
        warnings=$(zcat "$page" | groff -man -Tutf8 -ww -z 2>&1)
        [ -z "$warnings" ] || { echo "$page: $warnings"; missing=1; }
    fi
done
exit $missing
