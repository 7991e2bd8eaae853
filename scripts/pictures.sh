#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the pictures of the documents anew, in docs, with the simulated camera: those of examples and
# tutorial, and those of the viewer's window, on a screen without hardware.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build test
cmake --preset default --log-level=WARNING
cmake --build --preset default --target vistrel-run vistrel-viewer vistrel_python_script \
    vistrel_codecs vistrel_film

for topic in first_light import drawing conversions measurements line_profile live_histogram \
    exposure_series; do
    build/bin/vistrel-run --camera sim --cwd docs/pictures "examples/$topic.py"
done

# The commands are those of the page.
page=docs/tutorial/README.md
grep '^vistrel-run .* examples/tutorial/' "$page" | while read -r _ arguments; do
    # shellcheck disable=SC2086 # several words
    build/bin/vistrel-run --cwd docs/tutorial/pictures $arguments </dev/null
done
rm -f docs/tutorial/pictures/*.avi

VISTREL_VIEWER=$PWD/build/bin/vistrel-viewer /usr/bin/python3 tests/window/take_pictures.py docs/pictures
