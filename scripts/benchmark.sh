#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the project on a fresh Debian, runs the benchmarks and prints one table:
# scripts/benchmark.sh [--quick] [--markdown]
# --markdown also writes the figures into docs/benchmarks.md.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build test
cmake --preset default -DVISTREL_BUILD_BENCHMARKS=ON --log-level=WARNING
cmake --build --preset default --target benchmarks
python3 benchmarks/run_all.py "$@" build/benchmarks/programs.json
