#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs hostile scripts, which it makes from random numbers, in a built vistrel-run:
#     scripts/hostile.sh [BUILD [OPTION...]]
# BUILD is build-asan when none is named. Options say how long: --seconds N, --calls N, and where to
# begin: --seed N. The seeds of what failed are printed; one is run again by --seed N --seeds 1.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

build=${1:-build-asan}
shift || true
exec /usr/bin/python3 tests/hostile/hostile_scripts.py "$build/bin/vistrel-run" --jobs "$(nproc)" "$@"
