#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the fuzzer with clang's sanitizers and runs it from the kept corpus: scripts/fuzz.sh [SECONDS]
# What it finds on the way stays in build-fuzz/corpus; an input that does harm is written to build-fuzz.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

seconds=${1:-60}

scripts/setup.sh build fuzz
cmake --preset fuzz --log-level=WARNING
cmake --build --preset fuzz --target fuzz_image_import

mkdir -p build-fuzz/corpus
export QT_QPA_PLATFORM=offscreen PYTHONMALLOC=malloc
# The interpreter keeps memory on purpose, and the image type its records.
export ASAN_OPTIONS=detect_leaks=0:allocator_may_return_null=1
export UBSAN_OPTIONS=print_stacktrace=1
build-fuzz/bin/fuzz_image_import -max_total_time="$seconds" -max_len=512 -timeout=100 \
    -print_final_stats=1 -artifact_prefix=build-fuzz/ build-fuzz/corpus tests/fuzz/corpus
