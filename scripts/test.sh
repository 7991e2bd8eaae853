#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the project on a fresh Debian and runs every test: scripts/test.sh [PRESET [CTEST-OPTION...]]
# PRESET is default, asan or tsan.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=${1:-default}
shift || true

scripts/setup.sh build docs test
cmake --preset "$preset" -DVISTREL_BUILD_TESTS=ON --log-level=WARNING
cmake --build --preset "$preset"
ctest --preset "$preset" "$@"
