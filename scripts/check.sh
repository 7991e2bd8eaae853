#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Format of every file, clang-tidy on every product file: scripts/check.sh. Needs a configured and built build/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build test checks

mapfile -t sources < <(git ls-files '*.cpp')
mapfile -t headers < <(git ls-files '*.h')

echo "Format: ${#sources[@]} sources, ${#headers[@]} headers"
clang-format-14 --dry-run --Werror "${sources[@]}" "${headers[@]}"

mapfile -t product < <(git ls-files '*.cpp' ':!tests')
echo "clang-tidy: ${#product[@]} sources"
printf '%s\0' "${product[@]}" |
    xargs -0 -n 4 -P "$(nproc)" clang-tidy-14 --quiet --warnings-as-errors='*' -p build
