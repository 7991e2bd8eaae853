#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Format of every file, cppcheck and clang-tidy on every product file: scripts/check.sh. Needs a configured
# and built build/. What the two do not look for is in .clang-tidy and scripts/cppcheck.txt, with reasons.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build test checks

mapfile -t sources < <(git ls-files '*.cpp')
mapfile -t headers < <(git ls-files '*.h')

echo "Format: ${#sources[@]} sources, ${#headers[@]} headers"
clang-format-14 --dry-run --Werror "${sources[@]}" "${headers[@]}"

mapfile -t product < <(git ls-files '*.cpp' ':!tests')
# Without the headers of Qt and Python, whose macros it need not know: it takes seconds.
echo "cppcheck: ${#product[@]} sources"
cppcheck --quiet -j "$(nproc)" --std=c++20 --language=c++ --library=qt --enable=warning,performance,portability \
    --error-exitcode=1 --suppressions-list=scripts/cppcheck.txt --suppress=missingIncludeSystem \
    -DPy_LIMITED_API=0x03080000 '-DQ_DISABLE_COPY_MOVE(type)=' -I host_api -I host -I plugins/python_script \
    "${product[@]}"

echo "clang-tidy: ${#product[@]} sources"
scripts/tidy.py "${product[@]}"
