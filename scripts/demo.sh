#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the project on a fresh Debian and takes a first picture with the simulated camera.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build
cmake --preset default -DVISTREL_BUILD_TESTS=OFF -DVISTREL_BUILD_BENCHMARKS=OFF --log-level=WARNING
cmake --build --preset default

out=$PWD/build/demo
mkdir -p "$out"
echo
build/bin/vistrel-run --camera sim --cwd "$out" examples/first_light.py
echo
echo "The picture is in $out/first_light.png"
