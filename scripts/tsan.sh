#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Looks for data races under the thread sanitizer: scripts/tsan.sh [SECONDS]
# Runs the tests of cameras, chains, recordings and views, a script that keeps all threads busy, the
# examples, and for so many SECONDS hostile scripts.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build docs test
cmake --preset tsan -DVISTREL_BUILD_TESTS=ON --log-level=WARNING
cmake --build --preset tsan --target vistrel-run vistrel_{python_script,codecs,film,sounds} \
    host_chains_{chain,elements,recording} host_cameras_{closing,memory,simulated} \
    host_app_{interrupts,live_views,reports,runs,sounds,view_chains,views}
# Not those of network cameras: the sanitizer loses its way when a test starts a process.
ctest --preset tsan -R '^(host_chains_[cer]|host_cameras_(closing|memory|simulated)\.|host_app_(interrupts|live_views|reports|runs|sounds|view_chains|views)\.|script_busy|example_)'
scripts/hostile.sh build-tsan --seed 1000 --seconds "${1:-60}"
