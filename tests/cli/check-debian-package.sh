#!/usr/bin/env bash
# Builds the Debian package of the build tree into a scratch folder and checks that it installs
# under /usr only, holds both manual pages and the command line, and depends on the hidapi and
# udev runtime packages (and Qt's when it holds the desktop program).
# Usage: check-debian-package.sh BUILD_DIR
set -euo pipefail
build=$1
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT

cpack --config "$build/CPackConfig.cmake" -G DEB -B "$out" >/dev/null
package=$(find "$out" -maxdepth 1 -name '*.deb' | head -n 1)
[ -n "$package" ] || { echo "no package was built"; exit 1; }

failed=0
files=$(dpkg-deb -c "$package" | awk '{print $6}' | grep -v '/$')
while IFS= read -r file; do
    case "$file" in
        ./usr/bin/* | ./usr/share/* | ./usr/lib/udev/rules.d/*) ;;
        *) echo "packaged outside /usr's usual folders: $file"; failed=1 ;;
    esac
done <<<"$files"
for wanted in ./usr/bin/paneltunectl ./usr/share/man/man1/paneltunectl.1 \
              ./usr/share/applications/paneltune.desktop; do
    grep -qx "$wanted" <<<"$files" || { echo "not packaged: $wanted"; failed=1; }
done

depends=$(dpkg-deb -f "$package" Depends)
for runtime in libhidapi-hidraw0 libudev1; do
    grep -q "$runtime" <<<"$depends" || { echo "no dependency on $runtime"; failed=1; }
done
if grep -qx ./usr/bin/paneltune <<<"$files"; then
    grep -q libqt6widgets6 <<<"$depends" || { echo "no dependency on Qt"; failed=1; }
fi
exit $failed
