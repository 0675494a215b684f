#!/usr/bin/env bash
# Builds the Debian package of the build tree into a scratch folder and checks that it installs
# under /usr only, holds the programs, compressed manual pages, copyright and changelog, the
# i2c-dev module entry and the udev maintainer scripts, with dependencies read from the
# binaries. With --lintian it also runs lintian, when installed, and fails on its errors.
# Usage: check-debian-package.sh BUILD_DIR [--lintian]
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
        ./usr/bin/* | ./usr/share/* | ./usr/lib/udev/rules.d/* | ./usr/lib/modules-load.d/*) ;;
        *) echo "packaged outside /usr's usual folders: $file"; failed=1 ;;
    esac
done <<<"$files"
for wanted in ./usr/bin/paneltunectl ./usr/share/man/man1/paneltunectl.1.gz \
              ./usr/share/applications/paneltune.desktop ./usr/share/doc/paneltune/copyright \
              ./usr/share/doc/paneltune/changelog.Debian.gz ./usr/lib/modules-load.d/paneltune.conf; do
    grep -qx "$wanted" <<<"$files" || { echo "not packaged: $wanted"; failed=1; }
done

control=$(mktemp -d -p "$out")
dpkg-deb -e "$package" "$control"
for script in postinst postrm; do
    grep -q 'udevadm control --reload-rules' "$control/$script" 2>/dev/null ||
        { echo "$script does not reload udev"; failed=1; }
done

depends=$(dpkg-deb -f "$package" Depends)
for runtime in libc6 libhidapi-hidraw0 libudev1; do
    grep -q "$runtime" <<<"$depends" || { echo "no dependency on $runtime"; failed=1; }
done
if grep -qx ./usr/bin/paneltune <<<"$files"; then
    grep -q libqt6widgets6 <<<"$depends" || { echo "no dependency on Qt"; failed=1; }
fi

if [ "${2:-}" = --lintian ] && command -v lintian >/dev/null; then
    lintian --fail-on error "$package" || failed=1
fi
exit $failed
