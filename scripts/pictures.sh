#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the pictures of the examples anew, in docs/pictures, with the simulated camera.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build
cmake --preset default --log-level=WARNING
cmake --build --preset default --target vistrel-run vistrel_python_script vistrel_codecs

for topic in first_light import drawing conversions measurements line_profile live_histogram \
    exposure_series; do
    build/bin/vistrel-run --camera sim --cwd docs/pictures "examples/$topic.py"
done
