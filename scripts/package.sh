#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the Debian packages in build-release/packages, asks lintian about them, installs them in a
# fresh Debian and runs an example there: scripts/package.sh [PRESET [--no-fresh-root]]
# PRESET is release; default packs what the tests have run with, from build/packages. The fresh root
# needs root's rights and the network; without them the package is unpacked into a folder and run from
# there.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=${1:-release}
build=build-release
[ "$preset" = release ] || build=build

scripts/setup.sh build docs package
cmake --preset "$preset" --log-level=WARNING
cmake --build --preset "$preset" --target vistrel-run vistrel-viewer vistrel_film reference
rm -rf "$build/packages"
(cd "$build" && cpack -G DEB > cpack.log 2>&1) || { cat "$build/cpack.log"; exit 1; }

packages=("$build"/packages/*.deb)
printf '%s\n' "${packages[@]}"
dpkg-deb --field "$build"/packages/vistrel_*.deb Package Version Installed-Size Depends
lintian --allow-root --tag-display-limit 0 --fail-on error "${packages[@]}"

work=$(mktemp -d)
trap clean_up EXIT
clean_up() {
    mountpoint -q "$work/root/proc" && umount "$work/root/proc"
    rm -rf --one-file-system "$work"
}
example=/usr/share/vistrel/examples/first_light.py

in_unpacked_folder() {
    dpkg-deb --extract "$build"/packages/vistrel_*.deb "$work/unpacked"
    mkdir "$work/results"
    "$work/unpacked/usr/bin/vistrel-run" --camera sim --cwd "$work/results" "$work/unpacked$example"
    test -s "$work/results/first_light.png"
    QT_QPA_PLATFORM=offscreen "$work/unpacked/usr/bin/vistrel-viewer" --version
}

in_fresh_root() {
    local root=$work/root
    debootstrap --variant=minbase bookworm "$root" "$(mirror)" > "$work/debootstrap.log" ||
        { tail "$work/debootstrap.log"; return 1; }
    cp "${packages[@]}" "$root/tmp"
    chroot "$root" apt-get -q update
    chroot "$root" sh -c 'DEBIAN_FRONTEND=noninteractive apt-get install -qy /tmp/vistrel_*.deb' \
        > "$work/install.log" 2>&1 || { tail -20 "$work/install.log"; return 1; }
    mount -t proc proc "$root/proc"
    mkdir "$root/results"
    chroot "$root" vistrel-run --camera sim --cwd /results "$example"
    test -s "$root/results/first_light.png"
    chroot "$root" env QT_QPA_PLATFORM=offscreen vistrel-viewer --version
    chroot "$root" apt-get -qy purge vistrel > "$work/purge.log" 2>&1
    test ! -e "$root/usr/lib/vistrel"
}

# Where this machine gets its own packages from.
mirror() {
    local found
    found=$(cat /etc/apt/sources.list /etc/apt/sources.list.d/* 2>/dev/null |
        grep -v '^#' | grep -oE 'https?://[^ ]+/debian/?( |$)' | tr -d ' ') || true
    echo "${found%%$'\n'*}" | grep . || echo http://deb.debian.org/debian
}

if [ "${2:-}" = --no-fresh-root ] || [ "$(id -u)" -ne 0 ]; then
    in_unpacked_folder
else
    in_fresh_root
fi
echo "The package installs and runs"
